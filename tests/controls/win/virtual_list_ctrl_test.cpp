// The virtual list in real windows, driven by messages.
#include <quorvel/controls/win/virtual_list_ctrl.h>
#include <quorvel/util/clipboard/win/clipboard.h>

#include "controls/win/list_window.h"
#include "support/message_box_recorder.h"

#include <algorithm>
#include <concepts>
#include <cstring>

namespace {

class CRow : public CVirtualListCtrlItem {
public:
    static inline int s_count = 0;

    explicit CRow(WCHAR name) : CVirtualListCtrlItem(3, 2, 12), m_name(name) { ++s_count; }
    ~CRow() override { --s_count; }
    CString GetSubItemText(int column) override {
        if (m_onText)
            m_onText();
        CString text(m_name.GetString());
        if (column > 0)
            text.AppendFormat(_T("%d"), column);
        return text;
    }

    CString m_name;
    std::function<void()> m_onText;
};

const CRow& RowAt(CVirtualListCtrlItem* item) {
    return *static_cast<CRow*>(item);
}
bool IsNameLess(CVirtualListCtrlItem* const& a, CVirtualListCtrlItem* const& b) {
    return RowAt(a).m_name < RowAt(b).m_name;
}
bool IsNameGreater(CVirtualListCtrlItem* const& a, CVirtualListCtrlItem* const& b) {
    return IsNameLess(b, a);
}

// Column 0 sorts by name, 3 by m_last; the others do not sort.
class CRowList : public CVirtualListCtrl {
public:
    CRowList() { SetAutoDeleteItems(); }
    explicit CRowList(CWnd& parent, DWORD style = 0) : CRowList() {
        EXPECT_TRUE(
            Create(WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS | style, kListPlace, &parent, 5));
        for (int i = 0; i < 3; ++i)
            InsertVaskColumn(i, i, TRUE, _T("Name"), LVCFMT_LEFT, 60);
    }
    using CVirtualListCtrl::ReplaceItems;

    void DoSortItems(int column, int ascending) override {
        m_selectedInSort = static_cast<int>(GetSelectedCount());
        if (column != 3)
            return CVirtualListCtrl::DoSortItems(column, ascending);
        SortRows([this](CVirtualListCtrlItem* const& a, CVirtualListCtrlItem* const& b) {
            return RowAt(a).m_name != m_last && RowAt(b).m_name == m_last;
        });
    }
    SortingFunction GetSortingFunction(int column, int ascending) override {
        return column != 0 ? nullptr : (ascending ? IsNameLess : IsNameGreater);
    }
    // A row for each letter.
    void Add(const char* names) {
        for (; *names != 0; ++names)
            AddItem(new CRow(static_cast<WCHAR>(*names)));
    }
    void Select(std::same_as<int> auto... rows) {
        UnselectAllItems();
        (SelectItem(rows), ...);
    }
    void Type(const char* keys) {
        for (; *keys != 0; ++keys)
            PostMessage(WM_CHAR, static_cast<WPARAM>(*keys), 1);
        PumpMessages();
    }
    CString m_last;
    int m_selectedInSort = -1;
    int m_sentCounts = 0;
    std::function<void()> m_onSize;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        m_sentCounts += message == LVM_SETITEMCOUNT;
        if (message == WM_SIZE && m_onSize)
            std::exchange(m_onSize, nullptr)();
        return CVirtualListCtrl::DefWindowProc(message, wParam, lParam);
    }
    // Like a derived class that does not pass on these notifications.
    void OnLvnItemchanged(NMHDR*, LRESULT*) {}
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CRowList, CVirtualListCtrl)
ON_NOTIFY_REFLECT(LVN_ITEMCHANGED, &CRowList::OnLvnItemchanged)
END_MESSAGE_MAP()

struct RowList : testing::Test {
    ListParent parent;
    CRowList list{parent};
};

