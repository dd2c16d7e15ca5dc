// The columns of a report list: which columns exist and are shown, their widths and order, the sort
// column, and how this state is saved and loaded.
//
// Columns have three numbers:
//   true column      the application's number of a column, shown or hidden; states use it as key;
//   inserted column  the index among the columns in the list view; its messages use this number;
//   display position the place on the screen from the left; the list view's order array has these
//   numbers.
//
// A list without column records is a plain list view. Its true and inserted columns are the same,
// and only widths are saved. The list view alone stores the widths and the order of shown columns,
// because users change them there. -1 means no column, no position or no width.
//
// Used on the user-interface thread. Throws when memory runs out, but not while saving or reading.
#pragma once

#include "controls/state_store.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel {

struct ColumnRecord {
    int savedPosition = -1; // display position when last hidden; -1 if defined hidden
    int trueColumn = 0;
    bool isVisible = true;
    CString heading;
    int format = 0;   // the list view's LVCFMT_...
    int width = -1;   // in pixels, as defined or when last hidden
    int subItem = -1; // -1 if not given
};

constexpr int kColumnAlignmentMask = 3; // bits of a format; left is 0

// The model's requests to its list: first the messages of the list view, then the decisions of a
// class derived from the list control.
class ColumnView {
public:
    virtual int GetCount() const = 0;
    // Returns the index, or -1. Without a width the list view chooses one.
    virtual int Insert(int position, const ColumnRecord& column) = 0;
    virtual bool Delete(int insertedColumn) = 0;
    virtual void SetAlignment(int insertedColumn, int alignment) = 0;
    virtual int GetWidth(int insertedColumn) const = 0;
    virtual void SetWidth(int insertedColumn, int width) = 0; // negative: an automatic width
    // Returns the inserted columns from left to right.
    virtual std::vector<int> GetOrder() const = 0;
    virtual bool SetOrder(const std::vector<int>& order) = 0;

    virtual int GetDefaultWidth(int trueColumn) const = 0;
    virtual void LoadDefaultWidths() = 0;
    virtual bool CanBeHidden(int trueColumn) const = 0;
    // A hidden column is now shown.
    virtual void OnShow(int trueColumn, int insertedColumn) = 0;
    // The sort column was shown before and is now hidden or deleted.
    virtual void OnDeleteSortColumn(int trueColumn, int insertedColumn, int displayPosition) = 0;

protected:
    ~ColumnView() = default;
};

struct HeaderMenuItem {
    int position;
    UINT command;
    CString text; // for a menu: ampersands are doubled
    bool isChecked;
    bool isGreyed;
};

class Columns {
public:
    explicit Columns(ColumnView& view) : m_view(view) {}
    // When the list view and its columns no longer exist. The sort column stays.
    void Forget();
    Columns(const Columns&) = delete;
    Columns& operator=(const Columns&) = delete;

    // The inserted column; -1 for a hidden one, which is stored too. Returns -1 and stores nothing
    // for a null heading, a negative or existing true column, and if the list view refuses.
    int Insert(int position, int trueColumn, bool isVisible, const WCHAR* heading, int format,
               int width, int subItem);
    int Insert(int position, const ColumnRecord& column);
    // Hiding stores the display position and the width, and showing restores them. A column that
    // was defined hidden is shown last, with the default width unless it has one. If the sort
    // column is hidden or deleted, the last step is OnDeleteSortColumn; a deleted column then has
    // no record. Returns false for a column without a record and if the list view refuses.
    bool Show(int trueColumn, bool isShown);
    bool Delete(int trueColumn);
    // Shows every column in true order, with its default width.
    void Reset();
    // The program has changed the heading (null: not changed) and alignment in the list view.
    void Redefine(int trueColumn, const WCHAR* heading, int alignment);
    // Call it also after the list view has got or lost a column without a record (-1).
    void UpdateInsertedVaskColumnsMap(int insertedColumn, bool isInserted, int trueColumn = -1);

