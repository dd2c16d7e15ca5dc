// The user's own locale, in a program that runs as German (Germany).
#include "platform/win32.h"

#include "support/text.h"

#include <gtest/gtest.h>

namespace {

TEST(GermanLocale, IsTheUsers) {
    EXPECT_EQ(GetUserDefaultLCID(), 0x0407u);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0407u);
    const struct {
        LCTYPE item;
        const WCHAR* text;
    } rows[] = {
        {LOCALE_SABBREVLANGNAME, _T("DEU")},
        {LOCALE_SENGLANGUAGE, _T("German")},
        {LOCALE_SNATIVELANGNAME, _T("Deutsch")},
        {LOCALE_SDECIMAL, _T(",")},
        {LOCALE_STHOUSAND, _T(".")},
    };
    for (const auto& row : rows) {
        for (const LCID locale :
             {LCID(LOCALE_USER_DEFAULT), LCID(LOCALE_SYSTEM_DEFAULT), LCID(0)}) {
            WCHAR text[100] = {};
            GetLocaleInfoW(locale, row.item, text, 100);
            EXPECT_EQ(CString(text), row.text) << row.item << " of " << locale;
        }
    }
}

TEST(GermanLocale, WritesNumbers) {
    WCHAR text[100];
    EXPECT_GT(GetNumberFormatW(LOCALE_USER_DEFAULT, 0, _T("-1234.5"), nullptr, text, 100), 0);
    EXPECT_EQ(CString(text), _T("-1.234,50"));
    StrFormatByteSizeW(1536, text, 100);
    EXPECT_EQ(CString(text), _T("1,50 KB"));
}

TEST(GermanLocale, ChoosesTheLanguageOfResources) {
    const HMODULE module = LoadLibraryW(CString(QUORVEL_SAMPLES) + _T("/full.dll"));
    ASSERT_NE(module, nullptr);
    const struct {
        UINT id;
        const WCHAR* text;
    } rows[] = {
        {100, _T("Deutsch")},     // before English
        {200, _T("nur deutsch")}, // before French
        {300, _T("neutral")},     // before all others
        {111, _T("")},            // of a block that is there in German without it
        {65535, _T("the highest id")},
    };
    for (const auto& row : rows) {
        WCHAR text[100] = {};
        LoadStringW(module, row.id, text, 100);
        EXPECT_EQ(CString(text), row.text) << row.id;
    }
    EXPECT_TRUE(FreeLibrary(module));
}

} // namespace
