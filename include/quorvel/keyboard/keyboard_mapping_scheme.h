// CKeyboardMappingScheme: the keyboard shortcuts of an application under one name, a shortcut for
// each command.
//
// A plain value: copies are deep. One object may be used by one thread at a time. Lack of memory
// throws std::bad_alloc or CMemoryException.
//
// Shortcuts have indexes from 0. Looking up a command is a binary search, so it is right while the
// shortcuts are in the order of their identifiers, as AddKeyboardShortcut puts them.
// SetKeyboardShortcuts, SetUsingAcceleratorTable and the sorts leave another order; nothing
// restores it. To sort for display, sort a copy.
//
// A key belongs to one command: giving it to a command takes it from the others that have it, and
// nobody is asked (shortcut_conflicts.h finds them first). SetKeyboardShortcuts and
// SetUsingAcceleratorTable take keys and identifiers as they are given, also twice. A command
// without a key stays in the scheme.
#pragma once

#include <quorvel/keyboard/keyboard_shortcut.h>
#include <quorvel/keyboard/shortcut_problem.h>
#include <quorvel/system/registry_path.h>

#include <cstdint>
#include <unordered_set>
#include <vector>

class CKeyboardShortcutVirtualListCtrlItem;
class CMarkup;
namespace boost {
template <class Type>
class shared_ptr; // <boost/shared_ptr.hpp>, for callers of the operation that takes it
} // namespace boost

class QUORVEL_API CKeyboardMappingScheme {
public:
    // Fills a scheme with an application's default shortcuts by AddKeyboardShortcut.
    typedef void (*FNLOADDEFAULTMAPPINGSCHEME)(CKeyboardMappingScheme& scheme);

    static constexpr const WCHAR* DEFAULT_NAME = _T("");
    static constexpr FNLOADDEFAULTMAPPINGSCHEME DEFAULT_FNLOADDEFAULTMAPPINGSCHEME = nullptr;

    CKeyboardMappingScheme() = default;
    // A null name is an empty one, a null function none. Nothing is loaded.
    CKeyboardMappingScheme(const WCHAR* name, FNLOADDEFAULTMAPPINGSCHEME loadDefault);

    // Of name, shortcuts in their order, and function.
    BOOL operator==(const CKeyboardMappingScheme& other) const noexcept;
    BOOL operator!=(const CKeyboardMappingScheme& other) const noexcept {
        return !(*this == other);
    }

    BOOL SetName(const WCHAR* name); // FALSE, and no change, for null
    CString GetName() const { return m_name; }
    // FALSE, and no change, for null: a function that was set can only be replaced.
    BOOL SetLoadDefaultMappingSchemeFunction(FNLOADDEFAULTMAPPINGSCHEME loadDefault) noexcept;
    FNLOADDEFAULTMAPPINGSCHEME GetLoadDefaultMappingSchemeFunction() const noexcept {
        return m_loadDefault;
    }

    int GetKeyboardShortcutCount() const noexcept { return static_cast<int>(m_shortcuts.size()); }
    BOOL IsValidKeyboardShortcutIndex(int index) const noexcept {
        return index >= 0 && index < GetKeyboardShortcutCount();
    }
    // FALSE, and `out` as it was, for an index outside.
    BOOL GetKeyboardShortcut(int index, CKeyboardShortcut& out) const;
    // How many have a key. Deliberate: the name is published as it is spelled.
    int GetAssignedKeyboardShortuctCount() const noexcept;
    // The same: the size of the array that GetAccelerators fills.
    int GetAcceleratorEntries() const noexcept { return GetAssignedKeyboardShortuctCount(); }
    // Indexes; -1 for none. The first shortcut with the key: a cleared one finds the first shortcut
    // without a key.
    int FindCommandID(unsigned int commandID) const noexcept;
    int FindShortcutKey(const CShortcutKey& key) const noexcept;
    // FALSE for an unknown command: only the key of `out` is cleared then.
    BOOL GetKeyboardShortcutUsingCommandID(unsigned int commandID, CKeyboardShortcut& out) const;
    void GetKeyboardShortcuts(std::vector<CKeyboardShortcut>& out) const { out = m_shortcuts; }
    // Replaces the shortcuts of `out` by those that have a key, added one by one. Their number.
    int GetAssignedKeyboardShortcuts(CKeyboardMappingScheme& out) const;
    // A new row for each shortcut, in their order.
    void GetKeyboardMappingScheme(
        std::vector<boost::shared_ptr<CKeyboardShortcutVirtualListCtrlItem>>& out) const;

