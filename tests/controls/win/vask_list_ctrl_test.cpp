// The report list in real windows, driven by messages.
#include <quorvel/controls/win/vask_list_ctrl.h>
#include <quorvel/framework/win/menu.h>

#include "controls/win/list_window.h"
#include "support/german_texts.h"

#include <optional>

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
        char seen[40];
        std::snprintf(seen, sizeof seen, "%d %s%s;", column, ascending ? "up" : "down",
                      force ? " forced" : "");
        m_seen += seen;
        return m_sorts;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_INITMENUPOPUP)
            NoteMenu(*CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)));
        return CVaskListCtrl::WindowProc(message, wParam, lParam);
    }

private:
    void NoteMenu(const CMenu& menu) {
        for (int i = 0; i < menu.GetMenuItemCount(); ++i) {
            CString text;
            menu.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
            const UINT state = menu.GetMenuState(static_cast<UINT>(i), MF_BYPOSITION);
            m_seen += (state & MF_CHECKED) != 0 ? "+" : "-";
            m_seen += (state & MF_GRAYED) != 0 ? "(" : "";
            m_seen += Printable(text.GetString(), text.GetLength());
            m_seen += " ";
            m_seen += std::to_string(menu.GetMenuItemID(i));
            m_seen += ";";
        }
        for (const WPARAM key : m_menuKeys)
            PostMessage(WM_KEYDOWN, key, 1);
    }
    std::string m_seen;
};

void SetOrder(const CListCtrl& list, std::vector<int> order) {
    const_cast<CListCtrl&>(list).SetColumnOrderArray(static_cast<int>(order.size()), order.data());
}

TEST(VaskListCtrl, KeepsColumnsByTheirTrueNumbers) {
    ListParent parent;
    CReportList list(parent);
    list.AddColumns(4);
    const struct {
        const char* label;
        std::function<int()> act;
        int result;
        const char* columns;
        const char* seen = ""; // the calls of SortItems
    } rows[] = {
        {"hide", [&] { return list.ShowVaskColumn(0, FALSE); }, TRUE, "1:60 2:70 3:80 | 0:50"},
        {"width of a hidden one", [&] { return list.SetVaskColumnWidth(0, 55); }, TRUE,
         "1:60 2:70 3:80 | 0:55"},
        {"hidden from the beginning",
         [&] { return list.InsertVaskColumn(0, 4, FALSE, _T("E"), 0, 90); }, -1,
         "1:60 2:70 3:80 | 0:55 4:90"},
        {"show where it was", [&] { return list.ShowVaskColumn(0, TRUE); }, TRUE,
         "0:55 1:60 2:70 3:80 | 4:90"},
        {"reorder",
         [&] {
             return SetOrder(list, {2, 3, 0, 1}), 0;
         },
         0, "2:70 3:80 0:55 1:60 | 4:90"},
        {"arrow", [&] { return list.SetSortColumn(3), list.SetSortAscending(FALSE), 0; }, 0,
         "2:70 3:80v 0:55 1:60 | 4:90"},
        {"format set", [&] { return list.SetColumnAlignment(3, LVCFMT_CENTER); }, TRUE,
         "2:70 3:80v 0:55 1:60 | 4:90"},
        {"a column before it",
         [&] {
             return list.ShowVaskColumn(4, TRUE), SetOrder(list, {4, 2, 3, 0, 1}), 0;
         },
         0, "4:90 2:70 3:80v 0:55 1:60"},
        {"sort column hidden", [&] { return list.ShowVaskColumn(3, FALSE); }, TRUE,
         "4:90^ 2:70 0:55 1:60 | 3:80", "4 up;"},
        {"sort column deleted", [&] { return list.DeleteVaskColumn(4); }, TRUE,
         "2:70^ 0:55 1:60 | 3:80", "2 up;"},
        {"by column", [&] { return list.SortItemsByColumn(1); }, TRUE, "2:70 0:55 1:60^ | 3:80",
         "1 up;"},
        {"by direction", [&] { return list.SortItemsByDirection(FALSE); }, TRUE,
         "2:70 0:55 1:60v | 3:80", "1 down;"},
        {"anew", [&] { return list.AutoSortItems(); }, TRUE, "2:70 0:55 1:60v | 3:80",
         "1 down forced;"},
        {"reset", [&] { return list.ResetColumns(), 0; }, 0, "0:100 1:100v 2:100 3:100"},
        // The platform's own messages.
        {"LVM_DELETECOLUMN", [&] { return list.DeleteColumn(list.GetInsertedColumn(2)); }, TRUE,
         "0:100 1:100v 3:100"},
        {"LVM_INSERTCOLUMN", [&] { return list.InsertColumn(0, _T("plain"), 0, 40); }, 0,
         "-1:40 0:100 1:100v 3:100"},
        {"a column is hidden behind it", [&] { return list.ShowVaskColumn(0, FALSE); }, TRUE,
         "-1:40 1:100v 3:100 | 0:100"},
        {"it is deleted and the other shown",
         [&] { return list.DeleteColumn(0) && list.ShowVaskColumn(0, TRUE); }, TRUE,
         "1:100v 0:100 3:100"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.act(), row.result) << row.label;
        EXPECT_EQ(ColumnsOf(list), row.columns) << row.label;
        EXPECT_EQ(list.TakeSeen(), row.seen) << row.label;
    }
}

