#include <quorvel/keyboard/win/key_state.h>

namespace {

BOOL IsDown(int code) {
    return ::GetKeyState(code) < 0;
}

} // namespace

BOOL AfxIsCtrlKeyDown() {
    return IsDown(VK_CONTROL);
}

BOOL AfxIsShiftKeyDown() {
    return IsDown(VK_SHIFT);
}

BOOL AfxIsAltKeyDown() {
    return IsDown(VK_MENU);
}