    // Takes the key from the others and puts the shortcut in its place by identifier, instead of
    // the one that was there. TRUE.
    BOOL AddKeyboardShortcut(const CKeyboardShortcut& shortcut);
    // FALSE, and no change, for an unknown command.
    BOOL SetShortcutKey(unsigned int commandID, const CShortcutKey& key);
    BOOL ClearShortcutKey(const CShortcutKey& key); // of all that have it; FALSE when none has
    BOOL ClearKeyboardShortcutUsingCommandID(unsigned int commandID); // clears its key
    BOOL RemoveKeyboardShortcutUsingCommandID(unsigned int commandID);
    void ClearAllShortcutKeys() noexcept;
    void DeleteKeyboardShortcutArrayContents() noexcept;
    // Each command gets the key that it has in `defaults`, or none. Commands are not added.
    void ResetAllShortcutKeys(const CKeyboardMappingScheme& defaults);
    // The same for one command; other commands lose the key that it gets. FALSE, and no change, for
    // a command that is unknown here.
    BOOL ResetShortcutKey(unsigned int commandID, const CKeyboardMappingScheme& defaults);
    // Replaces all shortcuts by what the load-default function adds. FALSE without a function.
    BOOL LoadDefaultMappingScheme();
    void SetKeyboardShortcuts(const std::vector<CKeyboardShortcut>& shortcuts);
    // FALSE, and no change, for a null table and a count below 1. The commands have no texts then,
    // and no key is an extended one.
    BOOL SetUsingAcceleratorTable(const ACCEL* entries, int count);

    // Shortcuts that compare equal keep their order. Descending is the exact reverse, but for them.
    // By text: as the user's language orders texts, letter case counts.
    void SortKeyboardShortcutsByCommandText(BOOL ascending);
    // By GetShortcutKeyName(1), by code unit; those without a name come last, descending first.
    void SortKeyboardShortcutsByKeyboardShortcutName(BOOL ascending);
    // By rank of the modifiers, then by code.
    void SortKeyboardShortcutsByShortcutKey(BOOL ascending);

    // The shortcuts that have a key, in their order. FALSE, and nothing written, for a null array
    // and unless `count` is exactly GetAcceleratorEntries().
    BOOL GetAccelerators(ACCEL* out, int count) const noexcept;
    // Windows alone; elsewhere a call does not link. Null when no command has a key. The caller
    // destroys the table.
    HACCEL CreateAcceleratorTableW() const;

    // The keys as text, to be stored: commands by identifier, keys by their texts
    // (shortcut_key_text.h) and numbers,
    //     <shortcuts format="1">
    //     <shortcut command="300" key="Ctrl+Shift+F5" code="116" modifiers="3"/>
    //     </shortcuts>
    // Only commands whose key is not that of the load-default function are in it, so that a later
    // version's other defaults reach the user; without a function, every command that has a key.
    CString ExportToXML() const;
    // The default keys, changed as the text says: what it gives to a command another one loses. A
    // row may lack the text of its key or the numbers; without both its command has no key.
    //
    // TRUE when the scheme was changed, FALSE when it is as it was: for faulty rows unless
    // `skipFaultyRows`, which leaves these out alone, and in any case for a newer format and for a
    // text that holds no shortcuts or is not well-formed. `problems`, when given, has them all.
    BOOL ImportFromXML(const WCHAR* text, BOOL skipFaultyRows,
                       std::vector<CShortcutProblem>* problems = nullptr);
    // The same with a file, in UTF-8. FALSE with `errorText` when it can't be written or read; the
    // text is empty when its content was refused.
    BOOL ExportToXMLFile(const WCHAR* fileName, CString& errorText) const;
    BOOL ImportFromXMLFile(const WCHAR* fileName, BOOL skipFaultyRows, CString& errorText,
                           std::vector<CShortcutProblem>* problems = nullptr);
    // The same with a text named "Shortcuts" in a key, at a path and in a section of the
    // application's profile. One value holds all, so that a state is never half written. With
    // `closeKey` the key is closed in any case. Loading leaves faulty rows out: a command that a
    // later version has dropped costs no other key. FALSE when there was nothing to load.
    BOOL SaveState(HKEY key, int closeKey) const;
    BOOL SaveState(const CRegistryPath& path) const;
    BOOL SaveState(const WCHAR* section) const;
    BOOL LoadState(HKEY key, int closeKey, std::vector<CShortcutProblem>* problems = nullptr);
    BOOL LoadState(const CRegistryPath& path, std::vector<CShortcutProblem>* problems = nullptr);
    BOOL LoadState(const WCHAR* section, std::vector<CShortcutProblem>* problems = nullptr);

private:
    CKeyboardMappingScheme GetDefaults() const;
    BOOL ImportFrom(CMarkup& markup, BOOL skipFaultyRows, std::vector<CShortcutProblem>* problems);
    CKeyboardShortcut* Find(unsigned int commandID) noexcept;
    bool MayBeHeld(const CShortcutKey& key) const;
    void Release(const CShortcutKey& key) noexcept;

    CString m_name;
    std::vector<CKeyboardShortcut> m_shortcuts;
    FNLOADDEFAULTMAPPINGSCHEME m_loadDefault = DEFAULT_FNLOADDEFAULTMAPPINGSCHEME;
    // Every key that a shortcut has, and perhaps more, so that adding shortcuts to a large scheme
    // need not look at all of them. Made when it is first wanted.
    mutable std::unordered_set<std::uint32_t> m_heldKeys;
    mutable bool m_areHeldKeysKnown = false;
};
