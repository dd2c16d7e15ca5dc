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

#include <initguid.h>
#include <oleacc.h>

namespace {

constexpr const WCHAR* kUri = _T("http://example.com/");
constexpr UINT kGetMenu = 0x01E1; // MN_GETHMENU

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
        Create();
        m_host.m_onMessage = [this](UINT message, WPARAM wParam) {
            m_log += message == WM_COMMAND ? "command " + std::to_string(wParam) + ' ' : "";
            m_log += message == WM_CONTEXTMENU ? "menu " : "";
        };
    }
    ~Hyperlink() override { QuorvelSetOpenExternalLinkCallback(nullptr); }

    void Create() {
        m_link = std::make_unique<CHyperlinkCtrl>();
        EXPECT_TRUE(m_link->Create(_T("Static"), nullptr,
                                   WS_CHILD | WS_VISIBLE | WS_TABSTOP | SS_NOPREFIX,
                                   CRect(10, 10, 210, 40), &m_host, 7));
        m_link->SetDisplayText(_T("the link"));
        m_link->SetURI(kUri);
    }
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
    // Opens the menu and presses a key in it; 0 closes it. Returns which items are
    // enabled, and the log.
    std::string Menu(WCHAR key, LPARAM place = -1) {
        std::string states;
        const DialogDriver driver({CancelEdit()});
        const MenuDriver menu([&](HMENU shown) {
            EXPECT_EQ(::GetMenuDefaultItem(shown, FALSE, GMDI_USEDISABLED), 50000u);
            states.clear();
            for (UINT i = 0; i < 3; ++i)
                states += ::GetMenuState(shown, i, MF_BYPOSITION) & MF_GRAYED ? '-' : '+';
            if (key != 0)
                ::PostMessageW(m_link->m_hWnd, WM_CHAR, key, 1);
            else
                ::EndMenu();
        });
        m_link->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_link->m_hWnd), place);
        PumpMessages();
        return states + TakeLog();
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
    ListParent m_host;
    std::unique_ptr<CHyperlinkCtrl> m_link;
    std::function<void()> m_onHook;
    std::string m_log;
};

TEST_F(Hyperlink, ShowsItsTextWhereItsStyleSays) {
    EXPECT_FALSE(m_link->SetDisplayText(nullptr));
    EXPECT_EQ(TextOf(m_link->m_hWnd), _T("the link"));
    m_link->ModifyStyle(SS_TYPEMASK, SS_CENTER | SS_CENTERIMAGE);
    const CRect rect = m_link->GetDisplayTextRect();
    EXPECT_NEAR(rect.left, 200 - rect.right, 1);
    EXPECT_NEAR(rect.top, 30 - rect.bottom, 1);
    EXPECT_TRUE(m_link->SetDisplayText(CString(_T('x'), 10000)));
    EXPECT_EQ(m_link->GetDisplayTextRect().Width(), 198) << "stays in the control";
    EXPECT_TRUE(m_link->SetDisplayText(_T("")));
    EXPECT_EQ(TextOf(m_link->m_hWnd), _T("<empty>"));
    EXPECT_FALSE(CHyperlinkCtrl().SetDisplayText(_T("a")) || CHyperlinkCtrl().Edit());
}

TEST_F(Hyperlink, ClicksAndEnterActAsFlagsSay) {
    const auto act = [this](DWORD flags, bool isCtrlHeld) {
        m_link->SetFlags(flags);
        BYTE keys[256] = {};
        keys[VK_CONTROL] = isCtrlHeld ? 0x80 : 0;
        ::SetKeyboardState(keys);
        const DialogDriver driver({CancelEdit(), CancelEdit()});
        Click();
        m_log += "down ";
        m_link->SendMessage(WM_KEYDOWN, VK_RETURN, 1);
        m_log += "up ";
        m_link->SendMessage(WM_KEYUP, VK_RETURN, 1);
        return TakeLog();
    };
    const std::string command = "command " + std::to_string(0x83f40007) + ' ';
    ExpectCases<std::string>({
        CASE(act(0x1F, true), "edit down up edit "),
        CASE(act(0x1F, false), "hook http://example.com/ down up hook http://example.com/ "),
        CASE(act(0x00, false), command + "down up " + command),
    });
    EXPECT_FALSE(m_link->GetModify());
    MSG enter = {m_link->m_hWnd, WM_KEYDOWN, VK_RETURN, 1, 0, {}};
    const LPARAM message = reinterpret_cast<LPARAM>(&enter);
    EXPECT_EQ(m_link->SendMessage(WM_GETDLGCODE, 0, message), DLGC_WANTMESSAGE);
    EXPECT_EQ(m_link->SendMessage(WM_GETDLGCODE, VK_RETURN, 0), 0);
}

