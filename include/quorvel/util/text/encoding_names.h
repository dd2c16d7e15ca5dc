// Names of character encodings, as declarations and headers give them, and their code pages.
//
// Names are compared without regard to letter case. Each encoding has one preferred name; 90 of the
// 143 have aliases, 346 in all, and no alias is anyone's preferred name. Deliberate: one alias,
// "_iso-2022-jp$SIO", is listed with its capitals while names are looked up in lower case, so that
// no spelling finds it.
//
// A name that is known is not yet a page that can be converted. MultiByteToWideChar refuses
// - on every system UTF-16 and UTF-32 (1200, 1201, 12000, 12001), which are no multi-byte pages;
// - on Linux also the Chinese pages 20000 to 20005, the national variants of ASCII
//   (20105 to 20108), T.61 (20261), ISO 6937 (20269), "x-europa" (29001) and the EBCDIC pages
//   20423, 20833, 20880, 20905 and 50931;
// - on Windows those that are not installed.
//
// Nothing throws. Any thread.
#pragma once

#include <quorvel/framework/string.h>

// The preferred name for an alias, in lower case. FALSE, and `preferred` as it was, for a null name
// or one that is no alias: a preferred name is none of its own.
QUORVEL_API BOOL AfxGetPreferredCharacterEncodingName(const WCHAR* name, CString& preferred);

// The Windows code page for a preferred name or an alias. FALSE, and 0, for a null or unknown name.
QUORVEL_API BOOL AfxCharacterEncodingToCodePage(const WCHAR* name, UINT& codePage);
