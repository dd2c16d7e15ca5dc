// The orders of key names. Names are compared by code unit.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// Keys without a name are last.
inline bool IsNameBefore(const CString& a, const CString& b) {
    return a.IsEmpty() || b.IsEmpty() ? !a.IsEmpty() && b.IsEmpty() : a < b;
}
// Descending order, but keys without a name are still last.
inline bool IsNameAfter(const CString& a, const CString& b) {
    return a.IsEmpty() || b.IsEmpty() ? !a.IsEmpty() && b.IsEmpty() : b < a;
}

} // namespace quorvel
