// One printf conversion: scanning it, fetching its argument, printing it. The C functions and the
// message formatter share it.
//
// Scanning a conversion does not touch the arguments. Then each argument is fetched with the type
// that the conversion names, and printed from this tagged value, so that printing never uses a
// va_list. Everything is a template over the character type.
#pragma once

#include "platform/text_length.h"

#include <quorvel/platform/linux_types.h>

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <string_view>
#include <type_traits>

namespace quorvel::crt {

// The destination of formatted text. Has room for `size` characters; further ones are counted but
// not written. With a null text it only counts.
template <class Ch>
class Output {
public:
    Output(Ch* text, std::size_t size) : m_text(text), m_size(text != nullptr ? size : 0) {}

    // Converts text of the other width one to one; it must have no character above U+00FF.
    template <class Other>
    void Append(const Other* text, std::size_t count) {
        const std::size_t room = Room(count);
        if constexpr (std::is_same_v<Ch, Other>)
            std::char_traits<Ch>::copy(m_text + Position(), text, room);
        else
            std::transform(text, text + room, m_text + Position(), [](Other unit) {
                return static_cast<Ch>(static_cast<unsigned char>(unit));
            });
        Advance(count);
    }
    void Append(std::string_view ascii) { Append(ascii.data(), ascii.size()); }

    // Refuses a count that no useful text has, before memory is allocated for it.
    void Fill(Ch character, long long count) {
        if (count <= 0)
            return;
        if (count > kMaximumFill)
            return Fail();
        std::fill_n(m_text + Position(), Room(static_cast<std::size_t>(count)), character);
        Advance(static_cast<std::size_t>(count));
    }

    void Fail() { m_failed = true; }
    bool HasFailed() const { return m_failed; }
    std::size_t GetLength() const { return m_length; }

private:
    static constexpr long long kMaximumFill = 10'000'000;

    std::size_t Position() const { return std::min(m_length, m_size); }
    std::size_t Room(std::size_t count) const { return std::min(count, m_size - Position()); }
    void Advance(std::size_t count) {
        m_failed = m_failed || count > INT_MAX - m_length;
        m_length += m_failed ? 0 : count;
    }

    Ch* m_text;
    std::size_t m_size;
    std::size_t m_length = 0; // at most INT_MAX
    bool m_failed = false;
};

struct Conversion {
    char type = 0; // the conversion's letter; 0 if the runtime does not know it
    bool leftAlign = false;
    bool plus = false;
    bool space = false;
    bool alternate = false;
    bool zeroFill = false;
    bool is64 = false;
    bool isShort = false;
    enum class Width : BYTE { Own, Narrow, Wide } textWidth = Width::Own;
    bool widthIsArgument = false; // a star: its argument precedes the value's
    bool precisionIsArgument = false;
    int width = 0;
    int precision = -1; // negative: not given

    void SetWidth(int value); // for a star: a negative value aligns to the left
    void SetPrecision(int value) { precision = value < 0 ? -1 : value; }
};

enum class ArgumentType : BYTE { None, Integer, Integer64, Pointer, Double };
struct Argument {
    ArgumentType type = ArgumentType::None;
    union {
        long long integer = 0;
        const void* pointer;
        double real;
    };
};
struct ArgumentList { // a va_list that can be passed by reference
    va_list values;
};

// Reads the part after a percent sign. Returns the position after the conversion or, if its type is
// 0, the position of the invalid character.
template <class Ch>
const Ch* ScanConversion(const Ch* position, Conversion& conversion);

// %s and %c take text of the output's own width, %S and %C of the other; h and l override both.
template <class Ch>
bool TakesWide(const Conversion& conversion) {
    if (conversion.textWidth != Conversion::Width::Own)
        return conversion.textWidth == Conversion::Width::Wide;
    return (sizeof(Ch) > 1) != (conversion.type == 'S' || conversion.type == 'C');
}

// The length up to the terminator or the precision. Never reads beyond either.
template <class Ch>
std::size_t TerminatedLength(const Ch* text, int precision) {
    if (precision < 0)
        return TextLength(text);
    std::size_t length = 0;
    while (length < static_cast<std::size_t>(precision) && text[length] != 0)
        ++length;
    return length;
}

ArgumentType TypeOfArgument(const Conversion& conversion);
Argument FetchArgument(ArgumentList& list, ArgumentType type);

// Prints an argument of the conversion's type. Makes the output fail for %n, which is never
// executed, and, in narrow output, for wide text above U+00FF.
template <class Ch>
void PrintConversion(Output<Ch>& output, const Conversion& conversion, const Argument& argument);

extern template const char* ScanConversion(const char*, Conversion&);
extern template const WCHAR* ScanConversion(const WCHAR*, Conversion&);
extern template void PrintConversion(Output<char>&, const Conversion&, const Argument&);
extern template void PrintConversion(Output<WCHAR>&, const Conversion&, const Argument&);

} // namespace quorvel::crt
