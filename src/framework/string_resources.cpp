// The string members that read resources or call the message formatter.
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/string.h>

#include "framework/local_text.h"
#include "framework/string_resources.h"
#include "platform/win32.h"

#include <algorithm>

using quorvel::FindString;

namespace {

BOOL SetText(CString& result, std::basic_string_view<WCHAR> text) {
    result.SetString(text.data(), static_cast<int>(text.size()));
    return !text.empty();
}
BOOL SetText(CStringA& result, std::basic_string_view<WCHAR> text) {
    CString wide;
    const BOOL found = SetText(wide, text);
    result = CStringA(wide.GetString());
    return found;
}

template <class String>
String LoadFormat(UINT id) {
    String format;
    if (!SetText(format, FindString(id)))
        AfxThrowResourceException();
    return format;
}

constexpr DWORD kNoWorkDone = 235; // the system's error for an empty message, on some systems

} // namespace

int AfxLoadString(UINT id, LPWSTR text, UINT maxChars) {
    if (text == nullptr || maxChars == 0)
        return 0;
    const std::size_t length = FindString(id).copy(text, maxChars - 1);
    text[length] = 0;
    return static_cast<int>(length);
}

template <class Ch>
BOOL CStringT<Ch>::LoadString(UINT id) {
    return SetText(*this, FindString(id));
}

template <class Ch>
BOOL CStringT<Ch>::LoadString(HINSTANCE module, UINT id) {
    return SetText(*this, FindString(module, id));
}

template <class Ch>
void CStringT<Ch>::Format(UINT formatId, ...) {
    const CStringT format = LoadFormat<CStringT>(formatId);
    va_list arguments;
    va_start(arguments, formatId);
    FormatV(format, arguments);
    va_end(arguments);
}

template <class Ch>
void CStringT<Ch>::AppendFormat(UINT formatId, ...) {
    const CStringT format = LoadFormat<CStringT>(formatId);
    va_list arguments;
    va_start(arguments, formatId);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

template <class Ch>
void CStringT<Ch>::FormatMessage(const Ch* format, ...) requires std::is_same_v<Ch, WCHAR> {
    va_list arguments;
    va_start(arguments, format);
    FormatMessageV(format, &arguments);
    va_end(arguments);
}

template <class Ch>
void CStringT<Ch>::FormatMessage(UINT formatId, ...) requires std::is_same_v<Ch, WCHAR> {
    const CStringT format = LoadFormat<CStringT>(formatId);
    va_list arguments;
    va_start(arguments, formatId);
    FormatMessageV(format, &arguments);
    va_end(arguments);
}

template <class Ch>
void CStringT<Ch>::FormatMessageV(const Ch* format,
                                  va_list* arguments) requires std::is_same_v<Ch, WCHAR> {
    if (format == nullptr || *format == 0) {
        Empty();
        return;
    }
    LPWSTR buffer = nullptr;
    SetLastError(ERROR_SUCCESS);
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, format, 0, 0,
                       reinterpret_cast<LPWSTR>(&buffer), 0, arguments);
    const DWORD error = GetLastError();
    const quorvel::LocalText text(buffer);
    if (length == 0 && error != ERROR_SUCCESS && error != kNoWorkDone)
        AfxThrowMemoryException();
    SetString(text.get(), static_cast<int>(length));
}

// The class is instantiated with its other members; these are the members of this file.
template BOOL CStringT<WCHAR>::LoadString(UINT);
template BOOL CStringT<char>::LoadString(UINT);
template BOOL CStringT<WCHAR>::LoadString(HINSTANCE, UINT);
template BOOL CStringT<char>::LoadString(HINSTANCE, UINT);
template void CStringT<WCHAR>::Format(UINT, ...);
template void CStringT<char>::Format(UINT, ...);
template void CStringT<WCHAR>::AppendFormat(UINT, ...);
template void CStringT<char>::AppendFormat(UINT, ...);
template void CStringT<WCHAR>::FormatMessage(const WCHAR*, ...);
template void CStringT<WCHAR>::FormatMessage(UINT, ...);
template void CStringT<WCHAR>::FormatMessageV(const WCHAR*, va_list*);

void AfxFormatStrings(CString& result, const WCHAR* format, const WCHAR* const* strings,
                      int count) {
    CString text;
    for (const WCHAR* each = format; each != nullptr && *each != 0; ++each) {
        if (*each != '%' || each[1] < '1' || each[1] > '9') {
            text += *each;
            continue;
        }
        const int index = *++each - '1';
        if (index < count)
            text += strings[index];
        else
            text += _T('?');
    }
    result = std::move(text);
}

void AfxFormatString1(CString& result, UINT formatId, const WCHAR* first) {
    AfxFormatStrings(result, LoadFormat<CString>(formatId), &first, 1);
}

void AfxFormatString2(CString& result, UINT formatId, const WCHAR* first, const WCHAR* second) {
    const WCHAR* const strings[] = {first, second};
    AfxFormatStrings(result, LoadFormat<CString>(formatId), strings, 2);
}
