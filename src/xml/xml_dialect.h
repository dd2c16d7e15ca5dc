// Rewrites texts of the fifth edition of XML 1.0 and of XML 1.1 for a parser of the fourth
// edition.
#pragma once

#include <quorvel/framework/string.h>

#include <string_view>

namespace quorvel {

// A unit that no document may contain. It replaces what is not allowed at its place.
inline constexpr WCHAR kNoCharacter = 0xffff;

// Returns a text of the same length that is well-formed by the fourth edition of XML 1.0 exactly
// when the given one is by the fifth. Throws CXMLFileException when the text has too many different
// characters to replace.
CString FromFifthEdition(std::basic_string_view<WCHAR> text);

// Does the same for the additions of XML 1.1 outside its declaration: references to control
// characters, control characters that must be references, and line ends.
void FromVersion11(CString& text, int declarationLength);

} // namespace quorvel
