#include <quorvel/keyboard/keyboard_mapping_scheme.h>
#include <quorvel/system/profile.h>

#include "keyboard/shortcuts.h"
#include "platform/win32.h"
#include "support/registry.h"
#include "support/temporary_folder.h"

#include <array>

namespace {

typedef CKeyboardMappingScheme Scheme;

// The defaults of a later version: Close has a key, Save has a different key, and Print is new.
void LoadLaterDefaults(Scheme& scheme) {
    LoadThreeCommands(scheme);
    scheme.SetShortcutKey(200, Key('W', kCtrl));
    scheme.SetShortcutKey(300, Key(VK_F2));
    scheme.AddKeyboardShortcut({400, _T("Print"), Key('P', kCtrl)});
}

std::string Kinds(const std::vector<CShortcutProblem>& problems) {
    std::string text;
    for (const CShortcutProblem& problem : problems) {
        EXPECT_FALSE(problem.strMessage.IsEmpty());
        text += text.empty() ? "" : " ";
        text += std::to_string(problem.nRow) + ":";
        text += std::to_string(problem.nKind);
    }
    return text;
}

} // namespace

TEST(SchemeStorage, KeepsWhatDiffersFromTheDefaults) {
    Scheme scheme = Loaded(LoadThreeCommands);
    const CString unchanged = scheme.ExportToXML();
    EXPECT_EQ(unchanged.Find(_T("shortcut ")), -1);
    scheme.SetShortcutKey(200, Key('S', kCtrl));
    scheme.SetShortcutKey(100, Key(VK_F5, kCtrl | kShift));
    const CString text = scheme.ExportToXML();
    EXPECT_EQ(text, _T("<shortcuts format=\"1\" name=\"Default\">\r\n")
                    _T("<shortcut command=\"100\" key=\"Ctrl+Shift+F5\" code=\"116\" ")
                    _T("modifiers=\"3\"/>\r\n")
                    _T("<shortcut command=\"200\" key=\"Ctrl+S\" code=\"83\" modifiers=\"2\"/>\r\n")
                    _T("<shortcut command=\"300\" key=\"\" code=\"0\" modifiers=\"0\"/>\r\n")
                    _T("</shortcuts>\r\n"));

    Scheme other = Loaded(LoadThreeCommands);
    other.SetShortcutKey(300, Key('Q'));
    EXPECT_TRUE(other.ImportFromXML(text, FALSE));
    EXPECT_EQ(other, scheme);
    EXPECT_TRUE(other.ImportFromXML(unchanged, FALSE));
    EXPECT_EQ(other, Loaded(LoadThreeCommands)) << "nothing stored means the defaults";

    Scheme later = Loaded(LoadLaterDefaults);
    EXPECT_TRUE(later.ImportFromXML(text, FALSE));
    EXPECT_EQ(TextOf(later), "100 Open CS116; 200 Close C83; 300 Save -; 400 Print C80");
    EXPECT_TRUE(later.ImportFromXML(unchanged, FALSE));
    EXPECT_EQ(TextOf(later), "100 Open C79; 200 Close C87; 300 Save 113; 400 Print C80")
        << "new defaults reach the user";

    Scheme bare, cleared;
    bare.SetKeyboardShortcuts({{1, Key('A')}, {2, CShortcutKey()}});
    cleared.SetKeyboardShortcuts({{1, CShortcutKey()}, {2, CShortcutKey()}});
    EXPECT_TRUE(cleared.ImportFromXML(bare.ExportToXML(), FALSE));
    EXPECT_EQ(cleared, bare) << "without a function all keys are stored";
}

