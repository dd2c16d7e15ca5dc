// Escaping. The first byte says how blanks are escaped; the rest is the text. What an address's
// escapes stand for is the text, or its beginning where it was cut, and an escaped text matches
// itself as a pattern.
#include <quorvel/util/text/escape.h>
#include <quorvel/util/text/match.h>

#include "fuzz_input.h"

namespace {

std::string Unescaped(const CStringA& escaped, bool plusIsSpace) {
    std::string text;
    for (int i = 0; i < escaped.GetLength(); ++i) {
        if (escaped[i] == '%') {
            text += static_cast<char>(std::stoi(std::string(escaped.Mid(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            text += plusIsSpace && escaped[i] == '+' ? ' ' : escaped[i];
        }
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const BOOL spaceAsPlus = input.Byte() & 1;
    const std::string text = input.Rest();

    CStringA escaped;
    const BOOL isWhole = AfxUTF8EscapeUnsafeURLCharacters(text.c_str(), escaped, spaceAsPlus);
    Require(escaped.GetLength() <= 2083);
    const std::string back = Unescaped(escaped, spaceAsPlus != FALSE);
    Require(isWhole ? back == text : back == text.substr(0, back.size()) && back != text);

    const WideText wide(text.begin(), text.end());
    CString pattern;
    Require(AfxEscapeRegularExpressionMetacharacters(wide.c_str(), pattern));
    Require(AfxValidateText(wide.c_str(), pattern, TRUE));
    return 0;
}
