// Conflicts of assigning a key to a command, to be shown before it is done.
//
// User-interface thread; uses its keyboard layout.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

struct CShortcutConflict { // one conflict
    enum Kind {            // why the key may not work
        heldByCommand,     // a different command has the key and would lose it
        // A different command has the same key except for the extended bit, and keeps it.
        // Accelerators do not have that bit, so only one of the commands is invoked.
        sameAccelerator,
        keptBySystem, // the system handles the key before, or instead of, an application
        // Ctrl+Alt and the key type a character on this layout, as AltGr does on many.
        typesCharacter,
        plainCharacter // the key types a character without Ctrl and Alt
    };
    Kind nKind = heldByCommand;  // decides what the other members mean
    unsigned int nCommandID = 0; // the other command; 0 for other kinds
    CString strMessage;          // a sentence in the user's language
};

// The conflicts in the order of their kinds, with one for each other command that has the key.
// Empty for a cleared key. `commandID` is the command that is to get the key.
QUORVEL_API std::vector<CShortcutConflict>
AfxGetShortcutConflicts(const CKeyboardMappingScheme& scheme, unsigned int commandID,
                        const CShortcutKey& key);
