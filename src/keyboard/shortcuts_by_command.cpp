#include "keyboard/shortcuts_by_command.h"

#include <algorithm>
#include <unordered_map>

namespace quorvel {

ShortcutsByCommand::ShortcutsByCommand(const CKeyboardMappingScheme& scheme) {
    scheme.GetKeyboardShortcuts(m_shortcuts);
    std::ranges::stable_sort(m_shortcuts, {}, &CKeyboardShortcut::GetCommandID);
}

std::span<const CKeyboardShortcut> ShortcutsByCommand::Of(unsigned int commandID) const {
    const auto found =
        std::ranges::equal_range(m_shortcuts, commandID, {}, &CKeyboardShortcut::GetCommandID);
    return {found.begin(), found.end()};
}

const CKeyboardShortcut* ShortcutsByCommand::Find(unsigned int commandID) const {
    const auto shortcuts = Of(commandID);
    if (shortcuts.empty())
        return nullptr;
    const auto assigned = std::ranges::find_if(
        shortcuts, [](const CKeyboardShortcut& each) { return each.IsShortcutKeySet(); });
    return assigned != shortcuts.end() ? &*assigned : &shortcuts.front();
}

std::vector<CShortcutKey> DefaultKeysOf(const std::vector<unsigned int>& commands,
                                        const CKeyboardMappingScheme& defaults) {
    const ShortcutsByCommand byCommand(defaults);
    std::unordered_map<unsigned int, std::size_t> counts;
    std::vector<CShortcutKey> keys;
    keys.reserve(commands.size());
    for (const unsigned int commandID : commands) {
        const auto shortcuts = byCommand.Of(commandID);
        const std::size_t place = counts[commandID]++;
        keys.push_back(shortcuts.empty()
                           ? CShortcutKey()
                           : shortcuts[std::min(place, shortcuts.size() - 1)].GetShortcutKey());
    }
    return keys;
}

} // namespace quorvel