TEST_F(Hyperlink, LosesAPressWithItsCaptureOrFocus) {
    Button(WM_LBUTTONDOWN, Outside());
    EXPECT_EQ(::GetCapture(), nullptr);
    Button(WM_LBUTTONDOWN, Inside());
    EXPECT_EQ(::GetCapture(), m_link->m_hWnd);
    EXPECT_EQ(::GetFocus(), m_link->m_hWnd);
    m_link->EnableWindow(FALSE);
    EXPECT_EQ(::GetCapture(), nullptr);
    m_link->EnableWindow();
    Button(WM_LBUTTONUP, Inside());
    m_link->SetFocus();
    m_link->SendMessage(WM_KEYDOWN, VK_RETURN, 1);
    m_host.SetFocus();
    m_link->SendMessage(WM_KEYUP, VK_RETURN, 1);
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(Hyperlink, IsDrawnInTheColorOfItsState) {
    Button(WM_LBUTTONDOWN, Inside());
    const COLORREF pressed = 0x0000FF, disabled = ::GetSysColor(COLOR_BTNSHADOW);
    // The underline is drawn in a solid colour.
    EXPECT_FALSE(Picture(*m_link).BoundsOf(pressed).IsRectEmpty());
    m_link->EnableWindow(FALSE);
    EXPECT_FALSE(Picture(*m_link).BoundsOf(disabled).IsRectEmpty());
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

TEST_F(Hyperlink, MenuIsForItsTextAndItsAddress) {
    const auto at = [this](CPoint point) {
        m_link->ClientToScreen(&point);
        return MAKELPARAM(point.x, point.y);
    };
    ExpectCases<std::string>({
        CASE(Menu('o'), "+++hook http://example.com/ "),
        CASE(Menu('e'), "+++edit "),
        CASE(Menu('t', at(Inside())), "+++"),
        CASE(Menu(0, at(Outside())), "menu "), // is the parent's
        CASE((m_link->SetFlags(CHyperlinkCtrl::HAS_URI), Menu(0)), "---"),
        CASE((m_link->SetFlags(0x0A), Menu(0)), "-+-"),
        CASE((m_link->ClearFlag(CHyperlinkCtrl::HAS_URI), Menu(0, at(Inside()))), "menu "),
    });
    CString text;
    EXPECT_TRUE(AfxGetTextFromClipboard(text));
    EXPECT_EQ(text, kUri);
}

TEST_F(Hyperlink, TakesTheTextsThatItsDialogEdits) {
    const DialogDriver driver({[](HWND box) {
                                   EXPECT_EQ(TextOf(::GetDlgItem(box, QUORVEL_LINK_DISPLAY_TEXT)),
                                             _T("the link"));
                                   EXPECT_EQ(TextOf(::GetDlgItem(box, QUORVEL_LINK_ADDRESS)), kUri);
                                   ::SetDlgItemTextW(box, QUORVEL_LINK_DISPLAY_TEXT, _T("new"));
                                   ::SetDlgItemTextW(box, QUORVEL_LINK_ADDRESS, _T("mailto:a@b.c"));
                               },
                               ClickOn(IDOK)});
    EXPECT_TRUE(m_link->Edit() && m_link->GetModify());
    EXPECT_EQ(TextOf(m_link->m_hWnd), _T("new"));
    EXPECT_EQ(m_link->GetURI(), _T("mailto:a@b.c"));
}

TEST_F(Hyperlink, IsNamedByItsTextForScreenReaders) {
    ASSERT_HRESULT_SUCCEEDED(::CoInitialize(nullptr));
    IAccessible* object = nullptr;
    ASSERT_EQ(::AccessibleObjectFromWindow(m_link->m_hWnd, static_cast<DWORD>(OBJID_CLIENT),
                                           IID_IAccessible, reinterpret_cast<void**>(&object)),
              S_OK);
    VARIANT self = {};
    self.vt = VT_I4;
    BSTR name = nullptr;
    EXPECT_EQ(object->get_accName(self, &name), S_OK);
    EXPECT_EQ(CString(name), _T("the link"));
    ::SysFreeString(name);
    object->Release();
    ::CoUninitialize();
}

TEST_F(Hyperlink, HooksMayCallBack) {
    m_onHook = [this] {
        EXPECT_FALSE(m_link->Open() || m_link->Edit());
        m_link->SetURI(_T("http://other.example/"));
    };
    Click();
    EXPECT_EQ(TakeLog(), "hook http://example.com/ ");
}

TEST_F(Hyperlink, MayBeDestroyedWhileItWorks) {
    m_onHook = [this] { m_link->DestroyWindow(); };
    Click();
    EXPECT_EQ(m_link->m_hWnd, nullptr);

    Create();
    Button(WM_LBUTTONDOWN, Inside());
    m_link->DestroyWindow();
    EXPECT_EQ(::GetCapture(), nullptr);

    Create();
    m_link->SetFlags(0);
    m_host.m_onMessage = [this](UINT message, WPARAM) {
        if (message == WM_COMMAND)
            m_link.reset();
    };
    Click();
    EXPECT_EQ(m_link, nullptr);

    Create();
    {
        const MenuDriver menu([this](HMENU) {
            m_link.reset();
            ::EndMenu();
        });
        ::SendMessageW(m_link->m_hWnd, WM_CONTEXTMENU, 0, -1);
    }
    EXPECT_EQ(m_link, nullptr);

    Create();
    CHyperlinkCtrl* const edited = m_link.get();
    const DialogDriver driver({[this](HWND) { m_link.reset(); }, ClickOn(IDOK),
                               [this](HWND) { m_host.DestroyWindow(); }});
    EXPECT_FALSE(edited->Edit());
    Create();
    EXPECT_FALSE(m_link->Edit()) << "the dialog's owner is destroyed";
}

} // namespace
