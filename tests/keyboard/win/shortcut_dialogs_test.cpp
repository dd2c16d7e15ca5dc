// The list of shortcuts and its dialogs, with real key messages; menus that show keys.
#include <quorvel/controls/win/vask_property_sheet.h>
#include <quorvel/keyboard/win/assign_shortcut_dlg.h>
#include <quorvel/keyboard/win/capture_shortcut_key_dlg.h>
#include <quorvel/keyboard/win/keyboard_shortcut_list_ctrl.h>
#include <quorvel/keyboard/win/keyboard_shortcuts_page.h>
#include <quorvel/keyboard/win/menu_shortcuts.h>
#include <quorvel/res/resource_ids.h>

#include "controls/win/list_window.h"
#include "keyboard/shortcuts.h"
#include "support/german_texts.h"
#include "support/win/dialog_driver.h"

#include <boost/shared_ptr.hpp>
#include <optional>

namespace {

typedef DialogDriver::Step Step;
typedef CKeyboardShortcutListCtrl List;

// Presses a key while the modifiers count as pressed. The message comes from the queue.
Step PressKey(UINT code, int modifiers = 0, bool isExtended = false) {
    return [=](HWND box) {
        BYTE state[256] = {};
        state[VK_CONTROL] = (modifiers & kCtrl) != 0 ? 0x80 : 0;
        state[VK_SHIFT] = (modifiers & kShift) != 0 ? 0x80 : 0;
        state[VK_MENU] = (modifiers & kAlt) != 0 ? 0x80 : 0;
        ::SetKeyboardState(state);
        const bool isSystemKey = (modifiers & kAlt) != 0 || code == VK_F10;
        ::PostMessageW(KeyboardOf(box), isSystemKey ? WM_SYSKEYDOWN : WM_KEYDOWN, code,
                       1 | (isExtended ? 1 << 24 : 0) | ((modifiers & kAlt) != 0 ? 1 << 29 : 0));
    };
}
Step ReleaseKeys() {
    return [](HWND) {
        BYTE state[256] = {};
        ::SetKeyboardState(state);
    };
}

// The rows in the list-view: "Open=Ctrl+O *save=Ctrl+S".
std::string TextsOf(const List& list) {
    std::string text;
    const int count = static_cast<int>(list.SendMessage(LVM_GETITEMCOUNT));
    for (int row = 0; row < count; ++row) {
        text += row > 0 ? " " : "";
        text += list.GetItemState(row, LVIS_SELECTED) != 0 ? "*" : "";
        text += (list.GetItemText(row, 0) + _T("=") + list.GetItemText(row, 1)).ToUTF8();
    }
    return text;
}

} // namespace

TEST(CaptureShortcutKeyDlg, TakesTheNextKey) {
    const struct {
        const char* label;
        std::vector<Step> steps;
        INT_PTR result;
        const char* key;
    } rows[] = {
        {"Enter", {PressKey(VK_RETURN)}, IDOK, "13"},
        {"Escape", {PressKey(VK_ESCAPE)}, IDOK, "27"},
        {"F10", {PressKey(VK_F10)}, IDOK, "121"},
        {"Alt+F4", {PressKey(VK_F4, kAlt)}, IDOK, "A115"},
        {"Ctrl+Shift+A", {PressKey('A', kCtrl | kShift)}, IDOK, "CS65"},
        {"an extended key", {PressKey(VK_DELETE, 0, true)}, IDOK, "x46"},
        {"Ctrl and Alt alone, then Cancel",
         {PressKey(VK_CONTROL, kCtrl), PressKey(VK_MENU, kAlt), ReleaseKeys(), ClickOn(IDCANCEL)},
         IDCANCEL,
         "-"},
    };
    for (const auto& row : rows) {
        CCaptureShortcutKeyDlg dialog;
        DialogDriver driver(row.steps);
        EXPECT_EQ(dialog.DoModal(), row.result) << row.label;
        EXPECT_TRUE(driver.HasRun()) << row.label;
        EXPECT_EQ(TextOf(dialog.GetShortcutKey()), row.key) << row.label;
        ReleaseKeys()(nullptr);
    }
}

