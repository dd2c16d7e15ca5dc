// What speaks against giving a key to a command, to be shown before it is done.
//
// User-interface thread, whose keyboard layout is asked.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

struct CShortcutConflict { // one objection
    enum Kind {
        heldByCommand, // another command has the key and would lose it
        keptBySystem,  // the system acts on the key before an application gets it, or instead
        // Ctrl+Alt and the key type a character on this layout, as AltGr does on many.
        typesCharacter,
        plainCharacter // the key types a character without Ctrl and Alt
    };
    Kind nKind = heldByCommand;
    unsigned int nCommandID = 0; // of the other command; otherwise 0
    CString strMessage;          // a sentence in the user's language
};

// In the order of the kinds; a conflict for each other command that has the key. Empty for a
// cleared key. `commandID` is the command that is to get the key.
QUORVEL_API std::vector<CShortcutConflict>
AfxGetShortcutConflicts(const CKeyboardMappingScheme& scheme, unsigned int commandID,
                        const CShortcutKey& key);
