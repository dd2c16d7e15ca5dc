// Reads an XML declaration in any width and encoding of characters.
#pragma once

#include <quorvel/platform/platform.h>

#include <optional>
#include <string_view>

namespace quorvel {

// The fixed parts of a declaration in one encoding.
template <class Ch>
struct DeclarationMarks {
    std::basic_string_view<Ch> begin;    // <?xml
    std::basic_string_view<Ch> end;      // ?>
    std::basic_string_view<Ch> encoding; // encoding=
    std::basic_string_view<Ch> quotes;   // " and '
};

inline constexpr DeclarationMarks<WCHAR> kWideDeclarationMarks = {_T("<?xml"), _T("?>"),
                                                                  _T("encoding="), _T("\"'")};
inline constexpr DeclarationMarks<char> kNarrowDeclarationMarks = {"<?xml", "?>",
                                                                   "encoding=", "\"'"};
// The same characters in the EBCDIC code page 37.
inline constexpr DeclarationMarks<char> kEbcdicDeclarationMarks = {
    "\x4C\x6F\xA7\x94\x93", "\x6F\x6E", "\x85\x95\x83\x96\x84\x89\x95\x87\x7E", "\x7F\x7D"};

// The declaration at the start of the text, up to its first "?>"; empty if there is none.
template <class Ch>
std::basic_string_view<Ch> FindDeclaration(std::basic_string_view<Ch> text,
                                           const DeclarationMarks<Ch>& marks) {
    if (!text.starts_with(marks.begin))
        return {};
    const std::size_t end = text.find(marks.end, marks.begin.size());
    return end == text.npos ? text.substr(0, 0) : text.substr(0, end + marks.end.size());
}

// The name between the first quotes that directly follow "encoding=".
template <class Ch>
std::optional<std::basic_string_view<Ch>> FindEncodingName(std::basic_string_view<Ch> declaration,
                                                           const DeclarationMarks<Ch>& marks) {
    std::size_t at = 0;
    while ((at = declaration.find(marks.encoding, at)) != declaration.npos) {
        at += marks.encoding.size();
        if (at >= declaration.size() || marks.quotes.find(declaration[at]) == marks.quotes.npos)
            continue;
        const std::size_t end = declaration.find_first_of(marks.quotes, at + 1);
        if (end != declaration.npos)
            return declaration.substr(at + 1, end - at - 1);
    }
    return std::nullopt;
}

} // namespace quorvel
