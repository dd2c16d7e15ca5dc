// Simple letter case: the same tables on both systems.
#include "platform/case_fold.h"
#include "platform/win32.h"

#include "support/golden.h"

// Zero means that a unit does not change.
TEST(LetterCase, TablesAreThePlatforms) {
    Wide units;
    for (int unit = 0; unit < 0x10000; ++unit)
        units += static_cast<WCHAR>(unit);
    Golden golden("letter_case");
    for (const auto convert : {CharLowerBuffW, CharUpperBuffW}) {
        Wide changed = units;
        convert(changed.data(), static_cast<DWORD>(changed.size()));
        for (std::size_t unit = 0; unit < units.size(); ++unit) {
            if (convert == CharLowerBuffW) {
                ASSERT_EQ(quorvel::FoldCase(units[unit]), changed[unit]);
            }
            changed[unit] = changed[unit] == units[unit] ? WCHAR(0) : changed[unit];
        }
        golden.Expect(changed, convert == CharLowerBuffW ? "lower case" : "upper case");
    }
}
