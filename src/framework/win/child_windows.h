// A window's children, listed before messages are sent to them, which may destroy some.
#pragma once

#include <quorvel/platform/platform.h>

#include <vector>

namespace quorvel {

inline std::vector<HWND> ChildWindows(HWND parent) {
    std::vector<HWND> children;
    for (HWND child = ::GetTopWindow(parent); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

} // namespace quorvel
