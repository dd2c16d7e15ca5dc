// Texts of an update listing as controls can show them: a site may publish any characters, and any
// number of them.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// On one line: white space and control characters become blanks. What is behind the first 1,000
// characters is left out and replaced by an ellipsis.
CString OneLineText(const CString& text);

// Each line break becomes CR LF, which edit controls want; other control characters but the tab
// become blanks. What is behind the first 100,000 characters is left out and replaced by an
// ellipsis.
CString MultilineText(const CString& text);

} // namespace quorvel
