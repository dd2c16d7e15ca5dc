// The report list in real windows, driven by messages.
#include <quorvel/controls/win/vask_list_ctrl.h>
#include <quorvel/framework/win/menu.h>

#include "controls/win/list_window.h"
#include "support/win/dialog_driver.h"

namespace {

class CReportList : public CVaskListCtrl {
public:
    explicit CReportList(CWnd& parent, DWORD style = LVS_REPORT | LVS_SHOWSELALWAYS) {
        EXPECT_TRUE(Create(WS_VISIBLE | style, kListPlace, &parent, 5));
        HeaderOf(*this).SetOwnArrow(FALSE);
    }
    // True columns 0, 1, ... with widths 50, 60, ...
    void AddColumns(int count) {
        for (int i = 0; i < count; ++i)
            InsertVaskColumn(i, i, TRUE, i == 1 ? _T("A&B") : _T("Name"), LVCFMT_LEFT, 50 + 10 * i);
    }
    std::string TakeSeen() { return std::exchange(m_seen, {}); }

    std::vector<WPARAM> m_menuKeys; // pressed when a menu opens
    BOOL m_sorts = TRUE;

protected:
    BOOL SortItems(int column, int ascending, int force) override {
        m_seen += std::to_string(column) + (ascending ? " up" : " down");
        m_seen += force ? " forced;" : ";";
        return m_sorts;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_INITMENUPOPUP)
            NoteMenu(*CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)));
        return CVaskListCtrl::WindowProc(message, wParam, lParam);
    }

private:
    void NoteMenu(const CMenu& menu) {
        for (UINT i = 0; i < static_cast<UINT>(menu.GetMenuItemCount()); ++i) {
            CString text;
            menu.GetMenuString(i, text, MF_BYPOSITION);
            const UINT state = menu.GetMenuState(i, MF_BYPOSITION);
            m_seen += (state & MF_CHECKED) != 0 ? "+" : "-";
            m_seen += (state & MF_GRAYED) != 0 ? "(" : "";
            m_seen += text.ToUTF8() + ";";
        }
        for (const WPARAM key : m_menuKeys)
            PostMessage(WM_KEYDOWN, key, 1);
    }
    std::string m_seen;
};

struct ReportList : testing::Test {
    ListParent parent;
    CReportList list{parent};
};

void SetOrder(const CListCtrl& list, std::vector<int> order) {
    const_cast<CListCtrl&>(list).SetColumnOrderArray(static_cast<int>(order.size()), order.data());
}

TEST_F(ReportList, KeepsColumnsByTheirTrueNumbers) {
    list.AddColumns(4);
    // The columns, and the calls of SortItems.
    const auto after = [&](int result) {
        return std::to_string(result) + ", " + ColumnsOf(list) + "; " + list.TakeSeen();
    };
    ExpectCases<std::string>({
        CASE((list.ShowVaskColumn(0, FALSE), after(list.SetVaskColumnWidth(0, 55))),
             "1, 1:60 2:70 3:80 | 0:55; "),
        CASE((list.InsertVaskColumn(0, 4, FALSE, _T("E"), 0, 90), SetOrder(list, {2, 1, 0}),
              after(list.SetSortColumn(3))),
             "1, 3:80^ 2:70 1:60 | 0:55 4:90; "),
        CASE((list.SetSortAscending(FALSE), after(list.SetColumnAlignment(2, LVCFMT_CENTER))),
             "1, 3:80v 2:70 1:60 | 0:55 4:90; "),
        // The sort column is hidden, and the next one deleted.
        CASE(after(list.ShowVaskColumn(3, FALSE)), "1, 2:70^ 1:60 | 0:55 3:80 4:90; 2 up;"),
        CASE((list.ShowVaskColumn(0, TRUE), after(list.DeleteVaskColumn(2))),
             "1, 0:55^ 1:60 | 3:80 4:90; 0 up;"),
        CASE(after(list.SortItemsByColumn(1)), "1, 0:55 1:60^ | 3:80 4:90; 1 up;"),
        CASE(after(list.SortItemsByDirection(FALSE)), "1, 0:55 1:60v | 3:80 4:90; 1 down;"),
        CASE(after(list.AutoSortItems()), "1, 0:55 1:60v | 3:80 4:90; 1 down forced;"),
        CASE(after(list.ResetColumns()), "1, 0:100 1:100v 3:100 4:100; "),
        // The platform's own messages.
        CASE(after(list.DeleteColumn(list.GetInsertedColumn(4))), "1, 0:100 1:100v 3:100; "),
        CASE(after(list.InsertColumn(0, _T("plain"), 0, 40)), "0, -1:40 0:100 1:100v 3:100; "),
        CASE((list.ShowVaskColumn(0, FALSE), list.DeleteColumn(0),
              after(list.ShowVaskColumn(0, TRUE))),
             "1, 1:100v 0:100 3:100; "),
    });
}

