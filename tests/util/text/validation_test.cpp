#include <quorvel/util/text/validation.h>

#include "support/text.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

struct Row {
    const WCHAR* text;
    BOOL expected;
};

} // namespace

TEST(Validation, WebAddresses) {
    const Row rows[] = {
        {_T("http://example.com"), TRUE},
        {_T("HTTPS://example.com/a?b=c#d"), TRUE},
        {_T("ftp://x"), TRUE},
        {_T("gopher://x"), TRUE},
        {_T("mailto:someone@example.com"), TRUE},
        {_T("news:comp.lang"), TRUE},
        {_T("file:///etc/hosts"), TRUE},
        {_T("file://C:\\My Documents\\a.txt"), TRUE},
        {_T("http://stra\xdf\x65.example"), TRUE},
        {_T("http://"), FALSE},
        {_T("http:///"), FALSE},
        {_T("mailto:"), FALSE},
        {_T("http:/example.com"), FALSE},
        {_T("example.com"), FALSE},
        {_T("javascript:alert(1)"), FALSE},
        {_T(" http://example.com"), FALSE},
        {_T("http://exam ple.com"), FALSE},
        {_T("http://example.com\r\nHost: x"), FALSE},
        {_T("file://a\tb"), FALSE},
        {_T("http://example.com\x85"), FALSE},
        {_T(""), FALSE},
        {nullptr, FALSE},
    };
    for (const Row& row : rows)
        EXPECT_EQ(AfxIsValidURL(row.text), row.expected)
            << testing::PrintToString(CString(row.text));
}

TEST(Validation, DottedAddresses) {
    const Row rows[] = {
        {_T("0.0.0.0"), TRUE},    {_T("255.255.255.255"), TRUE},
        {_T("127.0.0.1"), TRUE},  {_T("256.0.0.1"), FALSE},
        {_T("1.2.3"), FALSE},     {_T("1.2.3.4.5"), FALSE},
        {_T("1.2.3."), FALSE},    {_T(".1.2.3"), FALSE},
        {_T("1..2.3"), FALSE},    {_T("01.2.3.4"), FALSE},
        {_T("1.2.3.4 "), FALSE},  {_T(" 1.2.3.4"), FALSE},
        {_T("1.2.3.a"), FALSE},   {_T("0x1.2.3.4"), FALSE},
        {_T("-1.2.3.4"), FALSE},  {_T("1.2.3.99999999999999999999"), FALSE},
        {_T("localhost"), FALSE}, {_T(""), FALSE},
        {nullptr, FALSE},
    };
    for (const Row& row : rows)
        EXPECT_EQ(AfxIsValidIPAddress(row.text), row.expected)
            << testing::PrintToString(CString(row.text));
}

TEST(Validation, Ports) {
    for (const int port : {1, 80, 65535})
        EXPECT_TRUE(AfxIsValidPortNumber(port)) << port;
    for (const int port : {INT_MIN, -1, 0, 65536, INT_MAX})
        EXPECT_FALSE(AfxIsValidPortNumber(port)) << port;
}
