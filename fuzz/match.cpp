// Regular expressions. The first byte holds the case flag and the length of the pattern; pattern
// and text follow. Each call ends, and ASCII gives the same result in both widths.
#include <quorvel/util/text/match.h>

#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest = 256; // longer inputs are slow and find no more
    if (size > longest)
        return 0;
    FuzzInput input(data, size);
    const std::uint8_t first = input.Byte();
    const BOOL caseSensitive = first & 1;
    const std::string rest = input.Rest();
    const std::size_t patternLength = std::min<std::size_t>(first >> 1, rest.size());
    const std::string pattern = rest.substr(0, patternLength);
    const std::string text = rest.substr(patternLength);
    const BOOL found = AfxMatchText(text.c_str(), pattern.c_str(), caseSensitive);
    const BOOL whole = AfxValidateText(text.c_str(), pattern.c_str(), caseSensitive);

    const WideText widePattern(pattern.begin(), pattern.end());
    const WideText wideText(text.begin(), text.end());
    const BOOL wideFound = AfxMatchText(wideText.c_str(), widePattern.c_str(), caseSensitive);
    const BOOL wideWhole = AfxValidateText(wideText.c_str(), widePattern.c_str(), caseSensitive);
    if (std::all_of(rest.begin(), rest.end(), [](char each) { return each > 0; }))
        Require(found == wideFound && whole == wideWhole);
    return 0;
}
