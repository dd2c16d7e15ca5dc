// Accelerator tables of schemes, read back.
#include "keyboard/shortcuts.h"

TEST(AcceleratorTable, IsReadBack) {
    CKeyboardMappingScheme scheme;
    EXPECT_EQ(scheme.CreateAcceleratorTableW(), nullptr);
    scheme.AddKeyboardShortcut({100, Key(VK_F5, kCtrl)});
    scheme.AddKeyboardShortcut({200, CShortcutKey()});
    scheme.AddKeyboardShortcut({300, Key('S', kCtrl | kShift)});
    const HACCEL table = scheme.CreateAcceleratorTableW();
    ASSERT_NE(table, nullptr);
    ACCEL entries[4] = {};
    const int count = ::CopyAcceleratorTableW(table, entries, 4);
    ::DestroyAcceleratorTable(table);
    CKeyboardMappingScheme back;
    ASSERT_TRUE(back.SetUsingAcceleratorTable(entries, count));
    EXPECT_EQ(TextOf(back), "100 C116; 300 CS83");
    scheme.ClearAllShortcutKeys();
    EXPECT_EQ(scheme.CreateAcceleratorTableW(), nullptr);
}
