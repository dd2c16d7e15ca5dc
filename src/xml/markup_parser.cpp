// The tokenizer and the parser of CMarkup.
//
// The parser is one loop over the angle brackets of the text. It has no stack. `parent` is the
// element whose content is read; its record has its own parent. `link` is the field that gets the
// index of the next element: the parent's iFirstChild or the last sibling's iNextSibling. So depth
// costs nothing except records.
#include <quorvel/xml/markup.h>

#include "xml/angle_scanner.h"
#include "xml/characters.h"
#include "xml/tokenizer.h"

#include <cstddef>
#include <string>

using quorvel::FindAny;
using quorvel::FindChar;
using quorvel::IsClass;
using quorvel::kClassDelimiter;

namespace {

// Whether a character begins an ordinary tag name: no delimiter, quote, white space or end.
bool BeginsPlainName(WCHAR c) {
    return (c >= 'A' && c != '\\') || (c >= '0' && c <= ';');
}

// Moves past the first occurrence of the terminator at or after `position`.
bool FindTerminator(const WCHAR* text, int& position, const WCHAR* terminator, int length) {
    for (;; ++position) {
        while (text[position] != 0 && text[position] != terminator[0])
            ++position;
        if (text[position] == 0)
            return false;
        if (std::char_traits<WCHAR>::compare(text + position, terminator,
                                             static_cast<std::size_t>(length)) == 0) {
            position += length;
            return true;
        }
    }
}

int CountBrackets(const WCHAR* text, int first, int last) {
    int depth = 0;
    for (int i = first; i <= last; ++i)
        depth += text[i] == '[' ? 1 : text[i] == ']' ? -1 : 0;
    return depth;
}

} // namespace

bool CMarkup::x_FindChar(const WCHAR* text, int& position, WCHAR character) {
    return FindChar(text, position, character);
}

bool CMarkup::x_FindAny(const WCHAR* text, int& position) {
    return FindAny(text, position);
}

bool CMarkup::x_FindToken(TokenPos& token) {
    return quorvel::FindToken(token, FindChar);
}

CString CMarkup::x_GetToken(const TokenPos& token) {
    return CString(token.pszDoc + token.nFirst, token.nLast - token.nFirst + 1);
}

// Deliberate: a longer name also matches when one of these characters follows the token.
bool CMarkup::x_MatchToken(const TokenPos& token, const WCHAR* name) {
    const int length = token.nLast - token.nFirst + 1;
    for (int i = 0; i < length; ++i)
        if (name[i] == 0 || name[i] != token.pszDoc[token.nFirst + i])
            return false;
    const WCHAR next = name[length];
    return next == 0 || next == ' ' || next == '=' || next == '/' || next == '[';
}

int CMarkup::x_ParseNode(TokenPos& token) {
    const WCHAR* text = token.pszDoc;
    const int begin = token.nNext;
    int position = begin;
    token.nFirst = begin;
    if (text[begin] == 0)
        return nodeNone;
    if (text[begin] != '<') {
        const bool more = x_FindAny(text, position);
        const bool blank = !more || text[position] == '<';
        x_FindChar(text, position, '<');
        token.nNext = position;
        return blank ? nodeWhitespace : nodeText;
    }
    if (text[begin + 1] == 0 || text[begin + 2] == 0)
        return nodeNone;
    struct Terminator {
        WCHAR first;
        WCHAR second; // 0 matches any
        const WCHAR* text;
        int length;
        NodeKind kind;
    };
    static constexpr Terminator kTerminators[] = {
        {'?', 0, _T("?>"), 2, nodeInstruction},
        {'!', '[', _T("]]>"), 3, nodeCData},
        {'!', '-', _T("-->"), 3, nodeComment},
    };
    for (const Terminator& terminator : kTerminators) {
        if (text[begin + 1] != terminator.first ||
            (terminator.second != 0 && text[begin + 2] != terminator.second))
            continue;
        if (!FindTerminator(text, position, terminator.text, terminator.length))
            return nodeNone;
        token.nNext = position;
        return terminator.kind;
    }
    if (text[begin + 1] == '!') {
        int depth = 0;
        token.nNext = begin + 1;
        while (x_FindToken(token)) {
            if (token.bQuoted)
                continue;
            depth += CountBrackets(text, token.nFirst, token.nLast);
            if (text[token.nFirst] == '>' && depth == 0) {
                token.nFirst = begin;
                return nodeDocumentType;
            }
        }
        return nodeNone;
    }
    token.nNext = begin + 1;
    return text[begin + 1] == '/' ? nodeNone : nodeElement;
}

