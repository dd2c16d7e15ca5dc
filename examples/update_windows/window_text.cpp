#include "window_text.h"

#include <quorvel/framework/wnd.h>
#include <quorvel/update/win/update_listing_list_ctrl.h>

#include "common/console.h"
#include "support/win/list_cell.h"
#include "support/window_driver.h"

#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace {

CString ClassOf(HWND window) {
    WCHAR name[40];
    ::GetClassNameW(window, name, 40);
    return name;
}

// The priority is an icon: prints its name.
void PrintRows(HWND window) {
    auto* const list = dynamic_cast<CUpdateListingListCtrl*>(CWnd::FromHandlePermanent(window));
    const int count = static_cast<int>(::SendMessageW(window, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
        const bool isSelected =
            ::SendMessageW(window, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
        CString line = isSelected ? _T("   >") : _T("    ");
        if (list != nullptr)
            line += _T(" (") + list->GetUpdateListingItem(row)->GetPriorityText() + _T(")");
        for (int column = 1; column < CUpdateListingListCtrl::NUM_COLUMNS; ++column)
            line += _T(" ") + CellOf(window, row, column);
        Print(stdout, line);
    }
}

CString WithoutMnemonic(CString text) {
    text.Replace(_T("&&"), _T("\x01"));
    text.Replace(_T("&"), _T(""));
    text.Replace(_T("\x01"), _T("&"));
    return text;
}

// Collects what belongs into one line.
class Lines {
public:
    enum Kind { kText, kLabel, kButton };

    ~Lines() { Flush(); }
    void Add(const CString& part, Kind kind) {
        const bool isValue = m_last == kLabel && kind == kText;
        if (!isValue && (m_last != kButton || kind != kButton))
            Flush();
        m_line += m_line.IsEmpty() ? _T("  ") : _T(" ");
        m_line += part;
        m_last = kind;
        if (isValue)
            Flush();
    }
    void Flush() {
        if (!m_line.IsEmpty())
            Print(stdout, std::exchange(m_line, CString()));
        m_last = kText;
    }

private:
    CString m_line;
    Kind m_last = kText;
};

bool IsButton(HWND control) {
    return ClassOf(control).CompareNoCase(_T("Button")) == 0;
}

void AddButton(Lines& lines, HWND button, const CString& state) {
    const CString text = WithoutMnemonic(TextOf(button));
    if ((::GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) != BS_AUTOCHECKBOX)
        return lines.Add(_T("<") + text + _T(">") + state, Lines::kButton);
    const bool isChecked = ::SendMessageW(button, BM_GETCHECK, 0, 0) != 0;
    lines.Add((isChecked ? _T("[x] ") : _T("[ ] ")) + text + state, Lines::kText);
}

void AddControl(Lines& lines, HWND control) {
    const CString kind = ClassOf(control);
    if (kind.CompareNoCase(UPDOWN_CLASSW) == 0 || kind.CompareNoCase(PROGRESS_CLASSW) == 0)
        return;
    if (kind.CompareNoCase(WC_LISTVIEWW) == 0) {
        lines.Flush();
        return PrintRows(control);
    }
    const CString state = ::IsWindowEnabled(control) ? CString() : CString(_T(" (disabled)"));
    if (IsButton(control))
        return AddButton(lines, control, state);
    CString text = ::IsWindowVisible(control) ? TextOf(control) : CString();
    text.Replace(_T("\r\n\r\n"), _T(" / "));
    text.Replace(_T("\r\n"), _T(" / "));
    if (kind.CompareNoCase(_T("Edit")) == 0)
        text = _T("|") + text + _T("|");
    else if (text.IsEmpty())
        return lines.Flush(); // a label stays without a value
    const bool isLabel = text.Right(1) == _T(":");
    lines.Add(WithoutMnemonic(text) + state, isLabel ? Lines::kLabel : Lines::kText);
}

} // namespace

// A message box has its buttons before its text.
void PrintControls(HWND window) {
    Print(stdout, _T("[") + TextOf(window) + _T("]"));
    Lines lines;
    std::vector<HWND> children = ChildrenOf(window);
    if (CWnd::FromHandlePermanent(window) == nullptr)
        std::ranges::stable_partition(children, std::not_fn(IsButton));
    for (const HWND child : children)
        AddControl(lines, child);
}
