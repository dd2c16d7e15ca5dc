// Shortcuts and schemes as texts, for tables of cases. A key is written as its modifiers and its
// code: C, S, A and x mean Ctrl, Shift, Alt and the extended bit; "-" means no key.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

#include "platform/win32.h"
#include "support/test.h"

#include <string>
#include <vector>

inline constexpr unsigned char kShift = CShortcutKey::MODIFIER_SHIFT;
inline constexpr unsigned char kCtrl = CShortcutKey::MODIFIER_CONTROL;
inline constexpr unsigned char kAlt = CShortcutKey::MODIFIER_ALT;
inline constexpr unsigned char kExtended = CShortcutKey::MODIFIER_EXTENDED;

inline CShortcutKey Key(int code, int modifiers = 0) {
    return CShortcutKey(static_cast<unsigned short>(code), static_cast<unsigned char>(modifiers));
}

inline std::string TextOf(const CShortcutKey& key) {
    if (!key.IsKeySet())
        return "-";
    std::string text;
    text += key.UsesControlKeyModifier() ? "C" : "";
    text += key.UsesShiftKeyModifier() ? "S" : "";
    text += key.UsesAltKeyModifier() ? "A" : "";
    text += key.IsExtendedKey() ? "x" : "";
    text += std::to_string(key.GetVirtualKeyCode());
    return text;
}

// "100 Open C79; 200 Save C83".
inline std::string TextOf(const CKeyboardMappingScheme& scheme) {
    std::vector<CKeyboardShortcut> shortcuts;
    scheme.GetKeyboardShortcuts(shortcuts);
    std::string text;
    for (const CKeyboardShortcut& shortcut : shortcuts) {
        text += text.empty() ? "" : "; ";
        text += std::to_string(shortcut.GetCommandID()) + " ";
        if (shortcut.HasCommandText())
            text += shortcut.GetCommandText().ToUTF8() + " ";
        text += TextOf(shortcut.GetShortcutKey());
    }
    return text;
}

// A scheme with its default shortcuts.
inline CKeyboardMappingScheme Loaded(CKeyboardMappingScheme::FNLOADDEFAULTMAPPINGSCHEME function) {
    CKeyboardMappingScheme scheme(_T("Default"), function);
    scheme.LoadDefaultMappingScheme();
    return scheme;
}
inline void LoadThreeCommands(CKeyboardMappingScheme& scheme) {
    scheme.AddKeyboardShortcut({200, _T("Close"), CShortcutKey()});
    scheme.AddKeyboardShortcut({300, _T("Save"), Key('S', kCtrl)});
    scheme.AddKeyboardShortcut({100, _T("Open"), Key('O', kCtrl)});
}
inline CKeyboardMappingScheme FourCommands() {
    return Loaded([](CKeyboardMappingScheme& scheme) {
        scheme.AddKeyboardShortcut({1, _T("Open"), Key('O', kCtrl)});
        scheme.AddKeyboardShortcut({2, _T("save"), Key('S', kCtrl)});
        scheme.AddKeyboardShortcut({3, _T("Refresh"), Key(VK_F5)});
        scheme.AddKeyboardShortcut({4, _T("Close"), CShortcutKey()});
    });
}