TEST_F(RowList, KeepsSelectionAndFocusWithTheirRows) {
    CListCtrl& platform = list; // whose calls send messages
    CRow* const x = new CRow('x');
    const auto sort = [&](int column, int ascending) {
        return list.SortItems(column, ascending, FALSE);
    };
    const auto filter = [&](const std::vector<CVirtualListCtrlItem*>& items) {
        list.ReplaceItems(items);
        return CRow::s_count;
    };
    const auto after = [&](int result) { return std::to_string(result) + ", " + RowsOf(list); };
    ExpectCases<std::string>({
        CASE((list.Add("dbac"), after(list.GetItemCount())), "4, d b a c"),
        CASE((list.Select(1, 3), after(list.InsertItem(2, x))), "2, d *b x a *c!"),
        CASE(after(sort(0, TRUE)), "1, a *b *c! d x"),
        CASE(after(sort(0, TRUE)), "0, a *b *c! d x"), // as before
        CASE(after(sort(0, FALSE)), "1, x d *c! *b a"),
        CASE((x->m_name = _T("C"), after(list.SortItems(0, FALSE, TRUE))),
             "1, d *c! *b a C"), // forced
        CASE((list.Select(3), after(list.MoveSelectedItemUp())), "2, d c *a! b C"),
        CASE(after(list.DeleteItem(0)), "1, c *a! b C"),
        CASE(after(list.DeleteItem(1)), "1, c *b! C"), // the only selected one
        CASE((list.Add("dcg"), list.Select(0, 5), after(list.DeleteItems({3, 1, 1, 9, -1}))),
             "2, *c C c *g!"),
        CASE((list.SelectAllItems(), after(list.InsertItem(0, new CRow('z')))),
             "0, z *c *C *c *g!"),
        // An order that is more than a function.
        CASE(
            (list.m_last = _T("C"), list.Select(1, 2), sort(3, TRUE), after(list.m_selectedInSort)),
            "0, z *c c g *C!"),
        CASE(after(filter({list.GetItem(4), list.GetItem(3), list.GetItem(1), nullptr})),
             "3, *C! g *c"),
    });
    list.SetRedraw(FALSE);
    list.m_sentCounts = 0;
    for (const char name : {'p', 'q'})
        list.InsertItem(0, new CRow(static_cast<WCHAR>(name)));
    list.DeleteItem(1);
    EXPECT_EQ(list.m_sentCounts, 0) << "while it is not redrawn";
    list.SetRedraw();
    ExpectCases<std::string>({
        CASE(after(list.m_sentCounts), "1, q *C! g *c"),
        CASE(after(platform.DeleteItem(0)), "1, *C! g *c"),
        CASE(after(platform.InsertItem(0, _T("y"))), "-1, *C! g *c"),
        CASE(after(list.SetItemCountEx(99)), "0, *C! g *c"),
        CASE(after(platform.DeleteAllItems()), "1, "),
        CASE(after(list.GetItemCount() + CRow::s_count), "0, "),
    });
}

TEST_F(RowList, FollowsWhatUsersSelect) {
    list.Add("fedcba");
    list.Select(1);
    list.SetSelectionMark(1);
    BYTE keys[256];
    ::GetKeyboardState(keys);
    keys[VK_SHIFT] = 0x80;
    ::SetKeyboardState(keys);
    for (int i = 0; i < 2; ++i)
        list.SendMessage(WM_KEYDOWN, VK_DOWN, 1);
    keys[VK_SHIFT] = 0;
    ::SetKeyboardState(keys);
    EXPECT_EQ(RowsOf(list), "f *e *d *c! b a");
    list.SortItems(0, TRUE, FALSE);
    EXPECT_EQ(RowsOf(list), "a b *c! *d *e f");
    list.Type("\x01");
    EXPECT_EQ(RowsOf(list), "*a *b *c! *d *e *f") << "Ctrl+A";

    CRowList single(parent, LVS_SINGLESEL);
    single.Add("cab");
    single.Select(0);
    single.SortItems(0, TRUE, FALSE);
    single.Type("\x01");
    EXPECT_EQ(RowsOf(single), "a b *c!");
}

TEST_F(RowList, KeepsTheFocusedRowInView) {
    list.Add("abcdefghijklmnopqrstuvwxyz");
    list.Select(0);
    list.SortItems(0, FALSE, FALSE);
    EXPECT_GT(list.GetTopIndex(), 0);
}

TEST_F(RowList, LeavesItemsToTheirOwner) {
    std::unique_ptr<CRow> rows[] = {std::make_unique<CRow>('a'), std::make_unique<CRow>('b')};
    {
        CRowList other(parent);
        other.SetAutoDeleteItems(FALSE);
        for (const std::unique_ptr<CRow>& row : rows)
            other.AddItem(row.get());
        EXPECT_TRUE(other.DeleteItem(0) && other.DeleteAllItems());
        other.AddItem(rows[0].get());
    }
    EXPECT_EQ(CRow::s_count, 2);
}

