// The hyperlink in a real window: clicks, keys, menu, tool tip, appearance, and its destruction
// during each of them.
#include <quorvel/controls/win/hyperlink_ctrl.h>
#include <quorvel/frame/module.h>
#include <quorvel/framework/win/dialog.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/util/clipboard/win/clipboard.h>

#include "controls/win/list_window.h"
#include "support/message_box_recorder.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

constexpr const WCHAR* kUri = _T("http://example.com/");
constexpr UINT kGetMenu = 0x01E1; // MN_GETHMENU

class Host : public CWnd {
public:
    Host() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 100, 100, 300, 100, nullptr,
                 nullptr);
    }
    std::function<void(UINT message, WPARAM wParam)> m_on;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (m_on && (message == WM_COMMAND || message == WM_CONTEXTMENU))
            m_on(message, wParam);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

// While it exists, calls `act` with each menu that the thread shows.
class MenuDriver {
public:
    explicit MenuDriver(std::function<void(HMENU)> act) : m_act(std::move(act)) {
        s_current = this;
        m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Tick);
    }
    MenuDriver(const MenuDriver&) = delete;
    ~MenuDriver() { ::KillTimer(nullptr, m_timer); }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        const HWND menu = ::FindWindowW(L"#32768", nullptr);
        if (menu != nullptr && ::IsWindowVisible(menu))
            s_current->m_act(reinterpret_cast<HMENU>(::SendMessageW(menu, kGetMenu, 0, 0)));
    }
    static inline MenuDriver* s_current = nullptr;
    const std::function<void(HMENU)> m_act;
    UINT_PTR m_timer;
};

class Hyperlink : public testing::Test {
protected:
    Hyperlink() {
        s_current = this;
        QuorvelSetOpenExternalLinkCallback(Ask);
        m_link = std::make_unique<CHyperlinkCtrl>();
        EXPECT_TRUE(m_link->Create(_T("Static"), nullptr,
                                   WS_CHILD | WS_VISIBLE | WS_TABSTOP | SS_NOPREFIX,
                                   CRect(10, 10, 210, 40), &m_host, 7));
        m_link->SetDisplayText(_T("the link"));
        m_link->SetURI(kUri);
        m_host.m_on = [this](UINT message, WPARAM wParam) {
            char text[40];
            std::snprintf(text, sizeof text, "%s %x ", message == WM_COMMAND ? "command" : "menu",
                          message == WM_COMMAND ? static_cast<unsigned>(wParam) : 0);
            m_log += text;
        };
    }
    ~Hyperlink() override { QuorvelSetOpenExternalLinkCallback(nullptr); }

    // Never opens a link.
    static int Ask(const WCHAR* link) {
        s_current->m_log += "hook " + std::string(CStringA(link)) + ' ';
        if (s_current->m_onHook)
            s_current->m_onHook();
        return FALSE;
    }
    CPoint Inside() const {
        const CRect text = m_link->GetDisplayTextRect();
        return {(text.left + text.right) / 2, (text.top + text.bottom) / 2};
    }
    CPoint Outside() const { return {m_link->GetDisplayTextRect().right + 5, 5}; }
    void Button(UINT message, CPoint point) {
        ::SendMessageW(m_link->m_hWnd, message, 0, MAKELPARAM(point.x, point.y));
    }
    void Click() {
        const CPoint point = Inside();
        Button(WM_LBUTTONDOWN, point);
        Button(WM_LBUTTONUP, point);
    }
    static void HoldCtrl(bool isHeld) {
        BYTE keys[256];
        ::GetKeyboardState(keys);
        keys[VK_CONTROL] = isHeld ? 0x80 : 0;
        ::SetKeyboardState(keys);
    }
    DialogDriver::Step CancelEdit() {
        return [this](HWND box) {
            m_log += "edit ";
            ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
        };
    }
    std::string TakeLog() { return std::exchange(m_log, {}); }

    static inline Hyperlink* s_current = nullptr;
    MessageBoxRecorder m_app;
    Host m_host;
    std::unique_ptr<CHyperlinkCtrl> m_link;
    std::function<void()> m_onHook;
    std::string m_log;
};

