// The balloon that points at a field which was refused, and the hook on focus changes that hides
// it. Each dialog and property page has one. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/geometry.h>
#include <quorvel/framework/string.h>

#include "controls/validation_tracker.h"

namespace quorvel {

// Posted to the dialog when one of its windows gets the focus, which is wParam. One change of focus
// may post it several times. lParam is the number of the balloon that showed then; 0, of a message
// that does not come from the hook, is any.
inline constexpr UINT kChildSetFocusMessage = 0x83f9;
// Posted by a page that is not in front to itself, with a refusal that it keeps until it is.
inline constexpr UINT kShowRefusalMessage = 0x83fa;

// What a balloon shows.
struct Refusal {
    UINT icon;
    CString title;
    CString text;
    CRect rect;
};

// The dialogs, or the pages, of the user-interface thread that show their balloon, and their hook.
class ActiveValidations final : private FocusHook, public ValidationTracker {
public:
    // The hook's handle is kept in `hook`. The procedure calls PassOn.
    ActiveValidations(HHOOK& hook, HOOKPROC procedure)
        : ValidationTracker(static_cast<FocusHook&>(*this)), m_hook(hook), m_procedure(procedure) {}
    // Reports a change of focus to the dialog that it concerns, and calls the next hook.
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

    // Makes the window, which the dialog owns, or the sheet of a page. FALSE when there is one
    // already.
    BOOL Create(HWND dialog);
    HWND GetWindow() const { return m_balloon; }

    // Shows the text with its stem at the middle of the lower edge of `rect` (screen coordinates).
    // An empty title shows no title line; one above 99 characters is cut, as the platform takes no
    // more. An empty text is an empty line: otherwise the platform would show nothing. FALSE, and
    // nothing changed, without a window, for null texts and while a balloon is showing.
    BOOL Show(UINT icon, const WCHAR* title, const WCHAR* text, const RECT& rect);
    BOOL Hide(); // FALSE when none is showing
    bool IsShowing() const { return m_isShowing; }
    // A change of focus was reported.
    void OnFocusChange(LPARAM balloonNumber);
    // The dialog was moved: the balloon follows.
    void Follow();
    // The dialog is being destroyed. The owner of the window may live on, so it is destroyed here.
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
