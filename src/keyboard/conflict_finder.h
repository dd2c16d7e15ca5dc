// The conflicts of a key, for any keyboard layout.
#pragma once

#include <quorvel/keyboard/shortcut_conflicts.h>

#include <functional>

namespace quorvel {

// The character that a key types together with its Shift, Ctrl and Alt; 0 for no character.
typedef std::function<WCHAR(const CShortcutKey& key)> TypedCharacter;

std::vector<CShortcutConflict> FindShortcutConflicts(const CKeyboardMappingScheme& scheme,
                                                     unsigned int commandID,
                                                     const CShortcutKey& key,
                                                     const TypedCharacter& typed);
} // namespace quorvel
