#include <quorvel/types/version_number.h>

#include "support/text.h"

#include <gtest/gtest.h>

namespace {

struct ParseCase {
    const WCHAR* text;
    BOOL result;
    DWORD parts[4];
};

constexpr ParseCase kParseCases[] = {
    {nullptr, FALSE, {}},
    {_T(""), TRUE, {}},
    {_T(" ,.. "), TRUE, {}},
    {_T("1.2.3.4"), TRUE, {1, 2, 3, 4}},
    {_T("1,2,3,4"), TRUE, {1, 2, 3, 4}},
    {_T("1 2 3 4"), TRUE, {1, 2, 3, 4}},
    {_T("..1. 2, 3 ,4."), TRUE, {1, 2, 3, 4}},
    {_T("2.5"), TRUE, {2, 5, 0, 0}},
    {_T("+3.1"), TRUE, {3, 1, 0, 0}},
    {_T("007.010"), TRUE, {7, 10, 0, 0}},
    {_T("1.-0"), TRUE, {1, 0, 0, 0}},
    {_T("1.2.3.4.5"), TRUE, {1, 2, 3, 4}},
    {_T("2147483647.2147483648.4294967296.99999999999999999999999"),
     TRUE,
     {2147483647, 2147483647, 2147483647, 2147483647}},
    {_T("1.2.x"), FALSE, {}},
    {_T("1.-2"), FALSE, {}},
    {_T("1.2.3.4.x"), FALSE, {}},
    {_T("1.2.3.4.-1"), FALSE, {}},
    {_T("1.+"), FALSE, {}},
    {_T("1.-"), FALSE, {}},
    {_T("+-1"), FALSE, {}},
    {_T("1+"), FALSE, {}},
    {_T("0x10"), FALSE, {}},
    {_T("1;2"), FALSE, {}},
    {_T("\t1"), FALSE, {}},
    {_T("1.2\n"), FALSE, {}},
    {_T("-99999999999"), FALSE, {}},
    {_T("\x0661"), FALSE, {}}, // a digit of another script
};

TEST(VersionNumber, TextIsReadPartByPart) {
    for (const ParseCase& row : kParseCases) {
        SCOPED_TRACE(testing::PrintToString(CString(row.text)));
        DWORD parts[4] = {77, 77, 77, 77};
        EXPECT_EQ(CVersionNumber::ParseVersionNumberString(row.text, parts[0], parts[1], parts[2],
                                                           parts[3]),
                  row.result);
        const CVersionNumber constructed(row.text);
        CVersionNumber set;
        set.SetNumber(parts[0], parts[1], parts[2], parts[3]);
        EXPECT_TRUE(constructed == set);
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(parts[i], row.parts[i]) << "part " << i;
    }
}

TEST(VersionNumber, TextHasFourSignedParts) {
    const struct {
        CVersionNumber number;
        const WCHAR* text;
    } rows[] = {
        {CVersionNumber(), _T("0.0.0.0")},
        {{1, 2, 3, 4}, _T("1.2.3.4")},
        {{4294967295, 0, 0, 1}, _T("-1.0.0.1")},
        {{2147483647, 2147483648, 0, 0}, _T("2147483647.-2147483648.0.0")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.number.GetText(), row.text);
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
