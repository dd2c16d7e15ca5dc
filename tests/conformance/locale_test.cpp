// Letter case, locale items, numbers and byte sizes, in a program that runs as English (United
// States).
#include "platform/case_fold.h"
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

// As AfxFormatExtendedFileSize calls it: whole numbers, grouped for the user's locale.
TEST(NumberFormat, GroupsDigits) {
    const auto grouped = [](UINT grouping, const WCHAR* digits) {
        WCHAR text[100], point[] = _T("."), separator[] = _T(" ");
        const NUMBERFMTW format = {0, 1, grouping, point, separator, 1};
        return CString(text, GetNumberFormatW(0x0409, 0, digits, &format, text, 100));
    };
    const CString large(_T("9 223 372 036 854 775 808"), 26), odd(_T("12 34 56 78 901"), 16);
    EXPECT_EQ(grouped(3, _T("9223372036854775808")), large);
    EXPECT_EQ(grouped(32, _T("12345678901")), odd); // groups of three, then of two
}

TEST(ByteSize, HasThreeDigitsAndIsCut) {
    const auto formatted = [](LONGLONG size, UINT room = 100) {
        WCHAR text[100];
        return CString(StrFormatByteSizeW(size, text, room));
    };
    ExpectCases<CString, const WCHAR*>(
        {CASE(formatted(-1), _T("-1 bytes")), CASE(formatted(999 * 1024), _T("999 KB")),
         CASE(formatted(1000 * 1024), _T("0.97 MB")), CASE(formatted(1047527423), _T("998 MB")),
         CASE(formatted(10239), _T("9.99 KB")), CASE(formatted(10240), _T("10.0 KB")),
         CASE(formatted(532, 5), _T("532 "))});
}

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
