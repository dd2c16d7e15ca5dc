// Locale items, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/digest.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

CString Item(LCID locale, LCTYPE item) {
    WCHAR text[100];
    return GetLocaleInfoW(locale, item, text, 100) > 0 ? CString(text) : CString(_T("(failed)"));
}

TEST(Locale, KnowsTheLanguages) {
    EXPECT_EQ(GetUserDefaultLCID(), 0x0409u);
    EXPECT_EQ(GetUserDefaultLangID(), 0x0409u);
    const std::tuple<LANGID, const WCHAR*, const WCHAR*, const WCHAR*, const WCHAR*> rows[] = {
        {0x0407, _T("DEU"), _T("German (Germany)"), _T("German"), _T("Deutsch")},
        {0x0007, _T("DEU"), _T("German (Germany)"), _T("German"), _T("Deutsch")},
        {0x0c07, _T("DEA"), _T("German (Austria)"), _T("German"), _T("Deutsch")},
        {0x0409, _T("ENU"), _T("English (United States)"), _T("English"), _T("English")},
        {0x040c, _T("FRA"), _T("French (France)"), _T("French"), _T("français")},
        {0x0411, _T("JPN"), _T("Japanese (Japan)"), _T("Japanese"), _T("\x65e5\x672c\x8a9e")},
        {0x0804, _T("CHS"), _T("Chinese (Simplified, China)"), _T("Chinese (Simplified)"),
         _T("\x4e2d\x6587 (\x7b80\x4f53)")},
        {0x241a, _T("SRM"), _T("Serbian (Latin, Serbia)"), _T("Serbian (Latin)"),
         _T("srpski (latinica)")},
        {0x0465, _T("DIV"), _T("Divehi (Maldives)"), _T("Divehi"),
         _T("\x78b\x7a8\x788\x7ac\x780\x7a8\x784\x7a6\x790\x7b0")},
    };
    for (const auto& [language, abbreviation, name, english, native] : rows) {
        SCOPED_TRACE(language);
        EXPECT_EQ(Item(language, LOCALE_SABBREVLANGNAME), abbreviation);
        EXPECT_EQ(Item(language, LOCALE_SLANGUAGE), name);
        EXPECT_EQ(Item(language, LOCALE_SENGLANGUAGE), english);
        EXPECT_EQ(Item(language, LOCALE_SNATIVELANGNAME), native);
    }
}

// Which ids there are, and every one's letters.
TEST(Locale, EveryLanguageIdAnswersAlike) {
    int count = 0;
    Digest digest;
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
            digest.AddAll(std::basic_string<WCHAR>(letters));
        }
    }
    EXPECT_EQ(count, 317);
    EXPECT_EQ(digest.Get(), 1405912602u);
    for (const LCID locale : {0x0000u, 0x0400u, 0x0800u, 0x1234u, 0x20407u, 0xffffu})
        EXPECT_FALSE(IsValidLocale(locale, LCID_SUPPORTED)) << locale;
}

TEST(Locale, KnowsTheNumberFormats) {
    const std::tuple<LCID, const WCHAR*, const WCHAR*, const WCHAR*> rows[] = {
        {LOCALE_USER_DEFAULT, _T("."), _T(","), _T("3;0")},
        {0x0407, _T(","), _T("."), _T("3;0")},
        {0x0807, _T("."), _T("\x2019"), _T("3;0")},
        {0x0c07, _T(","), _T("\xa0"), _T("3;0")},
        {0x0439, _T("."), _T(","), _T("3;2;0")},
        {0x0401, _T("."), _T(","), _T("3;0")}, // Western digits, as Windows has it
    };
    for (const auto& [locale, decimal, thousands, grouping] : rows) {
        SCOPED_TRACE(locale);
        EXPECT_EQ(Item(locale, LOCALE_SDECIMAL), decimal);
        EXPECT_EQ(Item(locale, LOCALE_SDECIMAL | LOCALE_NOUSEROVERRIDE), decimal);
        EXPECT_EQ(Item(locale, LOCALE_STHOUSAND), thousands);
        EXPECT_EQ(Item(locale, LOCALE_SGROUPING), grouping);
        EXPECT_EQ(Item(locale, LOCALE_IDIGITS), _T("2"));
        EXPECT_EQ(Item(locale, LOCALE_ILZERO), _T("1"));
        EXPECT_EQ(Item(locale, LOCALE_INEGNUMBER), _T("1"));
    }
}

TEST(Locale, RefusesWhatItCannotAnswer) {
    WCHAR text[10];
    const std::tuple<const char*, LCID, LCTYPE, WCHAR*, int, int, DWORD> rows[] = {
        {"length query", 0x0407, LOCALE_SABBREVLANGNAME, nullptr, 0, 4, ERROR_SUCCESS},
        {"just room", 0x0407, LOCALE_SABBREVLANGNAME, text, 4, 4, ERROR_SUCCESS},
        {"no room", 0x0407, LOCALE_SABBREVLANGNAME, text, 3, 0, ERROR_INSUFFICIENT_BUFFER},
        {"no buffer", 0x0407, LOCALE_SABBREVLANGNAME, nullptr, 4, 0, ERROR_INVALID_PARAMETER},
        {"negative length", 0x0407, LOCALE_SABBREVLANGNAME, text, -1, 0, ERROR_INVALID_PARAMETER},
        {"no such locale", 0x1234, LOCALE_SABBREVLANGNAME, text, 10, 0, ERROR_INVALID_PARAMETER},
        {"no such item", 0x0407, 0x7777, text, 10, 0, ERROR_INVALID_FLAGS},
        {"no item", 0x0407, 0, text, 10, 0, ERROR_INVALID_FLAGS},
    };
    for (const auto& [label, locale, item, buffer, length, result, error] : rows) {
        SCOPED_TRACE(label);
        text[0] = '#';
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetLocaleInfoW(locale, item, buffer, length), result);
        EXPECT_EQ(GetLastError(), error);
        EXPECT_EQ(text[0], result > 0 && length > 0 ? 'D' : '#');
    }
}

} // namespace
