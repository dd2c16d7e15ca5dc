// The rows of a list in which users edit the keys of one of several schemes.
//
// Each scheme has working rows, made from its shortcuts when it was added: the schemes themselves
// do not change. Those of the active scheme are shown, all of them or those that a filter keeps, in
// the order of the sort that is in force. A row is counted from 0 as it is shown.
//
// Schemes are not owned: one must live until it is removed or replaced. Used on one thread at a
// time. Lack of memory throws, and rows and keys are as before then.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>
#include <quorvel/keyboard/keyboard_shortcut_virtual_list_ctrl_item.h>

#include "controls/virtual_rows.h"

#include <boost/shared_ptr.hpp>
#include <vector>

namespace quorvel {

// The orders of the list's columns, by code unit. Rows without a key come last in both orders of
// the keys. Rows of another class come before nothing.
bool IsCommandBefore(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
bool IsCommandBehind(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
bool IsKeyBefore(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);
bool IsKeyBehind(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second);

// The sort that is in force. Without an order rows stay as they are.
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

    // The order of a column; null for another column.
    static VirtualRowOrder OrderOf(int column, bool isAscending);

    // Schemes have indexes from 0. The active one stays active where others come and go; when it is
    // replaced or removed itself, no scheme is active and no row is shown. Insert: the index, or -1
    // for null and outside 0 to the count.
    int InsertScheme(int index, const CKeyboardMappingScheme* scheme);
    bool SetScheme(int index, const CKeyboardMappingScheme* scheme);
    bool RemoveScheme(int index);
    int GetSchemeCount() const { return static_cast<int>(m_schemes.size()); }
    bool IsScheme(int index) const { return index >= 0 && index < GetSchemeCount(); }
    const Scheme& GetScheme(int index) const { return m_schemes[static_cast<std::size_t>(index)]; }
    int GetActiveScheme() const { return m_activeScheme; }
    // Shows a scheme, sorted and without a filter; -1 shows none. False for another index.
    bool Load(int index);

    // The rows as they are shown.
    const std::vector<Row*>& GetRows() const { return IsFiltered() ? m_filtered : m_all; }
    Row* GetRow(int row) const;                 // null for no row
    int FindKey(const CShortcutKey& key) const; // the first row that has it; -1

    // Gives a row a key and takes it from the first row that has it: `formerRow` is that one, or -1
    // when there is none in sight. Sorts anew when the list is sorted by key. False for no row.
    bool SetKey(int row, const CShortcutKey& key, int& formerRow);
    // Of the first of all rows that has the key, in sight or not: where it is shown, or -1. Does
    // not sort.
    int ClearKey(const CShortcutKey& key);
    // These do not sort either: SortByKey does, once, after several rows.
    bool ClearKey(int row);
    bool SortByKey(); // when the list is sorted by key; whether it is
    // The key that the scheme's load-default function gives the command, or none; another row loses
    // it. False for no row and without a function.
    bool ResetKey(int row, int& formerRow);
    // The same for all rows of all schemes that have a function.
    void ResetAllKeys();
    void ForgetKeyNames(); // the keyboard layout has changed

    // The sort in force, without sorting, and with it.
    void SetSort(const ShortcutSort& sort) { m_sort = sort; }
    const ShortcutSort& GetSort() const { return m_sort; }
    void Sort(const ShortcutSort& sort);

    // Shows the rows whose command or key name contains the text, without regard to letter case;
    // all for an empty one. The first filter keeps the sort in force, an empty one restores it.
    // False for null and for the text that the filter has already: nothing changed.
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
