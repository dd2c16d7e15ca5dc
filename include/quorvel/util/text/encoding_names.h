// Names of character encodings, as declarations and headers give them, and their code pages.
//
// Names are compared without regard to letter case. Each encoding has one preferred name. 90 of the
// 143 encodings have aliases, 346 in total; an alias is never a preferred name. Deliberate: the
// alias "_iso-2022-jp$SIO" has capitals in its table, but names are looked up in lower case, so it
// is never found.
//
// A known name does not mean that the page can be converted. MultiByteToWideChar refuses
// - on every system UTF-16 and UTF-32 (1200, 1201, 12000, 12001), which are not multi-byte pages;
// - on Linux also the Chinese pages 20000 to 20005, the national variants of ASCII
//   (20105 to 20108), T.61 (20261), ISO 6937 (20269), "x-europa" (29001) and the EBCDIC pages
//   20423, 20833, 20880, 20905 and 50931;
// - on Windows pages that are not installed.
//
// Nothing throws. Any thread.
#pragma once

#include <quorvel/framework/string.h>

// The preferred name for an alias, in lower case. Returns FALSE and leaves `preferred` unchanged
// for null and for a name that is not an alias. A preferred name is not an alias of itself.
QUORVEL_API BOOL AfxGetPreferredCharacterEncodingName(const WCHAR* name, CString& preferred);

// The code page for a preferred name or an alias. FALSE and 0 for a null or unknown name.
QUORVEL_API BOOL AfxCharacterEncodingToCodePage(const WCHAR* name, UINT& codePage);
