// Locale items, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/digest.h"
#include "support/test.h"

namespace {

CString Item(LCID locale, LCTYPE item) {
    WCHAR text[100];
    return GetLocaleInfoW(locale, item, text, 100) > 0 ? CString(text) : CString(_T("(failed)"));
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
