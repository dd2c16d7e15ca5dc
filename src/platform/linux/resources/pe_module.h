// Modules: the program, this library, and PE files loaded for their resources.
//
// PE code never runs on Linux. As on Windows, a PE file can be loaded as data, or as a module if it
// has no entry point, like the language libraries; 32-bit and 64-bit files work equally. The
// library's module has the resources that are compiled into it. If the library is linked
// statically, the program has them. Any thread may call.
#pragma once

#include "platform/linux/resources/pe_image.h"

namespace quorvel {

// The library's own module; the program's when they are one file.
HMODULE OwnModule();
// The library's own resources when the path names its file, otherwise null.
const PeResources* FindOwnResources(const WCHAR* path);
// The languages to try when none is requested: neutral, the user's, English (United States),
// any.
LanguageChoice DefaultLanguages();

} // namespace quorvel

namespace quorvel::win32 {

// A resource of the module. Null with the last error 1812 to 1815 for a module without resources,
// an unknown type, name or language. Types and names are MAKEINTRESOURCEW numbers, "#number" or
// text in any letter case. The languages tried are neutral, the user's, English (United States),
// and the first one that exists.
HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
// The bytes of a resource. Valid as long as the module is loaded; do not free them.
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
LPVOID LockResource(HGLOBAL resource);
DWORD SizeofResource(HMODULE module, HRSRC resource);

typedef BOOL(CALLBACK* ENUMRESNAMEPROCW)(HMODULE module, LPCWSTR type, LPWSTR name,
                                         LONG_PTR parameter);
// Calls the procedure with the name of each resource of a type, texts first, until it returns
// FALSE. A text is valid until the procedure returns. Returns FALSE with the last error 1812 or
// 1813 if there are none, with 15106 if the procedure stopped it.
BOOL EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW procedure,
                        LONG_PTR parameter);

} // namespace quorvel::win32
