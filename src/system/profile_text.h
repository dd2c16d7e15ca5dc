// Reads a text from the registry and tells a missing value from an empty one.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

namespace quorvel {

// Reads the key's REG_SZ value up to its first zero. An odd last byte is ignored. Returns false
// when there is no such value; `text` is then unspecified. Throws CMemoryException.
bool ReadProfileText(HKEY key, const WCHAR* name, CString& text);

} // namespace quorvel
