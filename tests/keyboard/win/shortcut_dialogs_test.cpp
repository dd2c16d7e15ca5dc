// The list of shortcuts, its dialogs and accelerator tables, with real key messages; menus that
// show keys.
#include <quorvel/controls/win/vask_property_sheet.h>
#include <quorvel/keyboard/win/assign_shortcut_dlg.h>
#include <quorvel/keyboard/win/capture_shortcut_key_dlg.h>
#include <quorvel/keyboard/win/keyboard_shortcut_list_ctrl.h>
#include <quorvel/keyboard/win/keyboard_shortcuts_page.h>
#include <quorvel/keyboard/win/menu_shortcuts.h>
#include <quorvel/res/resource_ids.h>

#include "controls/win/list_window.h"
#include "keyboard/shortcuts.h"
#include "support/win/dialog_driver.h"

#include <boost/shared_ptr.hpp>
#include <optional>

namespace {

typedef DialogDriver::Step Step;
typedef CKeyboardShortcutListCtrl List;

// The modifiers that count as pressed.
void Hold(int modifiers) {
    BYTE state[256] = {};
    state[VK_CONTROL] = (modifiers & kCtrl) != 0 ? 0x80 : 0;
    state[VK_SHIFT] = (modifiers & kShift) != 0 ? 0x80 : 0;
    state[VK_MENU] = (modifiers & kAlt) != 0 ? 0x80 : 0;
    ::SetKeyboardState(state);
}
// The message comes from the queue.
Step PressKey(UINT code, int modifiers = 0, bool isExtended = false) {
    return [=](HWND box) {
        Hold(modifiers);
        const bool isSystemKey = (modifiers & kAlt) != 0 || code == VK_F10;
        ::PostMessageW(KeyboardOf(box), isSystemKey ? WM_SYSKEYDOWN : WM_KEYDOWN, code,
                       1 | (isExtended ? 1 << 24 : 0) | ((modifiers & kAlt) != 0 ? 1 << 29 : 0));
    };
}
Step ReleaseKeys() {
    return [](HWND) { Hold(0); };
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

void Show(List& list, ListParent& parent, const CKeyboardMappingScheme& scheme) {
    EXPECT_TRUE(list.Create(WS_VISIBLE, kListPlace, &parent, 5));
    EXPECT_EQ(list.AddKeyboardMappingScheme(&scheme), 0);
    EXPECT_TRUE(list.LoadKeyboardMappingScheme(0));
}

} // namespace

TEST(AcceleratorTable, IsReadBackAndTranslated) {
    CKeyboardMappingScheme scheme;
    scheme.SetKeyboardShortcuts({{200, CShortcutKey()}});
    EXPECT_EQ(scheme.CreateAcceleratorTableW(), nullptr);
    scheme.AddKeyboardShortcut({100, Key(VK_F5, kCtrl)});
    scheme.AddKeyboardShortcut({300, Key('S', kCtrl | kShift)});
    const HACCEL table = scheme.CreateAcceleratorTableW();
    ASSERT_NE(table, nullptr);

    ACCEL entries[4] = {};
    const int count = ::CopyAcceleratorTableW(table, entries, 4);
    CKeyboardMappingScheme back;
    ASSERT_TRUE(back.SetUsingAcceleratorTable(entries, count));
    EXPECT_EQ(TextOf(back), "100 C116; 300 CS83");

    const std::tuple<UINT, int, int> rows[] = {
        {VK_F5, kCtrl, 100}, {'S', kCtrl | kShift, 300}, {'S', kCtrl, 0}};
    for (const auto& [code, modifiers, expected] : rows) {
        ListParent window;
        int command = 0;
        window.m_onMessage = [&command](UINT message, WPARAM wParam) {
            command = message == WM_COMMAND ? LOWORD(wParam) : command;
        };
        Hold(modifiers);
        MSG message = {window.m_hWnd, WM_KEYDOWN, code, 1, 0, {}};
        ::TranslateAcceleratorW(window.m_hWnd, table, &message);
        Hold(0);
        EXPECT_EQ(command, expected) << code;
    }
    ::DestroyAcceleratorTable(table);
}

TEST(CaptureShortcutKeyDlg, TakesTheNextKey) {
    const auto capture = [](std::vector<Step> steps) {
        CCaptureShortcutKeyDlg dialog;
        DialogDriver driver(std::move(steps));
        const INT_PTR result = dialog.DoModal();
        EXPECT_TRUE(driver.HasRun());
        Hold(0);
        return (result == IDOK ? "" : "cancelled: ") + TextOf(dialog.GetShortcutKey());
    };
    ExpectCases<std::string>({
        CASE(capture({PressKey(VK_RETURN)}), "13"), CASE(capture({PressKey(VK_ESCAPE)}), "27"),
        CASE(capture({PressKey(VK_TAB)}), "9"), CASE(capture({PressKey(VK_SPACE)}), "32"),
        CASE(capture({PressKey(VK_SHIFT, kShift), PressKey('A', kShift)}), "S65"),
        CASE(capture({PressKey(VK_F10)}), "121"), CASE(capture({PressKey(VK_F4, kAlt)}), "A115"),
        CASE(capture({PressKey('A', kCtrl | kShift)}), "CS65"),
        CASE(capture({PressKey(VK_DELETE, 0, true)}), "x46"),
        CASE(capture({PressKey(VK_CONTROL, kCtrl), PressKey(VK_MENU, kAlt), ReleaseKeys(),
                      ClickOn(IDCANCEL)}),
             "cancelled: -"), // modifiers alone are no key
    });
}

TEST(ShortcutDialogs, TheReleaseOfAltOpensNoMenu) {
    constexpr LPARAM kReleased = static_cast<LPARAM>(0xc0000001);
    const Step releaseAlt = [](HWND box) {
        Hold(0);
        ::PostMessageW(KeyboardOf(box), WM_SYSKEYUP, VK_MENU, kReleased);
    };
    const CKeyboardMappingScheme scheme = FourCommands();
    const auto menusAfter = [&](bool isCapture, bool isAltHeld, std::vector<Step> steps) {
        ListParent owner;
        int menus = 0;
        owner.m_onMessage = [&menus](UINT message, WPARAM wParam) {
            menus += message == WM_SYSCOMMAND && (wParam & 0xfff0) == SC_KEYMENU;
        };
        CCaptureShortcutKeyDlg capture(&owner);
        CAssignShortcutDlg assign(scheme, 4, &owner);
        DialogDriver driver(std::move(steps));
        EXPECT_NE((isCapture ? static_cast<CDialog&>(capture) : assign).DoModal(), -99);
        if (!isAltHeld)
            owner.SendMessage(WM_SYSKEYDOWN, VK_MENU, 1 | 1 << 29);
        Hold(0);
        owner.SendMessage(WM_SYSKEYUP, VK_MENU, kReleased);
        return menus;
    };
    const Step alt = PressKey(VK_MENU, kAlt), altS = PressKey('S', kAlt);
    ExpectCases<int>({
        CASE(menusAfter(true, true, {alt, altS}), 0),
        CASE(menusAfter(true, false, {PressKey('S')}), 1),
        CASE(menusAfter(false, false, {alt, altS, releaseAlt, PressKey(VK_RETURN)}), 1),
        CASE(menusAfter(false, false, {alt, releaseAlt, PressKey(VK_ESCAPE)}), 1),
    });
}

TEST(AssignShortcutDlg, ShowsTheKeyAndWhatSpeaksAgainstIt) {
    const CKeyboardMappingScheme scheme = FourCommands();
    std::string seen;
    const Step look = [&seen](HWND box) {
        seen += "; " + TextOf(::GetDlgItem(box, QUORVEL_ASSIGN_KEY)).ToUTF8() + "|" +
                TextOf(::GetDlgItem(box, QUORVEL_ASSIGN_REPORT)).ToUTF8() + "|" +
                (::IsWindowEnabled(::GetDlgItem(box, IDOK)) ? "ok" : "no");
    };
    const auto assign = [&](unsigned int command, std::vector<Step> steps) {
        seen.clear();
        CAssignShortcutDlg dialog(scheme, command);
        DialogDriver driver(std::move(steps));
        const INT_PTR result = dialog.DoModal();
        EXPECT_TRUE(driver.HasRun());
        Hold(0);
        return (result == IDOK ? "" : "cancelled: ") + TextOf(dialog.GetShortcutKey()) + seen;
    };
    const Step release = ReleaseKeys(), enter = PressKey(VK_RETURN), tab = PressKey(VK_TAB),
               ctrlQ = PressKey('Q', kCtrl);
    const Step releaseSpace = [](HWND box) {
        ::PostMessageW(KeyboardOf(box), WM_KEYUP, VK_SPACE, 0xc0000001);
    };
    ExpectCases<std::string>({
        CASE(assign(4, {look, PressKey('N', kCtrl), release, look, enter}),
             "C78; ||no; Ctrl+N|Ctrl+N is free.|ok"),
        CASE(assign(4, {PressKey('S', kCtrl), release, look, enter}),
             "C83; Ctrl+S|At present Ctrl+S belongs to the command save, which will lose it.|ok"),
        CASE(assign(4, {ctrlQ, PressKey(VK_F6, kShift), release, enter}), "S117"),
        CASE(assign(4, {ctrlQ, release, PressKey(VK_ESCAPE)}), "cancelled: C81"),
        CASE(assign(4, {PressKey(VK_F4, kCtrl | kAlt), release, enter}), "CA115"),
        // Tab reaches the button that clears.
        CASE(assign(2, {look, tab, tab, tab, PressKey(VK_SPACE), releaseSpace}),
             "-; Ctrl+S|Ctrl+S is free.|ok"),
    });
}

TEST(KeyboardShortcutListCtrl, EditsTheRowsThatItShows) {
    const CKeyboardMappingScheme scheme = FourCommands();
    const CShortcutKey ctrlS = Key('S', kCtrl);
    ListParent parent;
    std::optional<List> list;
    const auto begin = [&]() -> List& {
        list.emplace();
        Show(*list, parent, scheme);
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
        // The table has the key without the extended bit.
        CASE((begin().SetShortcutKey(3, Key(VK_DELETE)), after(find(VK_DELETE, 0, true))),
             "3, Open=Ctrl+O save=Ctrl+S Refresh=F5 *Close=Delete"),
        CASE(after(begin().RemoveKeyboardMappingScheme(0)), "1, "),
    });
    EXPECT_EQ(scheme, FourCommands()) << "the list edits rows of its own";
}

