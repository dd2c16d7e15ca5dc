// CUpdateListingListCtrl: the entries of an update listing, with their priority, title and date.
// Windows only, user-interface thread.
//
// A virtual list (virtual_list_ctrl.h) whose items are all CUpdateListingItem. The priority is
// drawn as a mark: an exclamation mark for a high one, a bar for a normal and an arrow downwards
// for a low one. New entries are bold. InsertColumns defines the columns once the list has its
// window.
#pragma once

#include <quorvel/controls/win/virtual_list_ctrl.h>
#include <quorvel/framework/win/image_list.h>
#include <quorvel/update/update_listing_item.h>

class CDC;

class QUORVEL_API CUpdateListingListCtrl : public CVirtualListCtrl {
    DECLARE_DYNAMIC(CUpdateListingListCtrl)
public:
    static constexpr int COLUMN_PRIORITY = CUpdateListingItem::COLUMN_PRIORITY;
    static constexpr int COLUMN_TITLE = CUpdateListingItem::COLUMN_TITLE;
    static constexpr int COLUMN_DATE = CUpdateListingItem::COLUMN_DATE;
    static constexpr int NUM_COLUMNS = CUpdateListingItem::NUM_COLUMNS;

    CUpdateListingListCtrl();
    ~CUpdateListingListCtrl() override;

    // The three columns, with headings in the language in force and default widths, to be sorted by
    // the date, latest first. FALSE when the list has columns already, or no window.
    BOOL InsertColumns();

    // Null for a row that does not exist, and for one whose item is of another class.
    CUpdateListingItem* GetUpdateListingItem(int index) const;
    CUpdateListingItem* GetSelectedUpdateListingItem() const; // of the first selected row

    int GetDefaultColumnWidth(int trueColumn) override;
    // Room for the mark and for a date; the title has the rest.
    void LoadDefaultColumnWidths() override;
    SortingFunction GetSortingFunction(int column, int ascending) override;

    // The orders, of items of this class alone. Texts are ordered without regard to letter case,
    // and by it where they differ in nothing else; priorities from high to low; entries that are
    // not new before those that are; dates in time, those that are none before all others.
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

    CImageList m_imageList; // the marks of the rows and of the header
    CFont m_boldFont;
};
