// Regular expressions: Perl style, in the syntax of Boost.Regex.
//
// ^ and $ also match at line breaks. Case is ignored by simple folding. Classes like \w and
// [[:alpha:]] are Unicode's in wide text and ASCII's in narrow text, in every locale. The functions
// also return FALSE for a null argument, for a pattern that is malformed or opens more than 399
// groups at once (the engine's limit), and when matching takes too many steps, which may be a few
// seconds. Nothing is reported or thrown. Any thread; 512 KB of stack are enough.
#pragma once

#include <quorvel/platform/platform.h>

// Whether the pattern matches anywhere in the text.
QUORVEL_API BOOL AfxMatchText(const WCHAR* text, const WCHAR* pattern, BOOL caseSensitive);
QUORVEL_API BOOL AfxMatchText(const char* text, const char* pattern, BOOL caseSensitive);

// Whether the pattern matches the whole text.
QUORVEL_API BOOL AfxValidateText(const WCHAR* text, const WCHAR* pattern, BOOL caseSensitive);
QUORVEL_API BOOL AfxValidateText(const char* text, const char* pattern, BOOL caseSensitive);
