// The balloon that points at a field which was refused, and the hook on focus changes that hides
// it. Each dialog and property page has one. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/geometry.h>

namespace quorvel {

// Posted to the dialog when one of its windows gets the focus, which is wParam. One change of focus
// may post it several times.
inline constexpr UINT kChildSetFocusMessage = 0x83f9;

class ValidationBalloon {
public:
    ValidationBalloon() = default;
    ValidationBalloon(const ValidationBalloon&) = delete;
    ~ValidationBalloon();

    // Makes the window, which the dialog owns and which ends with it. FALSE when there is one
    // already.
    BOOL Create(HWND dialog);
    HWND GetWindow() const { return m_balloon; }

    // Shows the text with its stem at the middle of the lower edge of `rect` (screen coordinates).
    // An empty title shows no title line; one above 99 characters is cut, as the platform takes no
    // more. FALSE, and nothing changed, without a window, for null texts and while a balloon is
    // showing.
    BOOL Show(UINT icon, const WCHAR* title, const WCHAR* text, const RECT& rect);
    BOOL Hide(); // FALSE when none is showing
    bool IsShowing() const { return m_isShowing; }
    // The dialog was moved: the balloon follows.
    void Follow();
    // The dialog is being destroyed, and with it the window.
    void Forget();

private:
    void MoveTo(POINT point);

    HWND m_dialog = nullptr;
    HWND m_balloon = nullptr;
    bool m_isShowing = false;
    POINT m_stem{}; // from the dialog's upper left corner
};

} // namespace quorvel
