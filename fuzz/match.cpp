// Regular expressions. The first byte holds the case flag and the length of the pattern; pattern
// and text follow. Each call ends, and ASCII gives the same result in both widths.
#include <quorvel/util/text/match.h>

#include "fuzz_input.h"

template <class Text>
static std::pair<BOOL, BOOL> Found(const Text& text, const Text& pattern, BOOL caseSensitive) {
    return {AfxMatchText(text.c_str(), pattern.c_str(), caseSensitive),
            AfxValidateText(text.c_str(), pattern.c_str(), caseSensitive)};
}

FUZZ_TARGET(input) {
    const std::uint8_t first = input.Byte();
    const std::string rest = input.Rest().substr(0, 255); // longer inputs are slow, find no more
    const std::string pattern = rest.substr(0, first >> 1);
    const std::string text = rest.substr(pattern.size());
    const auto found = Found(text, pattern, first & 1);
    const auto wideFound = Found(WideText(text.begin(), text.end()),
                                 WideText(pattern.begin(), pattern.end()), first & 1);
    if (std::all_of(rest.begin(), rest.end(), [](char each) { return each > 0; }))
        Require(found == wideFound);
}
