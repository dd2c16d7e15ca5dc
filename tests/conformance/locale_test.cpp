// Locale items, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/digest.h"
#include "support/test.h"

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
        {0x0804, _T("CHS"), _T("Chinese (Simplified, China)"), _T("Chinese (Simplified)"),
         _T("\x4e2d\x6587 (\x7b80\x4f53)")},
        {0x241a, _T("SRM"), _T("Serbian (Latin, Serbia)"), _T("Serbian (Latin)"),
         _T("srpski (latinica)")},
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

} // namespace
