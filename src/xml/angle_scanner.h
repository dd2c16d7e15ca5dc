// Finds the "<" and ">" of a text up to its first zero character, in order.
//
// The parser of CMarkup needs little else. The scanner reads the text in windows of 1024
// characters. It writes the positions of all angle brackets of a window to a small array, with
// vector compares and without branches on the text, and returns them from there.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

class AngleScanner {
public:
    // Scans text[begin, end). text[end] is readable and zero.
    AngleScanner(const WCHAR* text, int begin, int end)
        : m_text(text), m_unread(begin), m_end(end) {}

    // The end of the text as far as it is known: the position of the first zero once it is found.
    // Final as soon as First, Second or SkipTo has returned it.
    int End() const { return m_end; }
    // Makes First and Second valid.
    void Prepare() {
        if (m_first + 2 > m_count)
            Refill();
    }
    // The positions of the next angle bracket and of the one after it; the end of the text when
    // there is no more.
    int First() const { return m_positions[m_first]; }
    int Second() const { return m_positions[m_first + 1]; }
    void Skip(int count) { m_first += count; }

    // Skips to the first `character` ("<" or ">") at or after `position`, which becomes First.
    // Returns its position, or the end of the text.
    int SkipTo(int position, WCHAR character);
    // Skips every bracket before `position`.
    void SkipBefore(int position);

private:
    static constexpr int kBlock = 64;
    static constexpr int kWindow = 16 * kBlock;
    static constexpr int kSpare = 16; // the scanner may write this many past the last position

    void Refill();

    const WCHAR* m_text;
    int m_unread; // the first character that is in no window yet
    int m_end;
    int m_first = 0;
    int m_count = 0;
    int m_positions[kWindow + kBlock + kSpare];
};

// Returns the length of the tag name at `name` when `other` begins with the same characters.
// Returns 0 otherwise, and for a name that begins with a quote or a delimiter. `other` is after
// `name` in the same text; `readable` characters may be read from it on.
int TagNameLength(const WCHAR* name, const WCHAR* other, int readable);

// The position of the first `character` or `other`, or the length.
int FindEither(const WCHAR* text, int length, WCHAR character, WCHAR other);

} // namespace quorvel