TEST(KeyboardShortcutListCtrl, IsAReportInASecondWindowToo) {
    const CKeyboardMappingScheme scheme = FourCommands();
    ListParent parent;
    List list;
    Show(list, parent, scheme);
    list.DestroyWindow();
    ASSERT_TRUE(list.CreateEx(WS_EX_CLIENTEDGE, WC_LISTVIEWW, nullptr,
                              WS_CHILD | WS_VISIBLE | LVS_LIST, 0, 0, 400, 200, parent.m_hWnd,
                              nullptr));
    EXPECT_EQ(HeaderOf(list).GetItemCount(), int{List::NUM_COLUMNS});
    list.LoadKeyboardMappingScheme(0);
    EXPECT_EQ(TextsOf(list), "Open=Ctrl+O save=Ctrl+S Refresh=F5 Close=");
}

TEST(KeyboardShortcutListCtrl, MayBeDestroyedByItsNotifications) {
    const CKeyboardMappingScheme scheme = FourCommands();
    ListParent parent;
    List* list = nullptr;
    const auto begin = [&]() -> List& {
        list = new List;
        Show(*list, parent, scheme);
        list->SortItemsByColumn(List::COLUMN_SHORTCUT_KEY);
        list->SelectItem(0);
        parent.m_onNotify = [&](const NMHDR& header) {
            if (header.code == UINT{LVN_ITEMCHANGED} && list != nullptr)
                delete std::exchange(list, nullptr);
        };
        return *list;
    };
    const auto after = [&](int result) {
        EXPECT_EQ(list, nullptr);
        parent.m_onNotify = nullptr;
        delete std::exchange(list, nullptr);
        return result;
    };
    const auto find = [&](List& in, std::vector<Step> steps) {
        DialogDriver driver(std::move(steps));
        return in.FindByPressingKey();
    };
    const auto changeLayout = [](List& in) { // the first row is then the last one
        auto* const row = in.GetKeyboardShortcutVirtualListCtrlItem(0);
        row->GetKeyboardShortcut().SetShortcutKey(Key('Z', kCtrl));
        return static_cast<int>(in.SendMessage(WM_INPUTLANGCHANGE));
    };
    const Step destroy = [&](HWND) { list->UnselectAllItems(); };
    ExpectCases<int>({
        CASE(after(begin().SetShortcutKey(3, Key('A', kCtrl))), TRUE),
        CASE((begin().ClearSelectedShortcutKeys(), after(0)), 0),
        CASE(after(begin().Filter(_T("ctrl+s"))), TRUE),
        CASE(after(changeLayout(begin())), 0),
        CASE(after(find(begin(), {PressKey(VK_F5)})), 2),
        CASE(after(find(begin(), {destroy, PressKey(VK_F5)})), -1),
    });
}

