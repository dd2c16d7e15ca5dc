// The dialogs that show a validation balloon, and their common hook on focus changes.
//
// The hook is set while at least one dialog shows its balloon. It calls DialogOf for each window
// that gets the focus. The control posts a message to the resulting dialog, which hides its
// balloon. One change may be reported several times, and the balloon may be hidden when the message
// arrives, so hiding it again is harmless. The next balloon may also show already, for example
// after OK by its mnemonic, which first gives the focus to the button. So every balloon has a
// number, and a message with another number is about an earlier balloon. A destroyed dialog must
// also call Hide: its balloon window is destroyed with it, but the hook is not removed.
//
// Used on the user-interface thread that sets the hook.
#pragma once

#include <quorvel/platform/platform.h>

#include <functional>
#include <map>

namespace quorvel {

// The system's hook for the calling thread.
class FocusHook {
public:
    virtual bool Set() = 0;
    virtual void Remove() = 0;

protected:
    ~FocusHook() = default;
};

class ValidationTracker {
public:
    // `hook` must outlive the tracker.
    explicit ValidationTracker(FocusHook& hook) : m_hook(hook) {}
    ValidationTracker(const ValidationTracker&) = delete;
    ValidationTracker& operator=(const ValidationTracker&) = delete;

    // A dialog shows its balloon, the window `balloon`. Returns false for null and if it already
    // shows one. If the hook cannot be set, the dialog is recorded anyway, and the next one tries
    // again.
    bool Show(HWND dialog, HWND balloon = nullptr);
    // The balloon is hidden, or the dialog is destroyed. Returns false if it did not show one.
    bool Hide(HWND dialog);
    bool IsShowing(HWND dialog) const { return m_dialogs.contains(dialog); }
    bool HasHook() const { return m_hasHook; }
    // The number of the balloon that a dialog shows; 0 if it shows no balloon.
    LPARAM NumberOf(HWND dialog) const;

    // The dialog whose balloon gets the focus. Otherwise the first one with a balloon among the
    // parents of the focused window; null if there is none. `parentOf` returns null at the end of
    // the chain and for an owned window: the focus in an owned dialog does not concern the owner's
    // balloon.
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
