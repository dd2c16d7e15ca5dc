// Texts handed to a caller that frees them.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/component_calls.h"

namespace quorvel {

typedef LPVOID(WINAPI* ComponentAllocator)(SIZE_T size);

// Copies of `count` texts, each from `allocate`, to be freed with CoTaskMemFree. When memory runs
// out those made before are freed, their places are null, and the result is false.
bool CopyTexts(const CString* texts, ULONG count, WCHAR** copies,
               ComponentAllocator allocate = CoTaskMemAlloc);

} // namespace quorvel