TEST_F(Hyperlink, ShowsItsTextOrThatItIsEmpty) {
    EXPECT_FALSE(m_link->SetDisplayText(nullptr));
    EXPECT_EQ(TextOf(m_link->m_hWnd), _T("the link"));
    EXPECT_TRUE(m_link->SetDisplayText(_T("")));
    EXPECT_EQ(TextOf(m_link->m_hWnd), _T("<empty>"));
    EXPECT_FALSE(CHyperlinkCtrl().SetDisplayText(_T("a")) || CHyperlinkCtrl().Edit());
}

TEST_F(Hyperlink, ClicksAndEnterLeadWhereFlagsSay) {
    const struct {
        const char* label;
        DWORD flags;
        const WCHAR* text;
        bool isCtrlHeld;
        const char* log;
    } rows[] = {
        {"open", 0x1F, _T("a"), false, "hook http://example.com/ "},
        {"ctrl", 0x1F, _T("a"), true, "edit "},
        {"no address", 0x00, _T("a"), false, "command 83f40007 "},
    };
    for (const auto& row : rows) {
        m_link->SetFlags(row.flags);
        m_link->SetDisplayText(row.text);
        HoldCtrl(row.isCtrlHeld);
        const DialogDriver driver({CancelEdit(), CancelEdit()});
        Click();
        EXPECT_EQ(TakeLog(), row.log) << row.label;
        EXPECT_EQ(::GetCapture(), nullptr) << row.label;
        m_link->SendMessage(WM_KEYDOWN, VK_RETURN, 1);
        EXPECT_EQ(TakeLog(), "");
        m_link->SendMessage(WM_KEYUP, VK_RETURN, 1);
        EXPECT_EQ(TakeLog(), row.log) << row.label;
    }
    HoldCtrl(false);
    EXPECT_FALSE(m_link->GetModify());
    MSG enter = {m_link->m_hWnd, WM_KEYDOWN, VK_RETURN, 1, 0, {}};
    const LPARAM message = reinterpret_cast<LPARAM>(&enter);
    EXPECT_EQ(m_link->SendMessage(WM_GETDLGCODE, 0, message), DLGC_WANTMESSAGE);
    EXPECT_EQ(m_link->SendMessage(WM_GETDLGCODE, VK_RETURN, 0), 0);
}

TEST_F(Hyperlink, OnlyAPressInTheTextAndItsReleaseCount) {
    const CPoint inside = Inside(), outside = Outside();
    Button(WM_LBUTTONDOWN, inside);
    EXPECT_EQ(::GetCapture(), m_link->m_hWnd);
    EXPECT_EQ(::GetFocus(), m_link->m_hWnd);
    Button(WM_LBUTTONUP, outside);
    Button(WM_LBUTTONDOWN, outside);
    EXPECT_EQ(::GetCapture(), nullptr);
    Button(WM_LBUTTONUP, inside);
    Button(WM_LBUTTONDOWN, inside);
    m_link->EnableWindow(FALSE);
    EXPECT_EQ(::GetCapture(), nullptr);
    m_link->EnableWindow();
    Button(WM_LBUTTONUP, inside);
    m_link->SetFocus();
    m_link->SendMessage(WM_KEYDOWN, VK_RETURN, 1);
    m_host.SetFocus();
    m_link->SendMessage(WM_KEYUP, VK_RETURN, 1);
    EXPECT_EQ(TakeLog(), "");
}

// Whether the control has a pixel of this colour. The underline is drawn in a solid colour.
bool Shows(const CHyperlinkCtrl& link, COLORREF color) {
    ::InvalidateRect(link.m_hWnd, nullptr, TRUE);
    return !Picture(link).BoundsOf(color).IsRectEmpty();
}

