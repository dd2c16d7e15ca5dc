// Code pages, letter case and comparison.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int byteCount, LPWSTR text,
                        int textLength);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength, LPSTR bytes,
                        int byteCount, LPCSTR defaultChar, LPBOOL usedDefaultChar);
UINT GetACP();
BOOL IsValidCodePage(UINT codePage);

// Simple (one to one) case mapping in place, as the platform's lingusitic-free tables do.
DWORD CharLowerBuffW(LPWSTR text, DWORD length);
DWORD CharUpperBuffW(LPWSTR text, DWORD length);
DWORD CharLowerBuffA(LPSTR text, DWORD length);
DWORD CharUpperBuffA(LPSTR text, DWORD length);

} // namespace quorvel::win32
