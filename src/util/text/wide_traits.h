// The character traits of the library's regular expressions.
//
// The traits of Boost.Regex depend on a locale, and on wide-character functions that Linux does not
// have for 16 bits. These traits are the same in every process on both systems: letter case is the
// platform's simple folding, and ranges compare code units.
//     typedef boost::basic_regex<WCHAR, quorvel::WideTraits> WideRegex;
//     typedef boost::basic_regex<char, quorvel::NarrowTraits> NarrowRegex;
// Narrow text is bytes. Bytes above 0x7f belong to no class and have no letter case.
#pragma once

#include "platform/case_fold.h"
#include "platform/digits.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel {

// The character classes of regular expressions, as a set of bits.
unsigned RegexClassesOf(WCHAR unit);
unsigned RegexClassesOf(char byte);
// The bits of a class name in lower case ("alpha", "d"); 0 for an unknown name.
unsigned FindRegexClass(std::string_view name);

inline WCHAR RegexFoldCase(WCHAR unit) {
    return FoldCase(unit);
}
inline char RegexFoldCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

template <class Ch>
class RegexTraits {
public:
    typedef Ch char_type;
    typedef std::size_t size_type;
    typedef std::basic_string<Ch> string_type;
    typedef unsigned char_class_type;
    struct locale_type {};

    static size_type length(const Ch* text) { return std::char_traits<Ch>::length(text); }
    Ch translate(Ch character) const { return character; }
    Ch translate_nocase(Ch character) const { return RegexFoldCase(character); }
    string_type transform(const Ch* first, const Ch* last) const { return {first, last}; }
    string_type transform_primary(const Ch* first, const Ch* last) const {
        string_type folded(first, last);
        for (Ch& character : folded)
            character = RegexFoldCase(character);
        return folded;
    }
    char_class_type lookup_classname(const Ch* first, const Ch* last) const {
        std::string name;
        for (; first != last && *first > 0 && *first < 0x7f; ++first)
            name += RegexFoldCase(static_cast<char>(*first));
        return first == last ? FindRegexClass(name) : 0;
    }
    // The only collating elements are single characters.
    string_type lookup_collatename(const Ch* first, const Ch* last) const {
        return last - first == 1 ? string_type(first, last) : string_type();
    }
    bool isctype(Ch character, char_class_type classes) const {
        return (RegexClassesOf(character) & classes) != 0;
    }
    int value(Ch character, int radix) const {
        const int digit = DigitValue(character);
        return digit < radix ? digit : -1; // radix is 8, 10 or 16
    }
    locale_type imbue(locale_type locale) { return locale; }
    locale_type getloc() const { return {}; }
};

typedef RegexTraits<WCHAR> WideTraits;
typedef RegexTraits<char> NarrowTraits;

} // namespace quorvel
