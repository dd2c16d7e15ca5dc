#include "platform/linux/text/code_page.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/text/code_page_table.h"
#include "platform/linux/text/converter.h"
#include "platform/linux/text/icu.h"
#include "platform/surrogates.h"

#include <climits>
#include <iterator>
#include <new>
#include <string>

namespace quorvel {

namespace {

constexpr UINT kGb18030 = 54936;
constexpr UINT kEucJapanese = 51932;
constexpr UINT kHz = 52936;

UINT Resolve(UINT codePage) {
    switch (codePage) {
    case CP_ACP:
    case CP_OEMCP:
    case CP_MACCP:
    case CP_THREAD_ACP:
        return win32::GetACP();
    default:
        return codePage;
    }
}

// False for an empty source, an inconsistent target, and the same buffer for both.
bool AreValidBuffers(const void* source, int sourceLength, const void* target, int targetLength) {
    return source != nullptr && sourceLength != 0 && targetLength >= 0 &&
           (target != nullptr || targetLength == 0) && source != target;
}

// A negative length means up to the terminator, which is included.
template <class Unit>
std::size_t SourceLength(const Unit* source, int length) {
    return length < 0 ? std::char_traits<Unit>::length(source) + 1
                      : static_cast<std::size_t>(length);
}

template <class Unit>
int Finish(DWORD error, const Output<Unit>& output) {
    if (error == ERROR_SUCCESS && output.Count() > INT_MAX)
        error = ERROR_INVALID_PARAMETER; // too long for any buffer size that a caller can give
    if (error == ERROR_SUCCESS)
        return static_cast<int>(output.Count());
    win32::SetLastError(error);
    return 0;
}

// The flags that a code page accepts, as documented. Encodings of all of Unicode and those that are
// never composed accept only the strict flag, those with escape sequences no flag.
DWORD DecodingFlags(UINT codePage) {
    if (codePage == CP_UTF8 || codePage == kGb18030 || codePage == kEucJapanese || codePage == kHz)
        return MB_ERR_INVALID_CHARS;
    if (CodePageTable::IsListed(codePage))
        return MB_PRECOMPOSED | MB_COMPOSITE | MB_USEGLYPHCHARS | MB_ERR_INVALID_CHARS;
    return 0;
}
DWORD EncodingFlags(UINT codePage) {
    if (codePage == CP_UTF8 || codePage == kGb18030)
        return WC_ERR_INVALID_CHARS;
    return CodePageTable::IsListed(codePage) ? WC_NO_BEST_FIT_CHARS : 0;
}

// MB_USEGLYPHCHARS: the characters that PC fonts show for control characters.
WCHAR Glyph(WCHAR unit) {
    static constexpr WCHAR kGlyphs[] =
        u"\0\x263a\x263b\x2665\x2666\x2663\x2660\x2022\x25d8\x25cb\x25d9\x2642\x2640\x266a\x266b"
        u"\x263c\x25ba\x25c4\x2195\x203c\x00b6\x00a7\x25ac\x21a8\x2191\x2193\x2192\x2190\x221f"
        u"\x2194\x25b2\x25bc";
    if (unit < 0x20)
        return kGlyphs[unit];
    return unit == 0x7f ? WCHAR(0x2302) : unit;
}

// Writes the unit as the flags require: as a glyph, or as base letter and accents.
bool PutShaped(const CodePageTable& table, WCHAR unit, DWORD flags, WideOutput& output) {
    if ((flags & MB_USEGLYPHCHARS) != 0 && table.HasGlyph(unit))
        unit = Glyph(unit);
    UChar parts[8] = {unit};
    int count = 1;
    const bool isSyllable = unit >= 0xac00 && unit <= 0xd7a3; // Windows does not decompose Hangul
    if ((flags & MB_COMPOSITE) != 0 && unit >= 0x80 && !isSyllable) {
        UErrorCode error = U_ZERO_ERROR;
        const UNormalizer2* decomposer = unorm2_getNFDInstance(&error);
        count = unorm2_normalize(decomposer, &unit, 1, parts, static_cast<int>(std::size(parts)),
                                 &error);
    }
    for (int i = 0; i < count; ++i) {
        if (!output.Put(parts[i]))
            return false;
    }
    return true;
}

DWORD DecodeWithTable(const CodePageTable& table, DWORD flags, Bytes bytes, WideOutput& output) {
    const bool strict = (flags & MB_ERR_INVALID_CHARS) != 0;
    if ((flags & (MB_USEGLYPHCHARS | MB_COMPOSITE)) == 0)
        return table.Decode(bytes, strict, output);
    std::u16string units(bytes.size(), 0); // enough: no code page has more units than bytes
    WideOutput plain(units.data(), units.size());
    const DWORD error = table.Decode(bytes, strict, plain);
    units.resize(plain.Count());
    for (const WCHAR unit : units) {
        if (!PutShaped(table, unit, flags, output))
            return ERROR_INSUFFICIENT_BUFFER;
    }
    return error;
}

DWORD Decode(UINT codePage, DWORD flags, Bytes bytes, WideOutput& output) {
    const bool strict = (flags & MB_ERR_INVALID_CHARS) != 0;
    if (codePage == CP_UTF8)
        return DecodeUtf8(bytes, strict, output);
    if (codePage == CP_UTF7)
        return DecodeUtf7(bytes, output);
    if (const CodePageTable* table = CodePageTable::Find(codePage))
        return DecodeWithTable(*table, flags, bytes, output);
    if (const char* name = FindConverter(codePage)) {
        Converter converter(name);
        if (converter.IsOpen())
            return converter.Decode(bytes, strict, output);
    }
    return ERROR_INVALID_PARAMETER;
}

// The caller's default character in a table's code page: one byte, or a lead and a trail byte.
WORD DefaultChar(const CodePageTable& table, LPCSTR defaultChar) {
    if (defaultChar == nullptr)
        return table.DefaultByte();
    const BYTE first = static_cast<BYTE>(defaultChar[0]);
    if (!table.IsDoubleByte() || defaultChar[1] == 0)
        return first;
    return MAKEWORD(defaultChar[1], first);
}

// The length of the text before its first lone surrogate.
std::size_t LengthBeforeLoneSurrogate(WideText text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isHigh = IsHighSurrogate(text[i]);
        if (isHigh && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            ++i;
        else if (isHigh || IsLowSurrogate(text[i]))
            return i;
    }
    return text.size();
}

// Like EncodeUtf8, but writes an ASCII character for each lone surrogate.
DWORD EncodeUtf8With(char substitute, WideText text, ByteOutput& output) {
    for (;;) {
        const std::size_t length = LengthBeforeLoneSurrogate(text);
        if (const DWORD error = EncodeUtf8(text.first(length), false, output))
            return error;
        if (length == text.size())
            return ERROR_SUCCESS;
        if (!output.Put(substitute))
            return ERROR_INSUFFICIENT_BUFFER;
        text = text.subspan(length + 1);
    }
}

DWORD Encode(UINT codePage, DWORD flags, WideText text, LPCSTR defaultChar, bool wantsUsed,
             BOOL& used, ByteOutput& output) {
    const bool strict = (flags & WC_ERR_INVALID_CHARS) != 0;
    if (codePage == CP_UTF8) {
        used = wantsUsed && LengthBeforeLoneSurrogate(text) < text.size();
        const bool hasSubstitute = defaultChar != nullptr && *defaultChar > 0 && !strict;
        return hasSubstitute ? EncodeUtf8With(*defaultChar, text, output)
                             : EncodeUtf8(text, strict, output);
    }
    if (codePage == CP_UTF7)
        return EncodeUtf7(text, output);
    Substitution substitution;
    substitution.bestFit = (flags & WC_NO_BEST_FIT_CHARS) == 0;
    DWORD error = ERROR_INVALID_PARAMETER;
    if (const CodePageTable* table = CodePageTable::Find(codePage)) {
        substitution.defaultChar = DefaultChar(*table, defaultChar);
        error = table->Encode(text, substitution, output);
    } else if (const char* name = FindConverter(codePage)) {
        Converter converter(name);
        if (defaultChar != nullptr)
            substitution.defaultChar = static_cast<BYTE>(*defaultChar);
        else if (codePage != kGb18030) // its own substitute is U+FFFD
            substitution.defaultChar = '?';
        if (converter.IsOpen())
            error = converter.Encode(text, strict, substitution, output);
    }
    used = substitution.used;
    return error;
}

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int byteCount, LPWSTR text,
                        int textLength) {
    codePage = Resolve(codePage);
    WideOutput output(textLength == 0 ? nullptr : text, static_cast<std::size_t>(textLength));
    if (!AreValidBuffers(bytes, byteCount, text, textLength) || !IsValidCodePage(codePage))
        return Finish(ERROR_INVALID_PARAMETER, output);
    if ((flags & ~DecodingFlags(codePage)) != 0)
        return Finish(ERROR_INVALID_FLAGS, output);
    const Bytes source(reinterpret_cast<const BYTE*>(bytes), SourceLength(bytes, byteCount));
    try {
        return Finish(Decode(codePage, flags, source, output), output);
    } catch (const std::bad_alloc&) {
        return Finish(ERROR_NOT_ENOUGH_MEMORY, output);
    }
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength, LPSTR bytes,
                        int byteCount, LPCSTR defaultChar, LPBOOL usedDefaultChar) {
    codePage = Resolve(codePage);
    ByteOutput output(byteCount == 0 ? nullptr : bytes, static_cast<std::size_t>(byteCount));
    const bool hasDefault = defaultChar != nullptr || usedDefaultChar != nullptr;
    if (!AreValidBuffers(text, textLength, bytes, byteCount) || !IsValidCodePage(codePage) ||
        (hasDefault && codePage == CP_UTF7))
        return Finish(ERROR_INVALID_PARAMETER, output);
    if ((flags & ~EncodingFlags(codePage)) != 0)
        return Finish(ERROR_INVALID_FLAGS, output);
    BOOL used = FALSE;
    try {
        const WideText source(text, SourceLength(text, textLength));
        const DWORD error =
            Encode(codePage, flags, source, defaultChar, usedDefaultChar != nullptr, used, output);
        if (usedDefaultChar != nullptr)
            *usedDefaultChar = used;
        return Finish(error, output);
    } catch (const std::bad_alloc&) {
        return Finish(ERROR_NOT_ENOUGH_MEMORY, output);
    }
}

UINT GetACP() {
    return CP_UTF8;
}

BOOL IsValidCodePage(UINT codePage) {
    if (codePage == CP_UTF7 || codePage == CP_UTF8 || CodePageTable::IsListed(codePage) ||
        FindConverter(codePage) != nullptr)
        return TRUE;
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

} // namespace quorvel::win32
