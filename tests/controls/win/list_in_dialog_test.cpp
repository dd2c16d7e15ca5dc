// Lists in dialogs and pages: their keys, their state, and changes of system settings while they
// are open.
#include <quorvel/controls/win/auto_complete_edit.h>
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/controls/win/vask_property_sheet.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/win/data_exchange.h>

#include "controls/win/dialog_ids.h"
#include "controls/win/list_window.h"
#include "support/registry.h"
#include "support/system_colors.h"
#include "support/win/dialog_driver.h"

namespace {

typedef DialogDriver::Step Step;

class CSortedList : public CVaskListCtrl {
public:
    std::string m_sorted;
    void LoadDefaultColumnWidths() override {} // keeps the widths in pixels that are set here

protected:
    BOOL SortItems(int column, int ascending, int) override {
        m_sorted += std::to_string(column) + (ascending ? "up " : "down ");
        return TRUE;
    }
};

// Declares each list and each edit with one of the possible places: the test's key, the path "Path"
// below it and the sections "Section" and "Edits".
template <class Base>
class Lists : public Base {
public:
    Lists(UINT templateId, const TestKey& key) : Base(templateId), m_key(key) {}

    CSortedList m_lists[3];
    CVaskListCtrl m_listWithoutWindow;
    CAutoCompleteEdit m_edits[2];
    CAutoCompleteEdit m_editWithoutWindow;
    CFont m_ownFont; // used if set: the platform does not let it change

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        return message == WM_GETFONT && m_ownFont.GetSafeHandle() != nullptr
                   ? reinterpret_cast<LRESULT>(m_ownFont.GetSafeHandle())
                   : Base::WindowProc(message, wParam, lParam);
    }
    void DoDataExchange(CDataExchange* exchange) override {
        Base::DoDataExchange(exchange);
        DDX_Control(exchange, FIELD_NAME, m_edits[0]);
        DDX_Control(exchange, FIELD_NOTE, m_edits[1]);
        for (int i = 0; i < 3; ++i)
            DDX_Control(exchange, FIELD_LIST + i, m_lists[i]);
    }
    BOOL LoadData() override {
        for (CVaskListCtrl& list : m_lists) {
            for (int i = 0; i < 3; ++i)
                list.InsertVaskColumn(i, i, TRUE, _T("Name"), LVCFMT_LEFT, 50 + 10 * i);
        }
        return TRUE;
    }
    void GetBoldControlIDs(std::vector<int>& ids) override { ids = {FIELD_LABEL}; }

    using Base::GetStateAutoCompleteEditCtrls;
    using Base::GetStateListCtrls;
    void GetStateAutoCompleteEditCtrls(quorvel::EditKeys& edits, int) override {
        edits.SetAt(&m_edits[0], m_key.Get());
    }
    void GetStateAutoCompleteEditCtrls(quorvel::EditSections& edits, int) override {
        edits.SetAt(&m_edits[1], _T("Edits"));
        edits.SetAt(&m_editWithoutWindow, _T("Edits"));
    }
    void GetStateListCtrls(quorvel::ListKeys& lists, int) override {
        lists.SetAt(&m_lists[0], m_key.Get());
    }
    void GetStateListCtrls(quorvel::ListSections& lists, int) override {
        lists.SetAt(&m_lists[1], _T("Section"));
    }
    void GetStateListCtrls(quorvel::ListPaths& lists, int) override {
        lists.SetAt(&m_lists[2], {HKEY_CURRENT_USER, m_key.Path() + _T("\\Path")});
        lists.SetAt(&m_listWithoutWindow, {HKEY_CURRENT_USER, m_key.Path() + _T("\\None")});
    }

private:
    const TestKey& m_key;
};
typedef Lists<CVaskDialog> CListsDlg;
typedef Lists<CVaskPropertyPage> CListsPage;

