#include <quorvel/frame/languages.h>

#include "support/cases.h"
#include "support/temporary_folder.h"
#include "support/text.h"

namespace {

constexpr LANGID kGerman = 1031;
constexpr LANGID kEnglish = 1033;
constexpr LANGID kUnsupported = 0x03ff;
constexpr const WCHAR* kTemplate = _T("Quorvel_%s.dll");

// The names themselves: tests/conformance.
TEST(Languages, NamesAreThoseOfTheLocale) {
    CString name(_T("before"));
#define EXPECT_NAME(function, german)                                                              \
    EXPECT_TRUE(function(kGerman, name));                                                          \
    EXPECT_EQ(name, _T(german));                                                                   \
    EXPECT_FALSE(function(kUnsupported, name));                                                    \
    EXPECT_EQ(name, _T(""));                                                                       \
    EXPECT_TRUE(function(7, 1, name));                                                             \
    EXPECT_EQ(name, _T(german));                                                                   \
    EXPECT_FALSE(function(0x3ff, 0, name));                                                        \
    EXPECT_EQ(name, _T(""))
    EXPECT_NAME(AfxGetAbbreviatedLanguageName, "DEU");
    EXPECT_NAME(AfxGetLanguageName, "German (Germany)");
    EXPECT_NAME(AfxGetLanguageEnglishName, "German");
    EXPECT_NAME(AfxGetNativeLanguageName, "Deutsch");
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
        CASE(fileName(_T("%s_%s")), _T("DEU_%s")),
        CASE(fileName(_T("%%s_%s%")), _T("%s_DEU%")),
        CASE(fileName(_T("%n%d%S%1!s!%s")), _T("%n%d%S%1!s!DEU")),
        CASE(fileName(_T("")), _T("")),
        CASE(fileName(nullptr), _T("")),
        CASE(fileName(kTemplate, kUnsupported), _T("")),
    });
    CString name;
    EXPECT_TRUE(AfxGetResourceDLLFileName(kTemplate, 7, 2, name));
    EXPECT_EQ(name, _T("Quorvel_DES.dll"));
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
        CASE(path(_T("\\")), _T("\\Quorvel_DEU.dll")),
        CASE(path(_T("/lang")), _T("/lang\\Quorvel_DEU.dll")),
        CASE(path(_T("%s")), _T("%s\\Quorvel_DEU.dll")),
        CASE(path(_T("")), _T("")),
        CASE(path(nullptr), _T("")),
        CASE(path(_T("C:"), nullptr), _T("")),
    });
    CString name;
    EXPECT_TRUE(AfxGetResourceDLLPathName(_T("C:"), kTemplate, 7, 2, name));
    EXPECT_EQ(name, _T("C:\\Quorvel_DES.dll"));
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
    EXPECT_TRUE(AfxEnumerateResourceDLLs(folder.Path(), _T(""), languages));
    EXPECT_EQ(languages, (std::vector<unsigned short>{kEnglish, 7, kGerman, 9, kEnglish}));
    EXPECT_FALSE(AfxIsResourceDLLPresent(folder.Path(), _T(""), kGerman));

    for (const auto& [at, nameTemplate] :
         {std::pair<const WCHAR*, const WCHAR*>(nullptr, kTemplate),
          {_T(""), kTemplate},
          {_T("C:"), nullptr}}) {
        EXPECT_FALSE(AfxEnumerateResourceDLLs(at, nameTemplate, languages));
        EXPECT_EQ(languages.size(), 5u);
        EXPECT_FALSE(AfxIsResourceDLLPresent(at, nameTemplate, kGerman));
    }
}

} // namespace
