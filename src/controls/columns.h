// The columns of a report list: which there are, which are shown, how wide, in which order, by
// which one the list is sorted, and how all of that is saved and found again.
//
// Columns have three numbers:
//   true column      the application's number of a column, shown or hidden; states are keyed by it;
//   inserted column  the index among those in the list view, which is what its messages use;
//   display position the place on the screen from the left, which the list view's order array
//   holds.
//
// A list without column records is a plain list view, whose true and inserted columns are the same;
// of those only the widths are saved. Widths and order of shown columns lie in the list view alone,
// where users change them. -1 stands for no column, no position and no width.
//
// Used on the user-interface thread. Lack of memory throws, except where a state is saved or read.
#pragma once

#include "controls/state_store.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel {

struct ColumnRecord {
    int savedPosition = -1; // display position when last hidden; -1 when it was defined hidden
    int trueColumn = 0;
    bool isVisible = true;
    CString heading;
    int format = 0;   // the list view's LVCFMT_...
    int width = -1;   // in pixels, as defined or when last hidden
    int subItem = -1; // -1 when not given
};

constexpr int kColumnAlignmentMask = 3; // of a format; left is 0

// What the model asks of its list: the messages of the list view, then what a class derived from
// the list control decides.
class ColumnView {
public:
    virtual int GetCount() const = 0;
    // The index, or -1. Without a width the list view takes its own.
    virtual int Insert(int position, const ColumnRecord& column) = 0;
    virtual bool Delete(int insertedColumn) = 0;
    virtual void SetAlignment(int insertedColumn, int alignment) = 0;
    virtual int GetWidth(int insertedColumn) const = 0;
    virtual void SetWidth(int insertedColumn, int width) = 0; // negative: an automatic one
    // Inserted columns from left to right.
    virtual std::vector<int> GetOrder() const = 0;
    virtual bool SetOrder(const std::vector<int>& order) = 0;

    virtual int GetDefaultWidth(int trueColumn) const = 0;
    virtual void LoadDefaultWidths() = 0;
    virtual bool CanBeHidden(int trueColumn) const = 0;
    // A column that was hidden is shown.
    virtual void OnShow(int trueColumn, int insertedColumn) = 0;
    // The sort column was there and is hidden or deleted now.
    virtual void OnDeleteSortColumn(int trueColumn, int insertedColumn, int displayPosition) = 0;

protected:
    ~ColumnView() = default;
};

struct HeaderMenuItem {
    int position;
    UINT command;
    CString text; // of a menu: ampersands are doubled
    bool isChecked;
    bool isGreyed;
};

class Columns {
public:
    explicit Columns(ColumnView& view) : m_view(view) {}
    Columns(const Columns&) = delete;
    Columns& operator=(const Columns&) = delete;

    // The inserted column; -1 for a hidden one, which is kept too. Also -1, and nothing is kept,
    // for a null heading, a negative true column, one that exists, and when the list view refuses.
    int Insert(int position, int trueColumn, bool isVisible, const WCHAR* heading, int format,
               int width, int subItem);
    int Insert(int position, const ColumnRecord& column);
    // Hiding remembers the display position and the width; showing puts the column back there, and
    // one that was defined hidden last, with the default width unless it was given one. Hiding or
    // deleting the sort column ends in OnDeleteSortColumn, when all else is done; a deleted one has
    // no record then. False without a record and when the list view refuses.
    bool Show(int trueColumn, bool isShown);
    bool Delete(int trueColumn);
    // Every column shown in true order, with its default width.
    void Reset();
    // The program has given the list view's column another heading (null: not) and alignment.
    void Redefine(int trueColumn, const WCHAR* heading, int alignment);
    // To be called also when the list view has got or lost a column without a record (-1).
    void UpdateInsertedVaskColumnsMap(int insertedColumn, bool isInserted, int trueColumn = -1);

