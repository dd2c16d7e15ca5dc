// Simple letter case: the same tables on both systems.
#include "platform/case_fold.h"
#include "platform/win32.h"

#include "support/digest.h"
#include "support/test.h"

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
