// The columns dialog, driven by a user's keys and clicks, in both languages.
#include <quorvel/controls/win/columns_dlg.h>
#include <quorvel/controls/win/vask_list_ctrl.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>

#include "controls/win/list_window.h"
#include "support/german_texts.h"
#include "support/win/dialog_driver.h"

namespace {

typedef DialogDriver::Step Step;

Step Select(int row) {
    return [row](HWND box) {
        const HWND list = ::GetDlgItem(box, QUORVEL_COLUMNS_LIST);
        ::SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
        ::SendMessageW(box, WM_COMMAND, MAKEWPARAM(QUORVEL_COLUMNS_LIST, LBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(list));
        ::SetFocus(list);
    };
}
// Alt and a letter.
Step Mnemonic(char letter) {
    return [letter](HWND) { ::PostMessageW(::GetFocus(), WM_SYSCHAR, letter, 1 << 29); };
}
Step Type(const WCHAR* width) {
    return [width](HWND box) { ::SetDlgItemTextW(box, QUORVEL_COLUMNS_WIDTH, width); };
}

// The rows (a star marks the selected row), then the width and the enabled buttons.
std::string StateOf(HWND box) {
    const HWND window = ::GetDlgItem(box, QUORVEL_COLUMNS_LIST);
    CCheckListBox& list = *static_cast<CCheckListBox*>(CWnd::FromHandlePermanent(window));
    std::string text;
    for (int i = 0; i < list.GetCount(); ++i) {
        text += i == list.GetCurSel() ? "*" : "";
        text += list.GetCheck(i) == BST_CHECKED ? "+" : "-";
        text += std::to_string(list.GetItemData(i)) + " ";
    }
    text += TextOf(::GetDlgItem(box, QUORVEL_COLUMNS_WIDTH)).ToUTF8();
    for (const auto& [id, name] : {std::pair(QUORVEL_COLUMNS_MOVE_UP, " up"),
                                   {QUORVEL_COLUMNS_MOVE_DOWN, " down"},
                                   {QUORVEL_COLUMNS_RESET, " reset"}})
        text += ::IsWindowEnabled(::GetDlgItem(box, id)) ? name : "";
    return text;
}

TEST(ColumnsDlg, EditsColumnsByKeysAndClicks) {
    ListParent parent;
    // The dialog before the last step, and the columns then: at first 2 0 1 shown and 3 hidden.
    const auto edit = [&](std::vector<Step> steps) {
        CVaskListCtrl list;
        EXPECT_TRUE(list.Create(WS_VISIBLE | LVS_REPORT, kListPlace, &parent, 5));
        for (int i = 0; i < 4; ++i)
            list.InsertVaskColumn(i, i, i < 3, _T("Name"), LVCFMT_LEFT, 50 + 10 * i);
        const int order[] = {2, 0, 1};
        list.SetColumnOrderArray(3, order);
        std::string state;
        steps.insert(steps.end() - 1, [&state](HWND box) { state = StateOf(box); });
        DialogDriver driver(std::move(steps));
        state += list.EditColumns() == IDOK ? " OK " : " Cancel ";
        EXPECT_TRUE(driver.HasRun());
        return state + ColumnsOf(list);
    };
    const Step space = Press(VK_SPACE), enter = Press(VK_RETURN), down = Mnemonic('d');
    ExpectCases<std::string>({
        CASE(edit({down, down, enter}), "+0 +1 *+2 -3 70 up down reset OK 0:50 1:60 2:70 | 3:80"),
        CASE(edit({Select(1), space, Select(3), space, enter}),
             "+2 -0 +1 *+3 80 up reset OK 2:70 1:60 3:80 | 0:50"),
        CASE(edit({Type(_T("12345")), Select(3), Type(_T("x")), enter}),
             "+2 +0 +1 *-3 x up reset OK 2:9999 0:50 1:60 | 3:0"),
    });
    // Return does not end it without a checked row.
    EXPECT_EQ(edit({Select(0), space, Select(1), space, Select(2), space, enter, Press(VK_ESCAPE)}),
              "-2 -0 *-1 -3 60 up down reset Cancel 2:70 0:50 1:60 | 3:80");
    const GermanTexts german;
    EXPECT_EQ(edit({Mnemonic('z'), Select(2), Mnemonic('o'), enter}),
              "+0 *+2 +1 +3 100 up down reset OK 0:100 2:100 1:100 3:100");
}

} // namespace
