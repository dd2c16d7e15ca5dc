// All dialogs and menus of the library in each language and at each text size: created by the
// dialog manager, and measured as it measures them.
#include <quorvel/frame/module.h>

#include "support/test.h"
#include "support/window_driver.h"

#include <commctrl.h>

#include <map>

namespace {

// In the pixels of this screen, of 96 DPI.
struct Control {
    explicit Control(HWND window)
        : style(static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE))), place(PlaceOf(window)),
          id(::GetDlgCtrlID(window)), text(TextOf(window)) {
        ::GetClassNameW(window, windowClass.GetBuffer(40), 40);
        windowClass.ReleaseBuffer();
    }
    bool Is(const WCHAR* name) const { return windowClass == name; }
    bool IsGroup() const { return Is(_T("Button")) && (style & BS_TYPEMASK) == BS_GROUPBOX; }
    bool StandsApart() const { return !IsGroup() && !Is(UPDOWN_CLASSW); } // which lies in its field
    // Its text is not inside it, so a label must name it.
    bool NeedsLabel() const {
        return Is(_T("Edit")) || Is(_T("ListBox")) || Is(_T("ComboBox")) || Is(WC_LISTVIEWW);
    }
    bool IsReached() const { return (style & WS_TABSTOP) != 0; }

    DWORD style;
    CRect place;
    int id;
    CString windowClass;
    CString text;
};

struct Dialog {
    std::string label;
    CRect inside;
    CString title;
    std::vector<Control> controls;
};

// Measures on a screen of `dpi` in the font of the dialogs.
class Ruler {
public:
    explicit Ruler(int dpi) : m_dpi(dpi), m_dc(CreateCompatibleDC(nullptr)) {
        m_font = CreateFontW(-MulDiv(8, dpi, 72), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0,
                             0, 0, 0, _T("MS Shell Dlg"));
        m_former = SelectObject(m_dc, m_font);
        SIZE alphabet{};
        TEXTMETRICW metrics{};
        GetTextExtentPoint32W(m_dc, _T("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"), 52,
                              &alphabet);
        GetTextMetricsW(m_dc, &metrics);
        m_base = {(alphabet.cx / 26 + 1) / 2, metrics.tmHeight};
    }
    Ruler(const Ruler&) = delete;
    ~Ruler() {
        SelectObject(m_dc, m_former);
        DeleteObject(m_font);
        DeleteDC(m_dc);
    }
    // The size of a place, through the dialog units of its template.
    SIZE SizeOf(const CRect& place) const {
        static const SIZE s_here = Ruler(96).m_base;
        return {MulDiv(MulDiv(place.Width(), 4, s_here.cx), m_base.cx, 4),
                MulDiv(MulDiv(place.Height(), 8, s_here.cy), m_base.cy, 8)};
    }
    int Scaled(int pixels) const { return MulDiv(pixels, m_dpi, 96); }
    SIZE Measure(const CString& text, int width, UINT flags) const {
        RECT box{0, 0, width, 0};
        DrawTextW(m_dc, text, text.GetLength(), &box, flags | DT_CALCRECT);
        return {box.right, box.bottom};
    }

private:
    int m_dpi;
    HDC m_dc;
    HFONT m_font;
    HGDIOBJ m_former;
    SIZE m_base{};
};

bool Fits(const Control& control, const Ruler& ruler) {
    const SIZE room = ruler.SizeOf(control.place);
    if (control.Is(_T("Static"))) {
        const UINT prefix = (control.style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0;
        const SIZE need =
            ruler.Measure(control.text, room.cx, DT_WORDBREAK | DT_EXPANDTABS | prefix);
        return need.cx <= room.cx && need.cy <= room.cy;
    }
    if (!control.Is(_T("Button")))
        return true;
    const SIZE need = ruler.Measure(control.text, 0, DT_SINGLELINE);
    const DWORD kind = control.style & BS_TYPEMASK;
    const bool pushes = kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON;
    const int frame = ruler.Scaled(pushes ? 10 : 20); // both edges and the focus; or box and gap
    return need.cx + frame <= room.cx && (control.IsGroup() || need.cy <= room.cy);
}

// The letter after a single "&", in lower case; 0 without one.
WCHAR Mnemonic(CString text) {
    text.Replace(_T("&&"), _T(""));
    const int mark = text.Find('&');
    return mark >= 0 && mark + 1 < text.GetLength() ? CString(text[mark + 1]).MakeLower()[0] : 0;
}

const LPCWSTR kDialogType = MAKEINTRESOURCEW(5), kMenuType = MAKEINTRESOURCEW(4);

const std::pair<const char*, HMODULE> kLanguages[] = {
    {"English", QuorvelGetInstanceHandle()},
    {"German", LoadLibraryExW(_T("Quorvel_DEU.dll"), nullptr, LOAD_LIBRARY_AS_DATAFILE)}};

std::vector<LPWSTR> NamesOf(HMODULE module, LPCWSTR type) {
    std::vector<LPWSTR> names;
    const auto add = [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR out) CALLBACK -> BOOL {
        reinterpret_cast<std::vector<LPWSTR>*>(out)->push_back(name);
        return TRUE;
    };
    EnumResourceNamesW(module, type, add, reinterpret_cast<LONG_PTR>(&names));
    EXPECT_FALSE(names.empty());
    return names;
}

// The dialogs of both languages, which must have the same ones.
std::vector<Dialog> Dialogs() {
    std::vector<Dialog> dialogs;
    EXPECT_EQ(NamesOf(kLanguages[0].second, kDialogType),
              NamesOf(kLanguages[1].second, kDialogType));
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&classes);
    for (const auto& [language, module] : kLanguages)
        for (const LPWSTR name : NamesOf(module, kDialogType)) {
            const auto keepsFocus = [](HWND, UINT, WPARAM, LPARAM)
                                        CALLBACK -> INT_PTR { return FALSE; };
            const HWND box = ::CreateDialogParamW(module, name, nullptr, keepsFocus, 0);
            LOGFONTW font{};
            ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(box, WM_GETFONT, 0, 0)),
                         sizeof font, &font);
            EXPECT_EQ(CString(font.lfFaceName), _T("MS Shell Dlg"));
            EXPECT_EQ(font.lfHeight, -MulDiv(8, 96, 72));
            const std::string number = std::to_string(reinterpret_cast<UINT_PTR>(name));
            Dialog& dialog = dialogs.emplace_back();
            dialog.label = language + (" dialog " + number);
            dialog.title = TextOf(box);
            ::GetClientRect(box, dialog.inside);
            for (const HWND child : ChildrenOf(box))
                dialog.controls.emplace_back(child);
            ::DestroyWindow(box);
        }
    return dialogs;
}

