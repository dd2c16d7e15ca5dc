#include <quorvel/keyboard/shortcut_key_text.h>

#include "keyboard/shortcuts.h"
#include "platform/win32.h"

TEST(ShortcutKeyText, IsReadBack) {
    const struct {
        CShortcutKey key;
        const WCHAR* text;
    } rows[] = {
        {CShortcutKey(), _T("")},
        {Key(VK_F5, kCtrl | kShift), _T("Ctrl+Shift+F5")},
        {Key(VK_DELETE, kAlt | kExtended), _T("Alt+Ext+Delete")},
        {Key('A'), _T("A")},
        {Key('0', kShift), _T("Shift+0")},
        {Key(VK_F24), _T("F24")},
        {Key(VK_NUMPAD9), _T("Num 9")},
        {Key(VK_ADD, kCtrl), _T("Ctrl+Num Plus")},
        {Key(VK_OEM_PLUS, kCtrl), _T("Ctrl+OEM Plus")},
        {Key(VK_OEM_102), _T("OEM 102")},
        {Key(VK_PAUSE), _T("Pause")},
        {Key(0, kCtrl), _T("Ctrl+")},
        {Key(7), _T("#7")},
        {Key(0xffff, kAlt), _T("Alt+#65535")},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(AfxGetShortcutKeyText(row.key), row.text);
        CShortcutKey read = Key('M', 0xff);
        EXPECT_TRUE(AfxParseShortcutKeyText(row.text, read)) << CString(row.text);
        EXPECT_EQ(TextOf(read), TextOf(row.key)) << CString(row.text);
    }
    for (int code = 0; code < 0x100; ++code) {
        CShortcutKey read = Key('M', 0xff);
        EXPECT_TRUE(AfxParseShortcutKeyText(AfxGetShortcutKeyText(Key(code, kCtrl)), read));
        EXPECT_EQ(read, Key(code, kCtrl)) << code;
    }
}

TEST(ShortcutKeyText, IsReadAsPeopleWriteIt) {
    const struct {
        const WCHAR* text;
        const char* key; // "M": refused, with the marker unchanged
    } rows[] = {
        {_T(" shift + CTRL+a "), "CS65"},
        {_T("page up"), "33"},
        {_T("Ctrl+#65"), "C65"},
        {_T("Ctrl+"), "C0"},
        {_T("Ctrl"), "M"},
        {_T("+"), "M"},
        {_T("A+B"), "M"},
        {_T("Ctrl+Ctrl+A"), "M"},
        {_T("Strg+A"), "M"},
        {_T("F25"), "M"},
        {_T("F0"), "M"},
        {_T("#65536"), "M"},
        {_T("#"), "M"},
        {_T("#-1"), "M"},
        {_T("Num 10"), "M"},
        {_T("AB"), "M"},
        {nullptr, "M"},
    };
    for (const auto& row : rows) {
        CShortcutKey key = Key('M', 0xff);
        const BOOL isRead = AfxParseShortcutKeyText(row.text, key);
        EXPECT_EQ(isRead, std::string(row.key) != "M") << CString(row.text);
        EXPECT_EQ(isRead                  ? TextOf(key)
                  : key == Key('M', 0xff) ? "M"
                                          : "changed",
                  row.key)
            << CString(row.text);
    }
    CShortcutKey key;
    EXPECT_FALSE(AfxParseShortcutKeyText(CString('x', 100000), key));
}