class ListInDialog : public testing::Test {
protected:
    ListInDialog() : m_app(_T("Lists")) {
        ::CoInitialize(nullptr);
        // The profile's sections are then below the test's key.
        m_app.SetRegistryKey(_T("Quorvel tests"));
        ::free(const_cast<WCHAR*>(m_app.m_pszProfileName));
        m_app.m_pszProfileName = ::wcsdup(m_key.Path().Mid(m_key.Path().ReverseFind('\\') + 1));
    }
    ~ListInDialog() override { ::CoUninitialize(); }

    TestKey m_key;
    CWinApp m_app;
};

// Each shows the lists and ends after the step.
template <class Step>
void ShowDialog(const TestKey& key, const Step& step) {
    CListsDlg dialog(DIALOG_LISTS, key);
    DialogDriver driver({[&](HWND) { step(dialog); }, Press(VK_ESCAPE)});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}
template <class Step>
void ShowPage(const TestKey& key, const Step& step) {
    CListsPage page(PAGE_LISTS, key);
    CVaskPropertySheet sheet(_T("Sheet"));
    sheet.AddPage(&page);
    DialogDriver driver({[&](HWND) { step(page); }, Press(VK_ESCAPE)});
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

TEST_F(ListInDialog, KeepsItsStateInEveryDeclaredPlace) {
    const int hidden[] = {1, 0, 2};
    const char* const columns[] = {"0:50 2:70 | 1:60", "1:60 2:70 | 0:50", "0:50 1:60 | 2:70"};
    ShowDialog(m_key, [&](CListsDlg& dialog) {
        for (int i = 0; i < 3; ++i)
            dialog.m_lists[i].ShowVaskColumn(hidden[i], FALSE);
        for (CAutoCompleteEdit& edit : dialog.m_edits)
            EXPECT_TRUE(edit.AddMRUListEntry(_T("first")));
    });
    ShowDialog(m_key, [&](CListsDlg& dialog) {
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(ColumnsOf(dialog.m_lists[i]), columns[i]) << i;
        for (CAutoCompleteEdit& edit : dialog.m_edits)
            EXPECT_TRUE(edit.AddMRUListEntry(_T("second")));
        dialog.m_edits[1].EnableAutoCompletion(FALSE); // then its state is not saved
    });
    ShowDialog(m_key, [&](CListsDlg& dialog) {
        EXPECT_TRUE(dialog.m_edits[0].RemoveMRUListEntry(_T("second")));
        EXPECT_FALSE(dialog.m_edits[1].RemoveMRUListEntry(_T("second")));
        EXPECT_TRUE(dialog.m_editWithoutWindow.RemoveMRUListEntry(_T("first")));
        dialog.m_listWithoutWindow.Create(WS_CHILD | LVS_REPORT, kListPlace, &dialog, 99);
    });
    HKEY written = nullptr;
    EXPECT_NE(CRegistryPath(HKEY_CURRENT_USER, m_key.Path() + _T("\\None")).OpenSubKey(written), 0)
        << "a list that had no window when states were loaded";
}

TEST_F(ListInDialog, HeaderIsReachedAndUsedByKeys) {
    CListsDlg dialog(DIALOG_LISTS, m_key);
    std::vector<int> focused; // ids; 0 is the header of the first list
    std::string columns;
    const auto note = [&](HWND) {
        const HWND focus = ::GetFocus();
        focused.push_back(focus == HeaderOf(dialog.m_lists[0]).m_hWnd ? 0 : ::GetDlgCtrlID(focus));
    };
    const auto block = [&](HWND) { dialog.m_lists[0].BlockHeaderSort(); };
    const auto forget = [&](HWND) { // the list then has no menu and no sorting
        for (int i = 0; i < 3; ++i)
            dialog.m_lists[0].DeleteVaskColumn(i);
        dialog.m_lists[0].InsertColumn(0, _T("Name"), LVCFMT_LEFT, 50);
    };
    const auto openMenu = [&](HWND) { // and chooses its first item
        const HWND header = ::GetFocus();
        for (const WPARAM key : {VK_DOWN, VK_RETURN})
            dialog.m_lists[0].PostMessage(WM_KEYDOWN, key, 1);
        ::SendMessageW(header, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(header), -1);
        columns = ColumnsOf(dialog.m_lists[0]);
    };
    const Step tab = Press(VK_TAB), back = PressWith(VK_SHIFT, VK_TAB), space = Press(VK_SPACE),
               left = Press(VK_LEFT), right = Press(VK_RIGHT);
    // clang-format off
    DialogDriver driver({
        tab, note,
        back, note, right, space, space, Press(VK_END), space, right, space, Press(VK_HOME), left, space,
        tab, note,
        back, back, note, tab, back, Press(VK_DOWN), note,
        block, back, note, right, space, openMenu, tab,
        forget, back, note, Press(VK_ESCAPE)});
    // clang-format on
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(focused,
              (std::vector<int>{FIELD_LIST, 0, FIELD_LIST, FIELD_NAME, FIELD_LIST, 0, FIELD_NAME}));
    EXPECT_EQ(dialog.m_lists[0].m_sorted, "1up 1down 2up 2down 0up 1up 2up ")
        << "the last two as the sort column leaves";
    EXPECT_EQ(columns, "1:60 2:70 | 0:50");
}

// Changes colours and font of the window, a dialog or page, and sends its top-level window the
// system's notification.
template <class Window>
void ExpectChangesAreFollowed(Window& window) {
    constexpr COLORREF kRed = RGB(255, 0, 0), kBlue = RGB(0, 0, 255), kGreen = RGB(0, 255, 0);
    CVaskListCtrl& list = window.m_lists[0];
    list.InsertItem(0, _T(""));
    list.InsertItem(1, _T(""));
    list.SetRowsHighlighted();
    HeaderOf(list).SetOwnArrow(TRUE);
    list.SetSortColumn(1);
    const auto colorOfRow = [&](int row) {
        CRect rect;
        list.GetItemRect(row, rect, LVIR_LABEL);
        return Picture(list).At(rect.right - 4, (rect.top + rect.bottom) / 2);
    };
    {
        const SystemColors colors({{COLOR_WINDOW, kRed},
                                   {COLOR_WINDOWTEXT, kBlue},
                                   {COLOR_BTNTEXT, kGreen},
                                   {COLOR_GRAYTEXT, kBlue}});
        EXPECT_EQ(colorOfRow(0), kRed);
        EXPECT_EQ(colorOfRow(1), RGB(239, 0, 15)) << "a sixteenth of the text's colour";
        EXPECT_FALSE(Picture(HeaderOf(list)).BoundsOf(kGreen).IsRectEmpty()) << "the arrow";
        list.SetEmptyText(_T("nothing"));
        list.DeleteAllItems();
        EXPECT_FALSE(Picture(list).BoundsOf(kBlue).IsRectEmpty()) << "the text of an empty list";
    }
    LOGFONTW description = FontOf(window.m_hWnd);
    description.lfHeight = -29;
    window.m_ownFont.CreateFontIndirect(&description);
    list.SetFont(&window.m_ownFont);
    ::SendMessageW(::GetAncestor(window.m_hWnd, GA_ROOT), WM_SETTINGCHANGE, 0, 0);
    const LOGFONTW bold = FontOf(::GetDlgItem(window.m_hWnd, FIELD_LABEL));
    EXPECT_TRUE(bold.lfHeight == -29 && bold.lfWeight == FW_BOLD);
    EXPECT_EQ(FontOf(HeaderOf(list).m_hWnd).lfHeight, -29);
}

TEST_F(ListInDialog, FollowsTheSystemsColorsAndFonts) {
    ShowDialog(m_key, ExpectChangesAreFollowed<CListsDlg>);
    ShowPage(m_key, ExpectChangesAreFollowed<CListsPage>);
}

} // namespace
