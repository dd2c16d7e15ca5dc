// The tokenizer of CMarkup, for inlining into its own code. Exported functions can be interposed,
// so the compiler cannot inline them.
#pragma once

#include "xml/characters.h"

namespace quorvel {

inline bool FindChar(const WCHAR* text, int& position, WCHAR character) {
    while (text[position] != 0 && text[position] != character)
        ++position;
    return text[position] != 0;
}

inline bool FindAny(const WCHAR* text, int& position) {
    while (IsClass(text[position], kClassSpace))
        ++position;
    return text[position] != 0;
}

// Implements CMarkup::x_FindToken. `findQuote` is FindChar or has the same effect.
template <class Token, class FindQuote>
[[gnu::always_inline]] inline bool FindToken(Token& token, FindQuote findQuote) {
    const WCHAR* text = token.pszDoc;
    int position = token.nNext;
    token.bQuoted = FALSE;
    if (!FindAny(text, position)) {
        token.nFirst = token.nLast = token.nNext = position;
        return false;
    }
    const WCHAR first = text[position];
    if (first == '"' || first == '\'') {
        token.bQuoted = TRUE;
        token.nFirst = ++position;
        const bool closed = findQuote(text, position, first);
        token.nLast = position - 1;
        token.nNext = closed ? position + 1 : position;
        return true;
    }
    token.nFirst = position;
    while (!IsClass(text[position], kClassDelimiter | kClassEnd))
        ++position;
    if (position == token.nFirst)
        ++position; // a delimiter is a token
    token.nLast = position - 1;
    token.nNext = position;
    return true;
}

} // namespace quorvel