TEST_F(RowList, HasItsRowsInEachWindowThatItSubclasses) {
    CRowList subclassing; // has rows before a dialog attaches it, each time it opens
    subclassing.Add("cba");
    EXPECT_TRUE(subclassing.DeleteItem(0) && subclassing.SortItems(0, TRUE, FALSE));
    for (int i = 0; i < 2; ++i) {
        subclassing.SubclassWindow(
            ::CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_CHILD | LVS_REPORT | LVS_OWNERDATA, 0, 0,
                              100, 100, parent.m_hWnd, nullptr, nullptr, nullptr));
        EXPECT_EQ(RowsOf(subclassing), "a b");
        EXPECT_TRUE(subclassing.DestroyWindow());
    }
}

TEST_F(RowList, AnswersWhatTheListViewAsksFor) {
    list.Add("ab");
    static_cast<CRow*>(list.GetItem(1))->m_name = _T("a long text");
    list.ShowVaskColumn(1, FALSE);
    // The text, and the sum of image, indent and data; "?" and 0 are not supplied.
    const auto ask = [&](UINT mask, int row, int subItem, int size) {
        WCHAR text[20] = _T("?");
        NMLVDISPINFOW note = {};
        note.hdr = {list.m_hWnd, 5, static_cast<UINT>(LVN_GETDISPINFOW)};
        note.item.mask = mask;
        note.item.iItem = row;
        note.item.iSubItem = subItem;
        note.item.pszText = text;
        note.item.cchTextMax = size;
        parent.SendMessage(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&note));
        return CString(text).ToUTF8() + " " +
               std::to_string(note.item.iImage + note.item.iIndent + note.item.lParam);
    };
    constexpr UINT kAll = LVIF_TEXT | LVIF_IMAGE | LVIF_INDENT | LVIF_PARAM;
    ExpectCases<std::string>({
        CASE(ask(kAll, 0, 0, 10), "a 17"),
        CASE(ask(LVIF_TEXT, 1, 0, 7), "a long 0"),
        CASE(ask(LVIF_TEXT, 1, 0, 0), "? 0"),
        CASE(ask(LVIF_TEXT | LVIF_INDENT, 0, 1, 10), "a2 2"), // behind a hidden column
        CASE(ask(kAll, 2, 0, 10), "? 0"),
    });
}

TEST_F(RowList, FindsRowsByTypedLetters) {
    list.Add("abBc");
    list.Select(0);
    list.Type("bbb");
    EXPECT_EQ(RowsOf(list), "a *b! B c");
    LVFINDINFOW what = {}; // a search by the program
    what.flags = LVFI_PARTIAL;
    what.psz = _T("b");
    EXPECT_EQ(list.FindItem(&what, 1), 2);
}

TEST_F(RowList, CopiesTheSelectedRowsAsTheyAreShown) {
    list.Add("abc");
    const int order[] = {2, 0, 1};
    list.SetColumnOrderArray(3, order);
    list.ShowVaskColumn(1, FALSE);
    list.Select(0, 2);
    list.Type("\x03");
    list.Select();
    list.Type("\x03"); // changes nothing
    CString text;
    EXPECT_TRUE(AfxGetTextFromClipboard(text));
    EXPECT_EQ(text, _T("a2\ta\r\nc2\tc\r\n"));
}

typedef std::function<void(CRowList&)> Act;

Act Select(int row, bool isSelected = true) {
    return [=](CRowList& list) { list.SelectItem(row, isSelected); };
}
Act Remove(int row) {
    return [=](CRowList& list) { list.DeleteItem(row); };
}
Act Sort(bool isAscending) {
    return [=](CRowList& list) { list.SortItems(0, isAscending, FALSE); };
}
Act Key(UINT code) {
    return [=](CRowList& list) { list.SendMessage(WM_KEYDOWN, code, 1); };
}

