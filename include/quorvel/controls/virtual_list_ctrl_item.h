// CVirtualListCtrlItem: a row of a list that keeps its rows itself and is asked for them.
//
// A derived class gives the texts. A plain value; one object may be used by one thread at a time.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class QUORVEL_API CVirtualListCtrlItem {
public:
    static constexpr int DEFAULT_IMAGE = -1; // none
    static constexpr int DEFAULT_INDENT = 0;
    static constexpr LONG DEFAULT_LPARAM = 0;

    CVirtualListCtrlItem() = default;
    CVirtualListCtrlItem(int image, int indent, LONG itemData);
    CVirtualListCtrlItem(const CVirtualListCtrlItem& other) = default;
    CVirtualListCtrlItem& operator=(const CVirtualListCtrlItem& other) = default;
    virtual ~CVirtualListCtrlItem();

    // What the row shows in a column, which is a true column of the list: its number stays the same
    // when others are hidden or moved. Empty here.
    virtual CString GetSubItemText(int column);

    // Of image, indent and item data alone.
    BOOL operator==(const CVirtualListCtrlItem& other) const noexcept;
    BOOL operator!=(const CVirtualListCtrlItem& other) const noexcept { return !(*this == other); }

    void SetImage(int image) noexcept { m_image = image; }
    int GetImage() const noexcept { return m_image; }
    void SetIndent(int indent) noexcept { m_indent = indent; }
    int GetIndent() const noexcept { return m_indent; }
    void SetLParam(LONG itemData) noexcept { m_itemData = itemData; }
    LONG GetLParam() const noexcept { return m_itemData; }

private:
    int m_image = DEFAULT_IMAGE;
    int m_indent = DEFAULT_INDENT;
    LONG m_itemData = DEFAULT_LPARAM;
};