TEST_F(ReportList, KeepsWhatAProgramChangedInAColumn) {
    list.AddColumns(2);
    WCHAR heading[20] = _T("Type");
    LVCOLUMNW shown = {};
    shown.mask = LVCF_TEXT;
    shown.pszText = heading;
    EXPECT_TRUE(list.SetColumn(1, &shown) && list.SetColumnAlignment(1, LVCFMT_CENTER));
    EXPECT_TRUE(list.ShowVaskColumn(1, FALSE) && list.ShowVaskColumn(1, TRUE));
    VASKCOLUMN column;
    EXPECT_FALSE(list.GetVaskColumn(0, nullptr) || list.GetVaskColumn(2, &column));
    EXPECT_TRUE(list.GetVaskColumn(1, &column));
    EXPECT_EQ(column.heading, _T("Type"));
    shown.mask = LVCF_FMT;
    EXPECT_TRUE(list.GetColumn(1, &shown));
    EXPECT_EQ(shown.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_CENTER);
}

class COwnHeader : public CVaskListCtrlHeaderCtrl {};

// An ordinary list that sets the texts of a column again when it is shown.
class CRefilledList : public CVaskListCtrl {
protected:
    std::unique_ptr<CVaskListCtrlHeaderCtrl> MakeHeaderCtrl() override {
        return std::make_unique<COwnHeader>();
    }
    void OnShowVaskColumn(int, int insertedColumn) override {
        SetItemText(0, insertedColumn, _T("again"));
    }
};

TEST(VaskListCtrl, LetsAHostSupplyTheHeaderAndLostTexts) {
    ListParent parent;
    CRefilledList list;
    EXPECT_TRUE(list.Create(WS_VISIBLE | LVS_REPORT, kListPlace, &parent, 5));
    EXPECT_FALSE(list.AutoSetColumnWidths(TRUE) || list.ResetColumns()) << "no columns";
    for (int i = 0; i < 2; ++i)
        list.InsertVaskColumn(i, i, TRUE, _T("Name"), LVCFMT_LEFT, 50);
    list.InsertItem(0, _T("b"), -1, 2);
    list.ShowVaskColumn(1, FALSE);
    list.ShowVaskColumn(1, TRUE);
    EXPECT_EQ(list.GetItemText(0, 1), _T("again"));
    EXPECT_NE(dynamic_cast<COwnHeader*>(list.GetHeaderCtrl()), nullptr);

    // A second object takes over the window and leaves its header unchanged.
    const HWND window = list.UnsubclassWindow();
    {
        CVaskListCtrl second;
        EXPECT_TRUE(second.SubclassWindow(window));
        static_cast<CWnd&>(second).UnsubclassWindow();
    }
    EXPECT_TRUE(::IsWindow(reinterpret_cast<HWND>(::SendMessageW(window, LVM_GETHEADER, 0, 0))));
    ::DestroyWindow(window);
}

TEST_F(ReportList, SortsByClicksOfTheLeftButton) {
    list.AddColumns(3);
    list.ShowVaskColumn(0, FALSE);
    const auto click = [&](int inserted) {
        CRect rect;
        CHeaderCtrl& header = HeaderOf(list);
        header.GetItemRect(inserted, rect);
        const LPARAM place = MAKELPARAM((rect.left + rect.right) / 2, rect.bottom / 2);
        header.PostMessage(WM_LBUTTONDOWN, MK_LBUTTON, place);
        header.PostMessage(WM_LBUTTONUP, 0, place);
        PumpMessages();
        return list.TakeSeen() + " " + ColumnsOf(list);
    };
    list.SetSortColumn(2);
    EXPECT_EQ(click(1), "2 down; 1:60 2:70v | 0:50");
    list.BlockHeaderSort();
    EXPECT_EQ(click(0), " 1:60 2:70v | 0:50");
    list.BlockHeaderSort(FALSE);
    list.m_sorts = FALSE;
    EXPECT_EQ(click(0), "1 up; 1:60 2:70v | 0:50");
    NMHEADERW note = {{HeaderOf(list).m_hWnd, 0, static_cast<UINT>(HDN_ITEMCLICKW)}, 0, 1, nullptr};
    list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&note));
    EXPECT_EQ(list.TakeSeen(), "") << "the right button";
}

