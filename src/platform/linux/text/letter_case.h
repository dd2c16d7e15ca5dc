// Letter case mapping.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Simple (one to one) case mapping in place, independent of language. Surrogates do not change. The
// narrow forms map ASCII letters only: the active code page is UTF-8, where other letters can
// change their length.
DWORD CharLowerBuffW(LPWSTR text, DWORD length);
DWORD CharUpperBuffW(LPWSTR text, DWORD length);
DWORD CharLowerBuffA(LPSTR text, DWORD length);
DWORD CharUpperBuffA(LPSTR text, DWORD length);

} // namespace quorvel::win32
