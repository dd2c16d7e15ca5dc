// Escaping of text for web addresses and for regular expressions.
//
// A null text is refused with FALSE and leaves the output as it is. Nothing throws. Any thread. The
// output may be filled from its own text.
#pragma once

#include <quorvel/framework/string.h>

// Percent-escapes UTF-8 text: letters and digits of ASCII and - _ . * stay, every other byte
// becomes % and two upper-case digits, a blank instead + when `spaceAsPlus` is set. The output
// holds at most 2083 characters: FALSE when the whole text does not fit, with what did in the
// output.
QUORVEL_API BOOL AfxUTF8EscapeUnsafeURLCharacters(const char* utf8Text, CStringA& escaped,
                                                  BOOL spaceAsPlus);
// The same of text in another encoding, which is converted to UTF-8 first; also FALSE, and the
// output as it is, when that fails. `codePage` and `flags` are MultiByteToWideChar's.
QUORVEL_API BOOL AfxMultiByteToUTF8EscapeUnsafeURLCharacters(UINT codePage, DWORD flags,
                                                             const char* text, CStringA& escaped,
                                                             BOOL spaceAsPlus);
QUORVEL_API BOOL AfxWideCharToUTF8EscapeUnsafeURLCharacters(const WCHAR* text, CStringA& escaped,
                                                            BOOL spaceAsPlus);

// Puts a backslash in front of each of # $ ( ) * + . ? [ \ ] ^ { | } so that the text matches
// itself as a regular expression. (Not of "-", which means something inside brackets only.)
QUORVEL_API BOOL AfxEscapeRegularExpressionMetacharacters(const WCHAR* text, CString& escaped);
