// All dialogs and menus of the library in each language and at each text size: the templates,
// measured as the dialog manager measures them.
#include <quorvel/frame/module.h>

#include "support/test.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace {

struct Control {
    DWORD style;
    RECT units; // in dialog units
    DWORD id;
    CString windowClass;
    CString text;

    bool IsStatic() const { return windowClass == _T("Static"); }
    bool IsButton() const { return windowClass == _T("Button"); }
    bool IsGroup() const { return IsButton() && (style & BS_TYPEMASK) == BS_GROUPBOX; }
    // Its text is not inside it, so a label must name it.
    bool NeedsLabel() const {
        static const std::vector<CString> kLabelled{_T("Edit"), _T("ListBox"), _T("ComboBox"),
                                                    _T("SysListView32")};
        return std::any_of(kLabelled.begin(), kLabelled.end(), [&](const CString& each) {
            return windowClass.CompareNoCase(each) == 0; // the resource compiler changes the case
        });
    }
    bool IsReached() const { return (style & WS_TABSTOP) != 0; }
};

struct Dialog {
    SIZE units;
    WORD points;
    CString font;
    CString title;
    std::vector<Control> controls;
};

// Reads an extended dialog template (DLGTEMPLATEEX; its layout is documented, but the SDK has no
// structure for it).
class TemplateReader {
public:
    TemplateReader(const void* bytes, std::size_t size)
        : m_next(static_cast<const BYTE*>(bytes)), m_begin(m_next) {
        m_end = m_next + size;
    }

    Dialog Read() {
        EXPECT_EQ(Take<DWORD>(), 0xFFFF0001u) << "not an extended template";
        Take<DWORD>(); // help id
        Take<DWORD>(); // extended style
        const DWORD style = Take<DWORD>();
        const WORD count = Take<WORD>();
        Dialog dialog{};
        const RECT place = TakePlace();
        dialog.units = {place.right - place.left, place.bottom - place.top};
        TakeName(); // menu
        TakeName(); // class
        dialog.title = TakeName();
        EXPECT_NE(style & DS_SETFONT, 0u);
        dialog.points = Take<WORD>();
        Take<DWORD>(); // weight, italics, character set
        dialog.font = TakeName();
        for (WORD i = 0; i < count; ++i)
            dialog.controls.push_back(TakeControl());
        return dialog;
    }

private:
    template <class T>
    T Take() {
        T value{};
        if (static_cast<std::size_t>(m_end - m_next) >= sizeof value)
            std::memcpy(&value, m_next, sizeof value);
        m_next += sizeof value;
        return value;
    }
    RECT TakePlace() {
        const short left = Take<short>(), top = Take<short>(), width = Take<short>(),
                    height = Take<short>();
        return {left, top, left + width, top + height};
    }
    CString TakeName() { // a text, or 0xFFFF and a number
        static const std::map<WORD, CString> kClasses{
            {0x80, _T("Button")},  {0x81, _T("Edit")},      {0x82, _T("Static")},
            {0x83, _T("ListBox")}, {0x84, _T("ScrollBar")}, {0x85, _T("ComboBox")}};
        WORD unit = Take<WORD>();
        if (unit == 0xFFFF) {
            const auto found = kClasses.find(Take<WORD>());
            return found == kClasses.end() ? CString() : found->second;
        }
        CString text;
        for (; unit != 0 && m_next < m_end; unit = Take<WORD>())
            text += static_cast<WCHAR>(unit);
        return text;
    }
    Control TakeControl() {
        m_next += (m_begin - m_next) & 3; // aligned to four bytes
        Take<DWORD>();                    // help id
        Take<DWORD>();                    // extended style
        Control control{};
        control.style = Take<DWORD>();
        control.units = TakePlace();
        control.id = Take<DWORD>();
        control.windowClass = TakeName();
        control.text = TakeName();
        m_next += Take<WORD>(); // creation data
        return control;
    }

    const BYTE* m_next;
    const BYTE* m_begin;
    const BYTE* m_end;
};

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