    bool HasRecords() const { return !m_records.empty(); }
    const ColumnRecord* Find(int trueColumn) const; // null when there is none
    const std::map<int, ColumnRecord>& Records() const { return m_records; }
    bool IsVisible(int trueColumn) const;
    int GetTrueColumnCount() const;
    int GetInsertedColumnCount() const { return m_view.GetCount(); }
    // -1 when there is none; in a plain list the argument.
    int GetInsertedColumn(int trueColumn) const;
    int GetTrueColumn(int insertedColumn) const;
    int GetLeftToRightColumn(int displayPosition) const;
    int GetLeftToRightTrueColumn(int displayPosition) const;
    int GetDisplayPosition(int insertedColumn) const;
    std::vector<int> GetLeftToRightTrueColumns() const;
    // The list view's for a shown column, the remembered one of a hidden column; -1 without record.
    int GetWidth(int trueColumn) const;
    // The same, but the default width for a hidden column that was defined without one.
    int GetWidthWhenShown(int trueColumn) const;
    bool SetWidth(int trueColumn, int width); // false for a column that does not exist
    // Puts these true columns in front, in this order, and leaves the others in theirs. Columns
    // that are not shown or named before are passed over. The list view is not asked when that is
    // the order already.
    void SetOrder(const std::vector<int>& trueColumns);

    int GetSortColumn() const { return m_sortColumn; } // true column
    bool IsSortAscending() const { return m_isSortAscending; }
    void SetSort(int trueColumn, bool isAscending);
    // What a click of the left button on a header asks for: the column and its direction, reversed
    // when the list is sorted by it already. The column is -1 for no column.
    std::pair<int, bool> SortOfHeaderClick(int insertedColumn) const;

    // The columns of the header's menu, for the positions in front of "Columns...". True columns
    // from the number of records on have no item.
    std::vector<HeaderMenuItem> GetHeaderMenu() const;
    // Shows or hides the column of QUORVEL_COMMAND_COLUMN_FIRST to _LAST. False for any other
    // command.
    bool Toggle(UINT command);

    // A state lies in the group "Columns" of its place: "Count", "Sort Column", "Sort Ascending",
    // "Persist Sort Order" (1 with records), and for each true column from 0 on "Width" and, with
    // records, "Sort Order" (the display position, -1 when hidden) in a group "Column %d".
    //
    // Saving in a key does not end at a write that fails, but at a group that cannot be created; in
    // a section of the profile it ends at the first write that fails. Each gives FALSE.
    //
    // Loading gives FALSE and default widths when there is no place or no "Columns" key; a section
    // without a state loads as an empty one. An empty state, and one without a width of column 0,
    // loads default widths. A column with a display position is shown, with -1 it is hidden; if
    // that leaves none, the first column is shown. Shown columns without a usable position, or with
    // one that a lower column has too, come last in the order they had. A sort column that does not
    // exist counts as none, and widths that no list has change nothing. Nothing is sorted. What the
    // view throws passes through.
    BOOL SaveState(HKEY key, BOOL closeKey) const;
    BOOL SaveState(const CRegistryPath& path) const;
    BOOL SaveState(const WCHAR* section) const;
    BOOL LoadState(HKEY key, BOOL closeKey);
    BOOL LoadState(const CRegistryPath& path);
    BOOL LoadState(const WCHAR* section); // without an application object FALSE and no more

private:
    struct SavedColumn {
        int trueColumn;
        std::optional<int> width;
        int position; // -1 when hidden
    };
    struct SavedState {
        int count = 0;
        int sortColumn = -1;
        bool isSortAscending = true;
        bool isOrderPersisted = false;
        std::vector<SavedColumn> columns; // the last first
    };

    bool PutIntoView(int position, ColumnRecord& column);
    bool TakeFromView(ColumnRecord& column);
    void NoteGone(int trueColumn, int insertedColumn, int displayPosition);
    bool DoesTrueColumnExist(int trueColumn) const;
    bool Save(const StateGroup* place, bool endsAtFailedWrite) const;
    template <class OpenPlace>
    bool Load(OpenPlace openPlace);
    std::optional<SavedState> Read(const StateGroup* place) const;
    void ShowAsSaved(const SavedState& state);
    std::vector<int> ColumnsOfState(int count, bool isOrderPersisted) const;

    ColumnView& m_view;
    std::map<int, ColumnRecord> m_records; // by true column
    std::vector<int> m_inserted;           // true columns by inserted column
    int m_sortColumn = -1;
    bool m_isSortAscending = true;
};

} // namespace quorvel
