// Finds the shortcuts of a command in a scheme of any order. A command may occur more than once:
// accelerator tables often give it two keys.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

#include <span>

namespace quorvel {

class ShortcutsByCommand {
public:
    explicit ShortcutsByCommand(const CKeyboardMappingScheme& scheme);

    // Those of a command, in the scheme's order.
    std::span<const CKeyboardShortcut> Of(unsigned int commandID) const;
    // The first of a command that has a key, otherwise its first; null for an unknown command.
    const CKeyboardShortcut* Find(unsigned int commandID) const;

private:
    std::vector<CKeyboardShortcut> m_shortcuts;
};

// The key of each command in `defaults`, or a cleared key. If a command occurs more than once, its
// n-th occurrence gets the n-th of its keys, or the last one.
std::vector<CShortcutKey> DefaultKeysOf(const std::vector<unsigned int>& commands,
                                        const CKeyboardMappingScheme& defaults);

} // namespace quorvel
