// CKeyboardShortcutListCtrl: the list in which users edit the keys of keyboard mapping schemes.
// Windows only, user-interface thread.
//
// The list has two columns, command and shortcut key. It shows one scheme at a time, the active
// one, in full or filtered. It edits its own rows, which it creates when a scheme is added; the
// scheme itself does not change. The host reads the result with GetKeyboardMappingScheme or
// GetEditedKeyboardMappingScheme.
//
// Schemes have indexes from 0; rows count from 0 in display order. So the rows of the base class
// are the shown rows: fewer while a filter is active. Rows without a key are last in both sort
// orders of the key column.
//
// The caller owns a scheme and keeps it until it is removed or replaced, or the list is destroyed:
// resetting calls its load-default function. If its shortcuts change, the list still shows the
// shortcuts that it had when it was added.
//
// Only operations of this class add and remove rows, and the list does not delete them: do not
// change SetAutoDeleteItems. Operations of the base class may move and sort rows. Loading,
// filtering and new keys sort by GetSortingFunction, and not by a derived class's DoSortItems. A
// notification may destroy the list.
//
// When the keyboard layout changes, the names of keys change too. A host calls the operations below
// for its own commands; the list itself changes no key.
#pragma once

#include <quorvel/controls/win/virtual_list_ctrl.h>
#include <quorvel/keyboard/keyboard_mapping_scheme.h>
#include <quorvel/keyboard/keyboard_shortcut_virtual_list_ctrl_item.h>

#include <utility>

namespace quorvel {
class ShortcutList;
struct ShortcutSort;
} // namespace quorvel

class QUORVEL_API CKeyboardShortcutListCtrl : public CVirtualListCtrl {
    DECLARE_DYNAMIC(CKeyboardShortcutListCtrl)
public:
    // True columns, as in CVaskListCtrl.
    static constexpr int NUM_COLUMNS = 2;
    static constexpr int COLUMN_COMMAND = 0;
    static constexpr int COLUMN_SHORTCUT_KEY = 1;

    // A scheme and its rows, in the scheme's order. The list owns the rows.
    typedef std::pair<const CKeyboardMappingScheme*,
                      std::vector<boost::shared_ptr<CKeyboardShortcutVirtualListCtrlItem>>>
        SchemeRows;

    CKeyboardShortcutListCtrl();
    ~CKeyboardShortcutListCtrl() override;

    // Add and insert return the index; -1 for null or an index outside 0 to the count. The active
    // scheme stays active; if it is itself replaced or removed, the list is empty (index -1).
    int AddKeyboardMappingScheme(const CKeyboardMappingScheme* scheme);
    int InsertKeyboardMappingScheme(int index, const CKeyboardMappingScheme* scheme);
    BOOL SetKeyboardMappingScheme(int index, const CKeyboardMappingScheme* scheme);
    BOOL RemoveKeyboardMappingScheme(int index);
    int GetKeyboardMappingSchemeCount() const;
    BOOL IsValidKeyboardMappingSchemeIndex(int index) const;
    BOOL GetKeyboardMappingScheme(int index, SchemeRows& out) const; // FALSE: `out` unchanged
    // Copies the caller's scheme, with the keys of its rows.
    BOOL GetEditedKeyboardMappingScheme(int index, CKeyboardMappingScheme& out) const;
    int GetActiveKeyboardMappingSchemeIndex() const; // -1: no scheme
    // Shows a scheme, without a filter and in the list's sort order; -1 shows no scheme. FALSE for
    // any other index.
    BOOL LoadKeyboardMappingScheme(int index);

    // Assigns a key to a row and removes it from the row that has it. A list that is sorted by key
    // is sorted again. A filter keeps showing the row. FALSE for an invalid row.
    BOOL SetShortcutKey(int row, const CShortcutKey& key);
    // Clears the key of the first row that has it, shown or not. Returns the row if it is shown; -1
    // if it is not, or if no row has the key. Does not sort.
    int ClearShortcutKey(const CShortcutKey& key);
    // FALSE for an invalid row. Sorts again if `resort` is not 0 and the list is sorted by key.
    BOOL ClearShortcutKey(int row, int resort);
    void ClearSelectedShortcutKeys(); // sorts once, if the list is sorted by key
    int GetSelectedItemsAssignedShortcutKeyCount() const; // the number of selected rows with a key
    // Assigns a row the key that the scheme's load-default function has for its command, or no key,
    // and removes that key from the row that has it. Sorts again if the list is sorted by key. The
    // defaults may be in any order; the n-th row of a command gets the n-th of its keys, or the
    // last one. FALSE for an invalid row and without such a function.
    BOOL ResetShortcutKey(int row);
    // The same for every row of every scheme that has such a function. Sorts once.
    void ResetAllKeyboardShortcuts();
    // The first shown row that has the key, or -1.
    int FindShortcutKey(const CShortcutKey& key) const;
    // Lets the user press a key and selects only the row that has it: the first row with exactly
    // that key, otherwise the first row with the same key except for the extended bit. Returns the
    // row, or -1 when no row has the key, the user cancels, or the list is destroyed meanwhile.
    int FindByPressingKey();

    // Shows the rows whose command or key name contains the text, ignoring case; an empty text
    // shows all. FALSE for null. The first filter stores the sort column and direction; an empty
    // text restores them.
    BOOL Filter(const WCHAR* text);
    BOOL IsFiltered() const;   // by a text that is not empty
    CString GetFilter() const; // empty when all rows are shown
    // The rows that pass the filter; 0 and null without a filter.
    int GetFilteredItemCount() const;
    BOOL IsValidFilteredItemIndex(int index) const;
    CKeyboardShortcutVirtualListCtrlItem* GetFilteredItem(int index) const;
    // The shown row; null for an invalid row.
    CKeyboardShortcutVirtualListCtrlItem* GetKeyboardShortcutVirtualListCtrlItem(int row) const;

    void DoSortItems(int column, int ascending) override;
    SortingFunction GetSortingFunction(int column, int ascending) override;
    // Commands by code unit, keys by name. A row of a different class is not before any other.
    static bool swoCommandAscending(CVirtualListCtrlItem* const& first,
                                    CVirtualListCtrlItem* const& second);
    static bool swoCommandDescending(CVirtualListCtrlItem* const& first,
                                     CVirtualListCtrlItem* const& second);
    static bool swoShortcutKeyAscending(CVirtualListCtrlItem* const& first,
                                        CVirtualListCtrlItem* const& second);
    static bool swoShortcutKeyDescending(CVirtualListCtrlItem* const& first,
                                         CVirtualListCtrlItem* const& second);

    // Lets both columns fill the list.
    void LoadDefaultColumnWidths() override;

protected:
    // Makes the styles LVS_REPORT and LVS_OWNERDATA part of every creation. If the list is
    // subclassed instead, its template must have LVS_OWNERDATA.
    BOOL PreCreateWindow(CREATESTRUCTW& parameters) override;
    void PreSubclassWindow() override;

    int OnCreate(CREATESTRUCTW* parameters);
    LRESULT OnInputLanguageChange(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void InsertColumns();
    quorvel::ShortcutSort SortOf(int column, int ascending);
    void TakeSort();
    void TakeOrder() const;
    void ShowRows();
    void ShowNoRows() { ReplaceItems({}); }
    void ShowKeys();
    void RedrawKey(int row);
    std::vector<int> GetSelectedRows() const;

    std::unique_ptr<quorvel::ShortcutList> m_list;
};
