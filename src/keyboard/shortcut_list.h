// The rows of a list in which users edit the keys of one of several schemes.
//
// Each scheme has working rows, which are created from its shortcuts when it is added; the schemes
// do not change. The rows of the active scheme are shown, all or those that match a filter, in the
// order of the current sort. Row numbers count the shown rows from 0.
//
// Schemes are not owned. A scheme must exist until it is removed or replaced. One thread at a time.
// Lack of memory throws and changes neither rows nor keys.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>
#include <quorvel/keyboard/keyboard_shortcut_virtual_list_ctrl_item.h>

#include "controls/virtual_rows.h"

#include <boost/shared_ptr.hpp>
#include <vector>

namespace quorvel {

// The orders of the list's columns, by code unit. In both orders of the keys, rows without a key
// are last. With a row of another class the result is false.
bool IsCommandBefore(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
bool IsCommandAfter(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
bool IsKeyBefore(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
bool IsKeyAfter(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);

// The current sort. Without an order the rows keep theirs.
struct ShortcutSort {
    int column = -1; // -1: not sorted
    bool isAscending = true;
    VirtualRowOrder order = nullptr;
};

class ShortcutList {
public:
    static constexpr int kCommandColumn = 0;
    static constexpr int kKeyColumn = 1;

    typedef CKeyboardShortcutVirtualListCtrlItem Row;
    struct Scheme {
        const CKeyboardMappingScheme* scheme;
        std::vector<boost::shared_ptr<Row>> rows; // in the scheme's order
    };

    // The order of a column; null for an unknown column.
    static VirtualRowOrder OrderOf(int column, bool isAscending);

    // Schemes have indexes from 0. Inserting or removing other schemes keeps the active one. If the
    // active one is replaced or removed, no scheme is active and no row is shown. Insert returns
    // the index, or -1 for null and for an index outside 0 to the count.
    int InsertScheme(int index, const CKeyboardMappingScheme* scheme);
    bool SetScheme(int index, const CKeyboardMappingScheme* scheme);
    bool RemoveScheme(int index);
    int GetSchemeCount() const { return static_cast<int>(m_schemes.size()); }
    bool IsScheme(int index) const { return index >= 0 && index < GetSchemeCount(); }
    const Scheme& GetScheme(int index) const { return m_schemes[static_cast<std::size_t>(index)]; }
    int GetActiveScheme() const { return m_activeScheme; }
    // Shows a scheme, sorted and without a filter; -1 shows no scheme. False for an unknown index.
    bool Load(int index);

    // The shown rows.
    const std::vector<Row*>& GetRows() const { return IsFiltered() ? m_filtered : m_all; }
    void SetOrder(std::vector<Row*> rows);      // the same rows in a different order
    Row* GetRow(int row) const;                 // null for an unknown row
    int FindKey(const CShortcutKey& key) const; // the first row with the key, or -1

    // Gives a row a key and takes it from the first row that has it: `formerRow`, or -1 if none is
    // shown. Sorts if the list is sorted by key. False for an unknown row.
    bool SetKey(int row, const CShortcutKey& key, int& formerRow);
    // Clears the key of the first row that has it, shown or not. Returns where it is shown, or -1.
    // Does not sort.
    int ClearKey(const CShortcutKey& key);
    // These do not sort either. Call SortByKey once after several rows.
    bool ClearKey(int row);
    bool SortByKey(); // if the list is sorted by key; returns whether it is
    // Gives a command the key from the scheme's load-default function, or no key. Another row loses
    // that key. The n-th row of a command gets the n-th of its keys, or the last one. Returns false
    // for an unknown row and without the function.
    bool ResetKey(int row, int& formerRow);
    // Does the same for all rows of all schemes that have a function.
    void ResetAllKeys();
    void ForgetKeyNames(); // after a change of the keyboard layout

    // Sets the current sort: the first does not sort, the third one does.
    void SetSort(const ShortcutSort& sort) { m_sort = sort; }
    const ShortcutSort& GetSort() const { return m_sort; }
    void Sort(const ShortcutSort& sort);

    // Shows the rows whose command or key name contains the text in any letter case; for an empty
    // text all rows. The first filter stores the current sort, and an empty text restores it.
    // Returns false and changes nothing for null and for the current text.
    bool Filter(const WCHAR* text);
    const CString& GetFilter() const { return m_filter; }
    bool IsFiltered() const { return !m_filter.IsEmpty(); }

private:
    void SortRows(std::vector<Row*>& rows) const;
    int GetRowOf(const Row* row) const;
    void Show(int index);

    std::vector<Scheme> m_schemes;
    int m_activeScheme = -1;
    CString m_filter;
    ShortcutSort m_sort;
    ShortcutSort m_sortBeforeFilter;
    std::vector<Row*> m_all; // of the active scheme
    std::vector<Row*> m_filtered;
};

} // namespace quorvel
