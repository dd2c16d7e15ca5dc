// The operations on the text of paths, and the folders of the system and the user.
#include "platform/shell.h"
#include "support/environment.h"
#include "support/platform.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

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
        {_T("\\a"), _T("b"), _T("/a/b")},
        {_T("\\a\\"), _T("b"), _T("/a/b")},
        {_T("\\a"), _T("\\b"), _T("/a/b")},
        {_T("\\a"), _T("b\\"), _T("/a/b/")},
        {_T("\\a"), _T(""), _T("/a")},
        {_T("\\a\\"), _T(""), _T("/a/")},
        {_T("\\a"), _T("b/c"), _T("/a/b/c")},
        {_T("\\a"), _T(".."), _T("/")},
        {_T("\\a"), _T("..\\b"), _T("/b")},
        {_T("\\a\\..\\b\\.\\c"), _T("d"), _T("/b/c/d")},
        {_T("\\a"), _T("..\\..\\b"), _T("/b")},
        {_T("\\a"), _T("b."), _T("/a/b.")},
        {_T("a"), _T("b"), _T("a/b")},
        {_T(""), _T("b"), _T("b")},
        {_T(""), _T(""), _T("/")},
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

TEST(PathConformance, APathBeyondItsBufferIsRefused) {
    for (const std::size_t length : {258u, 259u, 260u}) {
        SCOPED_TRACE(length);
        WCHAR path[MAX_PATH + 2] = {'/', 'a'};
        EXPECT_EQ(length < MAX_PATH, PathAppendW(path, Text(length - 3, 'x').c_str()) != FALSE);
        EXPECT_EQ(length < MAX_PATH ? length : 0u, Text(path).size());
    }
    WCHAR path[MAX_PATH + 2] = {};
    Text(260, 'y').copy(path, 260);
    EXPECT_EQ(nullptr, PathAddBackslashW(path));
    EXPECT_EQ(260u, Text(path).size());
}

TEST(PathConformance, APathEndsWithOneSeparator) {
    const std::tuple<const WCHAR*, const WCHAR*> rows[] = {
        {_T("a"), _T("a/")}, {_T("a\\"), _T("a/")}, {_T("\\"), _T("/")}, {_T(""), _T("")}};
    for (const auto& [text, expected] : rows) {
        WCHAR path[MAX_PATH];
        path[Text(text).copy(path, MAX_PATH - 1)] = 0;
        const WCHAR* const end = PathAddBackslashW(path);
        EXPECT_EQ(CString(expected), Slashed(path));
        EXPECT_EQ(path + Text(expected).size(), end);
    }
    EXPECT_EQ(nullptr, PathAddBackslashW(nullptr));
}

TEST(PathConformance, RootsOfDataAreAbsoluteFolders) {
    const EnvironmentVariable dirs("XDG_DATA_DIRS", nullptr);
    const std::tuple<int, HANDLE, DWORD, HRESULT> rows[] = {
        {CSIDL_APPDATA, nullptr, 0, S_OK},        {CSIDL_LOCAL_APPDATA, nullptr, 0, S_OK},
        {CSIDL_COMMON_APPDATA, nullptr, 0, S_OK}, {CSIDL_APPDATA, nullptr, 2, E_INVALIDARG},
        {0x7fff, nullptr, 0, E_INVALIDARG},
    };
    for (const auto& [folder, token, flags, result] : rows) {
        SCOPED_TRACE(folder);
        WCHAR path[MAX_PATH] = {'x'};
        EXPECT_EQ(result, SHGetFolderPathW(nullptr, folder, token, flags, path));
        const CString text = Slashed(path);
        EXPECT_EQ(result != S_OK, text.IsEmpty());
        if (result == S_OK) {
            EXPECT_EQ(kOnLinux ? 0 : 2, text.Find('/'));
            EXPECT_NE('/', text[text.GetLength() - 1]);
        }
    }
}

} // namespace
