#include <quorvel/frame/languages.h>

#include "support/temporary_folder.h"
#include "support/test.h"

constexpr LANGID kGerman = 1031;
constexpr LANGID kEnglish = 1033;
constexpr LANGID kUnsupported = 0x03ff;
constexpr const WCHAR* kTemplate = _T("Quorvel_%s.dll");

TEST(Languages, NamesAreThoseOfTheLocale) {
    const std::tuple<BOOL (*)(LANGID, CString&), const WCHAR*, const WCHAR*> rows[] = {
        {AfxGetAbbreviatedLanguageName, _T("DEU"), _T("CHS")},
        {AfxGetLanguageName, _T("German (Germany)"), _T("Chinese (Simplified, China)")},
        {AfxGetNativeLanguageName, _T("Deutsch"), _T("\x4e2d\x6587 (\x7b80\x4f53)")},
    };
    for (const auto& [ask, german, chinese] : rows) {
        CString name;
        EXPECT_TRUE(ask(kGerman, name) && name == german) << name;
        EXPECT_TRUE(ask(0x0804, name) && name == chinese) << name;
        EXPECT_TRUE(!ask(kUnsupported, name) && name.IsEmpty()) << name;
    }
}

TEST(Languages, TheTemplateIsExpandedOnceAfterOneBackslash) {
    CString name;
    const auto fileName = [&](const WCHAR* nameTemplate, LANGID language = kGerman) {
        name = _T("before");
        return AfxGetResourceDLLFileName(nameTemplate, language, name) ? name : _T("none") + name;
    };
    const auto path = [&](const WCHAR* folder) {
        name = _T("before");
        return AfxGetResourceDLLPathName(folder, kTemplate, kGerman, name) ? name
                                                                           : _T("none") + name;
    };
    ExpectCases<CString, const WCHAR*>(
        {CASE(path(_T("C:\\Lang")), _T("C:\\Lang\\Quorvel_DEU.dll")),
         CASE(path(_T("C:\\Lang\\\\")), _T("C:\\Lang\\Quorvel_DEU.dll")),
         CASE(path(nullptr), _T("none")), CASE(fileName(_T("one.dll")), _T("one.dll")),
         CASE(fileName(_T("%%s_%s%")), _T("%s_DEU%")), CASE(fileName(_T("")), _T("none")),
         CASE(fileName(kTemplate, kUnsupported), _T("none"))});
}

TEST(Languages, TheFolderDecidesWhichAreEnumerated) {
    const TemporaryFolder folder;
    std::vector<unsigned short> languages;
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path(), kTemplate, languages));
    EXPECT_EQ(languages, std::vector<unsigned short>{kEnglish});

    for (const WCHAR* const name : {_T("Quorvel_DEU.dll"), _T("Quorvel_ENU.dll")})
        folder.Write(name, "");
    std::filesystem::create_directory(
        std::filesystem::path(std::basic_string<WCHAR>(folder.Path(_T("Quorvel_FRA.dll")))));
    languages = {1, 2};
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path() + _T("\\\\"), kTemplate, languages));
    EXPECT_EQ(languages, (std::vector<unsigned short>{1, 2, kEnglish, 7, kGerman, 9}));
    EXPECT_TRUE(AfxIsResourceDLLPresent(folder.Path(), kTemplate, kGerman));
    EXPECT_TRUE(AfxIsResourceDLLPresent(folder.Path(), kTemplate, 7, 1));
    EXPECT_FALSE(AfxIsResourceDLLPresent(folder.Path(), kTemplate, 1036)); // a folder, not a file
    for (const auto& [at, nameTemplate] :
         {std::pair<const WCHAR*, const WCHAR*>(nullptr, kTemplate), {_T("C:"), nullptr}}) {
        EXPECT_FALSE(AfxEnumerateResourceDLLs(at, nameTemplate, languages));
        EXPECT_EQ(languages.size(), 6u);
        EXPECT_FALSE(AfxIsResourceDLLPresent(at, nameTemplate, kGerman));
    }
}
