#include <quorvel/frame/win/vask_message_box_window.h>

#include <quorvel/frame/window_class.h>
#include <quorvel/framework/app.h>

#include "frame/message_box_layout.h"
#include "frame/vask_box.h"
#include "frame/win/help_target.h"

namespace {
constexpr UINT kHeadingId = 23000;
constexpr UINT kCheckBoxId = 23001;
} // namespace

IMPLEMENT_DYNAMIC(CVaskMessageBox, CWnd)

BEGIN_MESSAGE_MAP(CVaskMessageBox, CWnd)
ON_MESSAGE(WM_INITDIALOG, &CVaskMessageBox::OnInitDialog)
ON_MESSAGE(WM_HELP, &CVaskMessageBox::OnHelpKey)
ON_BN_CLICKED(kCheckBoxId, &CVaskMessageBox::OnCheckBoxClicked)
ON_COMMAND(IDHELP, &CVaskMessageBox::OnHelpButton)
END_MESSAGE_MAP()

namespace {

constexpr DWORD kIconStyleBits = 3; // of a static control: either bit is set for an icon
constexpr CRect kNowhere;           // initial place of the controls; they are moved after measuring

// The system's own controls of the box.
struct BoxControls {
    HWND icon = nullptr;
    HWND text = nullptr;
    std::vector<HWND> buttons;
};

BoxControls FindControls(HWND box) {
    BoxControls controls;
    for (HWND child = ::GetWindow(box, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        const UINT id = static_cast<UINT>(::GetDlgCtrlID(child));
        if (id == kHeadingId || id == kCheckBoxId)
            continue;
        const DWORD style = static_cast<DWORD>(::GetWindowLongPtrW(child, GWL_STYLE));
        if (AfxIsStatic(child)) {
            const bool isIcon = (style & kIconStyleBits) != 0;
            // Without an icon some systems leave its empty control in the box, where it covers the
            // other controls.
            if (isIcon && ::SendMessageW(child, STM_GETICON, 0, 0) == 0)
                continue;
            HWND& first = isIcon ? controls.icon : controls.text;
            if (first == nullptr)
                first = child;
        } else if (AfxIsButton(child) && (style & BS_TYPEMASK) <= BS_DEFPUSHBUTTON) {
            controls.buttons.push_back(child);
        }
    }
    return controls;
}

CRect PlaceOf(HWND box, HWND control) {
    CRect rect;
    ::GetWindowRect(control, rect);
    ::MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void Place(HWND control, const CRect& rect) {
    ::SetWindowPos(control, nullptr, rect.left, rect.top, rect.Width(), rect.Height(),
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

// Measures text in a window's device context with a font selected.
class Measure {
public:
    Measure(HWND window, HFONT font)
        : m_window(window), m_dc(::GetDC(window)), m_former(::SelectObject(m_dc, font)) {}
    Measure(const Measure&) = delete;
    ~Measure() {
        ::SelectObject(m_dc, m_former);
        ::ReleaseDC(m_window, m_dc);
    }

    CSize OneLine(const CString& text, UINT flags) const {
        CRect rect;
        ::DrawTextW(m_dc, text, text.GetLength(), rect, DT_CALCRECT | DT_SINGLELINE | flags);
        return rect.Size();
    }
    TEXTMETRICW Metrics() const {
        TEXTMETRICW metrics = {};
        ::GetTextMetricsW(m_dc, &metrics);
        return metrics;
    }

private:
    const HWND m_window;
    const HDC m_dc;
    const HGDIOBJ m_former;
};

// Removes the hook also when the host's box creates no window or throws.
class CreationHook {
public:
    explicit CreationHook(CWnd* wnd) { AfxHookWindowCreate(wnd); }
    CreationHook(const CreationHook&) = delete;
    ~CreationHook() { AfxUnhookWindowCreate(); }
};

} // namespace

CVaskMessageBox::CVaskMessageBox() = default;

void CVaskMessageBox::SetHeading(const WCHAR* heading) {
    m_hasHeading = TRUE;
    m_heading = heading;
}

void CVaskMessageBox::SetCheckBox(const WCHAR* text, int checkState) {
    m_hasCheckBox = TRUE;
    m_checkBoxText = text;
    m_checkState = checkState == 1 ? 1 : 0;
}

void CVaskMessageBox::SetHelpTarget(const WCHAR* target) {
    m_helpTarget = target;
}

LRESULT CVaskMessageBox::OnInitDialog(WPARAM, LPARAM) {
    const LRESULT result = Default();
    CreateAdditions();
    LayOut();
    CenterWindow();
    return result;
}

HFONT CVaskMessageBox::BoxFont() const {
    const HFONT font = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    return font != nullptr ? font : static_cast<HFONT>(::GetStockObject(SYSTEM_FONT));
}

void CVaskMessageBox::CreateAdditions() {
    LOGFONTW description;
    if (CFont::FromHandle(BoxFont())->GetLogFont(&description)) {
        description.lfWeight = FW_BOLD;
        m_boldFont.CreateFontIndirect(&description);
    }
    if (m_hasHeading) {
        m_headingCtrl.Create(m_heading, WS_VISIBLE | SS_LEFTNOWORDWRAP | SS_NOPREFIX, kNowhere,
                             this, kHeadingId);
        m_headingCtrl.SetFont(&m_boldFont);
    }
    if (m_hasCheckBox) {
        m_checkBox.Create(m_checkBoxText, WS_VISIBLE | WS_TABSTOP | BS_CHECKBOX, kNowhere, this,
                          kCheckBoxId);
        m_checkBox.SetFont(CFont::FromHandle(BoxFont()));
        m_checkBox.SetCheck(m_checkState);
    }
}

void CVaskMessageBox::MeasureAdditions(quorvel::MessageBoxParts& parts) const {
    if (m_hasHeading) {
        const Measure bold(m_hWnd, m_boldFont);
        const TEXTMETRICW metrics = bold.Metrics();
        parts.heading = {bold.OneLine(m_heading, DT_NOPREFIX), metrics.tmHeight,
                         metrics.tmExternalLeading};
    }
    if (m_hasCheckBox)
        parts.checkBoxText = Measure(m_hWnd, BoxFont()).OneLine(m_checkBoxText, 0);
}

void CVaskMessageBox::LayOut() {
    const BoxControls controls = FindControls(m_hWnd);
    quorvel::MessageBoxParts parts;
    CRect rect;
    GetClientRect(rect);
    parts.clientSize = rect.Size();
    GetWindowRect(rect);
    parts.windowSize = rect.Size();
    if (controls.icon != nullptr)
        parts.icon = PlaceOf(m_hWnd, controls.icon);
    if (controls.text != nullptr)
        parts.text = PlaceOf(m_hWnd, controls.text);
    for (const HWND button : controls.buttons)
        parts.buttons.push_back(PlaceOf(m_hWnd, button));
    MeasureAdditions(parts);

    const quorvel::MessageBoxLayout layout = quorvel::LayOutMessageBox(parts);
    SetWindowPos(nullptr, 0, 0, layout.windowSize.cx, layout.windowSize.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (controls.text != nullptr)
        Place(controls.text, layout.text);
    for (std::size_t i = 0; i < controls.buttons.size(); ++i)
        Place(controls.buttons[i], layout.buttons[i]);
    if (m_hasHeading)
        Place(m_headingCtrl.m_hWnd, layout.heading);
    if (m_hasCheckBox)
        Place(m_checkBox.m_hWnd, layout.checkBox);
}

void CVaskMessageBox::OnCheckBoxClicked() {
    m_checkState = m_checkBox.GetCheck() == BST_CHECKED ? 0 : 1;
    m_checkBox.SetCheck(m_checkState);
}

// The command is not passed on: the system would answer it with WM_HELP, which would open the
// target a second time.
void CVaskMessageBox::OnHelpButton() {
    if (m_helpTarget.IsEmpty())
        Default();
    else
        quorvel::OpenHelpTarget(m_hWnd, m_helpTarget);
}

LRESULT CVaskMessageBox::OnHelpKey(WPARAM, LPARAM) {
    if (m_helpTarget.IsEmpty())
        return Default();
    quorvel::OpenHelpTarget(m_hWnd, m_helpTarget);
    return TRUE;
}

int quorvel::ShowVaskBox(VaskBox& box) {
    CVaskMessageBox wnd;
    if (box.heading)
        wnd.SetHeading(*box.heading);
    if (box.checkBoxText)
        wnd.SetCheckBox(*box.checkBoxText, box.checkState);
    wnd.SetHelpTarget(box.helpTarget);
    const CreationHook hook(&wnd);
    const int result = AfxMessageBox(box.text, box.type, 0);
    box.checkState = wnd.GetCheckState();
    return result;
}
