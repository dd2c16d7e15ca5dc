// The operations on the text of paths.
#include "platform/shell.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

typedef std::basic_string<WCHAR> Text;

// With "/" as the separator.
CString Slashed(const WCHAR* path) {
    CString text(path);
    text.Replace('\\', '/');
    return text;
}

TEST(PathConformance, PathsAreAppendedWithOneSeparator) {
    static const struct {
        const WCHAR *path, *more, *result;
    } kRows[] = {
        {_T("\\a"), _T("b"), _T("/a/b")},       {_T("\\a\\"), _T("b"), _T("/a/b")},
        {_T("\\a"), _T("\\b"), _T("/a/b")},     {_T("\\a"), _T(""), _T("/a")},
        {_T("\\a"), _T("\\"), _T("/a")},        {_T("\\a\\..\\b\\.\\c"), _T("d"), _T("/b/c/d")},
        {_T("\\a"), _T("..\\..\\b"), _T("/b")}, {_T(""), _T(""), _T("/")},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::PrintToString(CString(row.path) + _T(" and ") + row.more));
        WCHAR path[MAX_PATH];
        path[Text(row.path).copy(path, MAX_PATH - 1)] = 0;
        EXPECT_TRUE(PathAppendW(path, row.more));
        EXPECT_EQ(CString(row.result), Slashed(path));
    }
    WCHAR path[MAX_PATH] = {'a'};
    EXPECT_FALSE(PathAppendW(path, nullptr));
    EXPECT_EQ(CString(_T("a")), path);
    EXPECT_FALSE(PathAppendW(nullptr, _T("a")));
}

} // namespace