TEST(SchemeStorage, ReportsRowsAndImportsNothingByHalves) {
    std::vector<CShortcutProblem> problems(3);
    const char* const kUntouched = "100 Open C79; 200 Close 82; 300 Save C83";
    const auto in = [](const WCHAR* rows) {
        return CString(_T("<shortcuts format='1'>")) + rows + _T("</shortcuts>");
    };
    // The text, its problems, and the scheme without the faulty rows; null when nothing is left.
    const std::tuple<CString, const char*, const char*> rows[] = {
        {in(_T("")), "", "100 Open C79; 200 Close -; 300 Save C83"},
        {in(_T("<shortcut command='200' code='116' modifiers='2'/>")), "",
         "100 Open C79; 200 Close C116; 300 Save C83"},
        {in(_T("<shortcut command='100'/><x/><shortcut command='300' key='ctrl+o'/>")), "",
         "100 Open -; 200 Close -; 300 Save C79"},
        {in(_T("<shortcut command='7' key='F5'/><shortcut command='200' key='F5'/>")), "1:0",
         "100 Open C79; 200 Close 116; 300 Save C83"},
        {in(_T("<shortcut command='200' key='F5'/><shortcut command='200' key='F6'/>")), "2:1",
         "100 Open C79; 200 Close 116; 300 Save C83"},
        {in(_T("<shortcut command='200' key='F5'/><shortcut command='100' key='F5'/>")), "2:2",
         "100 Open C79; 200 Close 116; 300 Save C83"},
        {in(_T("<shortcut command='-1' key='F5'/><shortcut command='4294967296' key='F5'/>")
            _T("<shortcut command='' key='F5'/><shortcut key='F5'/><shortcut command='0x1'/>")),
         "1:3 2:3 3:3 4:3 5:3", "100 Open C79; 200 Close -; 300 Save C83"},
        {in(_T("<shortcut command='200' key='Hyper+Q'/><shortcut command='100' code='65'/>")
            _T("<shortcut command='100' code='65536' modifiers='0'/>")
            _T("<shortcut command='300' key='F5' code='117' modifiers='0'/>")
            _T("<shortcut command='300' code='65' modifiers='256'/>")),
         "1:4 2:4 3:4 4:4 5:4", "100 Open C79; 200 Close -; 300 Save C83"},
        {_T("<shortcuts format='2'><shortcut command='200'/></shortcuts>"), "0:5", nullptr},
        {_T("<shortcuts format='0'/>"), "0:6", nullptr},
        {_T("<shortcuts format='one'/>"), "0:6", nullptr},
        {_T("<shortcut format='1'/>"), "0:6", nullptr},
        {in(_T("<shortcut command='200'>")), "0:7", nullptr},
        {_T(""), "0:7", nullptr},
    };
    for (const auto& [text, expected, imported] : rows)
        for (const BOOL skip : {FALSE, TRUE}) {
            Scheme scheme = Loaded(LoadThreeCommands);
            scheme.SetShortcutKey(200, Key('R'));
            const bool isChanged = *expected == 0 || (skip && imported != nullptr);
            EXPECT_EQ(scheme.ImportFromXML(text, skip, &problems), isChanged) << text;
            EXPECT_EQ(Kinds(problems), expected) << text;
            EXPECT_EQ(TextOf(scheme), isChanged ? imported : kUntouched) << text;
        }
    EXPECT_FALSE(Scheme().ImportFromXML(nullptr, TRUE));
}

