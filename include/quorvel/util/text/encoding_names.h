// Names of character encodings, as declarations and headers give them, and their code pages.
//
// Names are compared without regard to letter case. Each encoding has one preferred name; 90 of the
// 143 have aliases, 346 in all, and no alias is anyone's preferred name. Nothing throws. Any
// thread.
#pragma once

#include <quorvel/framework/string.h>

// The preferred name for an alias, in lower case. FALSE, and `preferred` as it was, for a null name
// or one that is no alias: a preferred name is none of its own.
QUORVEL_API BOOL AfxGetPreferredCharacterEncodingName(const WCHAR* name, CString& preferred);

// The Windows code page for a preferred name or an alias. FALSE, and 0, for a null or unknown name.
QUORVEL_API BOOL AfxCharacterEncodingToCodePage(const WCHAR* name, UINT& codePage);
