// Simple letter case: the same tables on both systems.
#include "platform/case_fold.h"
#include "platform/win32.h"

#include "support/digest.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

typedef std::basic_string<WCHAR> Wide;

TEST(LetterCase, MapsOneUnitToOne) {
    const std::tuple<const char*, const WCHAR*, const WCHAR*, const WCHAR*> rows[] = {
        {"ASCII", _T("aZ[`{"), _T("az[`{"), _T("AZ[`{")},
        {"Latin 1; sharp s and multiplication have no pair", _T("\xc4\xe4\xdf\xd7\xf7\xff"),
         _T("\xe4\xe4\xdf\xd7\xf7\xff"), _T("\xc4\xc4\xdf\xd7\xf7\x178")},
        {"dotted and dotless i", _T("\x130\x131"), _T("\x130\x131"), _T("\x130\x131")},
        {"title case stays", _T("\x1c4\x1c5\x1c6"), _T("\x1c6\x1c5\x1c6"), _T("\x1c4\x1c5\x1c4")},
        {"Greek, with the final sigma", _T("\x3a3\x3c3\x3c2"), _T("\x3c3\x3c3\x3c2"),
         _T("\x3a3\x3a3\x3c2")},
        {"signs are not letters", _T("\xb5\x2126\x212a"), _T("\xb5\x2126\x212a"),
         _T("\xb5\x2126\x212a")},
        {"half a pair stays", _T("\xd801Z"), _T("\xd801z"), _T("\xd801Z")},
    };
    for (const auto& [label, text, expectedLower, expectedUpper] : rows) {
        Wide lower = text;
        EXPECT_EQ(CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size())), lower.size());
        EXPECT_TRUE(lower == expectedLower) << label;
        Wide upper = text;
        EXPECT_EQ(CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size())), upper.size());
        EXPECT_TRUE(upper == expectedUpper) << label;
    }
}

TEST(LetterCase, TablesAreThePlatforms) {
    Wide lower;
    for (int unit = 0; unit < 0x10000; ++unit)
        lower += static_cast<WCHAR>(unit);
    Wide upper = lower;
    Digest digest;
    CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size()));
    digest.AddAll(lower);
    CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
    digest.AddAll(upper);
    EXPECT_EQ(digest.Get(), 1692907613u);
    for (std::size_t unit = 0; unit < lower.size(); ++unit)
        ASSERT_EQ(quorvel::FoldCase(static_cast<WCHAR>(unit)), lower[unit]);
}

TEST(LetterCase, NarrowTextMapsAscii) {
    std::string text = "aB[`{z9";
    EXPECT_EQ(CharUpperBuffA(text.data(), 6), 6u);
    EXPECT_EQ(text, "AB[`{Z9");
    EXPECT_EQ(CharLowerBuffA(text.data(), 2), 2u);
    EXPECT_EQ(text, "ab[`{Z9");
}

} // namespace
