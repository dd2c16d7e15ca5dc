// Simple letter case: the same tables on both systems.
#include "platform/case_fold.h"
#include "platform/win32.h"

#include <gtest/gtest.h>

#include <string>

namespace {

typedef std::basic_string<WCHAR> Wide;

Wide EveryUnit() {
    Wide units;
    for (int unit = 0; unit < 0x10000; ++unit)
        units += static_cast<WCHAR>(unit);
    return units;
}

unsigned long long Digest(const Wide& text) { // FNV-1a, 64 bits
    unsigned long long hash = 0xcbf29ce484222325;
    for (const WCHAR unit : text) {
        hash = (hash ^ (unit & 0xffu)) * 0x100000001b3;
        hash = (hash ^ (unit >> 8)) * 0x100000001b3;
    }
    return hash;
}

TEST(LetterCase, MapsOneUnitToOne) {
    const struct {
        const char* label;
        const WCHAR* text;
        const WCHAR* lower;
        const WCHAR* upper;
    } rows[] = {
        {"ASCII", _T("aZ[`{"), _T("az[`{"), _T("AZ[`{")},
        {"Latin 1; sharp s and multiplication have no pair", _T("\xc4\xe4\xdf\xd7\xf7\xff"),
         _T("\xe4\xe4\xdf\xd7\xf7\xff"), _T("\xc4\xc4\xdf\xd7\xf7\x178")},
        {"dotted and dotless i", _T("\x130\x131"), _T("\x130\x131"), _T("\x130\x131")},
        {"title case stays", _T("\x1c4\x1c5\x1c6"), _T("\x1c6\x1c5\x1c6"), _T("\x1c4\x1c5\x1c4")},
        {"Greek, with the final sigma", _T("\x3a3\x3c3\x3c2"), _T("\x3c3\x3c3\x3c2"),
         _T("\x3a3\x3a3\x3c2")},
        {"signs are not letters", _T("\xb5\x2126\x212a"), _T("\xb5\x2126\x212a"),
         _T("\xb5\x2126\x212a")},
        {"Cyrillic, Armenian", _T("\x416\x436\x531\x561"), _T("\x436\x436\x561\x561"),
         _T("\x416\x416\x531\x531")},
        {"half a pair stays", _T("\xd801Z"), _T("\xd801z"), _T("\xd801Z")},
    };
    for (const auto& row : rows) {
        Wide lower = row.text;
        EXPECT_EQ(CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size())), lower.size());
        EXPECT_TRUE(lower == row.lower) << row.label;
        Wide upper = row.text;
        EXPECT_EQ(CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size())), upper.size());
        EXPECT_TRUE(upper == row.upper) << row.label;
    }
}

TEST(LetterCase, TablesAreThePlatforms) {
    Wide lower = EveryUnit();
    CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size()));
    EXPECT_EQ(Digest(lower), 6154550810825115918u);
    Wide upper = EveryUnit();
    CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
    EXPECT_EQ(Digest(upper), 13720836253867382098u);
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