// Counts how often a release of Alt would open its menu.
class OwnerWindow : public CWnd {
public:
    OwnerWindow() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr, nullptr);
    }
    int m_menus = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_SYSCOMMAND && (wParam & 0xfff0) == SC_KEYMENU) {
            ++m_menus;
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST(ShortcutDialogs, TheReleaseOfAltOpensNoMenu) {
    constexpr LPARAM kReleased = static_cast<LPARAM>(0xc0000001);
    const Step releaseAlt = [](HWND box) {
        ReleaseKeys()(box);
        ::PostMessageW(KeyboardOf(box), WM_SYSKEYUP, VK_MENU, kReleased);
    };
    const CKeyboardMappingScheme scheme = FourCommands();
    const struct {
        const char* label;
        std::vector<Step> steps;
        bool isCapture;
        bool isAltHeld; // when the dialog ends
        int menus;
    } rows[] = {
        {"Alt and a key", Steps(PressKey(VK_MENU, kAlt), PressKey('S', kAlt)), true, true, 0},
        {"a key alone, then Alt alone", {PressKey('S')}, true, false, 1},
        {"Alt and a key in the field, then Alt alone",
         Steps(PressKey(VK_MENU, kAlt), PressKey('S', kAlt), releaseAlt, PressKey(VK_RETURN)),
         false, false, 1},
        {"Alt alone in the field, then Alt alone",
         Steps(PressKey(VK_MENU, kAlt), releaseAlt, PressKey(VK_ESCAPE)), false, false, 1},
    };
    for (const auto& row : rows) {
        OwnerWindow owner;
        CCaptureShortcutKeyDlg capture(&owner);
        CAssignShortcutDlg assign(scheme, 4, &owner);
        CDialog& dialog = row.isCapture ? static_cast<CDialog&>(capture) : assign;
        DialogDriver driver(row.steps);
        EXPECT_NE(dialog.DoModal(), -99) << row.label;
        if (!row.isAltHeld)
            owner.SendMessage(WM_SYSKEYDOWN, VK_MENU, 1 | 1 << 29);
        ReleaseKeys()(nullptr);
        owner.SendMessage(WM_SYSKEYUP, VK_MENU, kReleased);
        EXPECT_EQ(owner.m_menus, row.menus) << row.label;
    }
}

TEST(AssignShortcutDlg, ShowsTheKeyAndWhatSpeaksAgainstIt) {
    // In an order in which a binary search finds nothing.
    CKeyboardMappingScheme scheme = FourCommands();
    std::vector<CKeyboardShortcut> shortcuts;
    scheme.GetKeyboardShortcuts(shortcuts);
    scheme.SetKeyboardShortcuts({shortcuts.rbegin(), shortcuts.rend()});
    const CKeyboardMappingScheme before = scheme;
    std::string seen;
    const Step look = [&seen](HWND box) {
        seen += TextOf(::GetDlgItem(box, QUORVEL_ASSIGN_KEY)).ToUTF8() + "|" +
                TextOf(::GetDlgItem(box, QUORVEL_ASSIGN_REPORT)).ToUTF8() + "|" +
                (::IsWindowEnabled(::GetDlgItem(box, IDOK)) ? "ok;" : "no;");
    };
    const Step release = ReleaseKeys(), enter = PressKey(VK_RETURN), tab = PressKey(VK_TAB);
    const struct {
        const char* label;
        unsigned int command;
        bool isGerman;
        std::vector<Step> steps;
        INT_PTR result;
        const char* key;
        const char* seen;
    } rows[] = {
        {"a free key", 4, false, Steps(look, PressKey('N', kCtrl), release, look, enter), IDOK,
         "C78", "||no;Ctrl+N|Ctrl+N is free.|ok;"},
        {"a held key, in German", 4, true, Steps(PressKey('S', kCtrl), release, look, enter), IDOK,
         "C83",
         "Ctrl+S|Ctrl+S geh\xc3\xb6rt derzeit zum Befehl save, der die Taste dann verliert.|ok;"},
        {"the last key counts", 4, false,
         Steps(PressKey('Q', kCtrl), PressKey(VK_F6, kShift), release, enter), IDOK, "S117", ""},
        {"Escape cancels", 4, false, Steps(PressKey('Q', kCtrl), release, PressKey(VK_ESCAPE)),
         IDCANCEL, "C81", ""},
        {"Tab reaches Clear", 2, false,
         Steps(look, tab, tab, tab, PressKey(VK_SPACE),
               [](HWND box) { ::PostMessageW(KeyboardOf(box), WM_KEYUP, VK_SPACE, 0xc0000001); }),
         IDOK, "-", "Ctrl+S|Ctrl+S is free.|ok;"},
        {"F4 with Ctrl and Alt closes nothing", 4, false,
         Steps(PressKey(VK_F4, kCtrl | kAlt), release, enter), IDOK, "CA115", ""},
    };
    for (const auto& row : rows) {
        std::optional<GermanTexts> german;
        if (row.isGerman)
            german.emplace();
        seen.clear();
        CAssignShortcutDlg dialog(scheme, row.command);
        DialogDriver driver(row.steps);
        EXPECT_EQ(dialog.DoModal(), row.result) << row.label;
        EXPECT_TRUE(driver.HasRun()) << row.label;
        EXPECT_EQ(TextOf(dialog.GetShortcutKey()), row.key) << row.label;
        EXPECT_EQ(seen, row.seen) << row.label;
        ReleaseKeys()(nullptr);
    }
    EXPECT_EQ(scheme, before);
}

TEST(KeyboardShortcutListCtrl, EditsTheRowsThatItShows) {
    const CKeyboardMappingScheme scheme = FourCommands();
    const CShortcutKey ctrlS = Key('S', kCtrl);
    ListParent parent;
    std::optional<List> list;
    const auto begin = [&]() -> List& {
        list.emplace();
        EXPECT_TRUE(list->Create(WS_VISIBLE, kListPlace, &parent, 5));
        EXPECT_EQ(list->AddKeyboardMappingScheme(&scheme), 0);
        EXPECT_TRUE(list->LoadKeyboardMappingScheme(0));
        return *list;
    };
    const auto after = [&](int result) {
        PumpMessages();
        return std::to_string(result) + ", " + TextsOf(*list);
    };
    const auto find = [&](UINT code, int modifiers, bool isExtended) {
        DialogDriver driver({PressKey(code, modifiers, isExtended), ReleaseKeys()});
        return list->FindByPressingKey();
    };
    ExpectCases<std::string>({
        // A key moves in a sorted list, and the selection with its row.
        CASE((begin().SortItemsByColumn(1), list->SelectItem(3),
              after(list->SetShortcutKey(3, ctrlS))),
             "1, Open=Ctrl+O *Close=Ctrl+S Refresh=F5 save="),
        CASE((begin().SelectItem(0), list->MoveSelectedItemDown(),
              after(list->SetShortcutKey(0, Key('N', kCtrl)))),
             "1, save=Ctrl+N *Open=Ctrl+O Refresh=F5 Close="),
        // The column of keys is hidden meanwhile.
        CASE((begin().ShowVaskColumn(1, FALSE), list->SetShortcutKey(3, ctrlS),
              after(list->ShowVaskColumn(1, TRUE))),
             "1, Open=Ctrl+O save= Refresh=F5 Close=Ctrl+S"),
        // The sort is restored and the selection kept.
        CASE((begin().SortItemsByColumn(0), list->SelectItem(3), list->Filter(_T("s")),
              list->SortItemsByColumn(1), list->Filter(_T("")), after(list->GetSortColumn())),
             "0, Close= Open=Ctrl+O Refresh=F5 *save=Ctrl+S"),
        CASE((begin().SelectItem(0), list->SelectItem(3), list->ClearSelectedShortcutKeys(),
              after(list->GetSelectedItemsAssignedShortcutKeyCount())),
             "0, *Open= save=Ctrl+S Refresh=F5 *Close="),
        CASE((begin().SetShortcutKey(3, ctrlS), after(list->ResetShortcutKey(1))),
             "1, Open=Ctrl+O save=Ctrl+S Refresh=F5 Close="),
        CASE((begin().ClearShortcutKey(0, TRUE), list->ResetAllKeyboardShortcuts(), after(0)),
             "0, Open=Ctrl+O save=Ctrl+S Refresh=F5 Close="),
        // The table has the key without the extended bit.
        CASE(
            (begin().SetShortcutKey(3, Key(VK_DELETE, kCtrl)), after(find(VK_DELETE, kCtrl, true))),
            "3, Open=Ctrl+O save=Ctrl+S Refresh=F5 *Close=Ctrl+Delete"),
        CASE(after(begin().RemoveKeyboardMappingScheme(0)), "1, "),
    });
    EXPECT_EQ(scheme, FourCommands()) << "the list edits rows of its own";
}

// Sorts by the length of the commands, of its own.
class ListByLength : public List {
public:
    void DoSortItems(int, int) override {
        SortRows([](CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second) {
            return first->GetSubItemText(0).GetLength() < second->GetSubItemText(0).GetLength();
        });
    }
};

TEST(KeyboardShortcutListCtrl, EditsTheRowsThatAreShownInAnyOrder) {
    CKeyboardMappingScheme scheme = FourCommands();
    scheme.AddKeyboardShortcut({5, _T("Go"), Key('G', kCtrl)});
    ListParent parent;
    ListByLength list;
    ASSERT_TRUE(list.Create(WS_VISIBLE, kListPlace, &parent, 5));
    list.AddKeyboardMappingScheme(&scheme);
    list.LoadKeyboardMappingScheme(0);
    list.SortItemsByColumn(0);
    EXPECT_EQ(TextsOf(list), "Go=Ctrl+G Open=Ctrl+O save=Ctrl+S Close= Refresh=F5");
    EXPECT_EQ(list.FindShortcutKey(Key(VK_F5)), 4);
    EXPECT_TRUE(list.ClearShortcutKey(0, FALSE));
    EXPECT_EQ(list.GetKeyboardShortcutVirtualListCtrlItem(3)->GetSubItemText(0), _T("Close"));
    EXPECT_TRUE(list.SetShortcutKey(3, Key('S', kCtrl)));
    EXPECT_EQ(TextsOf(list), "Go= Open=Ctrl+O save= Close=Ctrl+S Refresh=F5");
}

TEST(KeyboardShortcutListCtrl, IsAReportHoweverItIsCreated) {
    const CKeyboardMappingScheme scheme = FourCommands();
    ListParent parent;
    List list;
    CVaskListCtrl& base = list;
    list.AddKeyboardMappingScheme(&scheme);
    for (const bool isBase : {false, true}) { // the second window has the columns too
        ASSERT_TRUE(isBase ? base.Create(WS_VISIBLE, kListPlace, &parent, 5)
                           : list.CreateEx(WS_EX_CLIENTEDGE, WC_LISTVIEWW, nullptr,
                                           WS_CHILD | WS_VISIBLE | LVS_LIST, 0, 0, 400, 200,
                                           parent.m_hWnd, nullptr));
        EXPECT_EQ(HeaderOf(list).GetItemCount(), int{List::NUM_COLUMNS});
        list.LoadKeyboardMappingScheme(0);
        EXPECT_EQ(TextsOf(list), "Open=Ctrl+O save=Ctrl+S Refresh=F5 Close=");
        list.DestroyWindow();
    }
}

// What it does without a window concerns no other.
TEST(KeyboardShortcutListCtrl, InvalidatesNoOtherWindow) {
    const CKeyboardMappingScheme scheme = FourCommands();
    ListParent other;
    other.Invalidate();
    ASSERT_TRUE(::GetUpdateRect(other.m_hWnd, nullptr, FALSE)) << "is visible";
    ::ValidateRect(other.m_hWnd, nullptr);
    List list;
    list.AddKeyboardMappingScheme(&scheme);
    EXPECT_TRUE(list.LoadKeyboardMappingScheme(0));
    EXPECT_TRUE(list.SortItems(List::COLUMN_SHORTCUT_KEY, TRUE, TRUE));
    EXPECT_TRUE(list.SetShortcutKey(3, Key('S', kCtrl)));
    EXPECT_TRUE(list.Filter(_T("ctrl")));
    list.SetSortColumn(List::COLUMN_COMMAND);
    list.ResetAllKeyboardShortcuts();
    EXPECT_FALSE(::GetUpdateRect(other.m_hWnd, nullptr, FALSE));
}

TEST(KeyboardShortcutListCtrl, MayBeDestroyedByItsNotifications) {
    const CKeyboardMappingScheme scheme = FourCommands();
    const struct {
        const char* label;
        std::function<int(List&)> act;
        int result;
    } rows[] = {
        {"set", [](List& l) { return l.SetShortcutKey(3, Key('A', kCtrl)); }, TRUE},
        {"clear", [](List& l) { return l.ClearSelectedShortcutKeys(), 0; }, 0},
        {"filter", [](List& l) { return l.Filter(_T("ctrl+s")); }, TRUE},
        {"a new layout",
         [](List& l) {
             l.SetShortcutKey(0, Key('Z', kCtrl));
             l.SendMessage(WM_INPUTLANGCHANGE);
             return 0;
         },
         0},
        {"find",
         [](List& l) {
             DialogDriver driver({PressKey(VK_F5)});
             return l.FindByPressingKey();
         },
         2},
        {"find, destroyed before the key",
         [](List& l) {
             DialogDriver driver({[&l](HWND) { l.UnselectAllItems(); }, PressKey(VK_F5)});
             return l.FindByPressingKey();
         },
         -1},
    };
    ListParent parent;
    for (const auto& row : rows) {
        List* list = new List;
        ASSERT_TRUE(list->Create(WS_VISIBLE, kListPlace, &parent, 5));
        list->AddKeyboardMappingScheme(&scheme);
        list->LoadKeyboardMappingScheme(0);
        list->SortItemsByColumn(List::COLUMN_SHORTCUT_KEY);
        list->SelectItem(0);
        parent.m_onNotify = [&](const NMHDR& header) {
            if (header.code == UINT{LVN_ITEMCHANGED} && list != nullptr)
                delete std::exchange(list, nullptr);
        };
        EXPECT_EQ(row.act(*list), row.result) << row.label;
        EXPECT_EQ(list, nullptr) << row.label;
        parent.m_onNotify = nullptr;
        delete list;
    }
}

TEST(KeyboardShortcutListCtrl, GivesItsRowsBack) {
    const CKeyboardMappingScheme scheme = FourCommands();
    ListParent parent;
    List list;
    ASSERT_TRUE(list.Create(WS_VISIBLE, kListPlace, &parent, 5));
    list.AddKeyboardMappingScheme(&scheme);
    list.LoadKeyboardMappingScheme(0);
    list.SetShortcutKey(3, Key('S', kCtrl));
    List::SchemeRows rows;
    EXPECT_FALSE(list.GetKeyboardMappingScheme(1, rows));
    EXPECT_TRUE(list.GetKeyboardMappingScheme(0, rows));
    ASSERT_EQ(rows.second.size(), 4u);
    EXPECT_EQ(rows.second[3].get(), list.GetKeyboardShortcutVirtualListCtrlItem(3));
    CKeyboardMappingScheme edited;
    EXPECT_TRUE(list.GetEditedKeyboardMappingScheme(0, edited));
    EXPECT_EQ(TextOf(edited), "1 Open C79; 2 save -; 3 Refresh 116; 4 Close C83");
    EXPECT_EQ(edited.GetName(), _T("Default"));
    EXPECT_EQ(list.GetFilteredItem(0), nullptr) << "not filtered";
    list.Filter(_T("close"));
    EXPECT_EQ(list.GetFilteredItem(0), rows.second[3].get());
}

TEST(MenuShortcuts, FollowTheScheme) {
    CKeyboardMappingScheme scheme = FourCommands();
    CMenu menu;
    CMenu below;
    menu.CreateMenu();
    below.CreatePopupMenu();
    below.AppendMenu(MF_STRING, 1, _T("&Open...\tF12"));
    below.AppendMenu(MF_SEPARATOR);
    below.AppendMenu(MF_STRING | MF_GRAYED, 3, _T("Refresh"));
    below.AppendMenu(MF_STRING, 99, _T("Other\tF9"));
    menu.AppendMenu(MF_STRING, 4, _T("&Close\tF8"));
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(below.Detach()), _T("&File"));
    const auto text = [&menu](UINT id) {
        CString item;
        menu.GetMenuString(id, item, MF_BYCOMMAND);
        return item;
    };
    EXPECT_EQ(AfxUpdateMenuShortcuts(menu, scheme), 3);
    ExpectCases<CString>({CASE(text(1), _T("&Open...\tCtrl+O")), CASE(text(3), _T("Refresh\tF5")),
                          CASE(text(99), _T("Other\tF9")), CASE(text(4), _T("&Close"))});
    EXPECT_EQ(AfxUpdateMenuShortcuts(menu, scheme), 0);
    scheme.SetShortcutKey(4, Key('O', kCtrl));
    EXPECT_EQ(AfxUpdateMenuShortcuts(menu, scheme), 2);
    ExpectCases<CString>({CASE(text(1), _T("&Open...")), CASE(text(4), _T("&Close\tCtrl+O"))});
    EXPECT_NE(menu.GetMenuState(3, MF_BYCOMMAND) & MF_GRAYED, 0u);
    // A scheme that is in no order, with a command that has only its second key.
    CKeyboardMappingScheme table;
    table.SetKeyboardShortcuts(
        {{99, Key(VK_F4)}, {4, CShortcutKey()}, {4, Key(VK_F7)}, {1, Key('O', kCtrl)}});
    EXPECT_EQ(AfxUpdateMenuShortcuts(menu, table), 3);
    ExpectCases<CString>({CASE(text(1), _T("&Open...\tCtrl+O")), CASE(text(99), _T("Other\tF4")),
                          CASE(text(4), _T("&Close\tF7"))});
    CMenu none;
    EXPECT_EQ(AfxUpdateMenuShortcuts(none, scheme), 0);
}

