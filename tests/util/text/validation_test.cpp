#include <quorvel/util/text/validation.h>

#include "support/test.h"

TEST(Validation, WebAddresses) {
    for (const WCHAR* valid :
         {_T("http://example.com"), _T("HTTPS://example.com/a?b=c#d"), _T("ftp://x"),
          _T("gopher://x"), _T("mailto:someone@example.com"), _T("news:comp.lang"),
          _T("file:///etc/hosts"), _T("file://C:\\My Documents\\a.txt"),
          _T("http://stra\xdf\x65.example")})
        EXPECT_TRUE(AfxIsValidURL(valid)) << testing::PrintToString(CString(valid));
    for (const WCHAR* invalid :
         {_T("http://"), _T("http:///"), _T("mailto:"), _T("http:/example.com"), _T("example.com"),
          _T("javascript:alert(1)"), _T(" http://example.com"), _T("http://exam ple.com"),
          _T("http://example.com\r\nHost: x"), _T("file://a\tb"), _T("http://example.com\x85"),
          _T(""), static_cast<const WCHAR*>(nullptr)})
        EXPECT_FALSE(AfxIsValidURL(invalid)) << testing::PrintToString(CString(invalid));
}

TEST(Validation, DottedAddresses) {
    for (const WCHAR* valid : {_T("0.0.0.0"), _T("255.255.255.255"), _T("127.0.0.1")})
        EXPECT_TRUE(AfxIsValidIPAddress(valid)) << testing::PrintToString(CString(valid));
    for (const WCHAR* invalid :
         {_T("256.0.0.1"), _T("1.2.3"), _T("1.2.3.4.5"), _T("1.2.3."), _T(".1.2.3"), _T("1..2.3"),
          _T("01.2.3.4"), _T("1.2.3.4 "), _T(" 1.2.3.4"), _T("1.2.3.a"), _T("0x1.2.3.4"),
          _T("-1.2.3.4"), _T("1.2.3.99999999999999999999"), _T("localhost"), _T(""),
          static_cast<const WCHAR*>(nullptr)})
        EXPECT_FALSE(AfxIsValidIPAddress(invalid)) << testing::PrintToString(CString(invalid));
}

TEST(Validation, Ports) {
    for (const int port : {1, 80, 65535})
        EXPECT_TRUE(AfxIsValidPortNumber(port)) << port;
    for (const int port : {INT_MIN, -1, 0, 65536, INT_MAX})
        EXPECT_FALSE(AfxIsValidPortNumber(port)) << port;
}
