#include <quorvel/frame/languages.h>

#include "support/temporary_folder.h"
#include "support/test.h"

constexpr LANGID kGerman = 1031;
constexpr LANGID kEnglish = 1033;
constexpr LANGID kUnsupported = 0x03ff;
constexpr const WCHAR* kTemplate = _T("Quorvel_%s.dll");

TEST(Languages, NamesAreThoseOfTheLocale) {
    // German of Germany, Chinese of China, Serbian in Latin letters.
    const std::tuple<BOOL (*)(LANGID, CString&), const WCHAR*, const WCHAR*, const WCHAR*> rows[] =
        {
            {AfxGetAbbreviatedLanguageName, _T("DEU"), _T("CHS"), _T("SRM")},
            {AfxGetLanguageName, _T("German (Germany)"), _T("Chinese (Simplified, China)"),
             _T("Serbian (Latin, Serbia)")},
            {AfxGetLanguageEnglishName, _T("German"), _T("Chinese (Simplified)"),
             _T("Serbian (Latin)")},
            {AfxGetNativeLanguageName, _T("Deutsch"), _T("\x4e2d\x6587 (\x7b80\x4f53)"),
             _T("srpski (latinica)")},
        };
    for (const auto& [ask, german, chinese, serbian] : rows) {
        CString name;
        EXPECT_TRUE(ask(kGerman, name));
        EXPECT_EQ(name, german);
        EXPECT_TRUE(ask(0x0804, name));
        EXPECT_EQ(name, chinese);
        EXPECT_TRUE(ask(0x241a, name));
        EXPECT_EQ(name, serbian);
        EXPECT_FALSE(ask(kUnsupported, name));
        EXPECT_EQ(name, _T(""));
    }
}

TEST(Languages, TheTemplateIsExpandedOnce) {
    const auto fileName = [](const WCHAR* nameTemplate, LANGID language = kGerman) {
        CString name(_T("before"));
        const BOOL done = AfxGetResourceDLLFileName(nameTemplate, language, name);
        EXPECT_EQ(done, !name.IsEmpty());
        return name;
    };
    ExpectCases<CString, const WCHAR*>({
        CASE(fileName(kTemplate), _T("Quorvel_DEU.dll")),
        CASE(fileName(_T("one.dll")), _T("one.dll")),
        CASE(fileName(_T("%%s_%s%")), _T("%s_DEU%")),
        CASE(fileName(_T("")), _T("")),
        CASE(fileName(kTemplate, kUnsupported), _T("")),
    });
}

TEST(Languages, ThePathHasOneBackslashBeforeTheName) {
    const auto path = [](const WCHAR* folder, const WCHAR* nameTemplate = kTemplate) {
        CString name(_T("before"));
        const BOOL done = AfxGetResourceDLLPathName(folder, nameTemplate, kGerman, name);
        EXPECT_EQ(done, !name.IsEmpty());
        return name;
    };
    ExpectCases<CString, const WCHAR*>({
        CASE(path(_T("C:\\Lang")), _T("C:\\Lang\\Quorvel_DEU.dll")),
        CASE(path(_T("C:\\Lang\\\\\\")), _T("C:\\Lang\\Quorvel_DEU.dll")),
        CASE(path(_T("")), _T("")),
        CASE(path(nullptr), _T("")),
    });
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
    EXPECT_FALSE(AfxIsResourceDLLPresent(folder.Path(), kTemplate, 1036)); // a folder, not a file

    folder.Write(_T("Quorvel_ENU.dll"), "");
    languages.clear();
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path(), kTemplate, languages));
    EXPECT_EQ(languages, (std::vector<unsigned short>{kEnglish, 7, kGerman, 9}));
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path(), _T(""), languages));
    EXPECT_EQ(languages, (std::vector<unsigned short>{kEnglish, 7, kGerman, 9, kEnglish}));

    for (const auto& [at, nameTemplate] :
         {std::pair<const WCHAR*, const WCHAR*>(nullptr, kTemplate),
          {_T(""), kTemplate},
          {_T("C:"), nullptr}}) {
        EXPECT_FALSE(AfxEnumerateResourceDLLs(at, nameTemplate, languages));
        EXPECT_EQ(languages.size(), 5u);
        EXPECT_FALSE(AfxIsResourceDLLPresent(at, nameTemplate, kGerman));
    }
}
