// The balloon that points at an invalid field, and the hook on focus changes that hides it. Each
// dialog and property page has one. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/geometry.h>
#include <quorvel/framework/string.h>

#include "controls/validation_tracker.h"

namespace quorvel {

// Posted to the dialog when one of its windows (wParam) gets the focus. One change of focus may
// post it several times. lParam is the number of the balloon at that time; 0, in a message from
// another source, means any balloon.
inline constexpr UINT kChildSetFocusMessage = 0x83f9;
// Posted by a hidden page to itself, with a refusal that it keeps until it is in front.
inline constexpr UINT kShowRefusalMessage = 0x83fa;

// The content of a balloon.
struct Refusal {
    UINT icon;
    CString title;
    CString text;
    CRect rect;
};

// The dialogs or pages of the user-interface thread that show their balloon, and their hook.
class ActiveValidations final : private FocusHook, public ValidationTracker {
public:
    // Stores the hook's handle in `hook`. The procedure must call PassOn.
    ActiveValidations(HHOOK& hook, HOOKPROC procedure)
        : ValidationTracker(static_cast<FocusHook&>(*this)), m_hook(hook), m_procedure(procedure) {}
    // Reports a change of focus to the dialog concerned and calls the next hook.
    LRESULT PassOn(int code, WPARAM wParam, LPARAM lParam) const;

private:
    bool Set() override;
    void Remove() override;

    HHOOK& m_hook;
    const HOOKPROC m_procedure;
};

class ValidationBalloon {
public:
    explicit ValidationBalloon(ActiveValidations& active) : m_active(active) {}
    ValidationBalloon(const ValidationBalloon&) = delete;
    ~ValidationBalloon();

    // Creates the window. Its owner is the dialog, or the sheet of a page. Returns FALSE if it
    // already exists.
    BOOL Create(HWND dialog);
    HWND GetWindow() const { return m_balloon; }

    // Shows the text with its stem at the middle of the lower edge of `rect` (screen coordinates).
    // For an empty title there is no title line; a title is cut after 99 characters, the platform's
    // limit. An empty text becomes an empty line, because the platform would show nothing. Returns
    // FALSE without a change if there is no window, for null texts and while a balloon is showing.
    BOOL Show(UINT icon, const WCHAR* title, const WCHAR* text, const RECT& rect);
    BOOL Hide(); // FALSE if no balloon is showing
    bool IsShowing() const { return m_isShowing; }
    // A change of focus was reported.
    void OnFocusChange(LPARAM balloonNumber);
    // The dialog was moved, so the balloon moves with it.
    void Follow();
    // The dialog is being destroyed. This destroys the window, whose owner may live on.
    void Forget();

private:
    void MoveTo(POINT point);

    ActiveValidations& m_active;
    HWND m_dialog = nullptr;
    HWND m_balloon = nullptr;
    bool m_isShowing = false;
    POINT m_stem{}; // from the dialog's upper left corner
};

} // namespace quorvel
