#include <quorvel/util/text/validation.h>

#include "support/test.h"

static void Expect(BOOL (*isValid)(const WCHAR*), BOOL expected,
                   std::initializer_list<const WCHAR*> texts) {
    for (const WCHAR* text : texts)
        EXPECT_EQ(isValid(text), expected) << testing::PrintToString(CString(text));
}

TEST(Validation, AddressesAndPorts) {
    Expect(AfxIsValidURL, TRUE,
           {_T("http://example.com"), _T("HTTPS://example.com/a?b=c#d"), _T("ftp://x"),
            _T("gopher://x"), _T("mailto:someone@example.com"), _T("news:comp.lang"),
            _T("file:///etc/hosts"), _T("file://C:\\My Documents\\a.txt"),
            _T("http://stra\xdf\x65.example")});
    Expect(AfxIsValidURL, FALSE,
           {_T("http://"), _T("http:///"), _T("mailto:"), _T("http:/example.com"),
            _T("example.com"), _T("javascript:alert(1)"), _T(" http://example.com"),
            _T("http://exam ple.com"), _T("http://example.com\r\nHost: x"), _T("file://a\tb"),
            _T("http://example.com\x85"), _T(""), nullptr});
    Expect(AfxIsValidIPAddress, TRUE, {_T("0.0.0.0"), _T("255.255.255.255"), _T("127.0.0.1")});
    Expect(AfxIsValidIPAddress, FALSE,
           {_T("256.0.0.1"), _T("1.2.3"), _T("1.2.3.4.5"), _T("1.2.3."), _T("1..2.3"),
            _T("01.2.3.4"), _T("1.2.3.4 "), _T(" 1.2.3.4"), _T("1.2.3.a"), _T("0x1.2.3.4"),
            _T("-1.2.3.4"), _T("1.2.3.99999999999999999999"), _T(""), nullptr});
    for (const int port : {INT_MIN, 0, 1, 65535, 65536, INT_MAX})
        EXPECT_EQ(AfxIsValidPortNumber(port), port == 1 || port == 65535) << port;
}
