#include "platform/linux/text/code_page.h"

#include <string_view>

namespace quorvel {

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Characters that are copied: RFC 2152's set D, white space and the terminator. The optional set O
// is encoded, as on Windows.
bool IsDirect(WCHAR unit) {
    constexpr std::string_view kDirect = "'(),-./:? \t\r\n";
    if (unit >= 0x80)
        return false;
    const char character = static_cast<char>(unit);
    return character == 0 || kDirect.find(character) != std::string_view::npos ||
           (character != '+' && character != '/' &&
            kAlphabet.find(character) != std::string_view::npos);
}

// Encodes the non-direct units from `position` on in base 64, most significant bits first, between
// a plus and a minus sign. Moves past them.
bool EncodeShifted(WideText text, std::size_t& position, ByteOutput& output) {
    if (!output.Put('+'))
        return false;
    unsigned bits = 0;
    int bitCount = 0;
    for (; position < text.size() && text[position] != '+' && !IsDirect(text[position]);
         ++position) {
        bits = bits << 16 | text[position];
        for (bitCount += 16; bitCount >= 6; bitCount -= 6) {
            if (!output.Put(kAlphabet[bits >> (bitCount - 6) & 0x3f]))
                return false;
        }
    }
    if (bitCount > 0 && !output.Put(kAlphabet[bits << (6 - bitCount) & 0x3f]))
        return false;
    return output.Put('-');
}

// Reads base 64 from `position` on and moves past it and a closing minus sign. Drops bits that do
// not fill a unit.
bool DecodeShifted(Bytes bytes, std::size_t& position, WideOutput& output) {
    unsigned bits = 0;
    int bitCount = 0;
    for (; position < bytes.size(); ++position) {
        const std::size_t digit = kAlphabet.find(static_cast<char>(bytes[position]));
        if (digit == std::string_view::npos)
            break;
        bits = bits << 6 | static_cast<unsigned>(digit);
        bitCount += 6;
        if (bitCount >= 16) {
            bitCount -= 16;
            if (!output.Put(static_cast<WCHAR>(bits >> bitCount)))
                return false;
        }
    }
    if (position < bytes.size() && bytes[position] == '-')
        ++position;
    return true;
}

} // namespace

DWORD DecodeUtf7(Bytes bytes, WideOutput& output) {
    for (std::size_t position = 0; position < bytes.size();) {
        const BYTE byte = bytes[position++];
        const bool isShift = byte == '+';
        const bool isPlus = isShift && position < bytes.size() && bytes[position] == '-';
        if (isPlus)
            ++position;
        if (isShift && !isPlus ? !DecodeShifted(bytes, position, output) : !output.Put(byte))
            return ERROR_INSUFFICIENT_BUFFER;
    }
    return ERROR_SUCCESS;
}

DWORD EncodeUtf7(WideText text, ByteOutput& output) {
    for (std::size_t position = 0; position < text.size();) {
        const WCHAR unit = text[position];
        bool fits;
        if (unit == '+') {
            fits = output.Put("+-", 2);
            ++position;
        } else if (IsDirect(unit)) {
            fits = output.Put(static_cast<char>(unit));
            ++position;
        } else {
            fits = EncodeShifted(text, position, output);
        }
        if (!fits)
            return ERROR_INSUFFICIENT_BUFFER;
    }
    return ERROR_SUCCESS;
}

} // namespace quorvel
