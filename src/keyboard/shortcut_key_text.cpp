#include <quorvel/keyboard/shortcut_key_text.h>

#include "keyboard/decimal.h"
#include "keyboard/text_view.h"
#include "platform/case_fold.h"
#include "platform/win32.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace {

typedef std::basic_string_view<WCHAR> View;

struct Modifier {
    unsigned char bit;
    const WCHAR* name;
};
constexpr Modifier kModifiers[] = {{CShortcutKey::MODIFIER_CONTROL, _T("Ctrl")},
                                   {CShortcutKey::MODIFIER_SHIFT, _T("Shift")},
                                   {CShortcutKey::MODIFIER_ALT, _T("Alt")},
                                   {CShortcutKey::MODIFIER_EXTENDED, _T("Ext")}};

struct Named {
    int code;
    const WCHAR* name;
};
// Letters and digits are their own names. F1 to F24 and the digits of the numeric pad are named by
// their numbers. A name contains no "+".
constexpr Named kNames[] = {
    {VK_BACK, _T("Backspace")},
    {VK_TAB, _T("Tab")},
    {VK_CLEAR, _T("Clear")},
    {VK_RETURN, _T("Enter")},
    {VK_PAUSE, _T("Pause")},
    {VK_CAPITAL, _T("Caps Lock")},
    {VK_ESCAPE, _T("Esc")},
    {VK_SPACE, _T("Space")},
    {VK_PRIOR, _T("Page Up")},
    {VK_NEXT, _T("Page Down")},
    {VK_END, _T("End")},
    {VK_HOME, _T("Home")},
    {VK_LEFT, _T("Left")},
    {VK_UP, _T("Up")},
    {VK_RIGHT, _T("Right")},
    {VK_DOWN, _T("Down")},
    {VK_SNAPSHOT, _T("Print Screen")},
    {VK_INSERT, _T("Insert")},
    {VK_DELETE, _T("Delete")},
    {VK_HELP, _T("Help")},
    {VK_LWIN, _T("Left Windows")},
    {VK_RWIN, _T("Right Windows")},
    {VK_APPS, _T("Menu")},
    {VK_SLEEP, _T("Sleep")},
    {VK_MULTIPLY, _T("Num Multiply")},
    {VK_ADD, _T("Num Plus")},
    {VK_SEPARATOR, _T("Num Separator")},
    {VK_SUBTRACT, _T("Num Minus")},
    {VK_DECIMAL, _T("Num Decimal")},
    {VK_DIVIDE, _T("Num Divide")},
    {VK_NUMLOCK, _T("Num Lock")},
    {VK_SCROLL, _T("Scroll Lock")},
    {VK_OEM_1, _T("OEM 1")},
    {VK_OEM_PLUS, _T("OEM Plus")},
    {VK_OEM_COMMA, _T("OEM Comma")},
    {VK_OEM_MINUS, _T("OEM Minus")},
    {VK_OEM_PERIOD, _T("OEM Period")},
    {VK_OEM_2, _T("OEM 2")},
    {VK_OEM_3, _T("OEM 3")},
    {VK_OEM_4, _T("OEM 4")},
    {VK_OEM_5, _T("OEM 5")},
    {VK_OEM_6, _T("OEM 6")},
    {VK_OEM_7, _T("OEM 7")},
    {VK_OEM_102, _T("OEM 102")},
};

bool IsLetterOrDigit(int code) {
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
}

CString NameOf(int code) {
    CString name;
    const auto named = std::ranges::find(kNames, code, &Named::code);
    if (named != std::end(kNames))
        name = named->name;
    else if (IsLetterOrDigit(code))
        name = static_cast<WCHAR>(code);
    else if (code >= VK_F1 && code <= VK_F24)
        name.Format(_T("F%d"), code - VK_F1 + 1);
    else if (code >= VK_NUMPAD0 && code <= VK_NUMPAD9)
        name.Format(_T("Num %d"), code - VK_NUMPAD0);
    else if (code != 0)
        name.Format(_T("#%d"), code);
    return name;
}

View Trimmed(View text) {
    const std::size_t first = text.find_first_not_of(_T(" \t"));
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(_T(" \t")) - first + 1);
}

std::optional<unsigned char> ModifierOf(View word) {
    const auto modifier = std::ranges::find_if(kModifiers, [&](const Modifier& row) {
        return quorvel::EqualIgnoringCase(word, row.name);
    });
    if (modifier == std::end(kModifiers))
        return std::nullopt;
    return modifier->bit;
}

// The code with this name. All codes with names are below 256.
std::optional<int> CodeOf(View word) {
    DWORD number;
    if (!word.empty() && word[0] == '#')
        return quorvel::ParseDecimal(word.substr(1), 0xffff, number)
                   ? std::optional(static_cast<int>(number))
                   : std::nullopt;
    for (int code = 0; code < 0x100; ++code)
        if (quorvel::EqualIgnoringCase(word, quorvel::ViewOf(NameOf(code))))
            return code;
    return std::nullopt;
}

} // namespace

CString AfxGetShortcutKeyText(const CShortcutKey& key) {
    CString text;
    for (const Modifier& modifier : kModifiers)
        if ((key.GetModifiers() & modifier.bit) != 0)
            text += CString(modifier.name) + _T("+");
    return text + NameOf(key.GetVirtualKeyCode());
}

BOOL AfxParseShortcutKeyText(const WCHAR* text, CShortcutKey& key) {
    if (text == nullptr)
        return FALSE;
    View rest = text;
    int modifiers = 0;
    for (std::size_t plus; (plus = rest.find('+')) != rest.npos; rest = rest.substr(plus + 1)) {
        const auto modifier = ModifierOf(Trimmed(rest.substr(0, plus)));
        if (!modifier || (modifiers & *modifier) != 0)
            return FALSE;
        modifiers |= *modifier;
    }
    const auto code = CodeOf(Trimmed(rest));
    if (!code)
        return FALSE;
    key.SetKey(static_cast<unsigned short>(*code), static_cast<unsigned char>(modifiers));
    return TRUE;
}
