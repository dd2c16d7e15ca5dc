#include <quorvel/keyboard/shortcut_conflicts.h>

#include <quorvel/keyboard/shortcut_key_text.h>
#include <quorvel/res/message_ids.h>

#include "keyboard/command_names.h"
#include "keyboard/conflict_finder.h"
#include "platform/win32.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr unsigned char kShift = CShortcutKey::MODIFIER_SHIFT;
constexpr unsigned char kCtrl = CShortcutKey::MODIFIER_CONTROL;
constexpr unsigned char kAlt = CShortcutKey::MODIFIER_ALT;
constexpr unsigned char kAll = kShift | kCtrl | kAlt;
constexpr unsigned char kAny = 0xff;

// Keys with these modifiers that the system uses, for example to close and switch windows and to
// open the start menu or the window's menu.
struct Kept {
    int code;
    unsigned char modifiers;
};
constexpr Kept kKept[] = {
    {VK_F4, kAlt},           {VK_TAB, kAlt},
    {VK_TAB, kAlt | kShift}, {VK_TAB, kCtrl | kAlt},
    {VK_ESCAPE, kAlt},       {VK_ESCAPE, kAlt | kShift},
    {VK_ESCAPE, kCtrl},      {VK_ESCAPE, kCtrl | kShift},
    {VK_SPACE, kAlt},        {VK_DELETE, kCtrl | kAlt},
    {VK_LWIN, kAny},         {VK_RWIN, kAny},
    {VK_SNAPSHOT, kAny},     {VK_SLEEP, kAny},
};

bool IsKeptBySystem(const CShortcutKey& key) {
    return std::ranges::any_of(kKept, [&key](const Kept& row) {
        return row.code == key.GetVirtualKeyCode() &&
               (row.modifiers == kAny || row.modifiers == (key.GetModifiers() & kAll));
    });
}

CShortcutConflict Conflict(CShortcutConflict::Kind kind, UINT textId, const CString& keyName,
                           const CString& other = CString(), unsigned int commandID = 0) {
    CShortcutConflict conflict;
    conflict.nKind = kind;
    conflict.nCommandID = commandID;
    AfxFormatString2(conflict.strMessage, textId, keyName, other);
    return conflict;
}

// For an accelerator, which has no extended bit.
bool IsSameAccelerator(const CShortcutKey& a, const CShortcutKey& b) {
    return a.GetVirtualKeyCode() == b.GetVirtualKeyCode() &&
           (a.GetModifiers() & kAll) == (b.GetModifiers() & kAll);
}

WCHAR AskLayout(const CShortcutKey& key) {
    constexpr BYTE kDown = 0x80;
    constexpr UINT kKeepState = 1 << 2; // keeps dead keys that were typed before
    BYTE state[256] = {};
    state[VK_SHIFT] = key.UsesShiftKeyModifier() ? kDown : 0;
    state[VK_CONTROL] = key.UsesControlKeyModifier() ? kDown : 0;
    state[VK_MENU] = key.UsesAltKeyModifier() ? kDown : 0;
    WCHAR text[8] = {};
    const UINT code = key.GetVirtualKeyCode();
    const int count = ToUnicode(code, MapVirtualKeyW(code, MAPVK_VK_TO_VSC), state, text,
                                static_cast<int>(std::size(text)) - 1, kKeepState);
    return count != 0 ? text[0] : WCHAR(0); // negative for a dead key, which counts too
}

} // namespace

std::vector<CShortcutConflict> FindShortcutConflicts(const CKeyboardMappingScheme& scheme,
                                                     unsigned int commandID,
                                                     const CShortcutKey& key,
                                                     const TypedCharacter& typed) {
    std::vector<CShortcutConflict> conflicts;
    if (!key.IsKeySet())
        return conflicts;
    const CString name = DisplayName(key);
    std::vector<CKeyboardShortcut> shortcuts;
    scheme.GetKeyboardShortcuts(shortcuts);
    std::erase_if(shortcuts, [&](const CKeyboardShortcut& each) {
        return each.GetCommandID() == commandID || !each.IsShortcutKeySet() ||
               !IsSameAccelerator(each.GetShortcutKey(), key);
    });
    const auto add = [&](bool isHeld, CShortcutConflict::Kind kind, UINT textId) {
        for (const CKeyboardShortcut& shortcut : shortcuts)
            if ((shortcut.GetShortcutKey() == key) == isHeld)
                conflicts.push_back(
                    Conflict(kind, textId, name, DisplayName(shortcut), shortcut.GetCommandID()));
    };
    add(true, CShortcutConflict::heldByCommand, kTextShortcutHeld);
    add(false, CShortcutConflict::sameAccelerator, kTextShortcutTwin);
    if (IsKeptBySystem(key))
        conflicts.push_back(Conflict(CShortcutConflict::keptBySystem, kTextShortcutKept, name));
    constexpr WCHAR kFirstPrintable = ' ';
    const bool isPlain = !key.UsesControlKeyModifier() && !key.UsesAltKeyModifier();
    const bool isAltGr = key.UsesControlKeyModifier() && key.UsesAltKeyModifier();
    const WCHAR character = isPlain || isAltGr ? typed(key) : WCHAR(0);
    if (character >= kFirstPrintable)
        conflicts.push_back(Conflict(
            isPlain ? CShortcutConflict::plainCharacter : CShortcutConflict::typesCharacter,
            isPlain ? kTextShortcutPlain : kTextShortcutTypes, name, CString(character)));
    return conflicts;
}

} // namespace quorvel

std::vector<CShortcutConflict> AfxGetShortcutConflicts(const CKeyboardMappingScheme& scheme,
                                                       unsigned int commandID,
                                                       const CShortcutKey& key) {
    return quorvel::FindShortcutConflicts(scheme, commandID, key, quorvel::AskLayout);
}
