#include <quorvel/frame/languages.h>

#include "support/temporary_folder.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace {

constexpr LANGID kGerman = 1031;
constexpr LANGID kEnglish = 1033;
constexpr LANGID kUnsupported = 0x03ff;
constexpr const WCHAR* kTemplate = _T("Quorvel_%s.dll");

TEST(Languages, NamesAreThoseOfTheLocale) {
    typedef BOOL (*ById)(LANGID, CString&);
    typedef BOOL (*ByParts)(WORD, WORD, CString&);
    const struct {
        ById byId;
        ByParts byParts;
        const WCHAR* german;
        const WCHAR* english;
    } rows[] = {
        {AfxGetAbbreviatedLanguageName, AfxGetAbbreviatedLanguageName, _T("DEU"), _T("ENU")},
        {AfxGetLanguageName, AfxGetLanguageName, _T("German (Germany)"),
         _T("English (United States)")},
        {AfxGetLanguageEnglishName, AfxGetLanguageEnglishName, _T("German"), _T("English")},
        {AfxGetNativeLanguageName, AfxGetNativeLanguageName, _T("Deutsch"), _T("English")},
    };
    for (const auto& row : rows) {
        CString name(_T("before"));
        EXPECT_TRUE(row.byId(kGerman, name));
        EXPECT_EQ(name, CString(row.german));
        EXPECT_TRUE(row.byParts(9, 1, name));
        EXPECT_EQ(name, CString(row.english));
        EXPECT_FALSE(row.byId(kUnsupported, name));
        EXPECT_EQ(name, _T(""));
        name = _T("before");
        EXPECT_FALSE(row.byParts(0x3ff, 0, name));
        EXPECT_EQ(name, _T(""));
    }
}

TEST(Languages, TheTemplateIsExpandedOnce) {
    const struct {
        const WCHAR* nameTemplate;
        const WCHAR* fileName; // null: refused
    } rows[] = {
        {kTemplate, _T("Quorvel_DEU.dll")},
        {_T("%s"), _T("DEU")},
        {_T("one.dll"), _T("one.dll")},
        {_T("%s_%s"), _T("DEU_%s")},
        {_T("%%s_%s%"), _T("%s_DEU%")},
        {_T("%n%d%S%1!s!%s"), _T("%n%d%S%1!s!DEU")},
        {_T(""), nullptr},
        {nullptr, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(row.nameTemplate)));
        CString fileName(_T("before"));
        EXPECT_EQ(AfxGetResourceDLLFileName(row.nameTemplate, kGerman, fileName),
                  row.fileName != nullptr);
        EXPECT_EQ(fileName, CString(row.fileName));
        EXPECT_EQ(AfxGetResourceDLLFileName(row.nameTemplate, 7, 1, fileName),
                  row.fileName != nullptr);
        EXPECT_EQ(fileName, CString(row.fileName));
        EXPECT_FALSE(AfxGetResourceDLLFileName(row.nameTemplate, kUnsupported, fileName));
        EXPECT_EQ(fileName, _T(""));
    }
}

TEST(Languages, ThePathHasOneBackslashBeforeTheName) {
    const struct {
        const WCHAR* folder;
        const WCHAR* pathName; // null: refused
    } rows[] = {
        {_T("C:\\Lang"), _T("C:\\Lang\\Quorvel_DEU.dll")},
        {_T("C:\\Lang\\"), _T("C:\\Lang\\Quorvel_DEU.dll")},
        {_T("C:\\Lang\\\\\\"), _T("C:\\Lang\\Quorvel_DEU.dll")},
        {_T("C:\\"), _T("C:\\Quorvel_DEU.dll")},
        {_T("\\"), _T("\\Quorvel_DEU.dll")},
        {_T("/lang"), _T("/lang\\Quorvel_DEU.dll")},
        {_T("%s"), _T("%s\\Quorvel_DEU.dll")},
        {_T(""), nullptr},
        {nullptr, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(row.folder)));
        CString pathName(_T("before"));
        EXPECT_EQ(AfxGetResourceDLLPathName(row.folder, kTemplate, kGerman, pathName),
                  row.pathName != nullptr);
        EXPECT_EQ(pathName, CString(row.pathName));
        EXPECT_EQ(AfxGetResourceDLLPathName(row.folder, kTemplate, 7, 1, pathName),
                  row.pathName != nullptr);
        EXPECT_EQ(pathName, CString(row.pathName));
        EXPECT_FALSE(AfxGetResourceDLLPathName(row.folder, nullptr, kGerman, pathName));
        EXPECT_EQ(pathName, _T(""));
    }
}

TEST(Languages, TheFolderDecidesWhichAreEnumerated) {
    const TemporaryFolder folder;
    std::vector<unsigned short> languages;
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path(), kTemplate, languages));
    EXPECT_EQ(languages, std::vector<unsigned short>{kEnglish});

    folder.Write(_T("Quorvel_DEU.dll"), "");
    std::filesystem::create_directory(
        std::filesystem::path(std::basic_string<WCHAR>(folder.Path(_T("Quorvel_FRA.dll")))));
    languages = {1, 2};
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path() + _T("\\\\"), kTemplate, languages));
    EXPECT_EQ(languages, (std::vector<unsigned short>{1, 2, kEnglish, 7, kGerman}));
    EXPECT_TRUE(AfxIsResourceDLLPresent(folder.Path(), kTemplate, kGerman));
    EXPECT_TRUE(AfxIsResourceDLLPresent(folder.Path(), kTemplate, 7, 1));
    EXPECT_FALSE(AfxIsResourceDLLPresent(folder.Path(), kTemplate, 1036)); // a folder

    folder.Write(_T("Quorvel_ENU.dll"), "");
    languages.clear();
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path(), kTemplate, languages));
    EXPECT_EQ(languages, (std::vector<unsigned short>{kEnglish, 7, kGerman, 9}));
}

TEST(Languages, ABadFolderOrTemplateEnumeratesNothing) {
    const struct {
        const WCHAR* folder;
        const WCHAR* nameTemplate;
    } rows[] = {
        {nullptr, kTemplate}, {_T(""), kTemplate}, {_T("C:\\"), nullptr}, {_T("C:\\"), _T("")}};
    for (const auto& row : rows) {
        std::vector<unsigned short> languages{1};
        EXPECT_FALSE(AfxEnumerateResourceDLLs(row.folder, row.nameTemplate, languages));
        EXPECT_EQ(languages, std::vector<unsigned short>{1});
        EXPECT_FALSE(AfxIsResourceDLLPresent(row.folder, row.nameTemplate, kGerman));
    }
}

} // namespace
