// CUpdateListingListCtrl: the list of entries of an update listing: priority, title and date.
// Windows only, user-interface thread.
//
// A virtual list (virtual_list_ctrl.h) whose items are all CUpdateListingItem. The priority
// is drawn as a mark: an exclamation mark for high, a bar for normal, a down arrow for low.
// New entries are bold. Call InsertColumns to define the columns when the list has its
// window.
#pragma once

#include <quorvel/controls/win/virtual_list_ctrl.h>
#include <quorvel/framework/win/image_list.h>
#include <quorvel/update/update_listing_item.h>

#include <vector>

class CDC;

class QUORVEL_API CUpdateListingListCtrl : public CVirtualListCtrl {
    DECLARE_DYNAMIC(CUpdateListingListCtrl)
public:
    // As in CUpdateListingItem.
    static constexpr int COLUMN_PRIORITY = CUpdateListingItem::COLUMN_PRIORITY;
    static constexpr int COLUMN_TITLE = CUpdateListingItem::COLUMN_TITLE;
    static constexpr int COLUMN_DATE = CUpdateListingItem::COLUMN_DATE;
    static constexpr int NUM_COLUMNS = CUpdateListingItem::NUM_COLUMNS;

    CUpdateListingListCtrl();
    ~CUpdateListingListCtrl() override;

    // Inserts the three columns with headings in the current language and default widths, and sorts
    // by date, latest first. FALSE when the list already has columns, or has no window.
    BOOL InsertColumns();

    // Replaces all rows by these items, in the list's sort order. The items are owned as
    // SetAutoDeleteItems says.
    void ShowItems(std::vector<CVirtualListCtrlItem*> items);

    // Null for a row that does not exist or whose item is of a different class.
    CUpdateListingItem* GetUpdateListingItem(int index) const;
    CUpdateListingItem* GetSelectedUpdateListingItem() const; // the first selected row's

    int GetDefaultColumnWidth(int trueColumn) override;
    // Makes room for the mark and for a date; the title gets the remaining width.
    void LoadDefaultColumnWidths() override;
    // One of the orders below; null for a column that is not one of these.
    SortingFunction GetSortingFunction(int column, int ascending) override;

    // Sort orders, for items of this class only. Texts are compared without case first and then
    // with case; priorities are sorted from high to low; old entries precede new ones; dates are
    // sorted by time, with invalid dates first.
    // clang-format off
    static bool swoTitleAscending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoTitleDescending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoDescriptionAscending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoDescriptionDescending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoPriorityAscending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoPriorityDescending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoLinkAscending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoLinkDescending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoNewAscending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoNewDescending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoDateAscending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    static bool swoDateDescending(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
    // clang-format on

protected:
    std::unique_ptr<CVaskListCtrlHeaderCtrl> MakeHeaderCtrl() override;

    BOOL OnNMCustomdraw(NMHDR* header, LRESULT* result);
    void OnSysColorChange();
    DECLARE_MESSAGE_MAP()

private:
    friend class CUpdateListingListCtrlHeaderCtrl;

    CImageList& Marks();
    void DrawMark(CDC& dc, int mark, const CRect& rect);
    void DrawPriority(CDC& dc, int row);

    CImageList m_imageList; // marks of the rows and the header
    CFont m_boldFont;
};
