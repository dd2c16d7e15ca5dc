#include "controls/win/list_item_content.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr UINT kAllStates = 0xffff;

// The item with this cell's text. Repeats with a longer buffer until the text fits. With
// LVIF_NORECOMPUTE the platform reports which texts and images it requests from its parent.
LVITEMW ReadCell(const CListCtrl& list, int item, int subItem, CString& text) {
    LVITEMW cell = {};
    for (int size = 128;; size *= 2) {
        cell = {};
        cell.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_NORECOMPUTE;
        if (subItem == 0) {
            cell.mask |= LVIF_PARAM | LVIF_STATE | LVIF_INDENT;
            cell.stateMask = kAllStates;
        }
        cell.iItem = item;
        cell.iSubItem = subItem;
        WCHAR* const buffer = text.GetBuffer(size);
        cell.pszText = buffer;
        cell.cchTextMax = size;
        const bool isRead = list.GetItem(&cell) && cell.pszText != LPSTR_TEXTCALLBACKW;
        text.ReleaseBuffer(isRead && cell.pszText == buffer ? -1 : 0);
        if (isRead && cell.pszText != buffer)
            text = cell.pszText; // the list may point to its own text
        if (!isRead || cell.pszText != buffer || text.GetLength() < size - 1)
            return cell;
    }
}

} // namespace

ListItemContent::ListItemContent(const CListCtrl& list, int item, int columnCount)
    : m_cells(static_cast<std::size_t>(std::max(columnCount, 1))) {
    int subItem = 0;
    for (Cell& cell : m_cells) {
        const LVITEMW read = ReadCell(list, item, subItem, cell.text);
        cell.isAskedFor = read.pszText == LPSTR_TEXTCALLBACKW;
        cell.image = read.iImage;
        if (subItem++ == 0) {
            m_indent = read.iIndent;
            m_data = read.lParam;
            m_state = read.state;
        }
    }
}

void ListItemContent::PutInto(CListCtrl& list, int item) const {
    LVITEMW cell = {};
    cell.iItem = item;
    for (const Cell& each : m_cells) {
        cell.mask = LVIF_TEXT | LVIF_IMAGE;
        if (cell.iSubItem == 0) {
            cell.mask |= LVIF_PARAM | LVIF_STATE | LVIF_INDENT;
            cell.iIndent = m_indent;
            cell.lParam = m_data;
            cell.state = m_state;
            cell.stateMask = kAllStates;
        }
        cell.pszText =
            each.isAskedFor ? LPSTR_TEXTCALLBACKW : const_cast<WCHAR*>(each.text.GetString());
        cell.iImage = each.image;
        list.SetItem(&cell);
        ++cell.iSubItem;
    }
}

} // namespace quorvel
