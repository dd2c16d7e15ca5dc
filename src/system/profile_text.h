// A text of the registry for callers to whom a missing one is not an empty one.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

namespace quorvel {

// The REG_SZ value of a key up to its first zero; the last byte of an odd number does not count.
// False when there is no such value, and the text is then unspecified. Throws CMemoryException.
bool ReadProfileText(HKEY key, const WCHAR* name, CString& text);

} // namespace quorvel
