#include <quorvel/keyboard/keyboard_mapping_scheme.h>

#include <quorvel/keyboard/keyboard_shortcut_virtual_list_ctrl_item.h>

#include "keyboard/key_name_order.h"
#include "platform/win32.h"

#include <algorithm>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <numeric>
#include <utility>

using namespace quorvel;

namespace {

std::uint32_t NumberOf(const CShortcutKey& key) {
    return static_cast<std::uint32_t>(key.GetVirtualKeyCode()) << 8 | key.GetModifiers();
}

// Not members of the class: its members are exported and can be interposed, so the compiler cannot
// inline them.
typedef std::vector<CKeyboardShortcut> Shortcuts;

std::size_t LowerBound(const Shortcuts& shortcuts, unsigned int commandID) {
    const auto place = std::lower_bound(
        shortcuts.begin(), shortcuts.end(), commandID,
        [](const CKeyboardShortcut& a, unsigned int id) { return a.GetCommandID() < id; });
    return static_cast<std::size_t>(place - shortcuts.begin());
}

int IndexOf(const Shortcuts& shortcuts, unsigned int commandID) {
    const std::size_t place = LowerBound(shortcuts, commandID);
    return place < shortcuts.size() && shortcuts[place].GetCommandID() == commandID
               ? static_cast<int>(place)
               : -1;
}

int CountAssigned(const Shortcuts& shortcuts) {
    return static_cast<int>(
        std::count_if(shortcuts.begin(), shortcuts.end(),
                      [](const CKeyboardShortcut& each) { return each.IsShortcutKeySet(); }));
}

template <class Order>
void Sort(std::vector<CKeyboardShortcut>& shortcuts, BOOL ascending, Order order) {
    std::stable_sort(shortcuts.begin(), shortcuts.end(),
                     [&](const CKeyboardShortcut& a, const CKeyboardShortcut& b) {
                         return ascending ? order(a, b) : order(b, a);
                     });
}

} // namespace

CKeyboardMappingScheme::CKeyboardMappingScheme(const WCHAR* name,
                                               FNLOADDEFAULTMAPPINGSCHEME loadDefault)
    : m_name(name), m_loadDefault(loadDefault) {}

BOOL CKeyboardMappingScheme::operator==(const CKeyboardMappingScheme& other) const noexcept {
    return m_name == other.m_name && m_loadDefault == other.m_loadDefault &&
           m_shortcuts == other.m_shortcuts;
}

BOOL CKeyboardMappingScheme::SetName(const WCHAR* name) {
    if (name == nullptr)
        return FALSE;
    m_name = name;
    return TRUE;
}

BOOL CKeyboardMappingScheme::SetLoadDefaultMappingSchemeFunction(
    FNLOADDEFAULTMAPPINGSCHEME loadDefault) noexcept {
    if (loadDefault == nullptr)
        return FALSE;
    m_loadDefault = loadDefault;
    return TRUE;
}

// Queries

BOOL CKeyboardMappingScheme::GetKeyboardShortcut(int index, CKeyboardShortcut& out) const {
    if (!IsValidKeyboardShortcutIndex(index))
        return FALSE;
    out = m_shortcuts[static_cast<std::size_t>(index)];
    return TRUE;
}

int CKeyboardMappingScheme::GetAssignedKeyboardShortuctCount() const noexcept {
    return CountAssigned(m_shortcuts);
}

int CKeyboardMappingScheme::FindCommandID(unsigned int commandID) const noexcept {
    return IndexOf(m_shortcuts, commandID);
}

CKeyboardShortcut* CKeyboardMappingScheme::Find(unsigned int commandID) noexcept {
    const int index = FindCommandID(commandID);
    return index >= 0 ? &m_shortcuts[static_cast<std::size_t>(index)] : nullptr;
}

int CKeyboardMappingScheme::FindShortcutKey(const CShortcutKey& key) const noexcept {
    const auto found = std::ranges::find_if(
        m_shortcuts, [&key](const auto& shortcut) { return shortcut.GetShortcutKey() == key; });
    return found != m_shortcuts.end() ? static_cast<int>(found - m_shortcuts.begin()) : -1;
}

