// Escaping. The first byte says how blanks are escaped; the rest is the text. An address is limited
// in length, and an escaped text matches itself as a pattern.
#include <quorvel/util/text/escape.h>
#include <quorvel/util/text/match.h>

#include "fuzz_input.h"

FUZZ_TARGET(input) {
    const BOOL spaceAsPlus = input.Byte() & 1;
    const std::string text = input.Rest();
    CStringA escaped;
    const BOOL isWhole = AfxUTF8EscapeUnsafeURLCharacters(text.c_str(), escaped, spaceAsPlus);
    Require(escaped.GetLength() <= 2083 && (isWhole || escaped.GetLength() > 2080));
    const WideText wide(text.begin(), text.end());
    CString pattern;
    Require(AfxEscapeRegularExpressionMetacharacters(wide.c_str(), pattern));
    Require(AfxValidateText(wide.c_str(), pattern, TRUE));
}
