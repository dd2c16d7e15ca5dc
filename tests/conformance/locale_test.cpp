// Locale items, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/golden.h"

namespace {

CString Item(LCID locale, LCTYPE item) {
    WCHAR text[100];
    return GetLocaleInfoW(locale, item, text, 100) > 0 ? CString(text) : CString(_T("(failed)"));
}

// The supported language ids, and the three-letter names of all of them.
TEST(Locale, EveryLanguageIdAnswersAlike) {
    constexpr WORD kPrimaries = 102, kSubs = 21;
    Wide letters(3 * MAKELANGID(0, kSubs), WCHAR(' '));
    for (WORD primary = 1; primary < kPrimaries; ++primary)
        for (WORD sub = 0; sub < kSubs; ++sub) {
            const LCID locale = MAKELANGID(primary, sub);
            if (!IsValidLocale(locale, LCID_SUPPORTED))
                continue;
            EXPECT_TRUE(IsValidLocale(locale, LCID_INSTALLED)) << locale;
            EXPECT_NE(Item(locale, LOCALE_SENGLANGUAGE), _T("(failed)")) << locale;
            const CString item = Item(locale, LOCALE_SABBREVLANGNAME);
            ASSERT_EQ(item.GetLength(), 3) << locale;
            letters.replace(3 * locale, 3, item.GetString());
        }
    Golden("languages").Expect(letters, "letters of languages");
    for (const LCID locale : {0x0000u, 0x0400u, 0x0800u, 0x1234u, 0x20407u, 0xffffu})
        EXPECT_FALSE(IsValidLocale(locale, LCID_SUPPORTED)) << locale;
}

} // namespace
