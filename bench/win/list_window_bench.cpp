// Virtual lists in windows, against a bare owner-data list of the platform with the same texts:
// answering the display requests of a page of rows, painting that page, taking 1,000,000 rows, and
// scrolling through them. The two take turns, and the medians are compared: one line for each
// figure, with the ratio of the library's time to the bare list's. Windows only.
#include <quorvel/controls/win/virtual_list_ctrl.h>

#include "win/window_bench.h"

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kRows = 1000000;
constexpr int kPage = 26;
constexpr int kColumns = 3;
constexpr int kTurns = 21;
constexpr int kControl = 5;

class Row : public CVirtualListCtrlItem {
public:
    explicit Row(int number) { m_text.Format(_T("Row %d"), number); }
    CString GetSubItemText(int) override { return m_text; }
    CString m_text;
};
typedef std::vector<std::unique_ptr<Row>> Rows;

class Parent : public CWnd {
public:
    Parent() {
        CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 500, 500, nullptr, nullptr);
    }
};

// What a program without the library does.
std::vector<Row*> s_bareRows;

LRESULT CALLBACK BareParentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY &&
        reinterpret_cast<NMHDR*>(lParam)->code == static_cast<UINT>(LVN_GETDISPINFOW)) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        if ((item.mask & LVIF_TEXT) != 0)
            ::lstrcpynW(item.pszText, s_bareRows[static_cast<std::size_t>(item.iItem)]->m_text,
                        item.cchTextMax);
        return 0;
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA;

HWND MakeBareList() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = BareParentProcedure;
    windowClass.lpszClassName = _T("BareParent");
    ::RegisterClassW(&windowClass);
    const HWND parent = ::CreateWindowW(_T("BareParent"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 500,
                                        500, nullptr, nullptr, nullptr, nullptr);
    return ::CreateWindowW(WC_LISTVIEWW, nullptr, kListStyle, 0, 0, 480, 480, parent,
                           reinterpret_cast<HMENU>(kControl), nullptr, nullptr);
}

// A class for a control of the platform subclasses it. Under Wine, calling the control's own
// procedure then takes one more system call.
WNDPROC s_listProcedure;

LRESULT CALLBACK SubclassProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return ::CallWindowProcW(s_listProcedure, window, message, wParam, lParam);
}

WNDPROC SetProcedure(HWND window, WNDPROC procedure) {
    return reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

void AddColumns(HWND list) {
    for (int i = 0; i < kColumns; ++i) {
        LVCOLUMNW column = {};
        column.mask = LVCF_WIDTH;
        column.cx = 120;
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i),
                       reinterpret_cast<LPARAM>(&column));
    }
}

void ReadPage(HWND list) {
    WCHAR text[260];
    for (int row = 0; row < kPage; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            LVITEMW item = {};
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = 260;
            ::SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                           reinterpret_cast<LPARAM>(&item));
        }
    }
}

void PaintPage(HWND list) {
    ::RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void ScrollThrough(HWND list) {
    for (int row = 0; row < kRows; row += kRows / 20) {
        ::SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        ::UpdateWindow(list);
    }
}

} // namespace

int main() {
    Rows rows;
    rows.reserve(kRows);
    for (int i = 0; i < kRows; ++i)
        rows.push_back(std::make_unique<Row>(i));

    Parent parent;
    CVirtualListCtrl list;
    if (!list.Create(kListStyle, CRect(0, 0, 480, 480), &parent, kControl))
        return 1;
    const HWND bare = MakeBareList();
    AddColumns(list.m_hWnd);
    AddColumns(bare);

    Compare(
        "taking 1,000,000 rows", 5,
        [&] {
            list.SetRedraw(FALSE);
            list.DeleteAllItems();
            for (const auto& row : rows)
                list.AddItem(row.get());
            list.SetRedraw();
            PaintPage(list.m_hWnd);
        },
        [&] {
            ::SendMessageW(bare, WM_SETREDRAW, FALSE, 0);
            std::vector<Row*>().swap(s_bareRows);
            for (const auto& row : rows)
                s_bareRows.push_back(row.get());
            ::SendMessageW(bare, LVM_SETITEMCOUNT, s_bareRows.size(), LVSICF_NOINVALIDATEALL);
            ::SendMessageW(bare, WM_SETREDRAW, TRUE, 0);
            PaintPage(bare);
        });
    const auto read = [](HWND window) {
        for (int i = 0; i < 100; ++i)
            ReadPage(window);
    };
    Compare(
        "display requests of 100 pages", kTurns, [&] { read(list.m_hWnd); }, [&] { read(bare); });
    s_listProcedure = SetProcedure(bare, &SubclassProcedure);
    Compare(
        "the same, bare list subclassed", kTurns, [&] { read(list.m_hWnd); }, [&] { read(bare); });
    SetProcedure(bare, s_listProcedure);
    Compare(
        "painting a page", kTurns, [&] { PaintPage(list.m_hWnd); }, [&] { PaintPage(bare); });
    Compare(
        "scrolling through 1,000,000 rows", kTurns, [&] { ScrollThrough(list.m_hWnd); },
        [&] { ScrollThrough(bare); });
    list.DestroyWindow();
}
