#include <quorvel/keyboard/keyboard_mapping_scheme.h>

#include "keyboard/shortcuts.h"
#include "platform/win32.h"

namespace {

typedef CKeyboardMappingScheme Scheme;

const CShortcutKey kCtrlS = Key('S', kCtrl);

Scheme ThreeCommands() {
    return Loaded(LoadThreeCommands);
}

} // namespace

TEST(KeyboardMappingScheme, GivesAKeyToOneCommand) {
    Scheme s;
    const auto begin = [&]() -> Scheme& { return s = ThreeCommands(); };
    const auto text = [&](BOOL result) { return (result ? "" : "refused: ") + TextOf(s); };
    const auto add = [&](UINT command, const WCHAR* name, const CShortcutKey& key) {
        return text(begin().AddKeyboardShortcut(CKeyboardShortcut(command, name, key)));
    };
    const char* const kRefused = "refused: 100 Open C79; 200 Close -; 300 Save C83";
    const CShortcutKey ctrlO = Key('O', kCtrl), none;
    Scheme other;
    other.AddKeyboardShortcut({100, _T("x"), kCtrlS});
    other.AddKeyboardShortcut({900, _T("y"), Key('Y')});
    ExpectCases<std::string>({
        CASE(add(50, _T("Stop"), kCtrlS), "50 Stop C83; 100 Open C79; 200 Close -; 300 Save -"),
        CASE(add(300, _T("Store"), ctrlO), "100 Open -; 200 Close -; 300 Store C79"),
        CASE(add(300, nullptr, kCtrlS), "100 Open C79; 200 Close -; 300 C83"),
        CASE(add(400, nullptr, none), "100 Open C79; 200 Close -; 300 Save C83; 400 -"),
        CASE(text(begin().SetShortcutKey(200, Key('S', kCtrl | kExtended))),
             "100 Open C79; 200 Close Cx83; 300 Save C83"),
        CASE(text(begin().SetShortcutKey(200, kCtrlS) && s.SetShortcutKey(100, kCtrlS) &&
                  s.SetShortcutKey(300, ctrlO)),
             "100 Open C83; 200 Close -; 300 Save C79"),
        CASE(text(begin().SetShortcutKey(250, kCtrlS)), kRefused),
        CASE(text(begin().ClearShortcutKey(kCtrlS)), "100 Open C79; 200 Close -; 300 Save -"),
        CASE(text(begin().ClearShortcutKey(Key('Q'))), kRefused),
        CASE(text(begin().ClearKeyboardShortcutUsingCommandID(100)),
             "100 Open -; 200 Close -; 300 Save C83"),
        CASE(text(begin().ClearKeyboardShortcutUsingCommandID(0)), kRefused),
        CASE(text(begin().RemoveKeyboardShortcutUsingCommandID(101)), kRefused),
        CASE(text(begin().RemoveKeyboardShortcutUsingCommandID(300) &&
                  s.SetShortcutKey(200, kCtrlS)),
             "100 Open C79; 200 Close C83"),
        CASE((begin().ClearAllShortcutKeys(), text(s.SetShortcutKey(300, ctrlO))),
             "100 Open -; 200 Close -; 300 Save C79"),
        CASE((begin().ResetAllShortcutKeys(other),
              text(s.AddKeyboardShortcut({200, _T("Close"), kCtrlS}))),
             "100 Open -; 200 Close C83; 300 Save -"),
        CASE(text(begin().SetShortcutKey(200, kCtrlS) && s.SetShortcutKey(100, Key('Q')) &&
                  s.ResetShortcutKey(300, ThreeCommands())),
             "100 Open 81; 200 Close -; 300 Save C83"),
        CASE(text(begin().ResetShortcutKey(1, s)), kRefused),
        CASE(text(begin().GetAssignedKeyboardShortcuts(s) == 2), "100 Open C79; 300 Save C83"),
    });
}

TEST(KeyboardMappingScheme, FindsCommandsAndKeys) {
    const Scheme scheme = ThreeCommands();
    CKeyboardShortcut marker(7, _T("marker"), Key('M'));
    ExpectCases<int>({CASE(scheme.GetAcceleratorEntries(), 2), CASE(scheme.FindCommandID(300), 2),
                      CASE(scheme.FindCommandID(250), -1), CASE(scheme.FindCommandID(UINT_MAX), -1),
                      CASE(scheme.FindShortcutKey(Key('S')), -1),
                      CASE(scheme.FindShortcutKey(CShortcutKey()), 1),
                      CASE(scheme.GetKeyboardShortcut(-1, marker), FALSE),
                      CASE(scheme.GetKeyboardShortcut(3, marker), FALSE)});
    EXPECT_EQ(marker, CKeyboardShortcut(7, _T("marker"), Key('M')));
    EXPECT_FALSE(scheme.GetKeyboardShortcutUsingCommandID(250, marker));
    EXPECT_EQ(marker, CKeyboardShortcut(7, _T("marker"), CShortcutKey()));
    EXPECT_TRUE(scheme.GetKeyboardShortcutUsingCommandID(300, marker));
    EXPECT_EQ(marker, CKeyboardShortcut(300, _T("Save"), kCtrlS));
}

