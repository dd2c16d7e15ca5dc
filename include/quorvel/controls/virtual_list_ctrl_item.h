// CVirtualListCtrlItem: a row of a list whose rows are objects of the program.
//
// A derived class provides the texts. Copyable. One thread at a time may use an object.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class QUORVEL_API CVirtualListCtrlItem {
public:
    static constexpr int DEFAULT_IMAGE = -1;  // no image
    static constexpr int DEFAULT_INDENT = 0;  // at the left edge
    static constexpr LONG DEFAULT_LPARAM = 0; // the item data of a new row

    CVirtualListCtrlItem() = default;
    // As the setters below. All values are accepted.
    CVirtualListCtrlItem(int image, int indent, LONG itemData);
    CVirtualListCtrlItem(const CVirtualListCtrlItem& other) = default;
    CVirtualListCtrlItem& operator=(const CVirtualListCtrlItem& other) = default;
    virtual ~CVirtualListCtrlItem();

    // The text of the row in a column. The number is that of a true column: it stays the same when
    // other columns are hidden or moved. The default is empty.
    virtual CString GetSubItemText(int column);

    // Compares only image, indent and item data.
    BOOL operator==(const CVirtualListCtrlItem& other) const noexcept;
    BOOL operator!=(const CVirtualListCtrlItem& other) const noexcept { return !(*this == other); }

    // The index in the list's image list, the indent in image widths, and a value of the program.
    // A change shows when the row is next drawn.
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
