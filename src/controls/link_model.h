// A hyperlink without its window: its data, its appearance, and its reactions to the mouse and
// keys.
#pragma once

#include <quorvel/framework/string.h>

#include <optional>

namespace quorvel {

// The colours of a link under a high-contrast scheme, instead of its own.
struct ContrastColors {
    COLORREF link;
    COLORREF active;
    COLORREF disabled;
};

class LinkModel {
public:
    enum Flag : DWORD {
        kCanEditDisplayText = 0x01,
        kHasUri = 0x02, // without it the link only notifies its parent
        kCanOpenUri = 0x04,
        kCanEditUri = 0x08,
        kCanCopyUri = 0x10,
        kAllFlags = 0x1F
    };
    enum class Action { None, NotifyParent, Open, Edit };
    enum class Command { Open, Edit, Copy };

    // Sets the address. Returns false and keeps the former one for null and for an invalid address.
    bool SetUri(const WCHAR* uri);
    void ClearUri() { m_uri.Empty(); }
    const CString& Uri() const { return m_uri; }

    void SetFlag(DWORD flags, bool isSet) { m_flags = isSet ? m_flags | flags : m_flags & ~flags; }
    bool AreSet(DWORD flags) const { return (m_flags & flags) == flags; }
    // Whether a menu command is possible. Without an address no command is.
    bool Can(Command command) const;
    bool HasMenu() const { return AreSet(kHasUri); }

    // The action when the link is activated.
    Action Activate(bool isCtrlDown) const;
    // The left button is released. Only a press that began in the text captures the mouse.
    Action ReleaseMouse(bool holdsMouse, bool isInText, bool isCtrlDown) const;
    // Returns true when the link handles the key. A key that repeats may have been pressed
    // elsewhere, for example to close a dialog, so it does not press the link.
    bool PressKey(UINT key, bool isRepeated);
    // A key is released. The link's key activates it only if it was pressed here.
    Action ReleaseKey(UINT key, bool isCtrlDown);
    // Returns true if a key was down. It then activates nothing.
    bool CancelKey();

    // Whether to show the hand: a click on the link's own text activates it.
    bool ShowsHand(bool isInText) const { return isInText && !m_isMenuShowing; }
    // `contrast` is null for an ordinary scheme.
    COLORREF TextColor(bool isEnabled, bool holdsMouse, const ContrastColors* contrast) const;
    // The text of the tip: the address, cut at the end if it is too long for a tip.
    CString TipText() const;

    CString m_displayText;
    DWORD m_flags = kAllFlags;
    COLORREF m_linkColor = 0xFF0000;         // blue
    COLORREF m_activeColor = 0x0000FF;       // red
    COLORREF m_visitedColor = 0x800080;      // purple, for hosts that draw visited links
    std::optional<COLORREF> m_disabledColor; // the system's unless set
    COLORREF m_systemDisabledColor = 0;
    bool m_isModified = false;
    bool m_isMenuShowing = false;
    bool m_isKeyPressed = false;
    bool m_isBusy = false;      // opening or editing; neither starts again until then
    bool m_isDestroyed = false; // the control has been destroyed
private:
    CString m_uri;
};

// Marks the link as busy. IsEntered is false if it was already busy.
class LinkWork {
public:
    explicit LinkWork(LinkModel& link) : m_link(link), m_isEntered(!link.m_isBusy) {
        m_link.m_isBusy = true;
    }
    LinkWork(const LinkWork&) = delete;
    ~LinkWork() {
        if (m_isEntered)
            m_link.m_isBusy = false;
    }
    bool IsEntered() const { return m_isEntered; }

private:
    LinkModel& m_link;
    const bool m_isEntered;
};

} // namespace quorvel