TEST(Layouts, TextsFitAtEverySize) {
    for (const Dialog& dialog : Dialogs())
        for (const int dpi : {96, 120, 144, 192}) {
            SCOPED_TRACE(testing::Message() << dialog.label << " at " << dpi << " DPI");
            const Ruler ruler(dpi);
            for (const Control& control : dialog.controls)
                EXPECT_TRUE(Fits(control, ruler)) << control.text;
            const int title = ruler.Measure(dialog.title, 0, DT_SINGLELINE).cx + ruler.Scaled(60);
            EXPECT_LE(title, ruler.SizeOf(dialog.inside).cx) << "title";
        }
}

TEST(Layouts, ControlsStandApartAndKeysReachThemInReadingOrder) {
    for (const Dialog& dialog : Dialogs()) {
        std::map<WCHAR, CString> mnemonics;
        const Control* former = nullptr;
        const Control* reached = nullptr; // from which Tab must move to the right or downwards
        for (const Control& control : dialog.controls) {
            SCOPED_TRACE(testing::Message()
                         << dialog.label << ", control " << control.id << " " << control.text);
            CRect common;
            UnionRect(common, dialog.inside, control.place);
            EXPECT_EQ(common, dialog.inside) << "outside the dialog";
            for (const Control& other : dialog.controls) {
                const bool apart =
                    &other != &control && control.StandsApart() && other.StandsApart();
                EXPECT_FALSE(apart && IntersectRect(common, control.place, other.place))
                    << "overlaps control " << other.id;
            }
            if (const WCHAR key = Mnemonic(control.text)) {
                EXPECT_TRUE(mnemonics.emplace(key, control.text).second)
                    << "mnemonic of " << mnemonics[key];
            }
            if (control.NeedsLabel()) {
                EXPECT_TRUE(former != nullptr && former->Is(_T("Static")) && former->text != _T(""))
                    << "no label before it";
            }
            const bool takesKeys =
                control.NeedsLabel() || (control.Is(_T("Button")) && !control.IsGroup());
            EXPECT_EQ(control.IsReached(), takesKeys) << "Tab";
            if (control.IsReached()) {
                EXPECT_TRUE(reached == nullptr || control.place.left >= reached->place.right ||
                            control.place.top >= reached->place.bottom)
                    << "against reading order";
                reached = &control;
            }
            former = &control;
        }
    }
}

void ExpectOwnMnemonics(HMENU menu, const char* language) {
    std::map<WCHAR, CString> seen;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        WCHAR text[200]{};
        GetMenuStringW(menu, static_cast<UINT>(i), text, 200, MF_BYPOSITION);
        if (const WCHAR key = Mnemonic(text)) {
            EXPECT_TRUE(seen.emplace(key, text).second)
                << language << ": " << CString(text) << " has the letter of " << seen[key];
        }
        if (const HMENU below = GetSubMenu(menu, i))
            ExpectOwnMnemonics(below, language);
    }
}

TEST(Layouts, MenusHaveOneLetterForEachItem) {
    for (const auto& [language, module] : kLanguages)
        for (const LPWSTR name : NamesOf(module, kMenuType)) {
            const HMENU menu = LoadMenuW(module, name);
            ASSERT_NE(menu, nullptr);
            ExpectOwnMnemonics(menu, language);
            DestroyMenu(menu);
        }
}

} // namespace
