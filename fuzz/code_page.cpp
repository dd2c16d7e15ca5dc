// Byte sequences through every code page: a length query and the conversion agree, nothing is
// written beyond that length, and each direction reads what the other wrote.
#include <quorvel/platform/platform.h>

#include "fuzz_input.h"

using namespace quorvel::win32;

// Empty when it is refused. Vectors have the exact size, so that the sanitizer finds overruns.
static std::vector<WCHAR> Decode(UINT codePage, DWORD flags, const std::vector<char>& bytes) {
    const int count = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, flags, bytes.data(), count, nullptr, 0);
    std::vector<WCHAR> text(static_cast<std::size_t>(length));
    Require(length == 0 || MultiByteToWideChar(codePage, flags, bytes.data(), count, text.data(),
                                               length) == length);
    return text;
}

static std::vector<char> Encode(UINT codePage, DWORD flags, const std::vector<WCHAR>& text) {
    const int count = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(codePage, flags, text.data(), count, nullptr, 0, nullptr, nullptr);
    std::vector<char> bytes(static_cast<std::size_t>(length));
    Require(length == 0 || WideCharToMultiByte(codePage, flags, text.data(), count, bytes.data(),
                                               length, nullptr, nullptr) == length);
    return bytes;
}

constexpr UINT kCodePages[] = {65001, 65001, 65000, 1252,  932,   936,   949,   950,
                               37,    437,   20127, 28591, 10001, 1255,  50220, 50221,
                               50225, 50227, 50930, 50939, 51932, 52936, 54936, 57002};

FUZZ_TARGET(input) {
    const unsigned first = input.Byte();
    const UINT codePage = kCodePages[first % std::size(kCodePages)];
    const bool isUtf8 = codePage == CP_UTF8;
    const DWORD decoding = first & 0x80 ? MB_ERR_INVALID_CHARS : 0;
    const DWORD strict = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    const DWORD encoding = first & 0x40 ? strict : 0;
    const std::string rest = input.Bytes();
    const std::vector<char> bytes(rest.begin(), rest.end());
    const std::vector<WCHAR> text = Decode(codePage, decoding, bytes);
    if (!text.empty()) {
        const std::vector<char> again = Encode(codePage, encoding, text);
        Require(!isUtf8 || decoding == 0 || again == bytes);
    }
    std::vector<WCHAR> units = input.Units();
    units.pop_back();
    const std::vector<char> encoded = Encode(codePage, encoding, units);
    if (isUtf8 && encoding != 0 && !encoded.empty())
        Require(Decode(codePage, MB_ERR_INVALID_CHARS, encoded) == units);
}
