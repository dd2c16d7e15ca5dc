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

// Column 0 sorts by name, 1 by size, 3 by m_last; the others do not sort.
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
        return column == 0 ? (ascending ? IsNameLess : IsNameGreater)
                           : (column == 1 ? IsSizeLess : nullptr);
    }
    // A row for each letter. Its size counts the alphabet backwards, in pairs.
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
    CString m_last;
    int m_selectedInSort = -1;
    int m_sentCounts = 0;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        m_sentCounts += message == LVM_SETITEMCOUNT;
        return CVirtualListCtrl::DefWindowProc(message, wParam, lParam);
    }
    // Like a derived class that does not pass on these notifications.
    void OnLvnItemchanged(NMHDR*, LRESULT*) {}
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CRowList, CVirtualListCtrl)
ON_NOTIFY_REFLECT(LVN_ITEMCHANGED, &CRowList::OnLvnItemchanged)
END_MESSAGE_MAP()

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
        {"refused", [&] { return list.InsertItem(5, x) + list.AddItem(nullptr); }, -2, "d b a c"},
        {"select", [&] { return list.Select(1, 3), 0; }, 0, "d *b a *c!"},
        {"insert in between", [&] { return list.InsertItem(2, x); }, 2, "d *b x a *c!"},
        {"sort", [&] { return list.SortItems(0, TRUE, FALSE); }, TRUE, "a *b *c! d x"},
        {"again", [&] { return list.SortItems(0, TRUE, FALSE); }, FALSE, "a *b *c! d x"},
        {"from behind", [&] { return list.SortItems(0, FALSE, FALSE); }, TRUE, "x d *c! *b a"},
        {"forced", [&] { return x->m_name = _T("C"), list.SortItems(0, FALSE, TRUE); }, TRUE,
         "d *c! *b a C"},
        {"by size", [&] { return list.SortItems(1, TRUE, FALSE); }, TRUE, "C d *c! *b a"},
        {"one moves up", [&] { return list.Select(3), list.MoveSelectedItemUp(); }, 2,
         "C d *b! c a"},
        {"and down, and a row before it is deleted",
         [&] { return list.MoveSelectedItemDown() + list.DeleteItem(0); }, 4, "d c *b! a"},
        {"delete the selected", [&] { return list.DeleteItem(2); }, TRUE, "d c *a!"},
        {"one of two",
         [&] { return list.Add("efg"), list.Select(1, 4), list.DeleteItem(list.GetItem(4)); }, TRUE,
         "d *c a e g!"},
        {"several", [&] { return list.DeleteItems(several); }, 2, "d *a g!"},
        {"all selected",
         [&] { return list.Add("bc"), list.SelectAllItems(), list.InsertItem(0, new CRow('z')); },
         0, "z *d *a *g! *b *c"},
        {"by more than a function",
         [&] {
             list.m_last = _T("b");
             return list.Select(1, 2), list.SortItems(3, TRUE, FALSE) + list.m_selectedInSort;
         },
         TRUE, "z *d *a! g c b"},
        {"filtered",
         [&] {
             list.ReplaceItems({list.GetItem(5), list.GetItem(3), list.GetItem(1), nullptr});
             return CRow::s_count;
         },
         3, "b g *d!"},
        {"many while not redrawn",
         [&] {
             list.SetRedraw(FALSE);
             list.m_sentCounts = 0;
             for (const char name : {'p', 'q', 'r'})
                 list.InsertItem(0, new CRow(static_cast<WCHAR>(name)));
             list.DeleteItem(1);
             list.DeleteItem(1);
             const int sent = list.m_sentCounts;
             list.SetRedraw();
             return 10 * sent + list.m_sentCounts;
         },
         1, "r b g *d!"},
        // The platform's own messages.
        {"LVM_DELETEITEM", [&] { return static_cast<CListCtrl&>(list).DeleteItem(0); }, TRUE,
         "b g *d!"},
        {"LVM_INSERTITEM", [&] { return static_cast<CListCtrl&>(list).InsertItem(0, _T("y")); }, -1,
         "b g *d!"},
        {"LVM_SETITEMCOUNT", [&] { return list.SetItemCountEx(99); }, FALSE, "b g *d!"},
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
        const WCHAR* text; // "?": not supplied
        int image, indent, data;
    } rows[] = {
        {"all", kAll, 0, 0, 10, _T("a"), 3, 2, 12},
        {"cut", LVIF_TEXT, 1, 0, 7, _T("a long"), -9, -9, -9},
        {"no room", LVIF_TEXT, 1, 0, 0, _T("?"), -9, -9, -9},
        {"a column behind a hidden one", LVIF_TEXT, 0, 1, 10, _T("a2"), -9, -9, -9},
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
    ListParent parent;
    CRowList list(parent);
    list.Add("abBc");
    list.Select(0);
    list.Type("bbb");
    EXPECT_EQ(RowsOf(list), "a *b! B c");
    const auto find = [&](UINT flags, const WCHAR* text, int after) {
        LVFINDINFOW what = {};
        what.flags = flags;
        what.psz = text;
        return list.FindItem(&what, after);
    };
    ExpectCases<int>({CASE(find(LVFI_STRING, _T("b"), -1), 1),
                      CASE(find(LVFI_STRING | LVFI_WRAP, _T("b"), 2), 1),
                      CASE(find(LVFI_PARTIAL | LVFI_WRAP, _T("b"), 1), 2), // not typed
                      CASE(find(LVFI_STRING, nullptr, -1), -1)});
}

