// The orders of key names. Names are compared by code unit.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// Keys without a name come last.
inline bool IsNameBefore(const CString& a, const CString& b) {
    return a.IsEmpty() || b.IsEmpty() ? !a.IsEmpty() && b.IsEmpty() : a < b;
}
// Descending, but keys without a name still come last.
inline bool IsNameBehind(const CString& a, const CString& b) {
    return a.IsEmpty() || b.IsEmpty() ? !a.IsEmpty() && b.IsEmpty() : b < a;
}

} // namespace quorvel
