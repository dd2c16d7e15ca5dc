// CUpdateListingItem: one entry of an update listing.
//
// Copyable. One thread at a time may use an object. A failed allocation throws
// CMemoryException.
#pragma once

#include <quorvel/controls/virtual_list_ctrl_item.h>
#include <quorvel/framework/date_time.h>

class QUORVEL_API CUpdateListingItem : public CVirtualListCtrlItem {
public:
    // The columns of the list.
    static constexpr int COLUMN_PRIORITY = 0;
    static constexpr int COLUMN_TITLE = 1;
    static constexpr int COLUMN_DATE = 2;
    static constexpr int NUM_COLUMNS = 3;

    // The values of a priority, and its order in the list.
    static constexpr BYTE PRIORITY_HIGH = 0;
    static constexpr BYTE PRIORITY_NORMAL = 1;
    static constexpr BYTE PRIORITY_LOW = 2;

    // The fields of a new entry.
    static constexpr WCHAR DEFAULT_TITLE[] = _T("");
    static constexpr WCHAR DEFAULT_DESCRIPTION[] = _T("");
    static constexpr BYTE DEFAULT_PRIORITY = PRIORITY_NORMAL;
    static const COleDateTime DEFAULT_DATE; // the local time at which the library was loaded
    static constexpr WCHAR DEFAULT_LINK[] = _T("");
    static constexpr BOOL DEFAULT_NEW = TRUE;

    CUpdateListingItem();
    // A priority that is not valid counts as normal, a null text as empty.
    CUpdateListingItem(const WCHAR* title, const WCHAR* description, BYTE priority,
                       COleDateTime date, const WCHAR* link, BOOL isNew);
    CUpdateListingItem(const WCHAR* title, const WCHAR* description, const WCHAR* priority,
                       COleDateTime date, const WCHAR* link, BOOL isNew);
    CUpdateListingItem(const CUpdateListingItem& other) = default;
    CUpdateListingItem& operator=(const CUpdateListingItem& other) = default;

    // Null returns FALSE and changes nothing.
    BOOL SetTitle(const WCHAR* title);
    BOOL SetDescription(const WCHAR* description);
    BOOL SetLink(const WCHAR* link);
    // Neither validated nor converted. Getters return a field as it was set.
    void SetDate(COleDateTime date) noexcept { m_date = date; }
    void SetNew(BOOL isNew) noexcept { m_new = isNew; }
    CString GetTitle() const { return m_title; }
    CString GetDescription() const { return m_description; }
    CString GetLink() const { return m_link; }
    COleDateTime GetDate() const noexcept { return m_date; }
    BOOL IsNew() const noexcept { return m_new; }

    // One of the three values above.
    static BOOL IsValidPriority(BYTE priority) noexcept { return priority <= PRIORITY_LOW; }
    BOOL SetPriority(BYTE priority) noexcept; // FALSE, and no change, unless it is valid
    // Set or test the priority without its number.
    void SetHighPriority() noexcept { m_priority = PRIORITY_HIGH; }
    void SetNormalPriority() noexcept { m_priority = PRIORITY_NORMAL; }
    void SetLowPriority() noexcept { m_priority = PRIORITY_LOW; }
    BYTE GetPriority() const noexcept { return m_priority; }
    BOOL IsHighPriority() const noexcept { return m_priority == PRIORITY_HIGH; }
    BOOL IsNormalPriority() const noexcept { return m_priority == PRIORITY_NORMAL; }
    BOOL IsLowPriority() const noexcept { return m_priority == PRIORITY_LOW; }
    // "high" or "low" in any letter case; any other text means normal. FALSE for null.
    BOOL SetPriorityFromText(const WCHAR* text);
    CString GetPriorityText() const; // "high", "normal", "low": as in the file, not localised

    // The title, or the date in the user's short format. The priority column has no text.
    CString GetSubItemText(int column) override;

    // Compares every field except those of the base class; texts are case-sensitive.
    BOOL operator==(const CUpdateListingItem& other) const noexcept;
    BOOL operator!=(const CUpdateListingItem& other) const noexcept { return !(*this == other); }

private:
    CString m_title;
    CString m_description;
    BYTE m_priority = DEFAULT_PRIORITY;
    COleDateTime m_date;
    CString m_link;
    BOOL m_new;
};
