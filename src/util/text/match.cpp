#include <quorvel/util/text/match.h>

#include "util/text/no_throw.h"
#include "util/text/wide_traits.h"

#include <boost/regex.hpp>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

// The engine limits the number of states, but not the work in one state: a back reference compares
// as much text as its group matched. So the comparisons of characters, which all use these traits,
// have a limit too.
template <class Ch>
class LimitedTraits : public quorvel::RegexTraits<Ch> {
public:
    Ch translate(Ch character) const {
        Count();
        return quorvel::RegexTraits<Ch>::translate(character);
    }
    Ch translate_nocase(Ch character) const {
        Count();
        return quorvel::RegexTraits<Ch>::translate_nocase(character);
    }
    // Const, because the engine gives access to its traits only as const.
    void SetLimit(ULONGLONG comparisons) const { m_left = comparisons; }

private:
    void Count() const {
        if (m_left-- == 0)
            throw std::length_error("too many comparisons");
    }

    mutable ULONGLONG m_left = std::numeric_limits<ULONGLONG>::max(); // no limit for compiling
};

// Enough for any pattern on a short text and for reading a long text many times. Also enough to
// compare all pairs of characters, as long as that takes only seconds.
ULONGLONG ComparisonsFor(ULONGLONG length) {
    constexpr ULONGLONG kOfAnyText = 50'000'000;
    constexpr ULONGLONG kOfCharacter = 100;
    constexpr ULONGLONG kLongest = 50'000;
    const ULONGLONG compared = std::min(length, kLongest);
    return kOfAnyText + kOfCharacter * length + compared * compared;
}

template <class Ch>
using Regex = boost::basic_regex<Ch, LimitedTraits<Ch>>;

template <class Ch, class Test>
BOOL Apply(const Ch* text, const Ch* pattern, BOOL caseSensitive, Test test) {
    if (text == nullptr || pattern == nullptr)
        return FALSE;
    return quorvel::WithoutException([&] {
        const auto flags =
            boost::regex_constants::perl |
            (caseSensitive ? boost::regex_constants::normal : boost::regex_constants::icase);
        const Regex<Ch> regex(pattern, flags);
        const std::size_t length = std::char_traits<Ch>::length(text);
        regex.get_traits().SetLimit(ComparisonsFor(length));
        return test(text, text + length, regex);
    });
}

template <class Ch>
BOOL Search(const Ch* text, const Ch* pattern, BOOL caseSensitive) {
    return Apply(text, pattern, caseSensitive,
                 [](const Ch* first, const Ch* last, const Regex<Ch>& regex) {
                     return boost::regex_search(first, last, regex);
                 });
}

template <class Ch>
BOOL MatchWhole(const Ch* text, const Ch* pattern, BOOL caseSensitive) {
    return Apply(text, pattern, caseSensitive,
                 [](const Ch* first, const Ch* last, const Regex<Ch>& regex) {
                     return boost::regex_match(first, last, regex);
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
