#include <quorvel/keyboard/key_name.h>

#include "platform/win32.h"

namespace {

constexpr UINT kExtendedKey = 0x100;

} // namespace

CString AfxGetKeyName(UINT virtualKeyCode, BOOL extended) {
    const UINT scanCode = MapVirtualKeyW(virtualKeyCode, MAPVK_VK_TO_VSC);
    return AfxGetKeyName(static_cast<LONG>((scanCode | (extended ? kExtendedKey : 0)) << 16));
}

CString AfxGetKeyName(LONG keyData) {
    WCHAR name[260];
    // Ends at the terminator: a key without a name can have one zero character, which is counted.
    return GetKeyNameTextW(keyData, name, static_cast<int>(std::size(name))) < 1 ? CString()
                                                                                 : CString(name);
}
