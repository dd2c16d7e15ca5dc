#include "element_list.h"

#include "resource.h"
#include "texts.h"

#include <quorvel/framework/win/dc.h>
#include <quorvel/framework/win/wait_cursor.h>

CString ElementItem::GetSubItemText(int column) {
    switch (column) {
    case ElementList::kName:
        return CString(m_document->NameOf(GetIndex()));
    case ElementList::kDepth:
        return NumberText(m_document->DepthOf(GetIndex()));
    case ElementList::kAttributes:
        return CString(m_document->AttributesOf(GetIndex()).substr(0, s_longestText));
    case ElementList::kText:
        return CString(m_document->TextOf(GetIndex()).substr(0, s_longestText));
    case ElementList::kPosition:
        return NumberText(m_document->PositionOf(GetIndex()));
    default:
        return CString();
    }
}

void ElementList::InsertColumns() {
    constexpr int kFormats[] = {LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_LEFT, LVCFMT_LEFT, LVCFMT_RIGHT};
    for (int column = 0; column < kColumnCount; ++column) {
        InsertVaskColumn(column, column, TRUE,
                         TextOf(static_cast<UINT>(TEXT_FIRST_COLUMN + column)), kFormats[column],
                         GetDefaultColumnWidth(column));
    }
    SetSortColumn(kPosition);
    SetExtendedStyle(LVS_EX_FULLROWSELECT);
}

void ElementList::Show(const Document& document, const std::vector<int>* indexes) {
    Clear();
    const int count =
        indexes != nullptr ? static_cast<int>(indexes->size()) : document.ElementCount();
    m_items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        m_items.emplace_back(document,
                             indexes != nullptr ? (*indexes)[static_cast<std::size_t>(i)] : i);
    std::vector<CVirtualListCtrlItem*> rows;
    rows.reserve(m_items.size());
    for (ElementItem& item : m_items)
        rows.push_back(&item);
    ReplaceItems(rows);
    if (GetSortColumn() != kPosition || !IsSortAscending())
        AutoSortItems();
    Invalidate();
}

void ElementList::Clear() {
    DeleteAllItems();
    m_items.clear();
}

// Ctrl+C copies whole texts.
LRESULT ElementList::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_CHAR)
        return CVirtualListCtrl::WindowProc(message, wParam, lParam);
    const struct Unlimited {
        Unlimited() { ElementItem::s_longestText = Document::View::npos; }
        ~Unlimited() { ElementItem::s_longestText = ElementItem::SHOWN_TEXT; }
    } unlimited; // its end also after an exception
    return CVirtualListCtrl::WindowProc(message, wParam, lParam);
}

bool ElementList::SelectElement(int index) {
    for (int row = 0; row < GetItemCount(); ++row) {
        if (static_cast<const ElementItem*>(GetItem(row))->GetIndex() != index)
            continue;
        UnselectAllItems();
        SelectItem(row);
        EnsureVisible(row, FALSE);
        return true;
    }
    return false;
}

void ElementList::DoSortItems(int column, int ascending) {
    const CWaitCursor wait;
    const auto sortBy = [this, ascending](auto of) {
        SortRows([of, ascending](CVirtualListCtrlItem* first, CVirtualListCtrlItem* second) {
            const auto& left = static_cast<const ElementItem&>(*(ascending ? first : second));
            const auto& right = static_cast<const ElementItem&>(*(ascending ? second : first));
            return (left.GetDocument().*of)(left.GetIndex()) <
                   (right.GetDocument().*of)(right.GetIndex());
        });
    };
    switch (column) {
    case kName:
        return sortBy(&Document::NameOf);
    case kDepth:
        return sortBy(&Document::DepthOf);
    case kAttributes:
        return sortBy(&Document::AttributesOf);
    case kText:
        return sortBy(&Document::TextOf);
    case kPosition:
        return sortBy(&Document::PositionOf);
    }
}

int ElementList::GetDefaultColumnWidth(int trueColumn) {
    constexpr int kWidths[] = {130, 50, 200, 230, 70}; // at 96 dots an inch
    const CClientDC dc(this);
    return trueColumn >= 0 && trueColumn < kColumnCount
               ? ::MulDiv(kWidths[trueColumn], dc.GetDeviceCaps(LOGPIXELSX), 96)
               : CVirtualListCtrl::GetDefaultColumnWidth(trueColumn);
}

void ElementList::LoadDefaultColumnWidths() {
    for (int column = 0; column < kColumnCount; ++column)
        SetVaskColumnWidth(column, GetDefaultColumnWidth(column));
}
