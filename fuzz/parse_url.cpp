// Splits an Internet address and joins its parts again, which must give the same parts.
#include <quorvel/framework/inet.h>

#include "fuzz_input.h"

FUZZ_TARGET(input) {
    DWORD serviceType = 0;
    CString server, object, otherServer, otherObject, again;
    WORD port = 0, otherPort = 0;
    if (!AfxParseURL(Widened(input.Bytes()).c_str(), serviceType, server, object, port))
        return;
    Require(!server.IsEmpty() && server.FindOneOf(_T("/?#@")) < 0);
    Require(object[0] == '/' && object.Find('#') < 0);
    const CString both = server + object;
    for (int i = 0; i < both.GetLength(); ++i)
        Require(both[i] > ' ' && both[i] != 0x7f);
    again.Format(_T("http://%s:%d%s"), server.GetString(), port, object.GetString());
    Require(AfxParseURL(again, serviceType, otherServer, otherObject, otherPort));
    Require(otherServer == server && otherObject == object && otherPort == port);
}
