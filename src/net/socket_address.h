// An IPv4 address with its port, as sockets take it.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/sockets.h>
#include <quorvel/util/text/validation.h>

#include "platform/win32.h"

namespace quorvel {

class SocketAddress {
public:
    SocketAddress() { m_address.sin_family = AF_INET; }
    // A null text means any address.
    SocketAddress(const WCHAR* text, UINT port) : SocketAddress() {
        m_valid = port <= 0xffff && (text == nullptr || AfxIsValidIPAddress(text));
        if (!m_valid)
            return;
        m_address.sin_port = htons(static_cast<USHORT>(port));
        if (text != nullptr)
            m_address.sin_addr.s_addr = ::inet_addr(CStringA(text));
    }

    bool IsValid() const { return m_valid; }
    const win32::sockaddr* Get() const {
        return reinterpret_cast<const win32::sockaddr*>(&m_address);
    }
    win32::sockaddr* Get() { return reinterpret_cast<win32::sockaddr*>(&m_address); }
    static int Length() { return sizeof(sockaddr_in); }

    void GetText(CString& text, UINT& port) const {
        text = CString(::inet_ntoa(m_address.sin_addr));
        port = ntohs(m_address.sin_port);
    }

private:
    sockaddr_in m_address = {};
    bool m_valid = true;
};

} // namespace quorvel