SIZE SizeOf(const RECT& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

bool Fits(const Control& control, const Ruler& ruler) {
    const SIZE room = ruler.Pixels(SizeOf(control.units));
    if (control.IsStatic()) {
        const UINT prefix = (control.style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0;
        const SIZE need =
            ruler.Measure(control.text, room.cx, DT_WORDBREAK | DT_EXPANDTABS | prefix);
        return need.cx <= room.cx && need.cy <= room.cy;
    }
    if (!control.IsButton())
        return true;
    const SIZE need = ruler.Measure(control.text, 0, DT_SINGLELINE);
    const DWORD kind = control.style & BS_TYPEMASK;
    const bool pushes = kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON;
    const int frame = ruler.Scaled(pushes ? 10 : 20); // both edges and the focus; or box and gap
    return need.cx + frame <= room.cx && (control.IsGroup() || need.cy <= room.cy);
}

bool Overlap(const RECT& a, const RECT& b) {
    RECT common{};
    return IntersectRect(&common, &a, &b) != FALSE;
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

class Layouts : public testing::Test {
protected:
    static const std::vector<std::pair<std::string, HMODULE>>& Languages() {
        static const std::vector<std::pair<std::string, HMODULE>> languages{
            {"English", QuorvelGetInstanceHandle()},
            {"German", LoadLibraryExW(_T("Quorvel_DEU.dll"), nullptr, LOAD_LIBRARY_AS_DATAFILE)}};
        return languages;
    }
    static std::map<int, Dialog> Dialogs(HMODULE module) {
        std::map<int, Dialog> dialogs;
        EnumResourceNamesW(module, MAKEINTRESOURCEW(5) /* RT_DIALOG */, &Layouts::Add,
                           reinterpret_cast<LONG_PTR>(&dialogs));
        return dialogs;
    }

private:
    static BOOL CALLBACK Add(HMODULE module, LPCWSTR, LPWSTR name, LONG_PTR out) {
        auto& dialogs = *reinterpret_cast<std::map<int, Dialog>*>(out);
        const HRSRC found = FindResourceW(module, name, MAKEINTRESOURCEW(5));
        TemplateReader reader(LockResource(LoadResource(module, found)),
                              SizeofResource(module, found));
        dialogs[static_cast<int>(reinterpret_cast<INT_PTR>(name))] = reader.Read();
        return TRUE;
    }
};

TEST_F(Layouts, EveryLanguageHasEveryDialog) {
    std::vector<int> english;
    for (const auto& [language, module] : Languages()) {
        ASSERT_NE(module, nullptr);
        std::vector<int> ids;
        for (const auto& [id, dialog] : Dialogs(module))
            ids.push_back(id);
        EXPECT_GE(ids.size(), 2u);
        if (english.empty())
            english = ids;
        EXPECT_EQ(ids, english) << language;
    }
}

TEST_F(Layouts, TextsFitAtEverySize) {
    for (const auto& [language, module] : Languages()) {
        for (const auto& [id, dialog] : Dialogs(module)) {
            for (const int dpi : {96, 120, 144, 192}) {
                const Ruler ruler(dialog, dpi);
                for (const Control& control : dialog.controls) {
                    EXPECT_TRUE(Fits(control, ruler))
                        << language << ", dialog " << id << " at " << dpi
                        << " DPI: " << testing::PrintToString(control.text);
                }
                const int title =
                    ruler.Measure(dialog.title, 0, DT_SINGLELINE).cx + ruler.Scaled(60);
                EXPECT_LE(title, ruler.Pixels(dialog.units).cx)
                    << language << ", title of dialog " << id;
            }
        }
    }
}

TEST_F(Layouts, ControlsStandApartAndKeysReachThemInReadingOrder) {
    for (const auto& [language, module] : Languages()) {
        for (const auto& [id, dialog] : Dialogs(module)) {
            const RECT inside{0, 0, dialog.units.cx, dialog.units.cy};
            std::map<WCHAR, CString> mnemonics;
            const Control* former = nullptr;
            const Control* reached = nullptr;
            for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
                const Control& control = dialog.controls[i];
                SCOPED_TRACE(testing::Message()
                             << language << ", dialog " << id << ", control " << control.id << " "
                             << testing::PrintToString(control.text));
                RECT joined{};
                UnionRect(&joined, &inside, &control.units);
                EXPECT_TRUE(EqualRect(&joined, &inside)) << "outside the dialog";
                for (std::size_t j = 0; j < i; ++j) {
                    if (control.IsGroup() || dialog.controls[j].IsGroup())
                        continue;
                    EXPECT_FALSE(Overlap(control.units, dialog.controls[j].units))
                        << "overlaps control " << j;
                }
                if (const WCHAR key = Mnemonic(control.text)) {
                    EXPECT_TRUE(mnemonics.emplace(key, control.text).second)
                        << "mnemonic of " << testing::PrintToString(mnemonics[key]);
                }
                if (control.NeedsLabel()) {
                    EXPECT_TRUE(former != nullptr && former->IsStatic() && former->text != _T(""))
                        << "no label before it";
                }
                const bool takesKeys =
                    control.NeedsLabel() || (control.IsButton() && !control.IsGroup());
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
}

BOOL CALLBACK AddName(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR out) {
    reinterpret_cast<std::vector<LPWSTR>*>(out)->push_back(name);
    return TRUE;
}

void ExpectOwnMnemonics(HMENU menu, const std::string& language) {
    std::map<WCHAR, CString> seen;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        WCHAR text[200]{};
        GetMenuStringW(menu, static_cast<UINT>(i), text, 200, MF_BYPOSITION);
        if (const WCHAR key = Mnemonic(text)) {
            EXPECT_TRUE(seen.emplace(key, text).second)
                << language << ": " << testing::PrintToString(CString(text))
                << " has the letter of " << testing::PrintToString(seen[key]);
        }
        if (const HMENU below = GetSubMenu(menu, i))
            ExpectOwnMnemonics(below, language);
    }
}

TEST_F(Layouts, MenusHaveOneLetterForEachItem) {
    for (const auto& [language, module] : Languages()) {
        std::vector<LPWSTR> names;
        EnumResourceNamesW(module, MAKEINTRESOURCEW(4) /* RT_MENU */, &AddName,
                           reinterpret_cast<LONG_PTR>(&names));
        EXPECT_GE(names.size(), 1u);
        for (const LPWSTR name : names) {
            const HMENU menu = LoadMenuW(module, name);
            ASSERT_NE(menu, nullptr);
            ExpectOwnMnemonics(menu, language);
            DestroyMenu(menu);
        }
    }
}

} // namespace
