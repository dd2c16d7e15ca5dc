#include <quorvel/util/text/match.h>

#include "util/text/no_throw.h"
#include "util/text/wide_traits.h"

#include <boost/regex.hpp>

namespace {

template <class Ch>
using Regex = boost::basic_regex<Ch, quorvel::RegexTraits<Ch>>;

template <class Ch, class Test>
BOOL Apply(const Ch* text, const Ch* pattern, BOOL caseSensitive, Test test) {
    if (text == nullptr || pattern == nullptr)
        return FALSE;
    return quorvel::WithoutException([&] {
        const auto flags =
            boost::regex_constants::perl |
            (caseSensitive ? boost::regex_constants::normal : boost::regex_constants::icase);
        return test(text, Regex<Ch>(pattern, flags));
    });
}

template <class Ch>
BOOL Search(const Ch* text, const Ch* pattern, BOOL caseSensitive) {
    return Apply(text, pattern, caseSensitive, [](const Ch* whole, const Regex<Ch>& regex) {
        return boost::regex_search(whole, regex);
    });
}

template <class Ch>
BOOL MatchWhole(const Ch* text, const Ch* pattern, BOOL caseSensitive) {
    return Apply(text, pattern, caseSensitive, [](const Ch* whole, const Regex<Ch>& regex) {
        return boost::regex_match(whole, regex);
    });
}

} // namespace

BOOL AfxMatchText(const WCHAR* text, const WCHAR* pattern, BOOL caseSensitive) {
    return Search(text, pattern, caseSensitive);
}

BOOL AfxMatchText(const char* text, const char* pattern, BOOL caseSensitive) {
    return Search(text, pattern, caseSensitive);
}

BOOL AfxValidateText(const WCHAR* text, const WCHAR* pattern, BOOL caseSensitive) {
    return MatchWhole(text, pattern, caseSensitive);
}

BOOL AfxValidateText(const char* text, const char* pattern, BOOL caseSensitive) {
    return MatchWhole(text, pattern, caseSensitive);
}