TEST(MenuShortcuts, FollowTheSchemeAndExtendIt) {
    CKeyboardMappingScheme scheme = FourCommands();
    CMenu menu;
    CMenu below;
    menu.CreateMenu();
    below.CreatePopupMenu();
    below.AppendMenu(MF_STRING, 1, _T("&Open...\tF12"));
    below.AppendMenu(MF_SEPARATOR);
    below.AppendMenu(MF_STRING | MF_GRAYED, 3, _T("Refresh"));
    below.AppendMenu(MF_STRING, 99, _T("&Print && fold...\tF9"));
    menu.AppendMenu(MF_STRING, 4, _T("&Close\tF8"));
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(below.Detach()), _T("&File"));
    CKeyboardMappingScheme extended = scheme; // by the commands that it has not
    EXPECT_EQ(AfxAddMenuCommands(menu, extended), 1);
    EXPECT_EQ(TextOf(extended),
              "1 Open C79; 2 save C83; 3 Refresh 116; 4 Close -; 99 Print & fold... -");
    EXPECT_EQ(AfxAddMenuCommands(menu, extended) + AfxAddMenuCommands(CMenu(), scheme), 0);

    // The number of changed items, and the menu then.
    const auto update = [&menu](const CKeyboardMappingScheme& by) {
        std::string text = std::to_string(AfxUpdateMenuShortcuts(menu, by));
        for (const UINT id : {1, 3, 99, 4}) {
            CString item;
            menu.GetMenuString(id, item, MF_BYCOMMAND);
            text += " | " + item.ToUTF8();
        }
        return text;
    };
    const char kFirst[] = " | &Open...\tCtrl+O | Refresh\tF5 | &Print && fold...\tF9 | &Close";
    EXPECT_EQ(update(scheme), std::string("3") + kFirst);
    EXPECT_EQ(update(scheme), std::string("0") + kFirst);
    EXPECT_NE(menu.GetMenuState(3, MF_BYCOMMAND) & MF_GRAYED, 0u);
    // A scheme that is in no order, with a command that has only its second key.
    scheme.SetKeyboardShortcuts(
        {{99, Key(VK_F4)}, {4, CShortcutKey()}, {4, Key(VK_F7)}, {1, CShortcutKey()}});
    EXPECT_EQ(update(scheme), "3 | &Open... | Refresh\tF5 | &Print && fold...\tF4 | &Close\tF7");
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
    const auto edit = [&](std::vector<Step> steps) {
        CKeyboardMappingScheme scheme = FourCommands();
        CKeyboardShortcutsPage page(100, {list, field, assign, clear, reset, resetAll}, scheme);
        CVaskPropertySheet sheet(_T("Options"));
        sheet.AddPage(&page);
        DialogDriver driver(std::move(steps));
        sheet.DoModal();
        EXPECT_TRUE(driver.HasRun());
        return TextOf(scheme);
    };
    const Step ok = ClickOn(IDOK), cancel = ClickOn(IDCANCEL), del = PressKey(VK_DELETE),
               ctrlO = PressKey('O', kCtrl), enter = PressKey(VK_RETURN);
    ExpectCases<std::string>({
        CASE(edit({filter(_T("close")), press(assign), ctrlO, ReleaseKeys(), enter, ok}),
             "1 Open -; 2 save C83; 3 Refresh 116; 4 Close C79"),
        CASE(edit({press(clear), press(reset), filter(_T("save")), toList, del, ok}),
             "1 Open C79; 2 save -; 3 Refresh 116; 4 Close -"),
        CASE(edit({press(clear), filter(_T("save")), press(clear), press(resetAll), ok}),
             kAsBefore),
        CASE(edit({press(clear), cancel}), kAsBefore),
    });
}
