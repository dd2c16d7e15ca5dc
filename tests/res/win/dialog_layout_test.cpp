// All dialogs and menus of the library in each language and at each text size: the templates,
// measured as the dialog manager measures them.
#include <quorvel/frame/module.h>
#include <quorvel/framework/geometry.h>

#include "support/test.h"

#include <map>

namespace {

struct Control {
    DWORD style;
    CRect units; // in dialog units
    DWORD id;
    CString windowClass;
    CString text;

    // The resource compiler changes the case of some names.
    bool Is(const WCHAR* name) const { return windowClass.CompareNoCase(name) == 0; }
    bool IsGroup() const { return Is(_T("Button")) && (style & BS_TYPEMASK) == BS_GROUPBOX; }
    // Its text is not inside it, so a label must name it.
    bool NeedsLabel() const {
        return Is(_T("Edit")) || Is(_T("ListBox")) || Is(_T("ComboBox")) || Is(_T("SysListView32"));
    }
    bool IsReached() const { return (style & WS_TABSTOP) != 0; }
};

struct Dialog {
    CSize units;
    WORD points;
    CString font;
    CString title;
    std::vector<Control> controls;
};

// Reads an extended dialog template (DLGTEMPLATEEX; its layout is documented, but the SDK has no
// structure for it).
Dialog ReadTemplate(const void* bytes) {
    const WORD* const begin = static_cast<const WORD*>(bytes);
    const WORD* next = begin;
    const auto dword = [&] {
        next += 2;
        return MAKELONG(next[-2], next[-1]);
    };
    const auto place = [&] {
        const short* const at = reinterpret_cast<const short*>(next);
        next += 4;
        return CRect(CPoint(at[0], at[1]), CSize(at[2], at[3]));
    };
    const auto name = [&] { // a text, or 0xFFFF and a number
        static const WCHAR* const kClasses[] = {_T("Button"),  _T("Edit"),      _T("Static"),
                                                _T("ListBox"), _T("ScrollBar"), _T("ComboBox")};
        if (*next != 0xFFFF) {
            const CString text(reinterpret_cast<const WCHAR*>(next));
            next += text.GetLength() + 1;
            return text;
        }
        next += 2;
        return CString(next[-1] >= 0x80 && next[-1] <= 0x85 ? kClasses[next[-1] - 0x80] : _T(""));
    };
    EXPECT_EQ(dword(), static_cast<LONG>(0xFFFF0001)) << "not an extended template";
    next += 4; // help id, extended style
    EXPECT_NE(dword() & DS_SETFONT, 0);
    const WORD count = *next++;
    Dialog dialog{};
    dialog.units = place().Size();
    name(); // menu
    name(); // class
    dialog.title = name();
    dialog.points = *next++;
    next += 2; // weight, italics, character set
    dialog.font = name();
    for (WORD i = 0; i < count; ++i) {
        next += (next - begin) % 2; // aligned to four bytes
        next += 4;                  // help id, extended style
        Control& control = dialog.controls.emplace_back();
        control.style = static_cast<DWORD>(dword());
        control.units = place();
        control.id = static_cast<DWORD>(dword());
        control.windowClass = name();
        control.text = name();
        next += 1 + *next / 2; // creation data
    }
    return dialog;
}

// Converts the units of a dialog to pixels and measures texts in its font on a screen of `dpi`.
class Ruler {
public:
    Ruler(const Dialog& dialog, int dpi) : m_dpi(dpi), m_dc(CreateCompatibleDC(nullptr)) {
        m_font = CreateFontW(-MulDiv(dialog.points, dpi, 72), 0, 0, 0, FW_NORMAL, 0, 0, 0,
                             DEFAULT_CHARSET, 0, 0, 0, 0, dialog.font);
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
    SIZE Pixels(SIZE units) const {
        return {MulDiv(units.cx, m_base.cx, 4), MulDiv(units.cy, m_base.cy, 8)};
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
    const SIZE room = ruler.Pixels(control.units.Size());
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

// Whether Tab moves to the right or downwards.
bool ReadsOn(const RECT& from, const RECT& to) {
    return to.left >= from.right || to.top >= from.bottom;
}

// The letter after a single "&", in lower case; 0 without one.
WCHAR Mnemonic(const CString& text) {
    for (int i = 0; i + 1 < text.GetLength(); ++i) {
        if (text[i] != '&')
            continue;
        if (text[i + 1] != '&')
            return CString(text[i + 1]).MakeLower()[0];
        ++i;
    }
    return 0;
}

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

// All dialogs of both languages, which must have the same ones.
std::vector<std::pair<std::string, Dialog>> Dialogs() {
    std::vector<std::pair<std::string, Dialog>> dialogs;
    for (const auto& [language, module] : kLanguages)
        for (const LPWSTR name : NamesOf(module, MAKEINTRESOURCEW(5) /* RT_DIALOG */)) {
            const HRSRC found = FindResourceW(module, name, MAKEINTRESOURCEW(5));
            dialogs.emplace_back(std::string(language) + " dialog " +
                                     std::to_string(reinterpret_cast<UINT_PTR>(name)),
                                 ReadTemplate(LockResource(LoadResource(module, found))));
        }
    return dialogs;
}

TEST(Layouts, EveryLanguageHasEveryDialog) {
    EXPECT_EQ(NamesOf(kLanguages[0].second, MAKEINTRESOURCEW(5)),
              NamesOf(kLanguages[1].second, MAKEINTRESOURCEW(5)));
}

TEST(Layouts, TextsFitAtEverySize) {
    for (const auto& [label, dialog] : Dialogs())
        for (const int dpi : {96, 120, 144, 192}) {
            SCOPED_TRACE(testing::Message() << label << " at " << dpi << " DPI");
            const Ruler ruler(dialog, dpi);
            for (const Control& control : dialog.controls)
                EXPECT_TRUE(Fits(control, ruler)) << control.text;
            const int title = ruler.Measure(dialog.title, 0, DT_SINGLELINE).cx + ruler.Scaled(60);
            EXPECT_LE(title, ruler.Pixels(dialog.units).cx) << "title";
        }
}

TEST(Layouts, ControlsStandApartAndKeysReachThemInReadingOrder) {
    for (const auto& [label, dialog] : Dialogs()) {
        const CRect inside({}, dialog.units);
        std::map<WCHAR, CString> mnemonics;
        const Control* former = nullptr;
        const Control* reached = nullptr;
        for (const Control& control : dialog.controls) {
            SCOPED_TRACE(testing::Message()
                         << label << ", control " << control.id << " " << control.text);
            CRect common;
            UnionRect(common, inside, control.units);
            EXPECT_EQ(common, inside) << "outside the dialog";
            for (const Control& other : dialog.controls) {
                if (&other == &control || control.IsGroup() || other.IsGroup())
                    continue;
                EXPECT_FALSE(IntersectRect(common, control.units, other.units))
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
                EXPECT_TRUE(reached == nullptr || ReadsOn(reached->units, control.units))
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
        for (const LPWSTR name : NamesOf(module, MAKEINTRESOURCEW(4) /* RT_MENU */)) {
            const HMENU menu = LoadMenuW(module, name);
            ASSERT_NE(menu, nullptr);
            ExpectOwnMnemonics(menu, language);
            DestroyMenu(menu);
        }
}

} // namespace
