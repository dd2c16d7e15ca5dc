// The tokenizer of CMarkup, for its own code to have inline: a call of an exported function may be
// led elsewhere and never is.
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

// CMarkup::x_FindToken; `findQuote` is FindChar or does what it does.
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
        ++position; // a delimiter is a token by itself
    token.nLast = position - 1;
    token.nNext = position;
    return true;
}

} // namespace quorvel
