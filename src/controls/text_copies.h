// Copies texts for a caller that frees them.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/component_calls.h"

namespace quorvel {

typedef LPVOID(WINAPI* ComponentAllocator)(SIZE_T size);

// Copies `count` texts with `allocate`; the caller frees them with CoTaskMemFree. When memory runs
// out, frees the copies made so far, sets all places to null and returns false.
bool CopyTexts(const CString* texts, ULONG count, WCHAR** copies,
               ComponentAllocator allocate = CoTaskMemAlloc);

} // namespace quorvel
