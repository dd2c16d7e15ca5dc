#include "util/text/wide_traits.h"

#include "platform/letters.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quorvel {
namespace {

constexpr unsigned kCaseless = 1; // letters without upper or lower case
constexpr unsigned kLower = 2;
constexpr unsigned kUpper = 4;
constexpr unsigned kDigit = 8;
constexpr unsigned kHexLetter = 16;
constexpr unsigned kUnderscore = 32;
constexpr unsigned kPunctuation = 64; // includes the underscore
constexpr unsigned kBlank = 128;
constexpr unsigned kLineSpace = 256; // white space that starts a new line
constexpr unsigned kControl = 512;
constexpr unsigned kBeyondBytes = 1024;
constexpr unsigned kLetter = kCaseless | kLower | kUpper;

struct NamedClass {
    std::string_view name;
    unsigned bits;
};
constexpr NamedClass kClasses[] = {
    {"alnum", kLetter | kDigit},
    {"alpha", kLetter},
    {"blank", kBlank},
    {"cntrl", kControl},
    {"d", kDigit},
    {"digit", kDigit},
    {"graph", kLetter | kDigit | kPunctuation},
    {"h", kBlank},
    {"l", kLower},
    {"lower", kLower},
    {"print", kLetter | kDigit | kPunctuation | kBlank},
    {"punct", kPunctuation},
    {"s", kBlank | kLineSpace},
    {"space", kBlank | kLineSpace},
    {"u", kUpper},
    {"unicode", kBeyondBytes},
    {"upper", kUpper},
    {"v", kLineSpace},
    {"w", kLetter | kDigit | kUnderscore},
    {"word", kLetter | kDigit | kUnderscore},
    {"xdigit", kDigit | kHexLetter},
};

constexpr unsigned AsciiClasses(char byte) {
    if (byte >= '0' && byte <= '9')
        return kDigit;
    if (byte >= 'a' && byte <= 'z')
        return byte <= 'f' ? kLower | kHexLetter : kLower;
    if (byte >= 'A' && byte <= 'Z')
        return byte <= 'F' ? kUpper | kHexLetter : kUpper;
    if (byte == '_')
        return kPunctuation | kUnderscore;
    if (byte == ' ')
        return kBlank;
    if (byte == '\t')
        return kBlank | kControl;
    if (byte >= '\n' && byte <= '\r')
        return kLineSpace | kControl;
    return byte < ' ' || byte == 0x7f ? kControl : kPunctuation;
}

constexpr auto kAsciiClasses = [] {
    std::array<unsigned short, 128> classes{};
    for (int byte = 0; byte < 128; ++byte)
        classes[static_cast<std::size_t>(byte)] =
            static_cast<unsigned short>(AsciiClasses(static_cast<char>(byte)));
    return classes;
}();

constexpr WCHAR kLineSpaces[] = {0x85, 0x2028, 0x2029};
constexpr bool IsWideBlank(WCHAR unit) {
    return unit == 0xa0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200a) || unit == 0x202f ||
           unit == 0x205f || unit == 0x3000;
}

unsigned WideClasses(WCHAR unit) {
    switch (KindOfLetter(unit)) {
    case LetterKind::Caseless:
        return kCaseless;
    case LetterKind::Lower:
        return kLower;
    case LetterKind::Upper:
        return kUpper;
    case LetterKind::None:
        break;
    }
    if (IsWideBlank(unit))
        return kBlank;
    if (std::ranges::find(kLineSpaces, unit) != std::end(kLineSpaces))
        return kLineSpace;
    return unit < 0xa0 ? kControl : 0;
}

} // namespace

unsigned RegexClassesOf(WCHAR unit) {
    if (unit < kAsciiClasses.size())
        return kAsciiClasses[unit];
    return WideClasses(unit) | (unit > 0xff ? kBeyondBytes : 0);
}

unsigned RegexClassesOf(char byte) {
    const auto index = static_cast<BYTE>(byte);
    return index < kAsciiClasses.size() ? kAsciiClasses[index] : 0;
}

unsigned FindRegexClass(std::string_view name) {
    const auto found = std::ranges::find(kClasses, name, &NamedClass::name);
    return found != std::end(kClasses) ? found->bits : 0;
}

} // namespace quorvel