TEST(SchemeStorage, FindsCommandsOfASchemeInAnyOrder) {
    // As an accelerator table has them, in no order and a command with two keys.
    const Scheme::FNLOADDEFAULTMAPPINGSCHEME load = [](Scheme& scheme) {
        scheme.SetKeyboardShortcuts(
            {{9, Key('A')}, {5, Key('B')}, {9, Key('C')}, {7, CShortcutKey()}});
    };
    // The codes of the four keys, and the number of stored rows.
    const std::tuple<std::array<int, 4>, int> cases[] = {
        {{'A', 'B', 'C', 0}, 0},
        {{'A', 'B', 'D', 0}, 2}, // the second key of a command
        {{'C', 'B', 'A', 0}, 2},
        {{0, 'C', 'B', 'A'}, 4},
    };
    for (const auto& [codes, stored] : cases) {
        Scheme scheme = Loaded(load);
        scheme.SetKeyboardShortcuts(
            {{9, Key(codes[0])}, {5, Key(codes[1])}, {9, Key(codes[2])}, {7, Key(codes[3])}});
        CString text = scheme.ExportToXML();
        Scheme read = Loaded(load);
        EXPECT_TRUE(read.ImportFromXML(text, FALSE));
        EXPECT_EQ(TextOf(read), TextOf(scheme));
        EXPECT_EQ(text.Replace(_T("<shortcut "), _T("")), stored) << TextOf(scheme);
    }
    Scheme scheme = Loaded(load);
    EXPECT_TRUE(scheme.ImportFromXML(_T("<shortcuts format='1'><shortcut command='9' key='F1'/>")
                                     _T("<shortcut command='9' key='F2'/>")
                                     _T("<shortcut command='9' key='F3'/></shortcuts>"),
                                     TRUE));
    EXPECT_EQ(TextOf(scheme), "9 112; 5 66; 9 113; 7 -") << "a third key has no place";
}

TEST(SchemeStorage, NamesASchemeWithoutAName) {
    const auto read = [](const CString& name, const WCHAR* former) {
        Scheme scheme(former, nullptr);
        EXPECT_TRUE(scheme.ImportFromXML(Scheme(name, nullptr).ExportToXML(), FALSE)) << name;
        return scheme.GetName();
    };
    ExpectCases<CString>({
        CASE(read(_T("Emacs & \"Co\" <1>"), _T("")), _T("Emacs & \"Co\" <1>")),
        CASE(read(_T("Emacs"), _T("Mine")), _T("Mine")),
        CASE(read(_T("a\x0001"), _T("")), _T("")), // XML has no such character
        CASE(read(CString(WCHAR(0xd800)), _T("")), _T("")),
    });
}

TEST(SchemeStorage, IsAFile) {
    const TemporaryFolder folder;
    const CString name = folder.Path(_T("keys.xml"));
    CString error = _T("*");
    Scheme read = Loaded(LoadThreeCommands);
    std::vector<CShortcutProblem> problems(1);
    EXPECT_FALSE(read.ImportFromXMLFile(folder.Path(_T("missing.xml")), FALSE, error, &problems));
    EXPECT_TRUE(!error.IsEmpty() && problems.empty());
    EXPECT_FALSE(read.ExportToXMLFile(folder.Path(_T("none/keys.xml")), error));
    EXPECT_TRUE(read.SetShortcutKey(100, Key('Q')) && read.ExportToXMLFile(name, error));
    Scheme again = Loaded(LoadThreeCommands);
    EXPECT_TRUE(again.ImportFromXMLFile(name, FALSE, error) && error.IsEmpty());
    EXPECT_EQ(again, read);
}

TEST(SchemeStorage, IsAValueOfTheRegistry) {
    const TestKey root;
    const CRegistryPath path(HKEY_CURRENT_USER, root.Path() + _T("\\Keys"));
    Scheme scheme = Loaded(LoadThreeCommands);
    EXPECT_FALSE(scheme.LoadState(path)) << "nothing there";
    scheme.SetShortcutKey(200, Key('Q', kCtrl));
    EXPECT_TRUE(scheme.SaveState(path));
    Scheme read = Loaded(LoadThreeCommands);
    EXPECT_TRUE(read.LoadState(path) && read == scheme);
    AfxWriteProfileString(path, _T("Shortcuts"),
                          _T("<shortcuts format='1'><shortcut command='7' key='F1'/>")
                          _T("<shortcut command='200' key='F2'/></shortcuts>"));
    std::vector<CShortcutProblem> problems;
    EXPECT_TRUE(read.LoadState(path, &problems));
    EXPECT_EQ(Kinds(problems), "1:0");
    EXPECT_EQ(TextOf(read), "100 Open C79; 200 Close 113; 300 Save C83");
    EXPECT_FALSE(read.LoadState(HKEY{nullptr}, FALSE) || scheme.SaveState(CRegistryPath()));
}
