#include <quorvel/util/text/utf8.h>

#include "platform/win32.h"
#include "util/text/no_throw.h"

#include <cstring>

namespace {

// The terminator is converted with the text, so that 0 always means a failure.

bool ToWide(UINT codePage, DWORD flags, const char* text, CString& wide) {
    const int size = MultiByteToWideChar(codePage, flags, text, -1, nullptr, 0);
    if (size == 0)
        return false;
    CString result;
    if (MultiByteToWideChar(codePage, flags, text, -1, result.GetBuffer(size), size) == 0)
        return false;
    result.ReleaseBuffer(size - 1);
    wide = std::move(result);
    return true;
}

bool ToUtf8(const WCHAR* text, CStringA& utf8) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size == 0)
        return false;
    CStringA result;
    if (WideCharToMultiByte(CP_UTF8, 0, text, -1, result.GetBuffer(size), size, nullptr, nullptr) ==
        0)
        return false;
    result.ReleaseBuffer(size - 1);
    utf8 = std::move(result);
    return true;
}

template <std::size_t N>
bool BeginsWith(const BYTE (&mark)[N], const BYTE* bytes, SIZE_T size) {
    return bytes != nullptr && size >= N && std::memcmp(bytes, mark, N) == 0;
}

} // namespace

BOOL AfxUTF8ToWideChar(const char* utf8Text, CString& text) {
    return utf8Text != nullptr && quorvel::WithoutException([&] {
               return ToWide(CP_UTF8, MB_ERR_INVALID_CHARS, utf8Text, text);
           });
}

BOOL AfxWideCharToUTF8(const WCHAR* text, CStringA& utf8Text) {
    return text != nullptr && quorvel::WithoutException([&] { return ToUtf8(text, utf8Text); });
}

BOOL AfxMultiByteToUTF8(UINT codePage, DWORD flags, const char* text, CStringA& utf8Text) {
    return text != nullptr && quorvel::WithoutException([&] {
               CString wide;
               return ToWide(codePage, flags, text, wide) && ToUtf8(wide, utf8Text);
           });
}

BOOL AfxHasUTF8ByteOrderMark(const BYTE* bytes, SIZE_T size) {
    return BeginsWith({0xef, 0xbb, 0xbf}, bytes, size);
}

BOOL AfxHasUTF16LEByteOrderMark(const BYTE* bytes, SIZE_T size) {
    return BeginsWith({0xff, 0xfe}, bytes, size) && !AfxHasUTF32LEByteOrderMark(bytes, size);
}

BOOL AfxHasUTF16BEByteOrderMark(const BYTE* bytes, SIZE_T size) {
    return BeginsWith({0xfe, 0xff}, bytes, size);
}

BOOL AfxHasUTF32LEByteOrderMark(const BYTE* bytes, SIZE_T size) {
    return BeginsWith({0xff, 0xfe, 0, 0}, bytes, size);
}

BOOL AfxHasUTF32BEByteOrderMark(const BYTE* bytes, SIZE_T size) {
    return BeginsWith({0, 0, 0xfe, 0xff}, bytes, size);
}