TEST(KeyboardMappingScheme, TakesTablesAsTheyAre) {
    ACCEL table[] = {{FVIRTKEY | FCONTROL, 'S', 300},
                     {FVIRTKEY, VK_F1, 100},
                     {FVIRTKEY | FCONTROL, 'S', 300},
                     {0, 'A', 0}};
    Scheme scheme = ThreeCommands();
    for (const int count : {0, -1, INT_MIN, 0x100001, INT_MAX})
        EXPECT_FALSE(scheme.SetUsingAcceleratorTable(table, count));
    EXPECT_FALSE(scheme.SetUsingAcceleratorTable(nullptr, 1));
    EXPECT_EQ(scheme, ThreeCommands());

    EXPECT_TRUE(scheme.SetUsingAcceleratorTable(table, 4));
    EXPECT_EQ(TextOf(scheme), "300 C83; 100 112; 300 C83; 0 S65");
    // The order is wrong for a binary search: at 100, 300 comes first.
    EXPECT_EQ(scheme.FindCommandID(0), -1);
    EXPECT_EQ(scheme.FindCommandID(100), -1);
    EXPECT_TRUE(scheme.SetShortcutKey(300, kCtrlS)) << "the key leaves both";
    EXPECT_EQ(TextOf(scheme), "300 -; 100 112; 300 C83; 0 S65");
}

TEST(KeyboardMappingScheme, FillsAcceleratorsOfExactlyTheirNumber) {
    const Scheme scheme = ThreeCommands();
    ACCEL entries[3] = {{0xee, 0xee, 0xee}, {}, {0xee, 0xee, 0xee}};
    for (const int count : {0, 1, 3, -1, INT_MAX}) {
        EXPECT_FALSE(scheme.GetAccelerators(entries, count)) << count;
        EXPECT_EQ(entries[0].key, 0xee) << count;
    }
    EXPECT_FALSE(scheme.GetAccelerators(nullptr, 2) || Scheme().GetAccelerators(nullptr, 0));
    EXPECT_TRUE(scheme.GetAccelerators(entries, 2));
    EXPECT_EQ(entries[0].cmd, 100);
    EXPECT_EQ(entries[1].fVirt, FVIRTKEY | FCONTROL);
    EXPECT_EQ(entries[2].key, 0xee);
}

TEST(KeyboardMappingScheme, SortsAndKeepsTheOrderOfEqualOnes) {
    Scheme scheme;
    scheme.AddKeyboardShortcut({1, _T("\u00d6ffnen"), Key('C', kCtrl | kAlt)});
    scheme.AddKeyboardShortcut({2, _T("close"), Key('D', kCtrl)});
    scheme.AddKeyboardShortcut({3, _T("bold"), CShortcutKey()});
    scheme.AddKeyboardShortcut({4, _T("B"), Key('Q')});
    scheme.AddKeyboardShortcut({5, _T("a"), CShortcutKey()});
    scheme.AddKeyboardShortcut({6, _T("Close"), Key(VK_F2)});
    const auto order = [&](void (Scheme::*sort)(BOOL), BOOL ascending) {
        Scheme sorted = scheme;
        (sorted.*sort)(ascending);
        std::vector<CKeyboardShortcut> shortcuts;
        sorted.GetKeyboardShortcuts(shortcuts);
        std::string commands;
        for (const CKeyboardShortcut& shortcut : shortcuts)
            commands += std::to_string(shortcut.GetCommandID());
        return commands;
    };
    const auto byText = &Scheme::SortKeyboardShortcutsByCommandText;
    const auto byName = &Scheme::SortKeyboardShortcutsByKeyboardShortcutName;
    const auto byKey = &Scheme::SortKeyboardShortcutsByShortcutKey;
    ExpectCases<std::string>(
        {CASE(order(byText, TRUE), "543261"), CASE(order(byText, FALSE), "162345"),
         CASE(order(byName, TRUE), "126435"), CASE(order(byName, FALSE), "354621"),
         CASE(order(byKey, TRUE), "462135"), CASE(order(byKey, FALSE), "351264")});
}