TEST(VaskListCtrl, CopiesRecordsAndAlignsTheFirstColumn) {
    ListParent parent;
    CReportList list(parent);
    list.InsertVaskColumn(0, 0, TRUE, _T("Size"), LVCFMT_RIGHT, 40, 3);
    list.InsertVaskColumn(0, 1, FALSE, _T("Date"));
    LVCOLUMNW shown = {};
    shown.mask = LVCF_FMT | LVCF_SUBITEM;
    EXPECT_TRUE(list.GetColumn(0, &shown));
    EXPECT_EQ(shown.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(shown.iSubItem, 3);

    VASKCOLUMN column;
    EXPECT_FALSE(list.GetVaskColumn(0, nullptr) || list.GetVaskColumn(2, &column));
    EXPECT_TRUE(list.GetVaskColumn(0, &column));
    EXPECT_EQ(column.savedPosition, 0);
    EXPECT_EQ(column.column.cx, 40);
    EXPECT_TRUE(list.GetVaskColumn(1, &column));
    EXPECT_EQ(column.savedPosition, -1);
    EXPECT_EQ(CString(column.column.pszText), _T("Date"));

    // Keeps all fields of a descriptor, and later changes by the program.
    VASKCOLUMN given;
    given.trueColumn = 2;
    given.heading = _T("Kind");
    given.column.mask = LVCF_MINWIDTH | LVCF_WIDTH;
    given.column.cxMin = 33;
    given.column.cx = 80;
    EXPECT_EQ(list.InsertVaskColumn(1, &given), 1);
    LVCOLUMNW renamed = {};
    renamed.mask = LVCF_TEXT;
    renamed.pszText = const_cast<WCHAR*>(_T("Type"));
    EXPECT_TRUE(list.SetColumn(1, &renamed) && list.SetColumnAlignment(1, LVCFMT_CENTER));
    EXPECT_TRUE(list.ShowVaskColumn(2, FALSE) && list.ShowVaskColumn(2, TRUE));
    WCHAR heading[20];
    shown.mask = LVCF_TEXT | LVCF_FMT | LVCF_MINWIDTH;
    shown.pszText = heading;
    shown.cchTextMax = 20;
    EXPECT_TRUE(list.GetColumn(1, &shown) && list.GetVaskColumn(2, &column));
    EXPECT_EQ(CString(heading), _T("Type"));
    EXPECT_EQ(column.heading, _T("Type"));
    EXPECT_EQ(shown.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_CENTER);
    EXPECT_EQ(shown.cxMin, 33);
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
    for (int i = 0; i < 3; ++i)
        list.InsertVaskColumn(i, i, TRUE, _T("Name"), LVCFMT_LEFT, 50);
    list.InsertItem(0, _T("b"), -1, 2);
    list.ShowVaskColumn(1, FALSE);
    list.ShowVaskColumn(1, TRUE);
    EXPECT_EQ(list.GetItemText(0, 1), _T("again"));
    EXPECT_NE(dynamic_cast<COwnHeader*>(list.GetHeaderCtrl()), nullptr);

    // A second object takes over the window with its header and leaves both unchanged.
    const HWND window = list.UnsubclassWindow();
    {
        CVaskListCtrl second;
        EXPECT_TRUE(second.SubclassWindow(window));
        EXPECT_EQ(dynamic_cast<COwnHeader*>(second.GetHeaderCtrl()), nullptr);
        static_cast<CWnd&>(second).UnsubclassWindow();
    }
    EXPECT_TRUE(::IsWindow(reinterpret_cast<HWND>(::SendMessageW(window, LVM_GETHEADER, 0, 0))));
    ::DestroyWindow(window);
}

TEST(VaskListCtrl, IsAPlainListWithoutRecords) {
    ListParent parent;
    CReportList list(parent);
    list.InsertColumn(0, _T("Name"), LVCFMT_LEFT, 50);
    list.InsertColumn(1, _T("Size"), LVCFMT_LEFT, 60);
    SetOrder(list, {1, 0});
    list.SetSortColumn(1);
    EXPECT_EQ(ColumnsOf(list), "1:60^ 0:50");
}

TEST(VaskListCtrl, SortsByClicksOfTheLeftButton) {
    ListParent parent;
    CReportList list(parent);
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
    };
    const struct {
        const char* label;
        int clicked;
        bool isBlocked, sorts;
        const char* seen;
        const char* columns;
    } rows[] = {
        {"first click", 1, false, true, "2 up;", "1:60 2:70^ | 0:50"},
        {"again", 1, false, true, "2 down;", "1:60 2:70v | 0:50"},
        {"blocked", 0, true, true, "", "1:60 2:70v | 0:50"},
        {"another column", 0, false, true, "1 up;", "1:60^ 2:70 | 0:50"},
        {"not sorted", 1, false, false, "2 up;", "1:60^ 2:70 | 0:50"},
    };
    for (const auto& row : rows) {
        list.BlockHeaderSort(row.isBlocked);
        list.m_sorts = row.sorts;
        click(row.clicked);
        EXPECT_EQ(list.TakeSeen(), row.seen) << row.label;
        EXPECT_EQ(ColumnsOf(list), row.columns) << row.label;
    }
    for (const auto& [inserted, button] : {std::pair(0, 1), {-1, 0}, {9, 0}}) {
        NMHEADERW note = {};
        note.hdr = {HeaderOf(list).m_hWnd, 0, static_cast<UINT>(HDN_ITEMCLICKW)};
        note.iItem = inserted;
        note.iButton = button;
        list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&note));
        EXPECT_EQ(list.TakeSeen(), "") << "button " << button << " on " << inserted;
    }
}

