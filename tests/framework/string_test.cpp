#include <quorvel/framework/string.h>

#include "support/text.h"

#include <gtest/gtest.h>

TEST(String, CopiesAreIndependentOnceChanged) {
    const CString first(_T("abc"));
    CString second(first);
    EXPECT_EQ(first.GetString(), second.GetString()); // shared until changed
    second.SetAt(1, 'x');
    EXPECT_EQ(first, _T("abc"));
    EXPECT_EQ(second, _T("axc"));
}

TEST(String, ArgumentsMayPointIntoTheStringItself) {
    CString text(_T("abcdef"));
    text.Append(text.GetString() + 3, 3);
    EXPECT_EQ(text, _T("abcdefdef"));
    text = text.GetString() + 4;
    EXPECT_EQ(text, _T("efdef"));
    text.Insert(1, text);
    EXPECT_EQ(text, _T("eefdeffdef"));
    text.Replace(_T("f"), text.Left(2));
    EXPECT_EQ(text, _T("eeeedeeeeedeee"));
}
