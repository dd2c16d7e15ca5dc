#include "platform/win32.h"

#include <unicode/uchar.h>

namespace quorvel::win32 {

int MultiByteToWideChar(UINT, DWORD, LPCSTR bytes, int byteCount, LPWSTR text, int) {
    for (int i = 0; text != nullptr && i < byteCount; ++i)
        text[i] = static_cast<BYTE>(bytes[i]);
    return byteCount;
}

int WideCharToMultiByte(UINT, DWORD, LPCWSTR text, int textLength, LPSTR bytes, int, LPCSTR,
                        LPBOOL) {
    for (int i = 0; bytes != nullptr && i < textLength; ++i)
        bytes[i] = static_cast<char>(text[i]);
    return textLength;
}

DWORD CharLowerBuffW(LPWSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i)
        text[i] = static_cast<WCHAR>(u_tolower(text[i]));
    return length;
}
DWORD CharUpperBuffW(LPWSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i)
        text[i] = static_cast<WCHAR>(u_toupper(text[i]));
    return length;
}
DWORD CharLowerBuffA(LPSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i)
        if (text[i] >= 'A' && text[i] <= 'Z')
            text[i] = static_cast<char>(text[i] + 32);
    return length;
}
DWORD CharUpperBuffA(LPSTR text, DWORD length) {
    for (DWORD i = 0; i < length; ++i)
        if (text[i] >= 'a' && text[i] <= 'z')
            text[i] = static_cast<char>(text[i] - 32);
    return length;
}

} // namespace quorvel::win32