TEST(VaskListCtrl, ShowsAndHidesColumnsByTheHeadersMenu) {
    const struct {
        const char* label;
        bool isGerman;
        int shownCount;   // out of three columns
        const char* keys; // Down, Enter and Escape as D, E and X
        const char* menu;
        const char* columns;
    } rows[] = {
        {"hide", false, 3, "DDE", "+Name 50900;+A&&B 50901;+Name 50902;-&Columns... 50007;",
         "0:50 2:70 | 1:60"},
        {"show, in German", true, 2, "DDDE",
         "+Name 50900;+A&&B 50901;-Name 50902;-&Spalten... 50007;", "0:50 1:60 2:70"},
        {"the last one stays", false, 1, "DEX",
         "+(Name 50900;-A&&B 50901;-Name 50902;-&Columns... 50007;", "0:50 | 1:60 2:70"},
    };
    for (const auto& row : rows) {
        std::optional<GermanTexts> german;
        if (row.isGerman)
            german.emplace();
        ListParent parent;
        CReportList list(parent);
        list.AddColumns(3);
        for (int i = row.shownCount; i < 3; ++i)
            list.ShowVaskColumn(i, FALSE);
        for (const char* key = row.keys; *key != 0; ++key)
            list.m_menuKeys.push_back(*key == 'D' ? VK_DOWN : *key == 'E' ? VK_RETURN : VK_ESCAPE);
        const CHeaderCtrl& header = HeaderOf(list);
        header.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(header.m_hWnd), -1);
        EXPECT_EQ(list.TakeSeen(), row.menu) << row.label;
        EXPECT_EQ(ColumnsOf(list), row.columns) << row.label;
    }
}

