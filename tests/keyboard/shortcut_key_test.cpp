#include <quorvel/keyboard/key_name.h>
#include <quorvel/keyboard/keyboard_shortcut.h>

#include "keyboard/shortcuts.h"
#include "platform/win32.h"

TEST(ShortcutKey, HasANameAndARank) {
    // The key, its standard name, its name by the stored bit, and its rank.
    const std::tuple<CShortcutKey, const WCHAR*, const WCHAR*, int> rows[] = {
        {CShortcutKey(), _T(""), _T(""), 9},
        {Key('A', kShift | kCtrl), _T("Ctrl+Shift+A"), _T("Ctrl+Shift+A"), 5},
        {Key(VK_F5, kShift | kCtrl | kAlt), _T("Ctrl+Shift+Alt+F5"), _T("Ctrl+Shift+Alt+F5"), 8},
        {Key('X', kShift), _T("Shift+X"), _T("Shift+X"), 3},
        {Key('X', kAlt), _T("Alt+X"), _T("Alt+X"), 4},
        {Key('X', kCtrl | kAlt), _T("Ctrl+Alt+X"), _T("Ctrl+Alt+X"), 6},
        {Key('X', kShift | kAlt), _T("Shift+Alt+X"), _T("Shift+Alt+X"), 7},
        {Key(0, kCtrl), _T("Ctrl+"), _T("Ctrl+"), 2},
        {Key(0, kExtended), _T(""), _T(""), 1},
        {Key(VK_DELETE, kCtrl), _T("Ctrl+Delete"), _T("Ctrl+Num Del"), 2},
        {Key(VK_DELETE, kCtrl | kExtended), _T("Ctrl+Delete"), _T("Ctrl+Delete"), 2},
        {Key(VK_CLEAR), _T(""), _T("Num 5"), 1}, // the platform has no name for the extended one
        {Key(VK_RETURN, kExtended), _T("Enter"), _T("Num Enter"), 1},
        {Key(VK_PAUSE, kCtrl), _T("Ctrl+"), _T("Ctrl+"), 2},
        {Key(0x141, 0xf0), _T(""), _T(""), 1}, // invalid codes and modifiers are stored too
    };
    for (const auto& [key, standardName, storedName, rank] : rows) {
        EXPECT_EQ(key.GetShortcutKeyName(1), standardName) << TextOf(key);
        EXPECT_EQ(key.GetShortcutKeyName(0), storedName) << TextOf(key);
        EXPECT_EQ(key.GetModifiersSortingRank(), rank) << TextOf(key);
    }
    EXPECT_EQ(AfxGetKeyName(LONG{0x011c0000}), _T("Num Enter"));
}

TEST(KeyboardShortcut, BecomesAnAcceleratorAndBack) {
    const std::pair<CShortcutKey, int> rows[] = {
        {Key('S', kCtrl), FCONTROL}, {Key('S', kShift), FSHIFT}, {Key('S', kAlt), FALT},
        {CShortcutKey(), 0},         {Key('S', 0xf0), 0},        {Key(VK_DELETE, kExtended), 0},
    };
    for (const auto& [key, flags] : rows) {
        const ACCEL accel = CKeyboardShortcut(0x12345, _T("Save"), key).GetAccel();
        EXPECT_EQ(accel.fVirt, FVIRTKEY | flags) << TextOf(key);
        EXPECT_EQ(accel.cmd, 0x2345);
        EXPECT_EQ(TextOf(CKeyboardShortcut(accel, key.IsExtendedKey()).GetShortcutKey()),
                  TextOf(key));
    }
}

TEST(KeyboardShortcut, TakesCharactersOfAcceleratorsByTheLayout) {
    const auto keyOf = [](int flags, WCHAR character) {
        const ACCEL accel = {static_cast<BYTE>(flags), character, 7};
        return TextOf(CKeyboardShortcut(accel, FALSE).GetShortcutKey());
    };
    ExpectCases<std::string>({CASE(keyOf(0, 'a'), "65"), CASE(keyOf(0, '!'), "S49"),
                              CASE(keyOf(0, 1), "C65"), CASE(keyOf(FVIRTKEY, '!'), "33"),
                              CASE(keyOf(FCONTROL, 'q'), "C81"), CASE(keyOf(FALT, '?'), "SA191"),
                              CASE(keyOf(FSHIFT, 0x20ac), "S8364")}); // no key types it
}
