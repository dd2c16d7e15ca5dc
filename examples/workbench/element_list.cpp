#include "element_list.h"

#include "resource.h"

#include <quorvel/framework/win/dc.h>

namespace {

constexpr std::size_t kMostShown = 259; // as much of a text as the list-view draws

template <class Compared>
bool IsLess(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second,
            Compared (Document::*of)(int) const, bool ascending) {
    const auto& left = static_cast<const ElementItem&>(*(ascending ? first : second));
    const auto& right = static_cast<const ElementItem&>(*(ascending ? second : first));
    return (left.GetDocument().*of)(left.GetIndex()) < (right.GetDocument().*of)(right.GetIndex());
}

template <auto of>
CVirtualListCtrl::SortingFunction Sorting(int ascending) {
    if (ascending)
        return [](CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second) {
            return IsLess(first, second, of, true);
        };
    return [](CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second) {
        return IsLess(first, second, of, false);
    };
}

CString NumberText(int number) {
    CString text;
    text.Format(_T("%d"), number);
    return text;
}

} // namespace

CString ElementItem::GetSubItemText(int column) {
    switch (column) {
    case ElementList::kName:
        return CString(m_document->NameOf(m_index));
    case ElementList::kDepth:
        return NumberText(m_document->DepthOf(m_index));
    case ElementList::kAttributes:
        return CString(m_document->AttributesOf(m_index).substr(0, kMostShown));
    case ElementList::kText:
        return CString(m_document->TextOf(m_index).substr(0, kMostShown));
    case ElementList::kPosition:
        return NumberText(m_document->PositionOf(m_index));
    default:
        return CString();
    }
}

void ElementList::InsertColumns() {
    constexpr int kFormats[] = {LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_LEFT, LVCFMT_LEFT, LVCFMT_RIGHT};
    for (int column = 0; column < kColumnCount; ++column) {
        CString heading;
        heading.LoadString(static_cast<UINT>(TEXT_FIRST_COLUMN + column));
        InsertVaskColumn(column, column, TRUE, heading, kFormats[column],
                         GetDefaultColumnWidth(column));
    }
    SetSortColumn(kPosition);
    SetRowsHighlighted();
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
    SetRedraw(FALSE);
    for (ElementItem& item : m_items)
        AddItem(&item);
    SetRedraw(TRUE);
    if (GetSortColumn() != kPosition || !IsSortAscending())
        AutoSortItems();
    Invalidate();
}

void ElementList::Clear() {
    DeleteAllItems();
    m_items.clear();
}

void ElementList::SelectElement(int index) {
    for (int row = 0; row < GetItemCount(); ++row)
        if (static_cast<const ElementItem*>(GetItem(row))->GetIndex() == index) {
            UnselectAllItems();
            SelectItem(row);
            EnsureVisible(row, FALSE);
            return;
        }
}

CVirtualListCtrl::SortingFunction ElementList::GetSortingFunction(int column, int ascending) {
    switch (column) {
    case kName:
        return Sorting<&Document::NameOf>(ascending);
    case kDepth:
        return Sorting<&Document::DepthOf>(ascending);
    case kAttributes:
        return Sorting<&Document::AttributesOf>(ascending);
    case kText:
        return Sorting<&Document::TextOf>(ascending);
    case kPosition:
        return Sorting<&Document::PositionOf>(ascending);
    default:
        return nullptr;
    }
}

int ElementList::GetDefaultColumnWidth(int trueColumn) {
    constexpr int kWidths[] = {140, 50, 220, 260, 80}; // at 96 dots an inch
    const CClientDC dc(this);
    return trueColumn >= 0 && trueColumn < kColumnCount
               ? ::MulDiv(kWidths[trueColumn], dc.GetDeviceCaps(LOGPIXELSX), 96)
               : CVirtualListCtrl::GetDefaultColumnWidth(trueColumn);
}

void ElementList::LoadDefaultColumnWidths() {
    for (int column = 0; column < kColumnCount; ++column)
        SetVaskColumnWidth(column, GetDefaultColumnWidth(column));
}