BOOL CKeyboardMappingScheme::GetKeyboardShortcutUsingCommandID(unsigned int commandID,
                                                               CKeyboardShortcut& out) const {
    out.ClearShortcutKey();
    return GetKeyboardShortcut(FindCommandID(commandID), out);
}

int CKeyboardMappingScheme::GetAssignedKeyboardShortcuts(CKeyboardMappingScheme& out) const {
    const std::vector<CKeyboardShortcut> all = m_shortcuts; // `out` may be this scheme
    out.DeleteKeyboardShortcutArrayContents();
    int count = 0;
    for (const CKeyboardShortcut& shortcut : all)
        if (shortcut.IsShortcutKeySet())
            count += out.AddKeyboardShortcut(shortcut);
    return count;
}

void CKeyboardMappingScheme::GetKeyboardMappingScheme(
    std::vector<boost::shared_ptr<CKeyboardShortcutVirtualListCtrlItem>>& out) const {
    out.clear();
    out.reserve(m_shortcuts.size());
    for (const CKeyboardShortcut& shortcut : m_shortcuts)
        out.push_back(boost::make_shared<CKeyboardShortcutVirtualListCtrlItem>(shortcut));
}

// Changes

bool CKeyboardMappingScheme::MayBeHeld(const CShortcutKey& key) const {
    if (!m_areHeldKeysKnown) {
        m_heldKeys.clear();
        for (const CKeyboardShortcut& shortcut : m_shortcuts)
            m_heldKeys.insert(NumberOf(shortcut.GetShortcutKey()));
        m_areHeldKeysKnown = true;
    }
    // Clearing an empty key would change nothing.
    return key.IsKeySet() && !m_heldKeys.insert(NumberOf(key)).second;
}

void CKeyboardMappingScheme::Release(const CShortcutKey& key) noexcept {
    for (CKeyboardShortcut& shortcut : m_shortcuts)
        if (shortcut.GetShortcutKey() == key)
            shortcut.ClearShortcutKey();
}

BOOL CKeyboardMappingScheme::AddKeyboardShortcut(const CKeyboardShortcut& shortcut) {
    const bool isHeld = MayBeHeld(shortcut.GetShortcutKey());
    const std::size_t place = LowerBound(m_shortcuts, shortcut.GetCommandID());
    const bool isKnown =
        place < m_shortcuts.size() && m_shortcuts[place].GetCommandID() == shortcut.GetCommandID();
    CKeyboardShortcut added = shortcut;
    if (!isKnown) // first, because this can fail for lack of memory
        m_shortcuts.insert(m_shortcuts.begin() + static_cast<std::ptrdiff_t>(place),
                           CKeyboardShortcut());
    if (isHeld)
        Release(added.GetShortcutKey());
    m_shortcuts[place] = std::move(added);
    return TRUE;
}

BOOL CKeyboardMappingScheme::SetShortcutKey(unsigned int commandID, const CShortcutKey& key) {
    CKeyboardShortcut* const found = Find(commandID);
    if (found == nullptr)
        return FALSE;
    const CShortcutKey given = key;
    if (MayBeHeld(given))
        Release(given);
    found->SetShortcutKey(given);
    return TRUE;
}

BOOL CKeyboardMappingScheme::ClearShortcutKey(const CShortcutKey& key) {
    const bool isFound = FindShortcutKey(key) >= 0;
    Release(key);
    return isFound;
}

BOOL CKeyboardMappingScheme::ClearKeyboardShortcutUsingCommandID(unsigned int commandID) {
    CKeyboardShortcut* const found = Find(commandID);
    if (found == nullptr)
        return FALSE;
    found->ClearShortcutKey();
    return TRUE;
}

BOOL CKeyboardMappingScheme::RemoveKeyboardShortcutUsingCommandID(unsigned int commandID) {
    const int index = FindCommandID(commandID);
    if (index < 0)
        return FALSE;
    m_shortcuts.erase(m_shortcuts.begin() + index);
    return TRUE;
}

void CKeyboardMappingScheme::ClearAllShortcutKeys() noexcept {
    for (CKeyboardShortcut& shortcut : m_shortcuts)
        shortcut.ClearShortcutKey();
}

