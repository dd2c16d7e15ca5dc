// The rows of message maps and reflected notifications.
#include <quorvel/framework/win/message_map.h>

#include "support/test.h"

namespace {

class CRecordingWnd : public CWnd {
public:
    std::string m_seen;

    CRecordingWnd() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP, 0, 0, 50, 50, nullptr, nullptr);
        m_seen.clear();
    }
    std::string After(UINT message, WPARAM wParam, LPARAM lParam) {
        m_seen.clear();
        Note("%d", static_cast<int>(SendMessage(message, wParam, lParam)));
        return m_seen;
    }

protected:
    // Returns the result of the handlers that have one.
    int Note(const char* format, auto... arguments) {
        CStringA text;
        text.Format(format, arguments...);
        (m_seen += text.GetString()) += ' ';
        return 5;
    }

    BOOL OnMouseWheel(UINT flags, short by, CPoint p) {
        return Note("wheel %u %d %ld %ld", flags, by, p.x, p.y);
    }
    HBRUSH OnCtlColor(CDC*, CWnd* wnd, UINT kind) {
        return reinterpret_cast<HBRUSH>(INT_PTR{Note("color %d %u", wnd->m_hWnd == m_hWnd, kind)});
    }
    void OnCommands(UINT id) { Note("command %u", id); }
    BOOL OnCommandEx(UINT id) { return id == 31; }
    void OnRange(UINT id, NMHDR* header, LRESULT* result) {
        *result = Note("notify %u %u", id, header->code);
    }
    void OnPlain(NMHDR*, LRESULT*) { Note("parent"); }
    void OnCtl() { Note("parent"); }
    void OnUpdate(CCmdUI* ui) { ui->Enable(FALSE); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRecordingWnd, CWnd)
ON_WM_MOUSEWHEEL()
ON_WM_CTLCOLOR()
ON_COMMAND_RANGE(20, 22, &CRecordingWnd::OnCommands)
ON_COMMAND_EX(30, &CRecordingWnd::OnCommandEx)
ON_COMMAND_EX(31, &CRecordingWnd::OnCommandEx)
ON_UPDATE_COMMAND_UI_RANGE(22, 23, &CRecordingWnd::OnUpdate)
ON_NOTIFY_RANGE(40, 41, 42, &CRecordingWnd::OnRange)
ON_NOTIFY(50, 7, &CRecordingWnd::OnPlain)
ON_NOTIFY(51, 7, &CRecordingWnd::OnPlain)
ON_EN_CHANGE(7, &CRecordingWnd::OnCtl)
ON_EN_UPDATE(7, &CRecordingWnd::OnCtl)
END_MESSAGE_MAP()

TEST(MessageMap, RowsGiveTheirMembersTheMessagesParts) {
    CRecordingWnd wnd;
    const LPARAM self = reinterpret_cast<LPARAM>(wnd.m_hWnd);
    const auto notify = [&](UINT_PTR id, UINT code) {
        NMHDR header = {nullptr, id, code};
        return wnd.After(WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
    };
    ExpectCases<std::string>({
        CASE(wnd.After(WM_MOUSEWHEEL, MAKEWPARAM(4, -120), 0x4fffd), "wheel 4 -120 -3 4 5 "),
        CASE(wnd.After(WM_CTLCOLORSTATIC, 0, self), "color 1 6 5 "),
        CASE(wnd.After(WM_COMMAND, MAKEWPARAM(21, 1), 0), "command 21 1 "), // from an accelerator
        CASE(wnd.After(WM_COMMAND, 30, 0), "0 "), // the member returns "not handled"
        CASE(wnd.After(WM_COMMAND, 31, 0), "1 "),
        CASE(wnd.After(WM_COMMAND, 22, 0), "1 "), // its update handler disables it
        CASE(notify(41, 40), "notify 41 40 5 "),
        CASE(notify(43, 40), "0 "),
    });
}

class CReflectingWnd : public CRecordingWnd {
public:
    explicit CReflectingWnd(CWnd& parent) {
        DestroyWindow();
        Create(_T("Static"), nullptr, WS_VISIBLE, CRect(0, 0, 9, 9), &parent, 7);
        m_seen.clear();
    }
    bool m_handles = true;

protected:
    void OnMine(NMHDR*, LRESULT* result) { *result = 70; }
    BOOL OnMineEx(NMHDR*, LRESULT* result) {
        *result = 71;
        return m_handles;
    }
    void OnControl() { Note("own"); }
    BOOL OnControlEx() { return m_handles; }
    HBRUSH CtlColor(CDC*, UINT kind) {
        return m_handles ? reinterpret_cast<HBRUSH>(UINT_PTR{kind}) : nullptr;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectingWnd, CRecordingWnd)
ON_NOTIFY_REFLECT(50, &CReflectingWnd::OnMine)
ON_NOTIFY_REFLECT_EX(51, &CReflectingWnd::OnMineEx)
ON_CONTROL_REFLECT(EN_CHANGE, &CReflectingWnd::OnControl)
ON_CONTROL_REFLECT_EX(EN_UPDATE, &CReflectingWnd::OnControlEx)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

TEST(MessageMap, AControlGetsItsNotificationsBeforeItsParent) {
    CRecordingWnd parent;
    CReflectingWnd control(parent);
    CWnd plain; // has no handler for colours
    plain.CreateEx(0, _T("Static"), nullptr, WS_POPUP, 0, 0, 9, 9, nullptr, nullptr);
    const LPARAM window = reinterpret_cast<LPARAM>(control.m_hWnd);
    const auto notify = [&](UINT code) {
        NMHDR header = {control.m_hWnd, 7, code};
        return parent.After(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header));
    };
    const auto command = [&](UINT code) {
        return parent.After(WM_COMMAND, MAKEWPARAM(7, code), window);
    };
    const auto color = [&] { return plain.SendMessage(WM_CTLCOLORSTATIC, 0, window); };
    ExpectCases<std::string>({
        CASE(notify(50), "70 "),
        CASE(notify(51), "71 "),
        CASE(command(EN_CHANGE), "1 "),
        CASE(command(EN_UPDATE), "1 "),
    });
    EXPECT_EQ(control.m_seen, "own ");
    EXPECT_EQ(color(), CTLCOLOR_STATIC);
    control.m_handles = false;
    EXPECT_EQ(notify(51), "parent 0 ");
    EXPECT_EQ(command(EN_UPDATE), "parent 1 ");
    EXPECT_NE(color(), 0) << "the platform's own";
    EXPECT_EQ(parent.SendMessage(WM_CTLCOLORSTATIC, 0, window), 5) << "the parent's handler wins";
}

} // namespace
