// The virtual list in real windows, driven by messages.
#include <quorvel/controls/win/virtual_list_ctrl.h>

#include "controls/win/list_window.h"

#include <algorithm>
#include <concepts>

namespace {

class CRow : public CVirtualListCtrlItem {
public:
    static inline int s_count = 0;

    explicit CRow(WCHAR name, int size = 0) : CVirtualListCtrlItem(3, 2, size), m_name(name) {
        ++s_count;
    }
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
bool IsSizeLess(CVirtualListCtrlItem* const& a, CVirtualListCtrlItem* const& b) {
    return a->GetLParam() < b->GetLParam();
}

// Column 0 sorts by name, 1 by size, others not at all.
class CRowList : public CVirtualListCtrl {
public:
    explicit CRowList(CWnd& parent, DWORD style = 0) {
        EXPECT_TRUE(Create(WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | style,
                           kListPlace, &parent, 5));
        SetAutoDeleteItems();
        for (int i = 0; i < 3; ++i)
            InsertVaskColumn(i, i, TRUE, _T("Name"), LVCFMT_LEFT, 60);
    }
    SortingFunction GetSortingFunction(int column, int ascending) override {
        return column == 0 ? (ascending ? IsNameLess : IsNameGreater)
                           : (column == 1 ? IsSizeLess : nullptr);
    }
    // A row for each letter, its size the position in the alphabet from behind, in pairs.
    void Add(const char* names) {
        for (; *names != 0; ++names)
            AddItem(new CRow(static_cast<WCHAR>(*names), ('z' - *names) / 2));
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
};

TEST(VirtualListCtrl, KeepsSelectionAndFocusWithTheirRows) {
    ListParent parent;
    CRowList list(parent);
    CRow* const x = new CRow('x');
    const std::vector<int> several = {3, 1, 1, 9, -1};
    const struct {
        const char* label;
        std::function<int()> act;
        int result;
        const char* rows;
    } rows[] = {
        {"add", [&] { return list.Add("dbac"), list.GetItemCount(); }, 4, "d b a c"},
        {"add nothing", [&] { return list.AddItem(nullptr); }, -1, "d b a c"},
        {"insert outside", [&] { return list.InsertItem(5, x) + list.InsertItem(-1, x); }, -2,
         "d b a c"},
        {"select", [&] { return list.Select(1, 3), 0; }, 0, "d *b a *c!"},
        {"insert in between", [&] { return list.InsertItem(2, x); }, 2, "d *b x a *c!"},
        {"sort by name", [&] { return list.SortItems(0, TRUE, FALSE); }, TRUE, "a *b *c! d x"},
        {"again", [&] { return list.SortItems(0, TRUE, FALSE); }, FALSE, "a *b *c! d x"},
        {"from behind", [&] { return list.SortItems(0, FALSE, FALSE); }, TRUE, "x d *c! *b a"},
        {"swap", [&] { return x->m_name = _T("C"), list.SortItems(0, FALSE, FALSE); }, FALSE,
         "C d *c! *b a"},
        {"forced", [&] { return list.SortItems(0, FALSE, TRUE); }, TRUE, "d *c! *b a C"},
        {"equal ones stay in order", [&] { return list.SortItems(1, TRUE, FALSE); }, TRUE,
         "C d *c! *b a"},
        {"one moves up", [&] { return list.Select(3), list.MoveSelectedItemUp(); }, 2,
         "C d *b! c a"},
        {"and down", [&] { return list.MoveSelectedItemDown(); }, 3, "C d c *b! a"},
        {"delete before", [&] { return list.DeleteItem(0); }, TRUE, "d c *b! a"},
        {"delete the selected", [&] { return list.DeleteItem(2); }, TRUE, "d c *a!"},
        {"the last", [&] { return list.DeleteItem(list.GetItem(2)); }, TRUE, "d *c!"},
        {"one of two", [&] { return list.Add("efg"), list.Select(1, 3), list.DeleteItem(3); }, TRUE,
         "d *c e g!"},
        {"several", [&] { return list.DeleteItems(several); }, 2, "d *e!"},
        {"all selected",
         [&] { return list.Add("abc"), list.SelectAllItems(), list.InsertItem(0, new CRow('z')); },
         0, "z *d *e! *a *b *c"},
        {"sorted", [&] { return list.SortItems(0, TRUE, FALSE); }, TRUE, "*a *b *c *d *e! z"},
        {"all but one",
         [&] {
             return list.SelectAllItems(), list.SelectItem(2, FALSE),
                    list.SortItems(0, FALSE, FALSE);
         },
         TRUE, "*z *e! *d c *b *a"},
        // The platform's own messages.
        {"LVM_DELETEITEM", [&] { return static_cast<CListCtrl&>(list).DeleteItem(0); }, TRUE,
         "*e! *d c *b *a"},
        {"LVM_INSERTITEM", [&] { return static_cast<CListCtrl&>(list).InsertItem(0, _T("y")); }, -1,
         "*e! *d c *b *a"},
        {"LVM_SETITEMCOUNT", [&] { return list.SetItemCountEx(99); }, FALSE, "*e! *d c *b *a"},
        {"LVM_DELETEALLITEMS", [&] { return static_cast<CListCtrl&>(list).DeleteAllItems(); }, TRUE,
         ""},
        {"emptied", [&] { return list.GetItemCount() + CRow::s_count; }, 0, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.act(), row.result) << row.label;
        EXPECT_EQ(RowsOf(list), row.rows) << row.label;
    }
}

TEST(VirtualListCtrl, FollowsWhatUsersSelect) {
    ListParent parent;
    CRowList list(parent);
    list.Add("fedcba");
    const auto press = [&](UINT key, bool isShift) {
        BYTE keys[256];
        ::GetKeyboardState(keys);
        keys[VK_SHIFT] = isShift ? 0x80 : 0;
        ::SetKeyboardState(keys);
        list.SendMessage(WM_KEYDOWN, key, 1);
        keys[VK_SHIFT] = 0;
        ::SetKeyboardState(keys);
    };
    list.Select(1);
    list.SetSelectionMark(1);
    press(VK_DOWN, true);
    press(VK_DOWN, true);
    EXPECT_EQ(RowsOf(list), "f *e *d *c! b a");
    list.SortItems(0, TRUE, FALSE);
    EXPECT_EQ(RowsOf(list), "a b *c! *d *e f");
    press(VK_DOWN, false);
    list.SortItems(0, FALSE, FALSE);
    EXPECT_EQ(RowsOf(list), "f e *d! c b a");
    list.Type("\x01");
    list.SortItems(0, TRUE, FALSE);
    EXPECT_EQ(RowsOf(list), "*a *b *c *d! *e *f") << "Ctrl+A";

    CRowList single(parent, LVS_SINGLESEL);
    single.Add("cab");
    single.Select(0);
    single.SortItems(0, TRUE, FALSE);
    EXPECT_EQ(RowsOf(single), "a b *c!");
    single.Type("\x01");
    single.DeleteItem(2);
    EXPECT_EQ(RowsOf(single), "a *b!");
}

TEST(VirtualListCtrl, KeepsTheFocusedRowInViewAndLeavesItemsToTheirOwner) {
    ListParent parent;
    std::vector<std::unique_ptr<CRow>> owned;
    {
        CRowList list(parent);
        list.SetAutoDeleteItems(FALSE);
        for (int i = 0; i < 100; ++i)
            list.AddItem(
                owned.emplace_back(std::make_unique<CRow>(static_cast<WCHAR>('A' + i))).get());
        list.Select(0);
        list.SortItems(0, FALSE, FALSE);
        EXPECT_TRUE(list.IsItemSelected(99));
        EXPECT_GT(list.GetTopIndex(), 50);
        EXPECT_TRUE(list.DeleteItem(0));
        EXPECT_TRUE(list.DeleteAllItems());
        EXPECT_EQ(CRow::s_count, 100);
        list.AddItem(owned[0].get());
    }
    EXPECT_EQ(CRow::s_count, 100);
    owned.clear();

    CVirtualListCtrl later; // rows before the window
    later.SetAutoDeleteItems();
    later.AddItem(new CRow('a'));
    later.AddItem(new CRow('b'));
    EXPECT_TRUE(later.DeleteItem(0));
    EXPECT_TRUE(later.SortItems(0, TRUE, FALSE));
    ASSERT_TRUE(later.Create(WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, kListPlace, &parent, 6));
    later.InsertColumn(0, _T("Name"));
    EXPECT_EQ(RowsOf(later), "b");
}

TEST(VirtualListCtrl, AnswersWhatTheListViewAsksFor) {
    ListParent parent;
    CRowList list(parent);
    list.Add("ab");
    static_cast<CRow*>(list.GetItem(1))->m_name = _T("a long text");
    list.ShowVaskColumn(1, FALSE);
    constexpr UINT kAll = LVIF_TEXT | LVIF_IMAGE | LVIF_INDENT | LVIF_PARAM;
    const struct {
        const char* label;
        UINT mask;
        int row, subItem, size;
        const WCHAR* text; // "?" is the marker of what was not supplied
        int image, indent, data;
    } rows[] = {
        {"all", kAll, 0, 0, 10, _T("a"), 3, 2, 12},
        {"cut", LVIF_TEXT, 1, 0, 7, _T("a long"), -9, -9, -9},
        {"no room", LVIF_TEXT, 1, 0, 0, _T("?"), -9, -9, -9},
        {"a column behind a hidden one", LVIF_TEXT, 0, 1, 10, _T("a2"), -9, -9, -9},
        {"image", LVIF_IMAGE, 0, 0, 10, _T("?"), 3, -9, -9},
        {"indent and data", LVIF_INDENT | LVIF_PARAM, 0, 0, 10, _T("?"), -9, 2, 12},
        {"no row", kAll, 2, 0, 10, _T("?"), -9, -9, -9},
    };
    for (const auto& row : rows) {
        WCHAR text[20] = _T("?");
        NMLVDISPINFOW note = {};
        note.hdr = {list.m_hWnd, 5, static_cast<UINT>(LVN_GETDISPINFOW)};
        note.item.mask = row.mask;
        note.item.iItem = row.row;
        note.item.iSubItem = row.subItem;
        note.item.pszText = text;
        note.item.cchTextMax = row.size;
        note.item.iImage = note.item.iIndent = -9;
        note.item.lParam = -9;
        parent.SendMessage(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&note));
        EXPECT_EQ(CString(text), row.text) << row.label;
        EXPECT_EQ(note.item.iImage, row.image) << row.label;
        EXPECT_EQ(note.item.iIndent, row.indent) << row.label;
        EXPECT_EQ(note.item.lParam, row.data) << row.label;
    }
}

TEST(VirtualListCtrl, FindsRowsByTypedLetters) {
    const struct {
        const char* typed;
        const char* rows;
    } rows[] = {
        {"b", "a *b! B c"},
        {"bbb", "a *b! B c"},
        {"x", "*a! b B c"},
    };
    for (const auto& row : rows) { // each list begins its search anew
        ListParent parent;
        CRowList list(parent);
        list.Add("abBc");
        list.Select(0);
        list.Type(row.typed);
        EXPECT_EQ(RowsOf(list), row.rows) << row.typed;
    }
    ListParent parent;
    CRowList list(parent);
    list.Add("abBc");
    const auto find = [&](UINT flags, const WCHAR* text, int after) {
        LVFINDINFOW what = {};
        what.flags = flags;
        what.psz = text;
        return list.FindItem(&what, after);
    };
    ExpectCases<int>({
        CASE(find(LVFI_STRING, _T("b"), -1), 1),
        CASE(find(LVFI_STRING, _T("b"), 1), 2),
        CASE(find(LVFI_STRING | LVFI_WRAP, _T("b"), 2), 1),
        CASE(find(LVFI_STRING, nullptr, -1), -1),
    });
}

CString ClipboardText() {
    CString text;
    if (!::OpenClipboard(nullptr))
        return _T("not to be opened");
    if (const HGLOBAL memory = ::GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const WCHAR*>(::GlobalLock(memory));
        ::GlobalUnlock(memory);
    }
    ::CloseClipboard();
    return text;
}

TEST(VirtualListCtrl, CopiesTheSelectedRowsAsTheyAreShown) {
    ListParent parent;
    CRowList list(parent);
    list.Add("abc");
    list.Select(0, 2);
    list.Type("\x03");
    EXPECT_EQ(ClipboardText(), _T("a\ta1\ta2\r\nc\tc1\tc2\r\n"));
    const int order[] = {2, 0, 1};
    list.SetColumnOrderArray(3, order);
    list.ShowVaskColumn(1, FALSE);
    list.Select(1);
    list.Type("\x03");
    EXPECT_EQ(ClipboardText(), _T("b2\tb\r\n"));
    list.Select();
    list.Type("\x03");
    EXPECT_EQ(ClipboardText(), _T("b2\tb\r\n")) << "nothing selected";
}

TEST(VirtualListCtrl, SurvivesRowsThatAreDeletedInNotifications) {
    const struct {
        const char* label;
        std::function<void(CRowList&)> onChange; // at the first notification of a change
        std::function<void(CRowList&)> act;
        const char* rows;
    } rows[] = {
        {"while another is focused", [](CRowList& list) { list.DeleteItem(1); },
         [](CRowList& list) { list.SelectItem(1); }, "*d *a! b"},
        {"the last while it is focused",
         [](CRowList& list) {
             list.DeleteItems({2, 3});
         },
         [](CRowList& list) { list.SelectItem(3); }, "*d *c"},
        {"all while sorting", [](CRowList& list) { list.DeleteAllItems(); },
         [](CRowList& list) { list.SortItems(0, TRUE, FALSE); }, ""},
        {"a selected one while sorting", [](CRowList& list) { list.DeleteItem(0); },
         [](CRowList& list) { list.SortItems(0, TRUE, FALSE); }, "b *c *d!"},
        {"sorted back while sorting", [](CRowList& list) { list.SortItems(0, FALSE, FALSE); },
         [](CRowList& list) { list.SortItems(0, TRUE, FALSE); }, "*d! *c b *a"},
        {"another while deleting", [](CRowList& list) { list.DeleteItem(0); },
         [](CRowList& list) { list.DeleteItem(1); }, "*a! b"},
        {"added while unselecting", [](CRowList& list) { list.Add("e"); },
         [](CRowList& list) { list.UnselectAllItems(); }, "d! c a b e"},
    };
    for (const auto& row : rows) {
        ListParent parent;
        CRowList list(parent);
        list.Add("dcab");
        list.Select(2, 1, 0); // d, c and a, the focus on d
        bool isFirst = true;
        parent.m_onNotify = [&](const NMHDR& header) {
            if (header.code == static_cast<UINT>(LVN_ITEMCHANGED) && std::exchange(isFirst, false))
                row.onChange(list);
        };
        row.act(list);
        EXPECT_FALSE(isFirst) << row.label;
        EXPECT_EQ(RowsOf(list), row.rows) << row.label;
        parent.m_onNotify = nullptr;
        const std::string before = RowsOf(list); // rows and list-view agree: a sort changes nothing
        list.SortItems(2, TRUE, TRUE);
        EXPECT_EQ(RowsOf(list), before) << row.label;
        EXPECT_EQ(CRow::s_count, list.GetItemCount()) << row.label;
        EXPECT_EQ(list.SendMessage(LVM_GETITEMCOUNT), list.GetItemCount()) << row.label;
    }
    ListParent parent;
    CRowList list(parent);
    list.Add("ab");
    static_cast<CRow*>(list.GetItem(0))->m_onText = [&] { list.DeleteAllItems(); };
    list.SetAutoDeleteItems(FALSE); // the item's own code runs
    const std::unique_ptr<CVirtualListCtrlItem> first(list.GetItem(0)), second(list.GetItem(1));
    list.Invalidate();
    list.UpdateWindow();
    EXPECT_EQ(list.GetItemCount(), 0);
}

} // namespace
