// The user's own locale, in a program that runs as German (Germany).
#include "platform/win32.h"

#include "support/test.h"

namespace {

TEST(GermanLocale, IsTheUsers) {
    EXPECT_EQ(GetUserDefaultLCID(), 0x0407u);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0407u);
    const std::tuple<LCTYPE, const WCHAR*> rows[] = {
        {LOCALE_SABBREVLANGNAME, _T("DEU")},
        {LOCALE_SDECIMAL, _T(",")},
    };
    for (const auto& [item, expected] : rows) {
        for (const LCID locale : {0x0400u, 0x0800u, 0u}) {
            WCHAR text[100] = {};
            GetLocaleInfoW(locale, item, text, 100);
            EXPECT_EQ(CString(text), expected) << item << " of " << locale;
        }
    }
}

TEST(GermanLocale, ChoosesTheLanguageOfResources) {
    const HMODULE module = LoadLibraryW(QUORVEL_OWN_SAMPLES _T("/full.dll"));
    ASSERT_NE(module, nullptr);
    const std::tuple<UINT, const WCHAR*> rows[] = {
        {100, _T("Deutsch")},     // before English
        {200, _T("nur deutsch")}, // before French
        {300, _T("neutral")},     // before all others
        {111, _T("")},            // of a block that is there in German without it
    };
    for (const auto& [id, expected] : rows) {
        WCHAR text[100] = {};
        LoadStringW(module, id, text, 100);
        EXPECT_EQ(CString(text), expected) << id;
    }
    EXPECT_TRUE(FreeLibrary(module));
}

} // namespace
