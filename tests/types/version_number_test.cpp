#include <quorvel/types/version_number.h>

#include "support/text.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(VersionNumber, TextIsReadPartByPart) {
    const DWORD max = 2147483647;
    const std::tuple<const WCHAR*, CVersionNumber> readable[] = {
        {_T(""), {}},
        {_T(" ,.. "), {}},
        {_T("1.2.3.4"), {1, 2, 3, 4}},
        {_T("1,2,3,4"), {1, 2, 3, 4}},
        {_T("1 2 3 4"), {1, 2, 3, 4}},
        {_T("..1. 2, 3 ,4."), {1, 2, 3, 4}},
        {_T("2.5"), {2, 5, 0, 0}},
        {_T("+3.1"), {3, 1, 0, 0}},
        {_T("007.010"), {7, 10, 0, 0}},
        {_T("1.-0"), {1, 0, 0, 0}},
        {_T("1.2.3.4.5"), {1, 2, 3, 4}},
        {_T("2147483647.2147483648.4294967296.99999999999999999999999"), {max, max, max, max}},
    };
    for (const auto& [text, number] : readable) {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        DWORD parts[4] = {77, 77, 77, 77};
        EXPECT_TRUE(
            CVersionNumber::ParseVersionNumberString(text, parts[0], parts[1], parts[2], parts[3]));
        EXPECT_TRUE(CVersionNumber(parts[0], parts[1], parts[2], parts[3]) == number);
        EXPECT_TRUE(CVersionNumber(text) == number);
    }
    const WCHAR* const refused[] = {
        nullptr,   _T("1.2.x"), _T("1.-2"),  _T("1.2.3.4.x"),    _T("1.2.3.4.-1"),
        _T("1.+"), _T("1.-"),   _T("+-1"),   _T("1+"),           _T("0x10"),
        _T("1;2"), _T("\t1"),   _T("1.2\n"), _T("-99999999999"), _T("\x0661")};
    for (const WCHAR* text : refused) {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        DWORD parts[4] = {77, 77, 77, 77};
        EXPECT_FALSE(
            CVersionNumber::ParseVersionNumberString(text, parts[0], parts[1], parts[2], parts[3]));
        EXPECT_FALSE(parts[0] || parts[1] || parts[2] || parts[3]);
        EXPECT_TRUE(CVersionNumber(text) == CVersionNumber());
    }
}

TEST(VersionNumber, TextHasFourSignedParts) {
    const std::tuple<CVersionNumber, const WCHAR*> rows[] = {
        {CVersionNumber(), _T("0.0.0.0")},
        {{1, 2, 3, 4}, _T("1.2.3.4")},
        {{4294967295, 0, 0, 1}, _T("-1.0.0.1")},
        {{2147483647, 2147483648, 0, 0}, _T("2147483647.-2147483648.0.0")},
    };
    for (const auto& [number, text] : rows)
        EXPECT_EQ(number.GetText(), text);
}

TEST(VersionNumber, TheFirstDifferentPartDecides) {
    const CVersionNumber ascending[] = {
        {0, 0, 0, 0},          {0, 0, 0, 4294967295}, {0, 0, 1, 0},          {1, 2, 0, 0},
        {1, 2, 0, 1},          {1, 9, 0, 0},          {1, 10, 0, 0},         {1, 99, 99, 99},
        {2, 0, 0, 0},          {2147483647, 9, 9, 9}, {2147483648, 0, 0, 0}, {4294967295, 0, 0, 0},
        {4294967295, 0, 1, 0},
    };
    constexpr int count = sizeof ascending / sizeof *ascending;
    for (int i = 0; i < count; ++i)
        for (int j = 0; j < count; ++j) {
            SCOPED_TRACE(testing::Message() << i << " and " << j);
            const CVersionNumber &left = ascending[i], &right = ascending[j];
            EXPECT_EQ(left == right, i == j);
            EXPECT_EQ(left != right, i != j);
            EXPECT_EQ(left < right, i < j);
            EXPECT_EQ(left > right, i > j);
            EXPECT_EQ(left <= right, i <= j);
            EXPECT_EQ(left >= right, i >= j);
        }
}

TEST(VersionNumber, AnIncrementLeavesTheOtherParts) {
    CVersionNumber number(1, 4, 2, 4294967295);
    number.IncrementMajorVersion();
    EXPECT_TRUE(number == CVersionNumber(2, 4, 2, 4294967295));
    number.IncrementMinorVersion();
    number.IncrementRevisionNumber();
    number.IncrementBuildNumber();
    EXPECT_TRUE(number == CVersionNumber(2, 5, 3, 0));
}

} // namespace