// The rows "*d! *c *a b" after an action in whose first notification with the code another one
// happens. Of many rows only the first and the last ones.
std::string RowsAfter(const Act& act, UINT code, const Act& onNotify) {
    ListParent parent;
    CRowList list(parent);
    list.Add("dcab");
    list.Select(2, 1, 0);
    bool isFirst = true;
    parent.m_onNotify = [&](const NMHDR& header) {
        if (header.code != code || !std::exchange(isFirst, false))
            return;
        onNotify(list);
        EXPECT_EQ(list.SendMessage(LVM_GETITEMCOUNT), list.GetItemCount());
    };
    act(list);
    parent.m_onNotify = nullptr;
    EXPECT_FALSE(isFirst);
    const std::string rows = RowsOf(list);
    list.SortItems(2, TRUE, TRUE); // rows and list-view agree: sorting is idle
    EXPECT_EQ(RowsOf(list), rows);
    EXPECT_EQ(CRow::s_count, list.GetItemCount());
    EXPECT_EQ(list.GetTopIndex() > 0, list.GetItemCount() > 10) << "scrolled to the last row";
    return rows.size() < 30 ? rows : rows.substr(0, 9) + "..." + rows.substr(rows.size() - 3);
}

// In a notification the list returns the new rows, even if the list-view does not have them
// yet.
TEST(VirtualListCtrl, MayBeChangedInItsNotifications) {
    const auto removeAll = [](CRowList& list) { list.DeleteAllItems(); };
    const auto removeLast = [](CRowList& list) { list.DeleteItems({2, 3}); };
    const auto add = [](CRowList& list) { list.Add("e"); };
    const auto unselect = [](CRowList& list) { list.UnselectAllItems(); };
    const auto deleteSelected = [](CRowList& list) {
        for (UINT n = list.GetSelectedCount(); n > 0; --n)
            list.DeleteItem(list.GetNextItem(-1, LVNI_SELECTED));
    };
    const auto addAndShow = [](CRowList& list) {
        for (int i = 0; i < 50; ++i) {
            list.UnselectAllItems();
            const int row = list.AddItem(new CRow(static_cast<WCHAR>('A' + i)));
            EXPECT_TRUE(list.SelectItem(row) && list.EnsureVisible(row, FALSE));
            EXPECT_TRUE(list.IsItemSelected(row) && list.GetSingleSelectionItem() == row);
            EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), row);
        }
        list.DeleteItems({4, 5, 6, 7, 8, 9});
    };
    const UINT key = LVN_KEYDOWN, changed = LVN_ITEMCHANGED;
    ExpectCases<std::string>({
        CASE(RowsAfter(Select(1), changed, Remove(1)), "*d *a! b"),
        CASE(RowsAfter(Select(3), changed, removeLast), "*d *c"),
        CASE(RowsAfter(Select(1, false), changed, deleteSelected), "c! *b"),
        CASE(RowsAfter(Select(1, false), changed, addAndShow), "d c a b G...*r!"),
        CASE(RowsAfter(Sort(true), changed, removeAll), ""),
        CASE(RowsAfter(Sort(true), changed, Remove(0)), "b *c *d!"),
        CASE(RowsAfter(Sort(true), changed, Sort(false)), "*d! *c b *a"),
        CASE(RowsAfter(Remove(1), changed, Remove(0)), "*a! b"),
        CASE(RowsAfter(unselect, changed, add), "d! c a b e"),
        CASE(RowsAfter(Key(VK_DELETE), key, deleteSelected), "*b!"),
        CASE(RowsAfter(Key(VK_INSERT), key, addAndShow), "d c a b G...*r!"),
        // The key selects a row in the old order after a handler has changed the order.
        CASE(RowsAfter(Key(VK_DOWN), changed, Remove(0)), "*c! a b"),
        CASE(RowsAfter(Key(VK_DOWN), changed, Sort(true)), "a b *c! d"),
    });
}