TEST(VaskListCtrl, ShowsAndHidesColumnsByTheHeadersMenu) {
    // The menu of a list that shows some of three columns, and the columns after these keys.
    const auto menu = [](int shownCount, const std::vector<WPARAM>& keys) {
        ListParent parent;
        CReportList list(parent);
        list.AddColumns(3);
        for (int i = shownCount; i < 3; ++i)
            list.ShowVaskColumn(i, FALSE);
        list.m_menuKeys = keys;
        const CHeaderCtrl& header = HeaderOf(list);
        header.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(header.m_hWnd), -1);
        return list.TakeSeen() + " " + ColumnsOf(list);
    };
    ExpectCases<std::string>({
        CASE(menu(3, {VK_DOWN, VK_DOWN, VK_RETURN}),
             "+Name;+A&&B;+Name;-&Columns...; 0:50 2:70 | 1:60"),
        // The last one stays.
        CASE(menu(1, {VK_DOWN, VK_RETURN, VK_ESCAPE}),
             "+(Name;-A&&B;-Name;-&Columns...; 0:50 | 1:60 2:70"),
    });
}

// A host may destroy a list, its window or its object at any time, also in a loop of the list.
TEST(VaskListCtrl, EndsWithItsMenuOrDialogOpen) {
    typedef std::unique_ptr<CReportList> List;
    const auto rightClick = [](const List& list) {
        const HWND header = HeaderOf(*list).m_hWnd;
        ::SendMessageW(header, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
        ::SendMessageW(header, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    };
    const auto edit = [](const List& list) { EXPECT_EQ(list->EditColumns(), IDCANCEL); };
    const auto endWindow = [](List& list, ListParent&) { list->DestroyWindow(); };
    const auto endObject = [](List& list, ListParent&) { list.reset(); };
    const auto endParent = [](List&, ListParent& parent) { parent.DestroyWindow(); };
    const auto ends = [&edit](const auto& open, const auto& end) {
        ListParent parent;
        List list = std::make_unique<CReportList>(parent);
        list->AddColumns(3);
        bool isEnded = false;
        parent.m_onMessage = [&](UINT message, WPARAM) {
            if (message == WM_APP && !std::exchange(isEnded, true))
                end(list, parent);
        };
        const HWND window = list->m_hWnd;
        parent.PostMessage(WM_APP); // handled in the loop
        open(list);
        const bool isClosed = isEnded && !::IsWindow(window);
        if (list != nullptr && ::IsWindow(parent.m_hWnd)) { // a former dialog is forgotten
            list->Create(WS_VISIBLE | LVS_REPORT, kListPlace, &parent, 5);
            list->AddColumns(3);
            DialogDriver driver({Press(VK_ESCAPE)});
            edit(list);
        }
        return isClosed;
    };
    ExpectCases<bool>({CASE(ends(rightClick, endWindow), true),
                       CASE(ends(rightClick, endObject), true),
                       CASE(ends(rightClick, endParent), true), CASE(ends(edit, endWindow), true),
                       CASE(ends(edit, endObject), true)});
}

TEST_F(ReportList, DefinesADeletedColumnAnew) {
    const auto define = [&](int width, int subItem) {
        list.InsertVaskColumn(0, 0, TRUE, _T("A"), 0, width, subItem);
        LVCOLUMNW column = {};
        column.mask = LVCF_SUBITEM;
        list.GetColumn(0, &column);
        list.DeleteVaskColumn(0);
        return column.iSubItem;
    };
    ExpectCases<int>({CASE(define(80, 2), 2), CASE(define(-1, 1), 1)});
}

TEST_F(ReportList, ShowsATextWhileItIsEmpty) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    list.AddColumns(1);
    list.SetEmptyText(_T("nothing & more"));
    list.SetEmptyTextColor(kRed);
    const auto bounds = [&] { return Picture(list).BoundsOf(kRed); };
    CRect header;
    HeaderOf(list).GetClientRect(header);
    // Left and right of the text.
    const std::tuple<UINT, BOOL, int, int> rows[] = {
        {DT_CENTER, TRUE, 100, 300}, {DT_RIGHT, TRUE, 200, 400}, {DT_SINGLELINE, FALSE, 200, 400}};
    for (const auto& [alignment, isTaken, left, right] : rows) {
        EXPECT_EQ(list.SetEmptyTextAlignment(alignment), isTaken) << alignment;
        const CRect drawn = bounds();
        EXPECT_TRUE(!drawn.IsRectEmpty() && drawn.top >= header.bottom && drawn.left >= left &&
                    drawn.right <= right)
            << alignment;
    }
    list.InsertItem(0, _T("item"));
    EXPECT_TRUE(bounds().IsRectEmpty()) << "an item";
    EXPECT_FALSE(list.SetEmptyText(nullptr) || !list.HasEmptyText());
    EXPECT_TRUE(list.SetEmptyText(_T("")) && !list.HasEmptyText());
}

TEST_F(ReportList, HighlightsEverySecondRow) {
    constexpr COLORREF kGreen = RGB(0, 255, 0);
    list.AddColumns(1);
    for (int i = 0; i < 4; ++i)
        list.InsertItem(i, _T(""));
    list.SetRowHighlightColor(kGreen);
    list.SetRowsHighlighted();
    const auto highlighted = [&] {
        const Picture picture(list);
        std::string rows;
        for (int i = 0; i < list.GetItemCount(); ++i) {
            CRect rect;
            list.GetItemRect(i, rect, LVIR_LABEL);
            rows += picture.At(rect.right - 4, (rect.top + rect.bottom) / 2) == kGreen ? "+" : "-";
        }
        return rows;
    };
    EXPECT_EQ(highlighted(), "-+-+");
    parent.m_onExchange = [&] { EXPECT_EQ(highlighted(), "-+-+") << "notified all the same"; };
    list.Invalidate();
    EXPECT_TRUE(parent.UpdateData());
    list.DeleteItem(0);
    EXPECT_EQ(highlighted(), "-+-") << "the rows below have moved";
}

TEST_F(ReportList, SelectsAndMovesItems) {
    list.AddColumns(2);
    list.SetExtendedStyle(LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
    const WCHAR* const names[] = {_T("a"), _T("b"), _T("c"), LPSTR_TEXTCALLBACKW};
    for (int i = 0; i < 4; ++i)
        list.InsertItem(i, names[i], -1, 10 + i);
    const CString longText(Wide(1000, 'x').c_str());
    list.SetItemText(0, 1, longText);
    parent.m_onNotify = [](const NMHDR& header) {
        EXPECT_NE(header.code, static_cast<UINT>(LVN_DELETEITEM));
        if (header.code == static_cast<UINT>(LVN_GETDISPINFOW)) {
            LVITEMW& item =
                const_cast<NMLVDISPINFOW&>(reinterpret_cast<const NMLVDISPINFOW&>(header)).item;
            if ((item.mask & LVIF_TEXT) != 0)
                ::lstrcpynW(item.pszText, _T("asked"), item.cchTextMax);
        }
    };
    const auto after = [&](int result) { return std::to_string(result) + ", " + RowsOf(list); };
    ExpectCases<std::string>({
        CASE(after(list.SelectItem(0)), "1, *a! b c asked"),
        CASE((list.SelectItem(2), after(list.MoveSelectedItemUp())), "-1, *a b *c! asked"),
        CASE((list.SelectItem(2, FALSE), after(list.MoveSelectedItemUp())), "-1, *a b c! asked"),
        CASE((list.SetCheck(0), after(list.MoveSelectedItemDown())), "1, b *a c! asked"),
        CASE(after(list.GetCheck(1) && !list.GetCheck(0) && list.GetItemText(1, 1) == longText),
             "1, b *a c! asked"),
        CASE(after(list.SelectAllItems()), "1, *b *a *c! *asked"),
        CASE((list.UnselectAllItems(), list.SelectItem(3), after(list.MoveSelectedItemDown())),
             "-1, b a c *asked!"),
        CASE(after(list.MoveSelectedItemUp()), "2, b a *asked! c"),
    });
    parent.m_onNotify = nullptr;
}

TEST_F(ReportList, BlocksClicksBesideItems) {
    list.AddColumns(1);
    list.InsertItem(0, _T("a"));
    list.InsertItem(1, _T("b"));
    CRect item;
    list.GetItemRect(1, item, LVIR_LABEL);
    const auto click = [&](int x, int y) {
        list.PostMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        list.PostMessage(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
        PumpMessages();
        return RowsOf(list);
    };
    list.SetBlockNonItemClicks();
    EXPECT_EQ(click(item.left + 4, item.top + 4), "a *b!");
    EXPECT_EQ(click(item.left + 4, item.bottom + 50), "a *b!") << "blocked";
}

TEST_F(ReportList, DrawsItsOwnArrowWhereThePlatformHasNone) {
    list.AddColumns(2);
    CSortHeaderCtrl& header = HeaderOf(list);
    header.SetOwnArrow(TRUE);
    const Picture none(header);
    CRect second;
    header.GetItemRect(1, second);
    for (const BOOL ascending : {TRUE, FALSE}) {
        header.SetSort(1, ascending);
        const Picture arrow(header);
        const CRect drawn =
            arrow.Bounds([&](int x, int y) { return arrow.At(x, y) != none.At(x, y); });
        EXPECT_TRUE(drawn.left >= second.left + second.Width() / 2 && drawn.right <= second.right);
        const int middle = (drawn.left + drawn.right - 1) / 2;
        EXPECT_EQ(arrow.At(middle, drawn.top) == arrow.At(drawn.left, drawn.top), !ascending)
            << "the tip is above when ascending";
    }
    EXPECT_EQ(ColumnsOf(list), "0:50 1:60") << "the platform is not asked to";
    header.SetOwnArrow(FALSE);
    EXPECT_EQ(ColumnsOf(list), "0:50 1:60v");
}

} // namespace