    bool HasRecords() const { return !m_records.empty(); }
    const ColumnRecord* Find(int trueColumn) const; // null for an unknown column
    const std::map<int, ColumnRecord>& Records() const { return m_records; }
    bool IsVisible(int trueColumn) const;
    int GetTrueColumnCount() const;
    int GetInsertedColumnCount() const { return m_view.GetCount(); }
    // Returns -1 for an unknown column. In a plain list returns the argument.
    int GetInsertedColumn(int trueColumn) const;
    int GetTrueColumn(int insertedColumn) const;
    int GetLeftToRightColumn(int displayPosition) const;
    int GetLeftToRightTrueColumn(int displayPosition) const;
    int GetDisplayPosition(int insertedColumn) const;
    std::vector<int> GetLeftToRightTrueColumns() const;
    // The list view's width, or the stored one of a hidden column; -1 without a record.
    int GetWidth(int trueColumn) const;
    // The same, but the default width for a hidden column without a defined width.
    int GetWidthWhenShown(int trueColumn) const;
    bool SetWidth(int trueColumn, int width); // false for an unknown column
    // Moves these true columns to the front, in this order. The others keep theirs. Ignores
    // columns that are hidden or named before. Sends nothing to the list view if that is already
    // the order.
    void SetOrder(const std::vector<int>& trueColumns);

    int GetSortColumn() const { return m_sortColumn; } // true column
    bool IsSortAscending() const { return m_isSortAscending; }
    void SetSort(int trueColumn, bool isAscending);
    // The sort that a left click on a header requests: the column, and its direction, which is
    // reversed when the list is already sorted by that column. The column is -1 if there is none.
    std::pair<int, bool> SortOfHeaderClick(int insertedColumn) const;

    // The columns in the header's menu, for the positions before "Columns...". True columns from
    // the number of records on have no item.
    std::vector<HeaderMenuItem> GetHeaderMenu() const;
    // Shows or hides the column of a command from QUORVEL_COMMAND_COLUMN_FIRST to _LAST. Returns
    // false for other commands.
    bool Toggle(UINT command);

    // A state is stored in the group "Columns" of its place: "Count", "Sort Column", "Sort
    // Ascending", "Persist Sort Order" (1 with records), and for each true column from 0 on "Width"
    // and, with records, "Sort Order" (the display position, -1 if hidden) in a group "Column %d".
    //
    // Saving in a key continues after a failed write but stops at a group that cannot be created.
    // Saving in a section of the profile stops at the first failed write. Both return FALSE.
    //
    // Loading returns FALSE and sets default widths when the place or the "Columns" key is missing;
    // a section without a state is an empty state. An empty state, or one without the width of
    // column 0, sets default widths. A column with a display position is shown, one with -1 hidden.
    // If all would be hidden, the first is shown. Shown columns without a valid position, or with
    // that of a lower column, come last in their former order. An unknown sort column means that no
    // column is the sort column; impossible widths change nothing. Nothing is sorted. Exceptions of
    // the view pass through to the caller.
    BOOL SaveState(HKEY key, BOOL closeKey) const;
    BOOL SaveState(const CRegistryPath& path) const;
    BOOL SaveState(const WCHAR* section) const;
    BOOL LoadState(HKEY key, BOOL closeKey);
    BOOL LoadState(const CRegistryPath& path);
    BOOL LoadState(const WCHAR* section); // without an application object only returns FALSE

private:
    struct SavedColumn {
        int trueColumn;
        std::optional<int> width;
        int position; // -1 if hidden
    };
    struct SavedState {
        int count = 0;
        int sortColumn = -1;
        bool isSortAscending = true;
        bool isOrderPersisted = false;
        std::vector<SavedColumn> columns; // last column first
    };

    bool PutIntoView(int position, ColumnRecord& column);
    bool TakeFromView(ColumnRecord& column);
    void NotifyRemoved(int trueColumn, int insertedColumn, int displayPosition);
    bool DoesTrueColumnExist(int trueColumn) const;
    bool Save(const StateGroup* place, bool endsAtFailedWrite) const;
    template <class OpenPlace>
    bool Load(OpenPlace openPlace);
    std::optional<SavedState> Read(const StateGroup* place) const;
    void ShowAsSaved(const SavedState& state);
    std::vector<int> ColumnsOfState(int count, bool isOrderPersisted) const;

    ColumnView& m_view;
    std::map<int, ColumnRecord> m_records; // key: true column
    std::vector<int> m_inserted;           // true columns, indexed by inserted column
    int m_sortColumn = -1;
    bool m_isSortAscending = true;
};

} // namespace quorvel
