// Escapes text for web addresses and for regular expressions.
//
// A null text returns FALSE and leaves the output unchanged. Nothing throws. Any thread. The text
// may be that of the output string.
#pragma once

#include <quorvel/framework/string.h>

// Percent-escapes UTF-8 text. ASCII letters and digits and - _ . * stay; every other byte becomes %
// and two upper-case digits, except that a blank becomes + when `spaceAsPlus` is set. The output
// has at most 2083 characters; when the text does not fit, the function returns FALSE and the
// output holds the part that fits.
QUORVEL_API BOOL AfxUTF8EscapeUnsafeURLCharacters(const char* utf8Text, CStringA& escaped,
                                                  BOOL spaceAsPlus);
// The same for text in another encoding, which is first converted to UTF-8. Also returns FALSE,
// with the output unchanged, when that fails. `codePage` and `flags` are MultiByteToWideChar's.
QUORVEL_API BOOL AfxMultiByteToUTF8EscapeUnsafeURLCharacters(UINT codePage, DWORD flags,
                                                             const char* text, CStringA& escaped,
                                                             BOOL spaceAsPlus);
QUORVEL_API BOOL AfxWideCharToUTF8EscapeUnsafeURLCharacters(const WCHAR* text, CStringA& escaped,
                                                            BOOL spaceAsPlus);

// Puts a backslash before each of # $ ( ) * + . ? [ \ ] ^ { | } so that the text, as a regular
// expression, matches itself. "-" is not escaped: it is special only inside brackets.
QUORVEL_API BOOL AfxEscapeRegularExpressionMetacharacters(const WCHAR* text, CString& escaped);
