// Accelerator tables of schemes: read back, and translated in a window.
#include <quorvel/framework/wnd.h>

#include "keyboard/shortcuts.h"

namespace {

class CommandWindow : public CWnd {
public:
    CommandWindow() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr);
    }
    int m_command = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COMMAND)
            m_command = LOWORD(wParam);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

} // namespace

TEST(AcceleratorTable, IsReadBackAndTranslated) {
    CKeyboardMappingScheme scheme;
    EXPECT_EQ(scheme.CreateAcceleratorTableW(), nullptr);
    scheme.AddKeyboardShortcut({100, Key(VK_F5, kCtrl)});
    scheme.AddKeyboardShortcut({200, CShortcutKey()});
    scheme.AddKeyboardShortcut({300, Key('S', kCtrl | kShift)});
    const HACCEL table = scheme.CreateAcceleratorTableW();
    ASSERT_NE(table, nullptr);

    ACCEL entries[4] = {};
    const int count = ::CopyAcceleratorTableW(table, entries, 4);
    CKeyboardMappingScheme back;
    ASSERT_TRUE(back.SetUsingAcceleratorTable(entries, count));
    EXPECT_EQ(TextOf(back), "100 C116; 300 CS83");

    const struct {
        UINT code;
        bool shift;
        int command;
    } rows[] = {{VK_F5, false, 100}, {'S', true, 300}, {'S', false, 0}, {VK_F6, false, 0}};
    for (const auto& row : rows) {
        CommandWindow window;
        BYTE former[256];
        BYTE state[256] = {};
        ::GetKeyboardState(former);
        state[VK_CONTROL] = 0x80;
        state[VK_SHIFT] = row.shift ? 0x80 : 0;
        ::SetKeyboardState(state);
        MSG message = {window.m_hWnd, WM_KEYDOWN, row.code, 1, 0, {}};
        ::TranslateAcceleratorW(window.m_hWnd, table, &message);
        ::SetKeyboardState(former);
        EXPECT_EQ(window.m_command, row.command) << row.code;
    }
    ::DestroyAcceleratorTable(table);

    scheme.ClearAllShortcutKeys();
    EXPECT_EQ(scheme.CreateAcceleratorTableW(), nullptr);
}