int CMarkup::x_ParseError(const WCHAR* format, const WCHAR* name) {
    if (name == nullptr)
        m_strError = format;
    else
        m_strError.Format(format, name);
    x_ReleasePos();
    return -1;
}

// Returns the ">" of the element's end tag, which opens at `tagOpen`. Returns -1 with the error
// text set when the end tag has another name.
int CMarkup::CloseElement(const ElemPos& element, int tagOpen) {
    TokenPos name{0, 0, element.nTagOpen + 1, m_strDoc, FALSE};
    x_FindToken(name);
    const CString tagName = x_GetToken(name);

    TokenPos token{0, 0, tagOpen + 1, m_strDoc, FALSE};
    for (int count = 0; x_FindToken(token);) {
        if (token.bQuoted)
            continue;
        const bool ends = token.pszDoc[token.nFirst] == '>';
        if (ends && count >= 2)
            return token.nFirst;
        if (ends)
            break;
        if (count == 0 && token.pszDoc[token.nFirst] != '/')
            return x_ParseError(_T("Expecting end tag of element %s"), tagName);
        if (count == 1 && !x_MatchToken(token, tagName))
            return x_ParseError(_T("End tag does not correspond to %s"), tagName);
        ++count;
    }
    return x_ParseError(_T("End tag not completed for element %s"), tagName);
}

namespace {

// Whether the end tag from `open` to `close` is exactly "</name>" with the name of the start tag.
// When false, the tokenizer must decide.
bool IsPlainEndTag(const WCHAR* text, int textLength, int startTagOpen, int open, int close) {
    const int length = close - open - 2;
    if (length == 1) // a separate case, because many files have many such tags
        return text[close] == '>' && text[open + 2] == text[startTagOpen + 1] &&
               BeginsPlainName(text[open + 2]) && IsClass(text[startTagOpen + 2], kClassDelimiter);
    return text[close] == '>' && length > 0 &&
           quorvel::TagNameLength(text + startTagOpen + 1, text + open + 2,
                                  textLength - open - 2) == length;
}

// Whether the ">" at `close` ends the comment, CDATA section or instruction.
bool EndsNode(const WCHAR* text, int close, WCHAR mark, int markCount) {
    return text[close - 1] == mark && (markCount == 1 || text[close - 2] == mark);
}

} // namespace

// Moves the scanner past the comment, CDATA section, instruction or document type declaration that
// opens at `open`. Returns false when it has no end. Looks for terminators by their ">".
bool CMarkup::SkipNode(quorvel::AngleScanner& scanner, const WCHAR* text, int open) {
    if (text[open + 1] == 0 || text[open + 2] == 0)
        return false;
    WCHAR mark = 0;
    int markCount = 2;
    if (text[open + 1] == '?')
        mark = '?', markCount = 1;
    else if (text[open + 2] == '[')
        mark = ']';
    else if (text[open + 2] == '-')
        mark = '-';
    if (mark == 0) {
        TokenPos token{0, 0, open, text, FALSE};
        if (x_ParseNode(token) != nodeDocumentType)
            return false;
        scanner.SkipBefore(token.nNext);
        return true;
    }
    for (int from = open + 2;;) {
        const int close = scanner.SkipTo(from, '>');
        if (close >= scanner.End())
            return false;
        scanner.Skip(1);
        if (EndsNode(text, close, mark, markCount))
            return true;
        from = close + 1;
    }
}

