// The dialogs that show a validation balloon, and the hook on focus changes that they share.
//
// The hook is there while at least one dialog shows its balloon. It asks DialogOf for each window
// that gets the focus, and the control posts a message to that dialog, which hides its balloon. One
// change may be reported several times, and the message may come when the balloon is hidden
// already, so hiding what is not shown is harmless. It may also come when the next balloon shows,
// as after OK by its mnemonic, which gives the focus to the button first: so every balloon has a
// number, and a message that bears another one concerns a balloon of before. A dialog calls Hide
// when it is destroyed too: its balloon window ends with it, but the hook would not.
//
// Used on the user-interface thread that sets the hook.
#pragma once

#include <quorvel/platform/platform.h>

#include <functional>
#include <map>

namespace quorvel {

// The system's hook of the calling thread.
class FocusHook {
public:
    virtual bool Set() = 0;
    virtual void Remove() = 0;

protected:
    ~FocusHook() = default;
};

class ValidationTracker {
public:
    // `hook` outlives the tracker.
    explicit ValidationTracker(FocusHook& hook) : m_hook(hook) {}
    ValidationTracker(const ValidationTracker&) = delete;
    ValidationTracker& operator=(const ValidationTracker&) = delete;

    // A dialog shows its balloon, the window that is given. False for null and when it does
    // already. When the hook cannot be set the dialog is known nevertheless, and the next one tries
    // again.
    bool Show(HWND dialog, HWND balloon = nullptr);
    // Its balloon is hidden, or it is destroyed. False when it did not show one.
    bool Hide(HWND dialog);
    bool IsShowing(HWND dialog) const { return m_dialogs.contains(dialog); }
    bool HasHook() const { return m_hasHook; }
    // Of the balloon that a dialog shows; 0 when it shows none.
    LPARAM NumberOf(HWND dialog) const;

    // The dialog whose balloon gets the focus, otherwise the first one with a balloon among the
    // parents of the window that gets it; null when there is none. `parentOf` returns null at the
    // end, and null for a window that is owned: focus in a dialog that is owned by the one with the
    // balloon is another dialog's focus.
    HWND DialogOf(HWND focused, const std::function<HWND(HWND window)>& parentOf) const;

private:
    struct Balloon {
        HWND window;
        LPARAM number;
    };
    FocusHook& m_hook;
    std::map<HWND, Balloon> m_dialogs;
    LPARAM m_lastNumber = 0;
    bool m_hasHook = false;
};

} // namespace quorvel
