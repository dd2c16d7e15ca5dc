// The files that were opened last: their order, their limit and their saved form.
#include <quorvel/controls/recent_files.h>
#include <quorvel/system/profile.h>

#include "support/registry.h"
#include "support/test.h"

namespace {

std::string TextOf(const CRecentFiles& files) {
    std::string text;
    for (int i = 0; i < files.GetCount(); ++i)
        text += files.GetFile(i).ToUTF8() + " ";
    return text;
}

TEST(RecentFiles, KeepTheLatestInFront) {
    CRecentFiles files(3);
    EXPECT_FALSE(files.Add(nullptr) || files.Add(_T("")) || files.Remove(nullptr));
    const std::tuple<const WCHAR*, const char*> rows[] = {
        {_T("a"), "a "},     {_T("b"), "b a "},   {_T("c"), "c b a "},
        {_T("A"), "A c b "}, {_T("d"), "d A c "}, {_T("d"), "d A c "},
    };
    for (const auto& [file, expected] : rows) {
        EXPECT_TRUE(files.Add(file));
        EXPECT_EQ(TextOf(files), expected);
    }
    EXPECT_TRUE(files.Add(files.GetFile(2)));
    EXPECT_EQ(TextOf(files), "c d A ");
    EXPECT_TRUE(files.Remove(_T("D")) && !files.Remove(_T("D")));
    EXPECT_EQ(files.GetFile(-1) + files.GetFile(2), _T(""));
}

TEST(RecentFiles, AreTheSameWhenTheyAreLoaded) {
    const TestKey key;
    const CRegistryPath path(HKEY_CURRENT_USER, key.Path());
    CRecentFiles files(3), loaded(3), fewer(1);
    EXPECT_FALSE(loaded.LoadState(path));
    for (const WCHAR* file : {_T("a"), _T("b"), _T("c")})
        files.Add(file);
    EXPECT_TRUE(files.SaveState(path) && loaded.LoadState(path));
    EXPECT_EQ(TextOf(loaded), "c b a ");
    files.Remove(_T("b"));
    EXPECT_TRUE(files.SaveState(path) && loaded.LoadState(path) && fewer.LoadState(path));
    EXPECT_EQ(AfxGetProfileString(path, _T("Recent file 1"), _T("")), _T("c"));
    EXPECT_EQ(TextOf(loaded), "c a ");
    EXPECT_EQ(TextOf(fewer), "c ");
    EXPECT_FALSE(files.SaveState(CRegistryPath()));
}

} // namespace
