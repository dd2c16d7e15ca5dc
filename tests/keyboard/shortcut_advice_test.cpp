// Information for users about keys: conflicts, cheat sheets, texts of menu items.
#include <quorvel/keyboard/cheat_sheet.h>
#include <quorvel/keyboard/menu_text.h>

#include "keyboard/conflict_finder.h"
#include "keyboard/shortcuts.h"
#include "platform/win32.h"

namespace {

CKeyboardMappingScheme Sample() {
    CKeyboardMappingScheme scheme;
    scheme.AddKeyboardShortcut({100, _T("Open"), Key('O', kCtrl)});
    scheme.AddKeyboardShortcut({200, _T("Close"), CShortcutKey()});
    scheme.AddKeyboardShortcut({300, nullptr, Key(VK_PAUSE, kCtrl)});
    scheme.AddKeyboardShortcut({400, _T("a|b <c> & *d*\n\"e\""), Key(VK_DELETE, kShift)});
    return scheme;
}

std::string Kinds(const std::vector<CShortcutConflict>& conflicts) {
    std::string text;
    for (const CShortcutConflict& conflict : conflicts) {
        EXPECT_FALSE(conflict.strMessage.IsEmpty());
        text += "hsktp"[conflict.nKind];
        text += conflict.nCommandID != 0 ? std::to_string(conflict.nCommandID) : "";
    }
    return text;
}

} // namespace

TEST(ShortcutConflicts, AreFoundBeforeAKeyIsGiven) {
    // A German layout: AltGr, which is Ctrl+Alt, with Q and E; and the circumflex, a dead key.
    const quorvel::TypedCharacter german = [](const CShortcutKey& key) -> WCHAR {
        const bool isAltGr = key.UsesControlKeyModifier() && key.UsesAltKeyModifier();
        const int code = key.GetVirtualKeyCode();
        if (isAltGr)
            return code == 'Q' ? '@' : code == 'E' ? 0x20ac : 0;
        return code == VK_RETURN ? 13 : code < 0x70 ? 'x' : 0;
    };
    const std::pair<CShortcutKey, const char*> rows[] = {
        {Key(VK_PAUSE, kCtrl), ""},                    // its own key
        {Key(VK_DELETE, kShift | kExtended), "s400p"}, // as every keyboard sends it
        {Key(VK_DELETE, kShift), "h400p"},
        {Key('O', kCtrl), "h100"},
        {CShortcutKey(), ""},
        {Key(VK_F4, kAlt), "k"},
        {Key(VK_F4, kAlt | kShift), ""},
        {Key(VK_ESCAPE, kCtrl | kExtended), "k"},
        {Key(VK_ESCAPE, kCtrl | kShift), "k"},
        {Key(VK_RWIN, kExtended), "kp"},
        {Key('Q', kCtrl | kAlt), "t"},
        {Key('E', kCtrl | kAlt | kShift), "t"},
        {Key('W', kCtrl | kAlt), ""},
        {Key('Q'), "p"},
        {Key('Q', kAlt), ""},
        {Key(VK_RETURN), ""},
        {Key(VK_F5), ""}};
    for (const auto& [key, conflicts] : rows)
        EXPECT_EQ(Kinds(quorvel::FindShortcutConflicts(Sample(), 300, key, german)), conflicts)
            << TextOf(key);
    CKeyboardMappingScheme twins = Sample();
    twins.AddKeyboardShortcut({50, Key(VK_DELETE, kShift | kExtended)});
    EXPECT_EQ(Kinds(quorvel::FindShortcutConflicts(twins, 300, Key(VK_DELETE, kShift), german)),
              "h400s50p");
    // The current layout: US in both builds, without AltGr.
    const auto conflicts = AfxGetShortcutConflicts(Sample(), 300, Key('Q', kShift));
    ASSERT_EQ(Kinds(conflicts), "p");
    EXPECT_EQ(
        conflicts[0].strMessage,
        _T("Shift+Q types the character Q, which could no longer be entered in text fields."));
}

TEST(CheatSheet, HasThreeForms) {
    EXPECT_EQ(AfxGetShortcutCheatSheet(Sample(), AFX_CHEAT_SHEET_TEXT),
              _T("Keyboard Shortcuts\r\n\r\n")
              _T("Command            Shortcut Key\r\n")
              _T("-------            ------------\r\n")
              _T("Open               Ctrl+O\r\n")
              _T("#300               Ctrl+Pause\r\n")
              _T("a|b <c> & *d* \"e\"  Shift+Delete\r\n"));
    EXPECT_EQ(AfxGetShortcutCheatSheet(Sample(), AFX_CHEAT_SHEET_MARKDOWN),
              _T("# Keyboard Shortcuts\r\n\r\n")
              _T("| Command | Shortcut Key |\r\n| --- | --- |\r\n")
              _T("| Open | Ctrl\\+O |\r\n| \\#300 | Ctrl\\+Pause |\r\n")
              _T("| a\\|b \\<c\\> \\& \\*d\\* \"e\" | Shift\\+Delete |\r\n"));
    CKeyboardMappingScheme named = Sample();
    named.SetName(_T("A & B"));
    named.RemoveKeyboardShortcutUsingCommandID(300);
    EXPECT_EQ(AfxGetShortcutCheatSheet(named, AFX_CHEAT_SHEET_HTML),
              _T("<!DOCTYPE html>\r\n<html>\r\n<head>\r\n<meta charset=\"utf-8\">\r\n")
              _T("<title>A &amp; B</title>\r\n</head>\r\n<body>\r\n<h1>A &amp; B</h1>\r\n")
              _T("<table>\r\n<tr><th>Command</th><th>Shortcut Key</th></tr>\r\n")
              _T("<tr><td>Open</td><td><kbd>Ctrl+O</kbd></td></tr>\r\n")
              _T("<tr><td>a|b &lt;c&gt; &amp; *d* &quot;e&quot;</td>")
              _T("<td><kbd>Shift+Delete</kbd></td></tr>\r\n")
              _T("</table>\r\n</body>\r\n</html>\r\n"));
    EXPECT_EQ(AfxGetShortcutCheatSheet(named, 3), _T(""));
}

TEST(MenuText, EndsWithTheKey) {
    ExpectCases<CString>({
        CASE(AfxGetMenuTextWithShortcut(_T("&Open"), Key('O', kCtrl)), _T("&Open\tCtrl+O")),
        CASE(AfxGetMenuTextWithShortcut(_T("&Open\tF12\tx"), Key('O', kCtrl)), _T("&Open\tCtrl+O")),
        CASE(AfxGetMenuTextWithShortcut(_T("&Open\tF12"), CShortcutKey()), _T("&Open")),
        // The layout has no name for it.
        CASE(AfxGetMenuTextWithShortcut(nullptr, Key(VK_PAUSE, kCtrl)), _T("\tCtrl+Pause")),
    });
}
