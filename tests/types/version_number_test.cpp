#include <quorvel/types/version_number.h>

#include "support/test.h"

TEST(VersionNumber, TextIsReadPartByPart) {
    // The text, and its number as text; null means refused.
    const std::tuple<const WCHAR*, const WCHAR*> rows[] = {
        {nullptr, nullptr},    {_T(" ,.. "), _T("0.0.0.0")}, {_T("1.2.3.4.-1"), nullptr},
        {_T("1.-2"), nullptr}, {_T("+3.1"), _T("3.1.0.0")},  {_T("..1. 2, 3 ,4."), _T("1.2.3.4")},
        {_T("1.+"), nullptr},  {_T("1.-0"), _T("1.0.0.0")},  {_T("007.010"), _T("7.10.0.0")},
        {_T("+-1"), nullptr},  {_T("1.2.3.4.x"), nullptr},   {_T("1.2.3.4.5"), _T("1.2.3.4")},
        {_T("1+"), nullptr},   {_T("1.2\n"), nullptr},       {_T("\t1"), nullptr},
        {_T("0x10"), nullptr}, {_T("\x0661"), nullptr},
    };
    for (const auto& [text, number] : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        DWORD parts[4] = {77, 77, 77, 77};
        EXPECT_EQ(
            CVersionNumber::ParseVersionNumberString(text, parts[0], parts[1], parts[2], parts[3]),
            number != nullptr);
        const CVersionNumber read(parts[0], parts[1], parts[2], parts[3]);
        EXPECT_EQ(read.GetText(), number != nullptr ? number : _T("0.0.0.0"));
        EXPECT_EQ(CVersionNumber(text).GetText(), read.GetText());
    }
    EXPECT_EQ(CVersionNumber(_T("2147483648.4294967296.9.99999999999999999999999")).GetText(),
              _T("2147483647.2147483647.9.2147483647"));
    EXPECT_EQ(CVersionNumber(2147483647, 2147483648, 0, 4294967295).GetText(),
              _T("2147483647.-2147483648.0.-1"));
}

TEST(VersionNumber, TheFirstDifferentPartDecides) {
    const CVersionNumber ascending[] = {
        {0, 0, 0, 4294967295}, {0, 0, 1, 0},          {1, 2, 0, 0},          {1, 2, 0, 1},
        {1, 10, 0, 0},         {2147483647, 9, 9, 9}, {2147483648, 0, 0, 0}, {4294967295, 0, 1, 0},
    };
    for (const CVersionNumber& left : ascending)
        for (const CVersionNumber& right : ascending) {
            const auto order = &left - &right;
            SCOPED_TRACE(testing::PrintToString(left.GetText() + _T(" ") + right.GetText()));
            EXPECT_TRUE((left == right) == (order == 0) && (left != right) == (order != 0));
            EXPECT_TRUE((left < right) == (order < 0) && (left <= right) == (order <= 0));
            EXPECT_TRUE((left > right) == (order > 0) && (left >= right) == (order >= 0));
        }
}
