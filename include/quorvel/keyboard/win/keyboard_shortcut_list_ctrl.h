// CKeyboardShortcutListCtrl: the list in which users edit the keys of keyboard mapping schemes.
// Windows only, user-interface thread.
//
// The list has two columns, command and shortcut key, and shows one scheme at a time: the active
// one, whole or filtered. It edits rows of its own, made from a scheme when it is added; the scheme
// itself does not change. The host reads the result with GetKeyboardMappingScheme or
// GetEditedKeyboardMappingScheme.
//
// Schemes have indexes from 0, rows count from 0 as they are shown. So the rows of the base class
// are those that are shown, fewer while a filter is active. Rows without a key come last in both
// orders of the key column.
//
// A scheme belongs to the caller, who keeps it until it is removed, replaced or the list is
// destroyed: resetting reads its load-default function. Its shortcuts may change meanwhile; the
// list then still shows what it was given.
//
// Rows come and go by the operations of this class alone, and are not deleted by the list: leave
// SetAutoDeleteItems as it is.
//
// A change of the keyboard layout renames the keys. A host calls the operations below from its own
// commands: the list itself changes no key.
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
    static constexpr int NUM_COLUMNS = 2;
    static constexpr int COLUMN_COMMAND = 0;
    static constexpr int COLUMN_SHORTCUT_KEY = 1;

    // A scheme and the rows made from it, in the scheme's order. The rows are the list's own.
    typedef std::pair<const CKeyboardMappingScheme*,
                      std::vector<boost::shared_ptr<CKeyboardShortcutVirtualListCtrlItem>>>
        SchemeRows;

    CKeyboardShortcutListCtrl();
    ~CKeyboardShortcutListCtrl() override;

    // A report of the caller's style and with rows of its own (LVS_REPORT and LVS_OWNERDATA). A
    // list that is subclassed instead has LVS_OWNERDATA in its template.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // Add and insert: the index; -1 for null and outside 0 to the count. The active scheme stays
    // active; when it is replaced or removed itself, no scheme is active, and the list is empty.
    int AddKeyboardMappingScheme(const CKeyboardMappingScheme* scheme);
    int InsertKeyboardMappingScheme(int index, const CKeyboardMappingScheme* scheme);
    BOOL SetKeyboardMappingScheme(int index, const CKeyboardMappingScheme* scheme);
    BOOL RemoveKeyboardMappingScheme(int index);
    int GetKeyboardMappingSchemeCount() const;
    BOOL IsValidKeyboardMappingSchemeIndex(int index) const;
    BOOL GetKeyboardMappingScheme(int index, SchemeRows& out) const; // FALSE, `out` as it was
    // The scheme with the keys that its rows have. Reads the caller's scheme.
    BOOL GetEditedKeyboardMappingScheme(int index, CKeyboardMappingScheme& out) const;
    int GetActiveKeyboardMappingSchemeIndex() const; // -1 for none
    // Shows a scheme, without a filter and sorted as the list is; -1 shows none. FALSE for another
    // index.
    BOOL LoadKeyboardMappingScheme(int index);

    // Gives a row a key and takes it from the row that has it. A list that is sorted by key is
    // sorted anew. Under a filter the row stays in sight. FALSE for no row.
    BOOL SetShortcutKey(int row, const CShortcutKey& key);
    // Of the first row that has the key, in sight or not. Where it is shown; -1 when it is not, or
    // there is no such row. Does not sort.
    int ClearShortcutKey(const CShortcutKey& key);
    BOOL ClearShortcutKey(int row, int resort);
    void ClearSelectedShortcutKeys(); // sorts once
    int GetSelectedItemsAssignedShortcutKeyCount() const;
    // Gives a row the key that the load-default function of the scheme has for its command, or
    // none. FALSE for no row and without a function.
    BOOL ResetShortcutKey(int row);
    // The same for every row of every scheme that has a function.
    void ResetAllKeyboardShortcuts();
    // The first row shown that has the key; -1.
    int FindShortcutKey(const CShortcutKey& key) const;
    // Lets the user press a key and selects the row that has it alone. The row; -1 when there is
    // none or the user cancels.
    int FindByPressingKey();

    // Shows the rows whose command or key name contains the text, ignoring letter case; all for an
    // empty one. FALSE for null. The first filter keeps the sort column and direction; an empty one
    // restores them.
    BOOL Filter(const WCHAR* text);
    BOOL IsFiltered() const;
    CString GetFilter() const;
    // The rows that the filter keeps; 0 and null without one.
    int GetFilteredItemCount() const;
    BOOL IsValidFilteredItemIndex(int index) const;
    CKeyboardShortcutVirtualListCtrlItem* GetFilteredItem(int index) const;
    // The row as it is shown; null for no row.
    CKeyboardShortcutVirtualListCtrlItem* GetKeyboardShortcutVirtualListCtrlItem(int row) const;

    void DoSortItems(int column, int ascending) override;
    SortingFunction GetSortingFunction(int column, int ascending) override;
    // Commands by code unit, keys by their names. Rows of another class are not before others.
    static bool swoCommandAscending(CVirtualListCtrlItem* const& first,
                                    CVirtualListCtrlItem* const& second);
    static bool swoCommandDescending(CVirtualListCtrlItem* const& first,
                                     CVirtualListCtrlItem* const& second);
    static bool swoShortcutKeyAscending(CVirtualListCtrlItem* const& first,
                                        CVirtualListCtrlItem* const& second);
    static bool swoShortcutKeyDescending(CVirtualListCtrlItem* const& first,
                                         CVirtualListCtrlItem* const& second);

    // Both columns fill the list.
    void LoadDefaultColumnWidths() override;

protected:
    void PreSubclassWindow() override;

    int OnCreate(CREATESTRUCTW* parameters);
    LRESULT OnInputLanguageChange(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void InsertColumns();
    quorvel::ShortcutSort SortOf(int column, int ascending);
    void TakeSort();
    void ShowRows();
    void ShowNoRows() { ReplaceItems({}); }
    void ShowKeys();
    void RedrawKey(int row);
    std::vector<int> GetSelectedRows() const;

    std::unique_ptr<quorvel::ShortcutList> m_list;
};
