// Locale items, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/text.h"

#include <gtest/gtest.h>

namespace {

CString Item(LCID locale, LCTYPE item) {
    WCHAR text[100];
    return GetLocaleInfoW(locale, item, text, 100) > 0 ? CString(text) : CString(_T("(failed)"));
}

TEST(Locale, KnowsTheLanguages) {
    const struct {
        LANGID language;
        const WCHAR* abbreviation;
        const WCHAR* name;
        const WCHAR* english;
        const WCHAR* native;
    } rows[] = {
        {0x0407, _T("DEU"), _T("German (Germany)"), _T("German"), _T("Deutsch")},
        {0x0007, _T("DEU"), _T("German (Germany)"), _T("German"), _T("Deutsch")},
        {0x0c07, _T("DEA"), _T("German (Austria)"), _T("German"), _T("Deutsch")},
        {0x0409, _T("ENU"), _T("English (United States)"), _T("English"), _T("English")},
        {0x0809, _T("ENG"), _T("English (United Kingdom)"), _T("English"), _T("English")},
        {0x040c, _T("FRA"), _T("French (France)"), _T("French"),
         _T("fran\xe7")
         _T("ais")},
        {0x0c0a, _T("ESN"), _T("Spanish (Spain)"), _T("Spanish"), _T("espa\xf1ol")},
        {0x0416, _T("PTB"), _T("Portuguese (Brazil)"), _T("Portuguese"), _T("portugu\xeas")},
        {0x0411, _T("JPN"), _T("Japanese (Japan)"), _T("Japanese"), _T("\x65e5\x672c\x8a9e")},
        {0x0804, _T("CHS"), _T("Chinese (Simplified, China)"), _T("Chinese (Simplified)"),
         _T("\x4e2d\x6587 (\x7b80\x4f53)")},
        {0x241a, _T("SRM"), _T("Serbian (Latin, Serbia)"), _T("Serbian (Latin)"),
         _T("srpski (latinica)")},
        {0x0430, _T("SOT"), _T("Southern Sotho (South Africa)"), _T("Southern Sotho"),
         _T("Sesotho")},
        {0x0465, _T("DIV"), _T("Divehi (Maldives)"), _T("Divehi"),
         _T("\x78b\x7a8\x788\x7ac\x780\x7a8\x784\x7a6\x790\x7b0")},
        {LOCALE_USER_DEFAULT, _T("ENU"), _T("English (United States)"), _T("English"),
         _T("English")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.language);
        EXPECT_EQ(Item(row.language, LOCALE_SABBREVLANGNAME), row.abbreviation);
        EXPECT_EQ(Item(row.language, LOCALE_SLANGUAGE), row.name);
        EXPECT_EQ(Item(row.language, LOCALE_SENGLANGUAGE), row.english);
        EXPECT_EQ(Item(row.language, LOCALE_SNATIVELANGNAME), row.native);
    }
}

// Which ids there are, and every one's letters.
TEST(Locale, EveryLanguageIdAnswersAlike) {
    int count = 0;
    unsigned long long hash = 0xcbf29ce484222325; // FNV-1a
    for (WORD primary = 1; primary <= 101; ++primary) {
        for (WORD sub = 0; sub <= 20; ++sub) {
            const LCID locale = MAKELANGID(primary, sub);
            if (!IsValidLocale(locale, LCID_SUPPORTED))
                continue;
            ++count;
            EXPECT_TRUE(IsValidLocale(locale, LCID_INSTALLED)) << locale;
            const CString letters = Item(locale, LOCALE_SABBREVLANGNAME);
            EXPECT_EQ(letters.GetLength(), 3) << locale;
            EXPECT_NE(Item(locale, LOCALE_SENGLANGUAGE), _T("(failed)")) << locale;
            for (int i = 0; i < 3; ++i)
                hash = (hash ^ letters[i]) * 0x100000001b3;
        }
    }
    EXPECT_EQ(count, 317);
    EXPECT_EQ(hash, 437939348534399105u);
    for (const LCID locale : {0x0000u, 0x0400u, 0x0800u, 0x1234u, 0x20407u, 0xffffu})
        EXPECT_FALSE(IsValidLocale(locale, LCID_SUPPORTED)) << locale;
}

TEST(Locale, KnowsTheNumberFormats) {
    const struct {
        LCID locale;
        const WCHAR* decimal;
        const WCHAR* thousands;
        const WCHAR* grouping;
    } rows[] = {
        {LOCALE_USER_DEFAULT, _T("."), _T(","), _T("3;0")},
        {0x0407, _T(","), _T("."), _T("3;0")},
        {0x0807, _T("."), _T("\x2019"), _T("3;0")},
        {0x0c07, _T(","), _T("\xa0"), _T("3;0")},
        {0x0419, _T(","), _T("\xa0"), _T("3;0")},
        {0x0439, _T("."), _T(","), _T("3;2;0")},
        {0x0401, _T("."), _T(","), _T("3;0")}, // Western digits, as Windows has it
        {0x0416, _T(","), _T("."), _T("3;0")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        EXPECT_EQ(Item(row.locale, LOCALE_SDECIMAL), row.decimal);
        EXPECT_EQ(Item(row.locale, LOCALE_SDECIMAL | LOCALE_NOUSEROVERRIDE), row.decimal);
        EXPECT_EQ(Item(row.locale, LOCALE_STHOUSAND), row.thousands);
        EXPECT_EQ(Item(row.locale, LOCALE_SGROUPING), row.grouping);
        EXPECT_EQ(Item(row.locale, LOCALE_IDIGITS), _T("2"));
        EXPECT_EQ(Item(row.locale, LOCALE_ILZERO), _T("1"));
        EXPECT_EQ(Item(row.locale, LOCALE_INEGNUMBER), _T("1"));
    }
}

TEST(Locale, RefusesWhatItCannotAnswer) {
    WCHAR text[10];
    const struct {
        const char* label;
        LCID locale;
        LCTYPE item;
        WCHAR* text;
        int length;
        int result;
        DWORD error;
    } rows[] = {
        {"length query", 0x0407, LOCALE_SABBREVLANGNAME, nullptr, 0, 4, ERROR_SUCCESS},
        {"length query with a buffer", 0x0407, LOCALE_SABBREVLANGNAME, text, 0, 4, ERROR_SUCCESS},
        {"just room", 0x0407, LOCALE_SABBREVLANGNAME, text, 4, 4, ERROR_SUCCESS},
        {"no room", 0x0407, LOCALE_SABBREVLANGNAME, text, 3, 0, ERROR_INSUFFICIENT_BUFFER},
        {"no buffer", 0x0407, LOCALE_SABBREVLANGNAME, nullptr, 4, 0, ERROR_INVALID_PARAMETER},
        {"negative length", 0x0407, LOCALE_SABBREVLANGNAME, text, -1, 0, ERROR_INVALID_PARAMETER},
        {"no such locale", 0x1234, LOCALE_SABBREVLANGNAME, text, 10, 0, ERROR_INVALID_PARAMETER},
        {"no such item", 0x0407, 0x7777, text, 10, 0, ERROR_INVALID_FLAGS},
        {"no item", 0x0407, 0, text, 10, 0, ERROR_INVALID_FLAGS},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        text[0] = '#';
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetLocaleInfoW(row.locale, row.item, row.text, row.length), row.result);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(text[0], row.result > 0 && row.length > 0 ? 'D' : '#');
    }
}

TEST(Locale, TheUserIsAmerican) {
    EXPECT_EQ(GetUserDefaultLCID(), 0x0409u);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0409u);
}

} // namespace
