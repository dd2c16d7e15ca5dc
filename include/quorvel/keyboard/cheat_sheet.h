// The shortcuts of a scheme as a text to print, publish or show.
//
// Any thread; on Windows it uses the keyboard layout of the calling thread. Throws without memory.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

enum AFX_CHEAT_SHEET_FORMAT { // the kind of text
    AFX_CHEAT_SHEET_TEXT,     // two columns, padded with blanks
    AFX_CHEAT_SHEET_MARKDOWN, // a heading and a table
    AFX_CHEAT_SHEET_HTML      // a whole document (HTML 5)
};

// Lists the commands that have a key, in the scheme's order, with the names of their keys. A
// command without a text is named by its number. The title is the scheme's name, or "Keyboard
// Shortcuts". Special characters of the format are escaped; line breaks become blanks. Lines end
// with CR LF. Returns an empty text for an unknown format.
QUORVEL_API CString AfxGetShortcutCheatSheet(const CKeyboardMappingScheme& scheme, int format);