TEST_F(Hyperlink, IsDrawnInTheColorOfItsState) {
    m_host.SetFocus();
    const COLORREF disabled = ::GetSysColor(COLOR_BTNSHADOW);
    const std::tuple<const char*, std::function<void()>, COLORREF> rows[] = {
        {"at rest", [] {}, 0xFF0000},
        {"pressed", [this] { Button(WM_LBUTTONDOWN, Inside()); }, 0x0000FF},
        {"set",
         [this] {
             Button(WM_LBUTTONUP, Outside());
             m_link->SetLinkColor(0x00AA11);
         },
         0x00AA11},
        {"disabled", [this] { m_link->EnableWindow(FALSE); }, disabled},
    };
    for (const auto& [label, act, color] : rows) {
        act();
        for (const COLORREF other :
             {COLORREF{0xFF0000}, COLORREF{0x0000FF}, COLORREF{0x00AA11}, disabled})
            EXPECT_EQ(Shows(*m_link, other), other == color) << label << ", " << other;
    }
}

TEST_F(Hyperlink, TextIsPlacedByItsStyle) {
    m_link->ModifyStyle(SS_TYPEMASK, SS_CENTER | SS_CENTERIMAGE);
    const CRect rect = m_link->GetDisplayTextRect();
    EXPECT_NEAR(rect.left, 200 - rect.right, 1);
    EXPECT_NEAR(rect.top, 30 - rect.bottom, 1);
    m_link->SetDisplayText(CString(_T('x'), 10000));
    EXPECT_EQ(m_link->GetDisplayTextRect().Width(), 198) << "stays in the control";
}

// The text of the tool tip, and whether it exists.
CString TipOf(const CHyperlinkCtrl& link) {
    for (HWND tip = nullptr;
         (tip = ::FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
        WCHAR text[1000] = L"";
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = link.m_hWnd;
        tool.uId = 1;
        tool.lpszText = text;
        if (::SendMessageW(tip, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool))) {
            EXPECT_EQ(CRect(tool.rect), link.GetDisplayTextRect());
            return text;
        }
    }
    return _T("none");
}

TEST_F(Hyperlink, HandAndTipAreOverTheText) {
    const HCURSOR hand =
        ::LoadCursorW(QuorvelGetInstanceHandle(), MAKEINTRESOURCEW(QUORVEL_CURSOR_HAND));
    ASSERT_NE(hand, nullptr);
    m_link->SetURI(_T("http://example.com/other"));
    EXPECT_EQ(TipOf(*m_link), _T("http://example.com/other"));
    for (const bool isInside : {true, false, true}) {
        CPoint point = isInside ? Inside() : Outside();
        m_link->ClientToScreen(&point);
        ::SetCursorPos(point.x, point.y);
        ::SetCursor(nullptr);
        m_link->SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_link->m_hWnd),
                            MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        EXPECT_EQ(::GetCursor() == hand, isInside);
        m_link->SendMessage(WM_MOUSELEAVE);
    }
    EXPECT_EQ(m_link->SendMessage(WM_NCHITTEST), HTCLIENT);
    m_link->DestroyWindow();
    EXPECT_EQ(TipOf(*m_link), _T("none")) << "ends with the control";
}

TEST_F(Hyperlink, MenuOffersWhatTheFlagsAllow) {
    const struct {
        DWORD flags;
        WCHAR key; // 0: the menu is closed
        std::string states, log;
    } rows[] = {{0x1F, 'o', "+++", "hook http://example.com/ "},
                {0x1F, 'e', "+++", "edit "},
                {0x1F, 't', "+++", ""},
                {0x02, 0, "---", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.flags);
        m_link->SetFlags(row.flags);
        std::string states;
        {
            const DialogDriver driver({CancelEdit()});
            const MenuDriver menu([&](HMENU shown) {
                EXPECT_EQ(::GetMenuDefaultItem(shown, FALSE, GMDI_USEDISABLED), 50000u);
                states.clear();
                for (UINT i = 0; i < 3; ++i)
                    states += ::GetMenuState(shown, i, MF_BYPOSITION) & MF_GRAYED ? '-' : '+';
                if (row.key != 0)
                    ::PostMessageW(m_link->m_hWnd, WM_CHAR, row.key, 1);
                else
                    ::EndMenu();
            });
            m_link->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_link->m_hWnd), -1);
        }
        PumpMessages();
        EXPECT_EQ(states, row.states);
        EXPECT_EQ(TakeLog(), row.log);
        EXPECT_EQ(::GetFocus() == m_link->m_hWnd, row.key != 'e') << "its parent is no dialog";
        if (row.key == 't') {
            CString text;
            EXPECT_TRUE(AfxGetTextFromClipboard(text));
            EXPECT_EQ(text, kUri);
        }
    }
}

