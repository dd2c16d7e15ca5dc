#include <quorvel/keyboard/shortcut_key_text.h>

#include "keyboard/shortcuts.h"
#include "platform/win32.h"

TEST(ShortcutKeyText, IsReadBack) {
    const std::pair<CShortcutKey, const WCHAR*> rows[] = {
        {CShortcutKey(), _T("")},
        {Key(VK_F5, kCtrl | kShift), _T("Ctrl+Shift+F5")},
        {Key(VK_DELETE, kAlt | kExtended), _T("Alt+Ext+Delete")},
        {Key(VK_NUMPAD9), _T("Num 9")},
        {Key(VK_ADD, kCtrl), _T("Ctrl+Num Plus")},
        {Key(VK_OEM_PLUS, kCtrl), _T("Ctrl+OEM Plus")},
        {Key(VK_OEM_102), _T("OEM 102")},
        {Key(0, kCtrl), _T("Ctrl+")},
        {Key(7), _T("#7")},
        {Key(0xffff, kAlt), _T("Alt+#65535")},
    };
    for (const auto& [key, text] : rows) {
        EXPECT_EQ(AfxGetShortcutKeyText(key), text);
        CShortcutKey read = Key('M', 0xff);
        EXPECT_TRUE(AfxParseShortcutKeyText(text, read) && read == key) << CString(text);
    }
    for (int code = 0; code < 0x100; ++code) {
        CShortcutKey read = Key('M', 0xff);
        EXPECT_TRUE(AfxParseShortcutKeyText(AfxGetShortcutKeyText(Key(code, kCtrl)), read));
        EXPECT_EQ(read, Key(code, kCtrl)) << code;
    }
}

TEST(ShortcutKeyText, IsReadAsPeopleWriteIt) {
    CShortcutKey read;
    EXPECT_TRUE(AfxParseShortcutKeyText(_T(" shift + CTRL+#65 "), read));
    EXPECT_EQ(TextOf(read), "CS65");
    EXPECT_TRUE(AfxParseShortcutKeyText(_T("page up"), read));
    EXPECT_EQ(TextOf(read), "33");
    const CString longText('x', 100000);
    for (const WCHAR* const text :
         {_T("Ctrl"), _T("+"), _T("A+B"), _T("Ctrl+Ctrl+A"), _T("Strg+A"), _T("F25"), _T("F0"),
          _T("#65536"), _T("#"), _T("#-1"), _T("Num 10"), _T("AB"), longText.GetString(),
          static_cast<const WCHAR*>(nullptr)}) {
        CShortcutKey key = Key('M', 0xff);
        EXPECT_FALSE(AfxParseShortcutKeyText(text, key)) << CString(text).Left(50);
        EXPECT_EQ(key, Key('M', 0xff)) << CString(text).Left(50);
    }
}
