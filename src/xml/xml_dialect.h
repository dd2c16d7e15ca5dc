// Texts of the fifth edition of XML 1.0 and of XML 1.1, rewritten for a judge of the fourth
// edition.
#pragma once

#include <quorvel/framework/string.h>

#include <string_view>

namespace quorvel {

// A unit that no document may hold: it stands for what is not allowed where it is.
inline constexpr WCHAR kNoCharacter = 0xffff;

// A text of the same length that is well-formed by the fourth edition of XML 1.0 exactly where the
// given one is by the fifth. Throws CXMLFileException for a text with more different characters
// than there are to stand for them.
CString FromFifthEdition(std::basic_string_view<WCHAR> text);

// Likewise for what XML 1.1 has beyond the fifth edition, without its declaration: references to
// control characters, control characters that must be references, and line ends.
void FromVersion11(CString& text, int declarationLength);

} // namespace quorvel
