#include <quorvel/util/text/validation.h>

#include "platform/case_fold.h"
#include "platform/digits.h"

#include <algorithm>
#include <string_view>

namespace {

typedef std::basic_string_view<WCHAR> View;

struct Scheme {
    View prefix;
    bool allowsBlanks;
};
constexpr Scheme kSchemes[] = {
    {_T("http://"), false},   {_T("https://"), false}, {_T("ftp://"), false},
    {_T("gopher://"), false}, {_T("mailto:"), false},  {_T("news:"), false},
    {_T("file://"), true}, // a file name without escapes
};

bool IsControl(WCHAR character) {
    return character < ' ' || (character >= 0x7f && character < 0xa0);
}

// Reads a decimal number of 0 to 255 without leading zeros from the front of the text.
bool TakeOctet(View& text) {
    int value = 0;
    std::size_t length = 0;
    for (; length < text.size() && quorvel::IsDigit(text[length]); ++length) {
        value = 10 * value + (text[length] - '0');
        if (value > 255 || (length > 0 && text[0] == '0'))
            return false;
    }
    text.remove_prefix(length);
    return length > 0;
}

} // namespace

BOOL AfxIsValidURL(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    const View url = text;
    const auto scheme = std::ranges::find_if(kSchemes, [url](const Scheme& each) {
        return quorvel::BeginsWithIgnoringCase(url, each.prefix);
    });
    if (scheme == std::end(kSchemes))
        return FALSE;
    const View rest = url.substr(scheme->prefix.size());
    const auto isRefused = [scheme](WCHAR character) {
        return IsControl(character) || (character == ' ' && !scheme->allowsBlanks);
    };
    return rest.find_first_not_of('/') != rest.npos && std::ranges::none_of(rest, isRefused);
}

BOOL AfxIsValidIPAddress(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    View rest = text;
    for (int octet = 0; octet < 4; ++octet) {
        if (octet > 0) {
            if (!rest.starts_with('.'))
                return FALSE;
            rest.remove_prefix(1);
        }
        if (!TakeOctet(rest))
            return FALSE;
    }
    return rest.empty();
}

BOOL AfxIsValidPortNumber(int port) {
    return port >= 1 && port <= 65535;
}
