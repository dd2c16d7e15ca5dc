// The operations on the text of paths.
#include "platform/shell.h"
#include "support/test.h"

namespace {

// With "/" as the separator.
CString Slashed(const WCHAR* path) {
    CString text(path);
    text.Replace('\\', '/');
    return text;
}

TEST(PathConformance, PathsAreAppendedWithOneSeparator) {
    static const std::tuple<const WCHAR*, const WCHAR*, const WCHAR*> kRows[] = {
        {_T("\\a"), _T("b"), _T("/a/b")},       {_T("\\a\\"), _T("b"), _T("/a/b")},
        {_T("\\a"), _T("\\b"), _T("/a/b")},     {_T("\\a"), _T(""), _T("/a")},
        {_T("\\a"), _T("\\"), _T("/a")},        {_T("\\a\\..\\b\\.\\c"), _T("d"), _T("/b/c/d")},
        {_T("\\a"), _T("..\\..\\b"), _T("/b")}, {_T(""), _T(""), _T("/")},
    };
    for (const auto& [start, more, result] : kRows) {
        SCOPED_TRACE(testing::PrintToString(CString(start) + _T(" and ") + more));
        WCHAR path[MAX_PATH];
        path[Wide(start).copy(path, MAX_PATH - 1)] = 0;
        EXPECT_TRUE(PathAppendW(path, more));
        EXPECT_EQ(CString(result), Slashed(path));
    }
    WCHAR path[MAX_PATH] = {'a'};
    EXPECT_FALSE(PathAppendW(path, nullptr));
    EXPECT_EQ(CString(_T("a")), path);
    EXPECT_FALSE(PathAppendW(nullptr, _T("a")));
}

} // namespace
