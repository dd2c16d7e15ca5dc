// A hyperlink without its window: what it holds, how it looks, and what the mouse and the keys lead
// to.
#pragma once

#include <quorvel/framework/string.h>

#include <optional>

namespace quorvel {

// What colours a link has under a high-contrast scheme, in place of its own.
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

    // The link's address; false, and the former one stays, for null and what is no valid one.
    bool SetUri(const WCHAR* uri);
    void ClearUri() { m_uri.Empty(); }
    const CString& Uri() const { return m_uri; }

    void SetFlag(DWORD flags, bool isSet) { m_flags = isSet ? m_flags | flags : m_flags & ~flags; }
    bool AreSet(DWORD flags) const { return (m_flags & flags) == flags; }
    // What the menu offers and what each command does; nothing without an address.
    bool Can(Command command) const;
    bool HasMenu() const { return AreSet(kHasUri); }

    // What activating the link leads to.
    Action Activate(bool isCtrlDown) const;
    // The left button goes up. Only a press that began in the text holds the mouse.
    Action ReleaseMouse(bool holdsMouse, bool isInText, bool isCtrlDown) const;
    // True when the key is the link's. A key that is held down repeats.
    bool PressKey(UINT key);
    // A key goes up: the link's own activates when it went down here.
    Action ReleaseKey(UINT key, bool isCtrlDown);
    // True when a key was down, which then activates nothing.
    bool CancelKey();

    // A press that only the link's own text takes.
    bool ShowsHand(bool isInText) const { return isInText && !m_isMenuShowing; }
    // `contrast` is null under an ordinary scheme.
    COLORREF TextColor(bool isEnabled, bool holdsMouse, const ContrastColors* contrast) const;
    // What the tip shows: the address, whose end is cut where it is too long for a tip.
    CString TipText() const;

    CString m_displayText;
    DWORD m_flags = kAllFlags;
    COLORREF m_linkColor = 0xFF0000;         // blue
    COLORREF m_activeColor = 0x0000FF;       // red
    COLORREF m_visitedColor = 0x800080;      // purple; for those who draw visited links
    std::optional<COLORREF> m_disabledColor; // the system's until it is set
    COLORREF m_systemDisabledColor = 0;
    bool m_isModified = false;
    bool m_isMenuShowing = false;
    bool m_isKeyPressed = false;
    bool m_isBusy = false; // opening or editing, which does not begin again meanwhile
    bool m_isGone = false; // the control is destroyed
private:
    CString m_uri;
};

// Marks the link busy. Not entered when it is busy already.
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