TEST(MenuShortcuts, BeginASchemeWithTheCommandsOfAMenu) {
    CMenu menu;
    CMenu below;
    menu.CreateMenu();
    below.CreatePopupMenu();
    below.AppendMenu(MF_STRING, 11, _T("&Print && fold...\tCtrl+P"));
    below.AppendMenu(MF_SEPARATOR);
    below.AppendMenu(MF_STRING, 3, _T("Another name"));
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(below.Detach()), _T("&File"));
    menu.AppendMenu(MF_STRING | MF_GRAYED, 10, _T("E&xit"));
    CKeyboardMappingScheme scheme = FourCommands();
    EXPECT_EQ(AfxAddMenuCommands(menu, scheme), 2);
    EXPECT_EQ(TextOf(scheme), "1 Open C79; 2 save C83; 3 Refresh 116; 4 Close -; 10 Exit -; "
                              "11 Print & fold... -");
    EXPECT_EQ(AfxAddMenuCommands(menu, scheme), 0);
    EXPECT_EQ(AfxAddMenuCommands(CMenu(), scheme), 0);
}

TEST(KeyboardShortcutsPage, EditsTheScheme) {
    const int list = 101, field = 102, assign = 103, clear = 104, reset = 105, resetAll = 106;
    const auto press = [](int id) {
        return [id](HWND sheet) { ClickOn(id)(::GetWindow(sheet, GW_CHILD)); };
    };
    const auto filter = [field](const WCHAR* text) {
        return [=](HWND sheet) { ::SetDlgItemTextW(::GetWindow(sheet, GW_CHILD), field, text); };
    };
    const Step toList = [list](HWND sheet) {
        ::SetFocus(::GetDlgItem(::GetWindow(sheet, GW_CHILD), list));
    };
    const char kAsBefore[] = "1 Open C79; 2 save C83; 3 Refresh 116; 4 Close -";
    const struct {
        const char* label;
        std::vector<Step> steps;
        int button;
        const char* scheme;
    } rows[] = {
        {"assigned under a filter",
         Steps(filter(_T("close")), press(assign), PressKey('O', kCtrl), ReleaseKeys(),
               PressKey(VK_RETURN)),
         IDOK, "1 Open -; 2 save C83; 3 Refresh 116; 4 Close C79"},
        {"not assigned",
         Steps(filter(_T("close")), press(assign), PressKey('O', kCtrl), ReleaseKeys(),
               ClickOn(IDCANCEL)),
         IDOK, kAsBefore},
        {"cleared, reset and cleared by a key",
         Steps(press(clear), press(reset), filter(_T("save")), toList, PressKey(VK_DELETE)), IDOK,
         "1 Open C79; 2 save -; 3 Refresh 116; 4 Close -"},
        {"all reset", Steps(press(clear), filter(_T("save")), press(clear), press(resetAll)), IDOK,
         kAsBefore},
        {"nothing matches", Steps(filter(_T("xyz")), press(assign), press(clear)), IDOK, kAsBefore},
        {"cancelled", Steps(press(clear)), IDCANCEL, kAsBefore},
    };
    for (const auto& row : rows) {
        CKeyboardMappingScheme scheme = FourCommands();
        CKeyboardShortcutsPage page(100, {list, field, assign, clear, reset, resetAll}, scheme);
        CVaskPropertySheet sheet(_T("Options"));
        sheet.AddPage(&page);
        std::vector<Step> steps = row.steps;
        steps.push_back(ClickOn(row.button));
        DialogDriver driver(steps);
        sheet.DoModal();
        EXPECT_TRUE(driver.HasRun()) << row.label;
        EXPECT_EQ(TextOf(scheme), row.scheme) << row.label;
    }
}
