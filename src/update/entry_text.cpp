#include "update/entry_text.h"

#include <string>

namespace quorvel {

namespace {

constexpr int kMaximumLine = 1000;
constexpr int kMaximumText = 100000;
constexpr WCHAR kEllipsis = 0x2026;

bool IsControl(WCHAR character) {
    return character < 0x20 || (character >= 0x7f && character < 0xa0);
}
bool IsHighSurrogate(WCHAR character) {
    return character >= 0xd800 && character < 0xdc00;
}

// The beginning of the text. Never cuts a character in half.
CString Shortened(const CString& text, int maximum) {
    if (text.GetLength() <= maximum)
        return text;
    const int length = IsHighSurrogate(text[maximum - 1]) ? maximum - 1 : maximum;
    return text.Left(length) + kEllipsis;
}

} // namespace

CString OneLineText(const CString& text) {
    CString line = Shortened(text, kMaximumLine);
    for (int i = 0; i < line.GetLength(); ++i) {
        if (IsControl(line[i]))
            line.SetAt(i, ' ');
    }
    return line;
}

CString MultilineText(const CString& text) {
    const CString given = Shortened(text, kMaximumText);
    std::basic_string<WCHAR> lines;
    for (int i = 0; i < given.GetLength(); ++i) {
        const WCHAR character = given[i];
        if (character == '\n' || character == '\r') {
            lines += _T("\r\n");
            if (character == '\r' && i + 1 < given.GetLength() && given[i + 1] == '\n')
                ++i;
        } else {
            lines += IsControl(character) && character != '\t' ? WCHAR{' '} : character;
        }
    }
    return lines.c_str();
}

} // namespace quorvel