TEST(VirtualListCtrl, CopiesTheSelectedRowsAsTheyAreShown) {
    ListParent parent;
    CRowList list(parent);
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

TEST(VirtualListCtrl, SurvivesRowsThatAreDeletedInNotifications) {
    const struct {
        const char* label;
        std::function<void(CRowList&)> onChange; // called at the first notification of a change
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
        list.Select(2, 1, 0); // selects d, c and a; the focus is on d
        bool isFirst = true;
        parent.m_onNotify = [&](const NMHDR& header) {
            if (header.code == static_cast<UINT>(LVN_ITEMCHANGED) && std::exchange(isFirst, false))
                row.onChange(list);
        };
        row.act(list);
        EXPECT_FALSE(isFirst) << row.label;
        EXPECT_EQ(RowsOf(list), row.rows) << row.label;
        parent.m_onNotify = nullptr;
        const std::string before = RowsOf(list); // rows and list-view agree: sorting is idle
        list.SortItems(2, TRUE, TRUE);
        EXPECT_EQ(RowsOf(list), before) << row.label;
        EXPECT_EQ(CRow::s_count, list.GetItemCount()) << row.label;
        EXPECT_EQ(list.SendMessage(LVM_GETITEMCOUNT), list.GetItemCount()) << row.label;
    }
    ListParent parent;
    CRowList list(parent);
    list.Add("ab");
    static_cast<CRow*>(list.GetItem(0))->m_onText = [&] { list.DeleteAllItems(); };
    list.SetAutoDeleteItems(FALSE); // runs code of the item
    const std::unique_ptr<CVirtualListCtrlItem> first(list.GetItem(0)), second(list.GetItem(1));
    list.Invalidate();
    list.UpdateWindow();
    EXPECT_EQ(list.GetItemCount(), 0);
}

// In a notification the list returns the new rows, even if the list-view does not have them
// yet.
TEST(VirtualListCtrl, IsUpToDateInNotifications) {
    typedef CRowList& List;
    const auto key = [](UINT code) {
        return [code](List list) { list.SendMessage(WM_KEYDOWN, code, 1); };
    };
    const auto deleteSelected = [](List list) {
        for (UINT n = list.GetSelectedCount(); n > 0; --n)
            list.DeleteItem(list.GetNextItem(-1, LVNI_SELECTED));
    };
    const auto addAndShow = [](List list) {
        for (int i = 0; i < 50; ++i) {
            list.UnselectAllItems();
            const int row = list.AddItem(new CRow(static_cast<WCHAR>('A' + i)));
            EXPECT_TRUE(list.SelectItem(row) && list.EnsureVisible(row, FALSE));
            EXPECT_TRUE(list.IsItemSelected(row) && list.GetSingleSelectionItem() == row);
            EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), row);
        }
        list.DeleteItems({4, 5, 6, 7, 8, 9});
    };
    const auto unselectOne = [](List list) { list.SelectItem(1, FALSE); };
    const struct {
        const char* label;
        UINT code; // code of the notification
        std::function<void(List)> act, onNotify;
        const char* begin;
        int lastRow;
    } rows[] = {
        {"selected ones deleted by a key", LVN_KEYDOWN, key(VK_DELETE), deleteSelected, "*b", 0},
        {"some inserted by a key", LVN_KEYDOWN, key(VK_INSERT), addAndShow, "d c a b G", 47},
        {"changed while the selection changes", LVN_ITEMCHANGED, unselectOne, addAndShow,
         "d c a b G", 47},
        {"deleted while the selection changes", LVN_ITEMCHANGED, unselectOne, deleteSelected,
         "c! *b", 1},
    };
    for (const auto& row : rows) {
        ListParent parent;
        CRowList list(parent);
        list.Add("dcab");
        list.Select(2, 1, 0);
        bool isFirst = true;
        parent.m_onNotify = [&](const NMHDR& header) {
            if (header.code != row.code || !std::exchange(isFirst, false))
                return;
            row.onNotify(list);
            EXPECT_EQ(list.SendMessage(LVM_GETITEMCOUNT), list.GetItemCount()) << row.label;
        };
        row.act(list);
        parent.m_onNotify = nullptr;
        EXPECT_FALSE(isFirst) << row.label;
        EXPECT_EQ(RowsOf(list).substr(0, std::strlen(row.begin)), row.begin) << row.label;
        EXPECT_EQ(list.GetItemCount(), row.lastRow + 1) << row.label;
        EXPECT_TRUE(list.IsItemSelected(row.lastRow)) << row.label;
        EXPECT_EQ(list.GetTopIndex() > 0, row.lastRow > 1) << row.label;
    }

    ListParent parent;
    CRowList list(parent);
    list.Add("cba");
    list.Select(1);
    parent.m_keptCode = static_cast<UINT>(LVN_ITEMCHANGED); // the parent does not pass it on
    list.Select(2);
    list.SortItems(0, TRUE, FALSE);
    EXPECT_EQ(RowsOf(list), "*a! b c");
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
    typedef CDoomedList& List;
    const auto clickHeader = [](List list) {
        NMHEADERW click = {};
        click.hdr = {list.GetHeaderCtrl()->m_hWnd, 0, static_cast<UINT>(HDN_ITEMCLICKW)};
        list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    };
    const struct {
        const char* label;
        UINT code;
        std::function<void(List)> act;
    } rows[] = {
        {"at a key", LVN_KEYDOWN, [](List list) { list.SendMessage(WM_KEYDOWN, VK_DELETE, 1); }},
        {"at a double click", NM_DBLCLK,
         [](List list) {
             CRect rect;
             list.GetItemRect(0, rect, LVIR_LABEL);
             list.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON,
                              MAKELPARAM(rect.left + 4, rect.top + 4));
         }},
        {"at a click of the header", LVN_COLUMNCLICK, clickHeader},
        {"sorted by the header", 0,
         [&](List list) {
             list.m_endsInSort = true;
             clickHeader(list);
         }},
        {"the sort column hidden", 0,
         [](List list) {
             list.SortItems(0, TRUE, FALSE);
             list.m_endsInSort = true;
             list.ShowVaskColumn(0, FALSE);
         }},
        {"while sorting", LVN_ITEMCHANGED, [](List list) { list.SortItems(0, TRUE, FALSE); }},
        {"while deleting", LVN_ITEMCHANGED, [](List list) { list.DeleteItem(2); }},
        {"while moving", LVN_ITEMCHANGED, [](List list) { list.MoveSelectedItemUp(); }},
        {"while selecting", LVN_ITEMCHANGED, [](List list) { list.SelectAllItems(); }},
    };
    for (const auto& row : rows) {
        ListParent parent;
        CDoomedList* const list = new CDoomedList(parent);
        list->Add("cab");
        list->Select(2);
        parent.m_onNotify = [&](const NMHDR& header) {
            if (header.code == row.code && header.hwndFrom == list->m_hWnd)
                delete list;
        };
        row.act(*list);
        parent.m_onNotify = nullptr;
        EXPECT_TRUE(CDoomedList::IsUntouched()) << row.label;
        EXPECT_EQ(CRow::s_count, 0) << row.label;
    }
}

// A message box over a list that fails to draw would make the list draw again.
TEST(VirtualListCtrl, FailsToDrawWithoutABox) {
    MessageBoxRecorder app;
    ListParent parent;
    CRowList list(parent);
    list.Add("ab");
    static_cast<CRow*>(list.GetItem(0))->m_onText = [] { throw 1; };
    list.Invalidate();
    list.UpdateWindow();
    EXPECT_TRUE(app.Take().empty());
    EXPECT_EQ(list.GetItemText(1, 0), _T("b"));
}

} // namespace