TEST_F(Hyperlink, MenuIsForItsTextAndItsAddress) {
    const auto shows = [this](CPoint point) {
        bool isShown = false;
        const MenuDriver menu([&isShown](HMENU) {
            isShown = true;
            ::EndMenu();
        });
        m_link->ClientToScreen(&point);
        m_link->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_link->m_hWnd),
                            MAKELPARAM(point.x, point.y));
        return isShown;
    };
    EXPECT_TRUE(shows(Inside()));
    EXPECT_EQ(TakeLog(), "");
    EXPECT_FALSE(shows(Outside()));
    EXPECT_EQ(TakeLog(), "menu 0 ") << "is the parent's";
    m_link->ClearFlag(CHyperlinkCtrl::HAS_URI);
    EXPECT_FALSE(shows(Inside()));
}

TEST_F(Hyperlink, EditTakesTheTextsOver) {
    const DialogDriver driver({[](HWND box) {
        EXPECT_EQ(TextOf(::GetDlgItem(box, QUORVEL_LINK_DISPLAY_TEXT)), _T("the link"));
        EXPECT_EQ(TextOf(::GetDlgItem(box, QUORVEL_LINK_ADDRESS)), kUri);
        ::SetDlgItemTextW(box, QUORVEL_LINK_DISPLAY_TEXT, _T("new"));
        ::SetDlgItemTextW(box, QUORVEL_LINK_ADDRESS, _T("mailto:a@b.c"));
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    }});
    EXPECT_TRUE(m_link->Edit());
    EXPECT_EQ(m_link->GetDisplayText(), _T("new"));
    EXPECT_EQ(m_link->GetURI(), _T("mailto:a@b.c"));
    EXPECT_EQ(TextOf(m_link->m_hWnd), _T("new"));
    EXPECT_TRUE(m_link->GetModify());
}

TEST_F(Hyperlink, HooksAndParentsMayCallBackAndDestroy) {
    m_onHook = [this] {
        EXPECT_FALSE(m_link->Open());
        EXPECT_FALSE(m_link->Edit());
        m_link->SetURI(_T("http://other.example/"));
    };
    Click();
    EXPECT_EQ(TakeLog(), "hook http://example.com/ ");
    m_onHook = [this] { m_link->DestroyWindow(); };
    Click();
    EXPECT_EQ(m_link->m_hWnd, nullptr);
    EXPECT_TRUE(m_link->Create(_T("Static"), _T("x"), WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20),
                               &m_host, 8));
    m_link->SetFlags(0);
    m_host.m_on = [this](UINT, WPARAM) { m_link.reset(); };
    Click();
    EXPECT_EQ(m_link, nullptr);
}

TEST_F(Hyperlink, EndsInTheMiddleOfWork) {
    Button(WM_LBUTTONDOWN, Inside());
    m_link->DestroyWindow();
    EXPECT_EQ(::GetCapture(), nullptr);

    const auto create = [this] {
        m_link = std::make_unique<CHyperlinkCtrl>();
        m_link->Create(_T("Static"), nullptr, WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &m_host,
                       7);
        m_link->SetDisplayText(_T("a"));
    };
    create();
    {
        const MenuDriver menu([this](HMENU) {
            m_link.reset();
            ::EndMenu();
        });
        ::SendMessageW(m_link->m_hWnd, WM_CONTEXTMENU, 0, -1);
    }
    EXPECT_EQ(m_link, nullptr);

    create();
    CHyperlinkCtrl* const edited = m_link.get();
    const DialogDriver driver({[this](HWND box) {
                                   ::SetDlgItemTextW(box, QUORVEL_LINK_ADDRESS, kUri);
                                   m_link.reset();
                                   ::PostMessageW(box, WM_COMMAND, IDOK, 0);
                               },
                               [this](HWND) { m_host.DestroyWindow(); }});
    EXPECT_FALSE(edited->Edit());
    create();
    EXPECT_FALSE(m_link->Edit()) << "the dialog's owner is gone";
}

} // namespace
