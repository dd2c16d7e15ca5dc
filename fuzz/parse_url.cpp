// Splits an Internet address and joins its parts again, which must give the same parts.
#include <quorvel/framework/inet.h>

#include "fuzz_input.h"

namespace {

constexpr const WCHAR* kEndsOfServer = _T("/?#@");

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 1 << 16)
        return 0;
    const WideText text = Widened(std::string(data, data + size));
    DWORD serviceType = 0;
    CString server, object;
    WORD port = 0;
    if (!AfxParseURL(text.c_str(), serviceType, server, object, port))
        return 0;
    Require(!server.IsEmpty() && server.FindOneOf(kEndsOfServer) < 0);
    Require(object[0] == '/' && object.Find('#') < 0);
    for (const CString& part : {server, object})
        for (int i = 0; i < part.GetLength(); ++i)
            Require(part[i] > ' ' && part[i] != 0x7f);

    CString again;
    again.Format(_T("http://%s:%d%s"), server.GetString(), port, object.GetString());
    CString otherServer, otherObject;
    WORD otherPort = 0;
    Require(AfxParseURL(again, serviceType, otherServer, otherObject, otherPort));
    Require(otherServer == server && otherObject == object && otherPort == port);
    return 0;
}
