// The schemes that the address field offers.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

inline constexpr const WCHAR* kFileScheme = _T("file://");
// In the order of the list.
inline constexpr const WCHAR* kLinkSchemes[] = {_T("http://"),  _T("mailto:"), kFileScheme,
                                                _T("https://"), _T("ftp://"),  _T("news:"),
                                                _T("gopher://")};

// The address of a chosen file.
inline CString LinkToFile(const CString& path) {
    return kFileScheme + path;
}

} // namespace quorvel
