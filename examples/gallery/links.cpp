// Hyperlinks, their menu and their dialog.
#include <quorvel/controls/win/edit_hyperlink_dlg.h>
#include <quorvel/controls/win/hyperlink_ctrl.h>
#include <quorvel/framework/win/static.h>

#include "gallery.h"
#include "take_box.h"

#include <iterator>
#include <list>

namespace {

constexpr const WCHAR* kDialogClass = _T("#32770"); // which draws the background of dialogs

// A window with a link in each state, a line each.
class LinkWindow : public CWnd {
public:
    LinkWindow() {
        CreateEx(WS_EX_DLGMODALFRAME, kDialogClass, _T("Links"), WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                 40, 40, Scaled(340), Scaled(220), nullptr, nullptr);
        NONCLIENTMETRICSW metrics = {};
        metrics.cbSize = sizeof metrics;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        m_font.CreateFontIndirect(&metrics.lfMessageFont);

        const WCHAR* const text = Own(_T("Visit our website"), _T("Besuchen Sie unsere Website"));
        Add(Own(_T("At rest:"), _T("In Ruhe:")), text);
        CHyperlinkCtrl& focused = Add(Own(_T("With the focus:"), _T("Mit dem Fokus:")), text);
        CHyperlinkCtrl& pressed = Add(Own(_T("Pressed:"), _T("Gedrückt:")), text);
        Add(Own(_T("Disabled:"), _T("Deaktiviert:")), text).EnableWindow(FALSE);
        Add(Own(_T("Without a text:"), _T("Ohne Text:")), _T(""));
        focused.SetFocus();
        pressed.SendMessage(WM_KEYDOWN, VK_RETURN, 1);
    }
    CHyperlinkCtrl& Focused() { return *std::next(m_links.begin()); }

private:
    static int Scaled(int pixels) { return pixels * ResolutionOfScreen() / 96; }
    CHyperlinkCtrl& Add(const WCHAR* label, const WCHAR* text) {
        const int top = Scaled(14 + 26 * static_cast<int>(m_links.size()));
        m_labels.emplace_back().Create(label, WS_CHILD | WS_VISIBLE,
                                       CRect(Scaled(14), top, Scaled(114), top + Scaled(18)), this);
        m_labels.back().SetFont(&m_font);
        CHyperlinkCtrl& link = m_links.emplace_back();
        link.Create(_T("Static"), nullptr, WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                    CRect(Scaled(120), top, Scaled(320), top + Scaled(18)), this, 1);
        link.SetFont(&m_font);
        link.SetDisplayText(text);
        link.SetURI(_T("https://www.example.com/"));
        return link;
    }

    CFont m_font;
    std::list<CStatic> m_labels;
    std::list<CHyperlinkCtrl> m_links;
};

bool TakeStates(const char* path) {
    LinkWindow window;
    return SavePicture(window.m_hWnd, path);
}

// Takes the picture from inside the menu's loop.
struct MenuPicture {
    static inline HWND s_window = nullptr;
    static inline const char* s_path = nullptr;
    static inline bool s_isTaken = false;
    static inline int s_ticks = 0;

    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (++s_ticks != 20) // the menu is drawn
            return;
        s_isTaken = SavePicture(s_window, s_path);
        ::EndMenu();
    }
};

bool TakeMenu(const char* path) {
    LinkWindow window;
    CHyperlinkCtrl& link = window.Focused();
    MenuPicture::s_window = window.m_hWnd;
    MenuPicture::s_path = path;
    MenuPicture::s_isTaken = false;
    MenuPicture::s_ticks = 0;
    link.SetCanEditURI(FALSE);
    const UINT_PTR timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, MenuPicture::Tick);
    link.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(link.m_hWnd), -1);
    ::KillTimer(nullptr, timer);
    return MenuPicture::s_isTaken;
}

bool TakeEditDialog(const WCHAR* uri, std::vector<DialogDriver::Step> steps, const char* path) {
    CEditHyperlinkDlg dialog(FALSE);
    dialog.SetDisplayText(Own(_T("Visit our website"), _T("Besuchen Sie unsere Website")));
    dialog.SetURI(uri);
    return TakeBoxAfter(std::move(steps), path, [&] { dialog.DoModal(); });
}

bool TakeEdit(const char* path) {
    return TakeEditDialog(_T("https://www.example.com/"), {}, path);
}

bool TakeEditBalloon(const char* path) {
    return TakeEditDialog(_T("www.example.com"), {Press(VK_RETURN)}, path);
}

} // namespace

const std::vector<Picture> kLinkPictures = {
    {"hyperlink_states", TakeStates},
    {"hyperlink_states_german", InGerman<TakeStates>},
    {"hyperlink_menu", TakeMenu},
    {"hyperlink_menu_german", InGerman<TakeMenu>},
    {"edit_hyperlink", TakeEdit},
    {"edit_hyperlink_german", InGerman<TakeEdit>, true},
    {"edit_hyperlink_balloon", TakeEditBalloon},
    {"edit_hyperlink_balloon_german", InGerman<TakeEditBalloon>, true},
};