TEST_F(RowList, SurvivesRowsThatThrowOrAreDeletedWhileTheyAreDrawn) {
    MessageBoxRecorder app; // a message box over the list would make it draw again
    list.Add("ab");
    list.SetAutoDeleteItems(FALSE); // runs code of the item
    const std::unique_ptr<CVirtualListCtrlItem> first(list.GetItem(0)), second(list.GetItem(1));
    for (const std::function<void()>& onText : std::initializer_list<std::function<void()>>{
             [] { throw 1; }, [this] { list.DeleteAllItems(); }}) {
        EXPECT_EQ(list.GetItemText(1, 0), _T("b"));
        static_cast<CRow*>(first.get())->m_onText = onText;
        list.Invalidate();
        list.UpdateWindow();
    }
    EXPECT_TRUE(app.Take().empty());
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(RowList, KnowsItsSelectionWithoutNotifications) {
    list.Add("cba");
    list.Select(1);
    parent.m_keptCode = static_cast<UINT>(LVN_ITEMCHANGED); // the parent does not pass it on
    list.Select(2);
    list.SortItems(0, TRUE, FALSE);
    EXPECT_EQ(RowsOf(list), "*a! b c");
}

// The list-view is sized in the middle of a new count, when its scroll bar appears.
TEST_F(RowList, ShowsRowsThatAreAddedWhileItsCountIsSent) {
    std::vector<CVirtualListCtrlItem*> items(40);
    std::ranges::generate(items, [] { return new CRow('a'); });
    list.m_onSize = [&] { list.Add("b"); };
    list.ReplaceItems(items);
    EXPECT_FALSE(list.m_onSize) << "sized";
    EXPECT_EQ(list.SendMessage(LVM_GETITEMCOUNT), 41);
}

TEST_F(RowList, IsRedrawnInItsNextWindow) {
    list.SetRedraw(FALSE);
    list.DestroyWindow();
    list.Create(WS_VISIBLE | LVS_REPORT, kListPlace, &parent, 5);
    list.m_sentCounts = 0;
    list.Add("a");
    EXPECT_EQ(list.m_sentCounts, 1);
}

// Its memory reveals writes after its end.
class CDoomedList : public CRowList {
public:
    using CRowList::CRowList;
    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void* memory, std::size_t size) {
        s_memory = static_cast<unsigned char*>(memory);
        s_size = size;
        std::memset(memory, 0xdd, size);
    }
    static bool IsUntouched() {
        const bool isUntouched = s_size > 0 && std::all_of(s_memory, s_memory + s_size,
                                                           [](int byte) { return byte == 0xdd; });
        ::operator delete(s_memory);
        s_size = 0;
        return isUntouched;
    }
    BOOL SortItems(int column, int ascending, int force) override {
        if (!m_endsInSort)
            return CRowList::SortItems(column, ascending, force);
        delete this;
        return TRUE;
    }
    bool m_endsInSort = false;

private:
    static inline unsigned char* s_memory = nullptr;
    static inline std::size_t s_size = 0;
};

TEST(VirtualListCtrl, MayBeDestroyedInItsNotifications) {
    const Act clickHeader = [](CRowList& list) {
        NMHEADERW click = {};
        click.hdr = {list.GetHeaderCtrl()->m_hWnd, 0, static_cast<UINT>(HDN_ITEMCLICKW)};
        list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    };
    const Act hideSortColumn = [](CRowList& list) { list.ShowVaskColumn(0, FALSE); };
    const Act moveUp = [](CRowList& list) { list.MoveSelectedItemUp(); };
    const Act selectAll = [](CRowList& list) { list.SelectAllItems(); };
    const auto inSort = [](const Act& act) { // ends in the next call of SortItems
        return [act](CDoomedList& list) {
            list.SortItems(0, TRUE, FALSE);
            list.m_endsInSort = true;
            act(list);
        };
    };
    const auto ends = [](UINT code, const std::function<void(CDoomedList&)>& act) {
        ListParent parent;
        CDoomedList* const list = new CDoomedList(parent);
        list->Add("cab");
        list->Select(2);
        parent.m_onNotify = [&](const NMHDR& header) {
            if (header.code == code && header.hwndFrom == list->m_hWnd)
                delete list;
        };
        act(*list);
        parent.m_onNotify = nullptr;
        return CDoomedList::IsUntouched() && CRow::s_count == 0;
    };
    const UINT changed = LVN_ITEMCHANGED;
    ExpectCases<bool>({CASE(ends(LVN_KEYDOWN, Key(VK_DELETE)), true),
                       CASE(ends(LVN_COLUMNCLICK, clickHeader), true),
                       CASE(ends(0, inSort(clickHeader)), true),
                       CASE(ends(0, inSort(hideSortColumn)), true),
                       CASE(ends(changed, Sort(true)), true), CASE(ends(changed, Remove(2)), true),
                       CASE(ends(changed, moveUp), true), CASE(ends(changed, selectAll), true)});
}

} // namespace
