// CKeyboardMappingScheme: a named set of an application's keyboard shortcuts, one for each
// command.
//
// Copyable; copies are deep. One thread at a time may use an object. A failed allocation throws
// std::bad_alloc or CMemoryException.
//
// Shortcuts have indexes from 0. Look-ups of commands use a binary search, so they are correct only
// while the shortcuts are ordered by identifier, as AddKeyboardShortcut keeps them.
// SetKeyboardShortcuts, SetUsingAcceleratorTable and the sorts can leave a different order, and
// nothing restores it. To sort for display, sort a copy.
//
// A key belongs to one command. Assigning it to a command removes it from all others without asking
// the user (shortcut_conflicts.h finds them before). SetKeyboardShortcuts and
// SetUsingAcceleratorTable accept duplicate keys and identifiers. A command without a key stays in
// the scheme.
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
    // Fills a scheme with an application's default shortcuts, using AddKeyboardShortcut.
    typedef void (*FNLOADDEFAULTMAPPINGSCHEME)(CKeyboardMappingScheme& scheme);

    // The values of a new scheme.
    static constexpr const WCHAR* DEFAULT_NAME = _T("");
    static constexpr FNLOADDEFAULTMAPPINGSCHEME DEFAULT_FNLOADDEFAULTMAPPINGSCHEME = nullptr;

    CKeyboardMappingScheme() = default;
    // A null name means an empty name, a null function no function. Loads nothing.
    CKeyboardMappingScheme(const WCHAR* name, FNLOADDEFAULTMAPPINGSCHEME loadDefault);

    // Compares name, shortcuts in their order, and function.
    BOOL operator==(const CKeyboardMappingScheme& other) const noexcept;
    BOOL operator!=(const CKeyboardMappingScheme& other) const noexcept {
        return !(*this == other);
    }

    BOOL SetName(const WCHAR* name);           // FALSE and no change for null
    CString GetName() const { return m_name; } // empty at first
    // Returns FALSE and changes nothing for null: a function can be replaced but not removed.
    BOOL SetLoadDefaultMappingSchemeFunction(FNLOADDEFAULTMAPPINGSCHEME loadDefault) noexcept;
    FNLOADDEFAULTMAPPINGSCHEME GetLoadDefaultMappingSchemeFunction() const noexcept {
        return m_loadDefault;
    }

    // Indexes count from 0 in the order of the shortcuts.
    int GetKeyboardShortcutCount() const noexcept { return static_cast<int>(m_shortcuts.size()); }
    BOOL IsValidKeyboardShortcutIndex(int index) const noexcept {
        return index >= 0 && index < GetKeyboardShortcutCount();
    }
    // For an index outside the range returns FALSE and leaves `out` unchanged.
    BOOL GetKeyboardShortcut(int index, CKeyboardShortcut& out) const;
    // The number of shortcuts with a key. Deliberate: the published name has this spelling.
    int GetAssignedKeyboardShortuctCount() const noexcept;
    // The same number: the size of the array that GetAccelerators fills.
    int GetAcceleratorEntries() const noexcept { return GetAssignedKeyboardShortuctCount(); }
    // Return an index, or -1. FindShortcutKey returns the first shortcut with the key; a cleared
    // key finds the first shortcut without one.
    int FindCommandID(unsigned int commandID) const noexcept;
    int FindShortcutKey(const CShortcutKey& key) const noexcept;
    // For an unknown command returns FALSE and clears only the key of `out`.
    BOOL GetKeyboardShortcutUsingCommandID(unsigned int commandID, CKeyboardShortcut& out) const;
    // Replaces the content of `out`.
    void GetKeyboardShortcuts(std::vector<CKeyboardShortcut>& out) const { out = m_shortcuts; }
    // Replaces the shortcuts of `out` by those with a key, added one by one. Returns their number.
    int GetAssignedKeyboardShortcuts(CKeyboardMappingScheme& out) const;
    // Creates a new row for each shortcut, in their order.
    void GetKeyboardMappingScheme(
        std::vector<boost::shared_ptr<CKeyboardShortcutVirtualListCtrlItem>>& out) const;

    // Removes the key from other shortcuts, then inserts the shortcut by its identifier, or
    // replaces the one with the same identifier. Returns TRUE.
    BOOL AddKeyboardShortcut(const CKeyboardShortcut& shortcut);
    // Returns FALSE and changes nothing for an unknown command.
    BOOL SetShortcutKey(unsigned int commandID, const CShortcutKey& key);
    BOOL ClearShortcutKey(const CShortcutKey& key); // in all shortcuts; FALSE if not found
    BOOL ClearKeyboardShortcutUsingCommandID(unsigned int commandID);  // clears its key
    BOOL RemoveKeyboardShortcutUsingCommandID(unsigned int commandID); // removes the shortcut
    void ClearAllShortcutKeys() noexcept;                              // keeps the commands
    void DeleteKeyboardShortcutArrayContents() noexcept;               // also removes the commands
    // Gives each command its key in `defaults`, or no key. Adds no commands.
    void ResetAllShortcutKeys(const CKeyboardMappingScheme& defaults);
    // The same for one command; other commands lose the key that it gets. Returns FALSE and changes
    // nothing for a command that is not in this scheme.
    BOOL ResetShortcutKey(unsigned int commandID, const CKeyboardMappingScheme& defaults);
    // Replaces all shortcuts by those of the load-default function. FALSE without a function.
    BOOL LoadDefaultMappingScheme();
    void SetKeyboardShortcuts(const std::vector<CKeyboardShortcut>& shortcuts); // unchecked
    // Replaces all shortcuts. The commands then have no texts, and no key is an extended key. The
    // caller guarantees that the table has `count` entries, which are only read. Returns FALSE and
    // changes nothing for a null table, a count below 1, and a count above 1,048,576: there are no
    // more different keys.
    BOOL SetUsingAcceleratorTable(ACCEL* entries, int count);

    // Equal shortcuts keep their order; otherwise descending order is the exact reverse. Texts are
    // sorted for the user's language, case-sensitively.
    void SortKeyboardShortcutsByCommandText(BOOL ascending);
    // By GetShortcutKeyName(1), by code unit. Shortcuts without a name are last; descending: first.
    void SortKeyboardShortcutsByKeyboardShortcutName(BOOL ascending);
    // By modifier rank, then by code.
    void SortKeyboardShortcutsByShortcutKey(BOOL ascending);

    // Copies the shortcuts that have a key, in their order. Returns FALSE and writes nothing for a
    // null array, and if `count` is not exactly GetAcceleratorEntries().
    BOOL GetAccelerators(ACCEL* out, int count) const noexcept;
    // Windows only; on Linux a call does not link. Returns null when no command has a key. The
    // caller destroys the table.
    HACCEL CreateAcceleratorTableW() const;

    // The keys as text for storage: commands by identifier, keys by their texts
    // (shortcut_key_text.h) and numbers,
    //     <shortcuts format="1" name="Default">
    //     <shortcut command="300" key="Ctrl+Shift+F5" code="116" modifiers="3"/>
    //     </shortcuts>
    // Contains only keys that differ from those of the load-default function, so that users get a
    // later version's new defaults. Without that function, contains all commands with a key. The
    // shortcuts may be in any order; a command that occurs more than once has a row for each of its
    // shortcuts. A name that XML cannot contain, such as one with control characters, is omitted.
    CString ExportToXML() const;
    // First sets all default keys (no keys without a load-default function), then applies each row,
    // which takes its key from others. It may omit the key's text or its numbers: with neither the
    // command has no key. The n-th row of a command is for its n-th shortcut. If several
    // rows have the same key, only the first is valid. A scheme without a name gets the stored
    // name.
    //
    // TRUE: the scheme was changed; FALSE: it was not. Faulty rows give FALSE unless
    // `skipFaultyRows` is set, which skips them. A newer format, a text without shortcuts, and a
    // text that is not well-formed always give FALSE. `problems`, if not null, gets all problems.
    BOOL ImportFromXML(const WCHAR* text, BOOL skipFaultyRows,
                       std::vector<CShortcutProblem>* problems = nullptr);
    // The same with a file in UTF-8. Returns FALSE with `errorText` when it cannot be written or
    // read; `errorText` is empty when the content was refused.
    BOOL ExportToXMLFile(const WCHAR* fileName, CString& errorText) const;
    BOOL ImportFromXMLFile(const WCHAR* fileName, BOOL skipFaultyRows, CString& errorText,
                           std::vector<CShortcutProblem>* problems = nullptr);
    // The same with the value "Shortcuts" of a registry key, at a path or in a section of the
    // application's profile. One value contains everything, so a state is never partly written.
    // With `closeKey` the handle is always closed. Loading skips faulty rows: a command that a new
    // version removed affects no other key. FALSE when there is nothing to load.
    BOOL SaveState(HKEY key, int closeKey) const;
    BOOL SaveState(const CRegistryPath& path) const;
    BOOL SaveState(const WCHAR* section) const;
    BOOL LoadState(HKEY key, int closeKey, std::vector<CShortcutProblem>* problems = nullptr);
    BOOL LoadState(const CRegistryPath& path, std::vector<CShortcutProblem>* problems = nullptr);
    BOOL LoadState(const WCHAR* section, std::vector<CShortcutProblem>* problems = nullptr);

private:
    std::vector<CShortcutKey> GetDefaultKeys() const;
    BOOL ImportFrom(CMarkup& markup, BOOL skipFaultyRows, std::vector<CShortcutProblem>* problems);
    CKeyboardShortcut* Find(unsigned int commandID) noexcept;
    bool MayBeHeld(const CShortcutKey& key) const;
    void Release(const CShortcutKey& key) noexcept;

    CString m_name;
    std::vector<CKeyboardShortcut> m_shortcuts;
    FNLOADDEFAULTMAPPINGSCHEME m_loadDefault = DEFAULT_FNLOADDEFAULTMAPPINGSCHEME;
    // At least all keys that a shortcut has, so that adding shortcuts to a large scheme need not
    // search all of them. Created on first use.
    mutable std::unordered_set<std::uint32_t> m_heldKeys;
    mutable bool m_areHeldKeysKnown = false;
};
