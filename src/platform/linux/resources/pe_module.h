// Modules: the program, this library, and PE files loaded for their resources.
//
// PE code never runs on Linux. A PE file loads as on Windows when it is loaded as data or has no
// entry point, as the language libraries have none; a 64-bit one is as good as a 32-bit one.
// The library's own module has the resources that are compiled into it; in a program that it is
// linked to statically, the program has them. Any thread may call.
#pragma once

#include "platform/linux/resources/pe_image.h"

namespace quorvel {

// The library's own module: the program's when they are one file.
HMODULE OwnModule();
// The library's own resources when the path leads to its file, otherwise null.
const PeResources* FindOwnResources(const WCHAR* path);
// The languages to look for where none is asked for: neutral, the user's, English (United States),
// any.
LanguageChoice DefaultLanguages();

} // namespace quorvel

namespace quorvel::win32 {

// A resource's place in the module; null with the last error 1812 to 1815 for a module without
// resources, an unknown type, name or language. Types and names are MAKEINTRESOURCEW numbers,
// "#number" or text in any letter case. The language is neutral, then the user's, then English
// (United States), then the first there is.
HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
// The bytes of a resource: valid, and not to be freed, as long as the module is loaded.
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
LPVOID LockResource(HGLOBAL resource);
DWORD SizeofResource(HMODULE module, HRSRC resource);

typedef BOOL(CALLBACK* ENUMRESNAMEPROCW)(HMODULE module, LPCWSTR type, LPWSTR name,
                                         LONG_PTR parameter);
// Calls the procedure with the name of each resource of a type, texts first, until it returns
// FALSE. A text is valid until the procedure returns. FALSE with the last error 1812 or 1813 when
// there is none, with 15106 when the procedure ended it.
BOOL EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW procedure,
                        LONG_PTR parameter);

} // namespace quorvel::win32