// Parses the next element below `iPosParent` from that record's cursor (nEndTagOpen) on. Returns
// its index, 0 with the cursor at an end tag when that comes first, or -1 with the error text set.
// A state machine over the angle brackets: each pass of the loop consumes one tag or node.
int CMarkup::x_ParseElem(int iPosParent) {
    const WCHAR* text = m_strDoc;
    const int length = m_strDoc.GetLength();
    quorvel::AngleScanner scanner(text, m_aPos[iPosParent].nEndTagOpen, length);
    // Locals: the compiler must assume that a store through `link` can change a member.
    ElemPos* records = m_aPos.GetData();
    int capacity = m_aPos.GetSize();
    int next = m_iPosFree;
    int root = 0;
    int* link = &root;
    int parent = iPosParent;
    const auto fail = [this](const WCHAR* error, int slot) {
        m_iPosFree = slot + 1; // x_ParseError frees it again
        return x_ParseError(error, nullptr);
    };
    for (;;) {
        scanner.Prepare();
        const int open = scanner.First();
        if (text[open] != '<') {
            if (open >= scanner.End())
                return fail(_T("Element tag not found"), next);
            scanner.Skip(1);
            continue;
        }
        const WCHAR first = text[open + 1];
        int close = scanner.Second();
        bool isEndTag = first == '/';
        int afterName = open + 2; // the search for ">" starts here
        if (!isEndTag && !BeginsPlainName(first)) {
            TokenPos token{0, 0, open + 1, text, FALSE};
            if (!x_FindToken(token))
                return fail(_T("Abrupt end within tag"), next);
            if (token.bQuoted)
                return fail(_T("Tag starts with quote"), next);
            const WCHAR begin = text[token.nFirst];
            if (begin == '!' || begin == '?') {
                if (token.nFirst != open + 1 || !SkipNode(scanner, text, open))
                    return fail(_T("Invalid node"), next);
                continue;
            }
            isEndTag = begin == '/';
            afterName = token.nNext;
        }
        if (isEndTag) {
            if (parent == iPosParent) {
                records[parent].nEndTagOpen = open;
                return 0;
            }
            ElemPos& element = records[parent];
            if (IsPlainEndTag(text, length, element.nTagOpen, open, close)) {
                scanner.Skip(2);
            } else {
                m_iPosFree = next;
                close = CloseElement(element, open);
                if (close < 0)
                    return -1;
                scanner.SkipBefore(close + 1);
            }
            element.nEndTagOpen = open;
            element.nEndTagClose = close;
            link = &element.iNextSibling;
            const int closed = parent;
            parent = element.iParent;
            if (parent == iPosParent) {
                m_iPosFree = next;
                return closed;
            }
            continue;
        }
        if (text[close] != '>' || close < afterName) {
            scanner.Skip(1);
            close = scanner.SkipTo(afterName, '>');
            if (close >= scanner.End())
                return fail(_T("End of tag not found"), next);
            scanner.Skip(1);
        } else {
            scanner.Skip(2);
        }
        if (next == capacity) {
            const bool inRecord = link != &root;
            const auto offset = inRecord ? link - &records->nTagOpen : 0;
            m_aPos.Resize(capacity + capacity / 2);
            records = m_aPos.GetData();
            capacity = m_aPos.GetSize();
            if (inRecord)
                link = &records->nTagOpen + offset;
        }
        const int index = next++;
        *link = index;
        const bool isEmpty = text[close - 1] == '/';
        ElemPos& element = records[index];
        element = {open, close, close - 1, close, 0, parent, 0, 0};
        if (parent == iPosParent) {
            records[parent].nEndTagOpen = open;
            if (isEmpty) {
                m_iPosFree = next;
                return index;
            }
        }
        // No branch here, because the text would make it unpredictable. For an empty element the
        // next link is the field after iFirstChild, and the parent stays the same.
        static_assert(offsetof(ElemPos, iNextSibling) ==
                      offsetof(ElemPos, iFirstChild) + sizeof(int));
        link = &element.iFirstChild + static_cast<int>(isEmpty);
        const int kept = -static_cast<int>(isEmpty);
        parent = (parent & kept) | (index & ~kept);
    }
}
