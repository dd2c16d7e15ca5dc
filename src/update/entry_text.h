// Makes texts of an update listing displayable in controls: a site may publish any characters, in
// any number.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// For one line: white space and control characters become blanks. An ellipsis replaces the text
// after the first 1,000 characters.
CString OneLineText(const CString& text);

// Each line break becomes CR LF, as edit controls require. Control characters other than
// the tab become blanks. An ellipsis replaces the text after the first 100,000
// characters.
CString MultilineText(const CString& text);

} // namespace quorvel
