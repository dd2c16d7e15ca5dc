#include <quorvel/framework/inet.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

typedef std::basic_string_view<WCHAR> View;

struct Scheme {
    View name;
    DWORD serviceType;
    WORD port;
};
constexpr Scheme kSchemes[] = {
    {_T("ftp"), AFX_INET_SERVICE_FTP, 21},
    {_T("gopher"), AFX_INET_SERVICE_GOPHER, 70},
    {_T("http"), AFX_INET_SERVICE_HTTP, 80},
    {_T("https"), AFX_INET_SERVICE_HTTPS, 443},
};

CString TextOf(View text) {
    return CString(text.data(), static_cast<int>(text.size()));
}

// Null for an unknown scheme.
const Scheme* FindScheme(View name) {
    const auto found = std::ranges::find_if(kSchemes, [name](const Scheme& scheme) {
        return std::ranges::equal(name, scheme.name, {}, [](WCHAR unit) {
            return unit >= 'A' && unit <= 'Z' ? static_cast<WCHAR>(unit + ('a' - 'A')) : unit;
        });
    });
    return found != std::end(kSchemes) ? found : nullptr;
}

// Removes the port from the authority; false for an invalid port. An empty one is the default.
bool TakePort(View& authority, WORD& port) {
    const std::size_t bracket = authority.rfind(']'); // an IPv6 address has its colons before it
    const std::size_t colon = authority.find(':', bracket != View::npos ? bracket : 0);
    if (colon == View::npos)
        return true;
    const View digits = authority.substr(colon + 1);
    authority = authority.substr(0, colon);
    if (digits.empty())
        return true;
    unsigned number = 0;
    for (const WCHAR digit : digits) {
        if (digit < '0' || digit > '9')
            return false;
        number = std::min(number * 10 + static_cast<unsigned>(digit - '0'), 0x10000u);
    }
    port = static_cast<WORD>(number);
    return number <= 0xffff;
}

} // namespace

BOOL AfxParseURL(const WCHAR* url, DWORD& serviceType, CString& server, CString& object,
                 WORD& port) {
    constexpr View kSeparator = _T("://");
    const View text = url != nullptr ? View(url) : View();
    const std::size_t separator = text.find(kSeparator);
    const auto breaks = [](WCHAR unit) { return unit <= ' ' || unit == 0x7f; };
    if (separator == View::npos || std::ranges::any_of(text, breaks))
        return FALSE;
    const Scheme* const scheme = FindScheme(text.substr(0, separator));
    if (scheme == nullptr)
        return FALSE;
    View rest = text.substr(separator + kSeparator.size());
    rest = rest.substr(0, rest.find('#'));
    View authority = rest.substr(0, rest.find_first_of(_T("/?")));
    rest.remove_prefix(authority.size());
    const std::size_t user = authority.rfind('@');
    if (user != View::npos)
        authority.remove_prefix(user + 1);
    WORD foundPort = scheme->port;
    if (!TakePort(authority, foundPort) || authority.empty())
        return FALSE;
    serviceType = scheme->serviceType;
    server = TextOf(authority);
    object = rest.starts_with('/') ? TextOf(rest) : _T("/") + TextOf(rest);
    port = foundPort;
    return TRUE;
}
