#include "platform/linux/code_page.h"

#include "platform/win32.h"

#include <climits>
#include <string>

namespace quorvel {

namespace {

UINT Resolve(UINT codePage) {
    switch (codePage) {
    case CP_ACP:
    case CP_OEMCP:
    case CP_MACCP:
    case CP_THREAD_ACP:
        return GetACP();
    default:
        return codePage;
    }
}

// What both directions refuse: nothing to convert, half a buffer, source and target in one place.
bool AreValidBuffers(const void* source, int sourceLength, const void* target, int targetLength) {
    return source != nullptr && sourceLength != 0 && targetLength >= 0 &&
           (target != nullptr || targetLength == 0) && source != target;
}

// A negative length means up to and with the terminator.
template <class Unit>
std::size_t SourceLength(const Unit* source, int length) {
    return length < 0 ? std::char_traits<Unit>::length(source) + 1
                      : static_cast<std::size_t>(length);
}

int Refuse(DWORD error) {
    SetLastError(error);
    return 0;
}

template <class Unit>
int Finish(DWORD error, const Output<Unit>& output) {
    if (error != ERROR_SUCCESS)
        return Refuse(error);
    if (output.Count() > INT_MAX) // no buffer that a caller can name would hold it
        return Refuse(ERROR_INVALID_PARAMETER);
    return static_cast<int>(output.Count());
}

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int byteCount, LPWSTR text,
                        int textLength) {
    if (!AreValidBuffers(bytes, byteCount, text, textLength) || !IsValidCodePage(Resolve(codePage)))
        return Refuse(ERROR_INVALID_PARAMETER);
    if ((flags & ~MB_ERR_INVALID_CHARS) != 0)
        return Refuse(ERROR_INVALID_FLAGS);
    const Bytes source(reinterpret_cast<const BYTE*>(bytes), SourceLength(bytes, byteCount));
    WideOutput output(textLength == 0 ? nullptr : text, static_cast<std::size_t>(textLength));
    return Finish(DecodeUtf8(source, (flags & MB_ERR_INVALID_CHARS) != 0, output), output);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength, LPSTR bytes,
                        int byteCount, LPCSTR defaultChar, LPBOOL usedDefaultChar) {
    if (!AreValidBuffers(text, textLength, bytes, byteCount) ||
        !IsValidCodePage(Resolve(codePage)) || defaultChar != nullptr || usedDefaultChar != nullptr)
        return Refuse(ERROR_INVALID_PARAMETER);
    if ((flags & ~WC_ERR_INVALID_CHARS) != 0)
        return Refuse(ERROR_INVALID_FLAGS);
    const WideText source(text, SourceLength(text, textLength));
    ByteOutput output(byteCount == 0 ? nullptr : bytes, static_cast<std::size_t>(byteCount));
    return Finish(EncodeUtf8(source, (flags & WC_ERR_INVALID_CHARS) != 0, output), output);
}

UINT GetACP() {
    return CP_UTF8;
}

BOOL IsValidCodePage(UINT codePage) {
    if (codePage == CP_UTF8)
        return TRUE;
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

} // namespace quorvel::win32
