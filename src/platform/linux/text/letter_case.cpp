#include "platform/linux/text/letter_case.h"

#include "platform/case_fold.h"
#include "platform/linux/text/icu.h"

namespace quorvel::win32 {

DWORD CharLowerBuffW(LPWSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i)
        text[i] = quorvel::FoldCase(text[i]);
    return length;
}

DWORD CharUpperBuffW(LPWSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i) {
        // As with lower case, only letters whose lower case is the same letter again: U+00B5
        // (micro) does not become the Greek letter.
        const UChar32 upper = u_toupper(text[i]);
        if (upper <= 0xffff && u_tolower(upper) == text[i])
            text[i] = static_cast<WCHAR>(upper);
    }
    return length;
}

DWORD CharLowerBuffA(LPSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i) {
        if (text[i] >= 'A' && text[i] <= 'Z')
            text[i] = static_cast<char>(text[i] + ('a' - 'A'));
    }
    return length;
}

DWORD CharUpperBuffA(LPSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i) {
        if (text[i] >= 'a' && text[i] <= 'z')
            text[i] = static_cast<char>(text[i] - ('a' - 'A'));
    }
    return length;
}

} // namespace quorvel::win32