void CKeyboardMappingScheme::DeleteKeyboardShortcutArrayContents() noexcept {
    m_shortcuts.clear();
    m_heldKeys.clear();
}

void CKeyboardMappingScheme::ResetAllShortcutKeys(const CKeyboardMappingScheme& defaults) {
    for (CKeyboardShortcut& shortcut : m_shortcuts) {
        const int index = defaults.FindCommandID(shortcut.GetCommandID());
        shortcut.SetShortcutKey(
            index >= 0 ? defaults.m_shortcuts[static_cast<std::size_t>(index)].GetShortcutKey()
                       : CShortcutKey());
    }
    m_areHeldKeysKnown = false;
}

BOOL CKeyboardMappingScheme::ResetShortcutKey(unsigned int commandID,
                                              const CKeyboardMappingScheme& defaults) {
    CKeyboardShortcut reset;
    defaults.GetKeyboardShortcutUsingCommandID(commandID, reset);
    return SetShortcutKey(commandID, reset.GetShortcutKey());
}

BOOL CKeyboardMappingScheme::LoadDefaultMappingScheme() {
    if (m_loadDefault == nullptr)
        return FALSE;
    DeleteKeyboardShortcutArrayContents();
    m_loadDefault(*this);
    return TRUE;
}

void CKeyboardMappingScheme::SetKeyboardShortcuts(const std::vector<CKeyboardShortcut>& shortcuts) {
    m_shortcuts = shortcuts;
    m_areHeldKeysKnown = false;
}

BOOL CKeyboardMappingScheme::SetUsingAcceleratorTable(ACCEL* entries, int count) {
    // Characters and codes of 16 bits, with each combination of three modifiers.
    constexpr int kDifferentKeys = 2 * 0x10000 * 8;
    if (entries == nullptr || count <= 0 || count > kDifferentKeys)
        return FALSE;
    std::vector<CKeyboardShortcut> shortcuts;
    shortcuts.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        shortcuts.emplace_back(entries[i], FALSE);
    m_shortcuts = std::move(shortcuts);
    m_areHeldKeysKnown = false;
    return TRUE;
}

// Sorting

void CKeyboardMappingScheme::SortKeyboardShortcutsByCommandText(BOOL ascending) {
    Sort(m_shortcuts, ascending, [](const CKeyboardShortcut& a, const CKeyboardShortcut& b) {
        return CompareStringW(LOCALE_USER_DEFAULT, 0, a.GetCommandText(), -1, b.GetCommandText(),
                              -1) == CSTR_LESS_THAN;
    });
}

// Creates the name once for each shortcut, not for each comparison.
void CKeyboardMappingScheme::SortKeyboardShortcutsByKeyboardShortcutName(BOOL ascending) {
    std::vector<std::pair<CString, CKeyboardShortcut>> named;
    named.reserve(m_shortcuts.size());
    for (const CKeyboardShortcut& shortcut : m_shortcuts)
        named.emplace_back(shortcut.GetShortcutKey().GetShortcutKeyName(1), shortcut);
    std::stable_sort(named.begin(), named.end(), [ascending](const auto& a, const auto& b) {
        return ascending ? IsNameBefore(a.first, b.first) : IsNameBefore(b.first, a.first);
    });
    std::ranges::transform(named, m_shortcuts.begin(),
                           [](auto& row) { return std::move(row.second); });
}

void CKeyboardMappingScheme::SortKeyboardShortcutsByShortcutKey(BOOL ascending) {
    Sort(m_shortcuts, ascending, [](const CKeyboardShortcut& a, const CKeyboardShortcut& b) {
        const auto rank = [](const CKeyboardShortcut& shortcut) {
            const CShortcutKey& key = shortcut.GetShortcutKey();
            return std::pair(key.GetModifiersSortingRank(), key.GetVirtualKeyCode());
        };
        return rank(a) < rank(b);
    });
}

// Accelerators

BOOL CKeyboardMappingScheme::GetAccelerators(ACCEL* out, int count) const noexcept {
    if (out == nullptr || count != CountAssigned(m_shortcuts))
        return FALSE;
    for (const CKeyboardShortcut& shortcut : m_shortcuts)
        if (shortcut.IsShortcutKeySet())
            *out++ = shortcut.GetAccel();
    return TRUE;
}
