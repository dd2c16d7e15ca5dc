// Regular expressions, Perl style, in the syntax of Boost.Regex.
//
// ^ and $ match at line breaks too. Letter case is by simple folding, classes like \w and
// [[:alpha:]] are Unicode's on wide text and ASCII's on narrow text, whatever the locale. FALSE
// also for a null argument, for a pattern that is malformed or has more than 399 groups open at
// once, which is the engine's limit, and for one that takes too many steps, which can be some
// seconds' worth. Nothing is reported or thrown. Any thread; 512 KB of stack are enough.
#pragma once

#include <quorvel/platform/platform.h>

// Whether the pattern matches anywhere in the text.
QUORVEL_API BOOL AfxMatchText(const WCHAR* text, const WCHAR* pattern, BOOL caseSensitive);
QUORVEL_API BOOL AfxMatchText(const char* text, const char* pattern, BOOL caseSensitive);

// Whether the pattern matches the whole text.
QUORVEL_API BOOL AfxValidateText(const WCHAR* text, const WCHAR* pattern, BOOL caseSensitive);
QUORVEL_API BOOL AfxValidateText(const char* text, const char* pattern, BOOL caseSensitive);
