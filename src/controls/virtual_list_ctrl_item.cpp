#include <quorvel/controls/virtual_list_ctrl_item.h>

CVirtualListCtrlItem::CVirtualListCtrlItem(int image, int indent, LONG itemData)
    : m_image(image), m_indent(indent), m_itemData(itemData) {}

CVirtualListCtrlItem::~CVirtualListCtrlItem() = default;

CString CVirtualListCtrlItem::GetSubItemText(int) {
    return CString();
}

BOOL CVirtualListCtrlItem::operator==(const CVirtualListCtrlItem& other) const noexcept {
    return m_image == other.m_image && m_indent == other.m_indent && m_itemData == other.m_itemData;
}