// A host may destroy a list, its window or its object at any time, also in a loop of the list.
TEST(VaskListCtrl, EndsWithItsMenuOrDialogOpen) {
    typedef std::unique_ptr<CReportList> List;
    const auto menuKey = [](const List& list) {
        const HWND header = HeaderOf(*list).m_hWnd;
        ::SendMessageW(header, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(header), -1);
    };
    const auto rightClick = [](const List& list) {
        const HWND header = HeaderOf(*list).m_hWnd;
        ::SendMessageW(header, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
        ::SendMessageW(header, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    };
    const auto edit = [](const List& list) { EXPECT_EQ(list->EditColumns(), IDCANCEL); };
    const auto endWindow = [](List& list, ListParent&) { list->DestroyWindow(); };
    const auto endObject = [](List& list, ListParent&) { list.reset(); };
    const auto endParent = [](List&, ListParent& parent) { parent.DestroyWindow(); };
    const struct {
        const char* label;
        std::function<void(const List&)> open;
        std::function<void(List&, ListParent&)> end;
    } rows[] = {
        {"menu, window", menuKey, endWindow},     {"menu, parent", menuKey, endParent},
        {"click, object", rightClick, endObject}, {"dialog, window", edit, endWindow},
        {"dialog, object", edit, endObject},
    };
    for (const auto& row : rows) {
        ListParent parent;
        List list = std::make_unique<CReportList>(parent);
        list->AddColumns(3);
        bool isEnded = false;
        parent.m_onApp = [&] {
            isEnded = true;
            row.end(list, parent);
        };
        const HWND window = list->m_hWnd;
        parent.PostMessage(WM_APP); // handled in the loop
        row.open(list);
        EXPECT_TRUE(isEnded) << row.label;
        EXPECT_FALSE(::IsWindow(window)) << row.label;
    }
}

TEST(VaskListCtrl, ShowsATextWhileItIsEmpty) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    ListParent parent;
    CReportList list(parent);
    list.AddColumns(1);
    list.SetEmptyText(_T("nothing & more"));
    list.SetEmptyTextColor(kRed);
    const auto bounds = [&] { return Picture(list).BoundsOf(kRed); };
    CRect header;
    HeaderOf(list).GetClientRect(header);
    const struct {
        UINT alignment;
        BOOL isTaken;
        LONG left, right; // the pixels between these
    } rows[] = {
        {DT_LEFT, TRUE, 0, 200},
        {DT_CENTER, TRUE, 100, 300},
        {DT_RIGHT, TRUE, 200, 400},
        {DT_SINGLELINE, FALSE, 200, 400},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(list.SetEmptyTextAlignment(row.alignment), row.isTaken) << row.alignment;
        const CRect drawn = bounds();
        EXPECT_FALSE(drawn.IsRectEmpty());
        EXPECT_GE(drawn.top, header.bottom) << row.alignment;
        EXPECT_GE(drawn.left, row.left) << row.alignment;
        EXPECT_LE(drawn.right, row.right) << row.alignment;
    }
    list.InsertItem(0, _T("item"));
    EXPECT_TRUE(bounds().IsRectEmpty()) << "an item";
    list.DeleteAllItems();
    EXPECT_FALSE(bounds().IsRectEmpty()) << "empty again";
    EXPECT_FALSE(list.SetEmptyText(nullptr) || !list.HasEmptyText());
    EXPECT_TRUE(list.SetEmptyText(_T("")) && !list.HasEmptyText());
}

TEST(VaskListCtrl, HighlightsEverySecondRow) {
    constexpr COLORREF kGreen = RGB(0, 255, 0);
    ListParent parent;
    CReportList list(parent);
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
    list.SetRowsHighlighted(FALSE);
    EXPECT_EQ(highlighted(), "---");
}

TEST(VaskListCtrl, SelectsAndMovesItems) {
    ListParent parent;
    CReportList list(parent);
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
    const struct {
        const char* label;
        std::function<int()> act;
        int result;
        const char* rows;
    } rows[] = {
        {"select", [&] { return list.SelectItem(0); }, TRUE, "*a! b c asked"},
        {"one more", [&] { return list.SelectItem(2); }, TRUE, "*a b *c! asked"},
        {"two do not move", [&] { return list.MoveSelectedItemUp(); }, -1, "*a b *c! asked"},
        {"unselect", [&] { return list.SelectItem(2, FALSE); }, TRUE, "*a b c! asked"},
        {"first up", [&] { return list.MoveSelectedItemUp(); }, -1, "*a b c! asked"},
        {"check", [&] { return list.HasCheckedItem() + 2 * list.SetCheck(0); }, 2, "*a b c! asked"},
        {"down", [&] { return list.MoveSelectedItemDown(); }, 1, "b *a c! asked"},
        {"its check and its other text",
         [&] {
             return list.GetCheck(1) && !list.GetCheck(0) && list.GetItemText(1, 1) == longText;
         },
         TRUE, "b *a c! asked"},
        {"all", [&] { return list.SelectAllItems(); }, TRUE, "*b *a *c! *asked"},
        {"none", [&] { return list.UnselectAllItems(); }, TRUE, "b a c! asked"},
        {"last down", [&] { return list.SelectItem(3), list.MoveSelectedItemDown(); }, -1,
         "b a c *asked!"},
        {"an asked text up", [&] { return list.MoveSelectedItemUp(); }, 2, "b a *asked! c"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.act(), row.result) << row.label;
        EXPECT_EQ(RowsOf(list), row.rows) << row.label;
    }
    parent.m_onNotify = nullptr;
}

TEST(VaskListCtrl, BlocksClicksBesideItems) {
    ListParent parent;
    CReportList list(parent);
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
    list.SetBlockNonItemClicks(FALSE);
    EXPECT_EQ(click(item.left + 4, item.bottom + 50), "a b!") << "not blocked";
}

TEST(SortHeaderCtrl, DrawsItsOwnArrowWhereThePlatformHasNone) {
    ListParent parent;
    CReportList list(parent);
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
        EXPECT_FALSE(drawn.IsRectEmpty());
        EXPECT_GE(drawn.left, second.left + second.Width() / 2);
        EXPECT_LE(drawn.right, second.right);
        const int middle = (drawn.left + drawn.right - 1) / 2;
        EXPECT_EQ(arrow.At(middle, drawn.top) == arrow.At(drawn.left, drawn.top), !ascending)
            << "the tip is above when ascending";
    }
    EXPECT_EQ(ColumnsOf(list), "0:50 1:60") << "the platform is not asked to";
    header.SetOwnArrow(FALSE);
    EXPECT_EQ(ColumnsOf(list), "0:50 1:60v");
}

} // namespace
