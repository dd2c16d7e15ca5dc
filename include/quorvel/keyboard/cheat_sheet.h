// The shortcuts of a scheme as a sheet to print, to publish or to show.
//
// Any thread; on Windows the keyboard layout is that of the calling thread. Lack of memory throws.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

enum AFX_CHEAT_SHEET_FORMAT {
    AFX_CHEAT_SHEET_TEXT,     // two columns, filled with blanks
    AFX_CHEAT_SHEET_MARKDOWN, // a heading and a table
    AFX_CHEAT_SHEET_HTML      // a whole document (HTML 5)
};

// The commands that have a key, in the scheme's order, with the names of their keys; a command
// without a text is named by its number. The title is the scheme's name, or "Keyboard Shortcuts".
// What means something in the format is escaped, line breaks become blanks. Lines end with CR LF.
// Empty for another format.
QUORVEL_API CString AfxGetShortcutCheatSheet(const CKeyboardMappingScheme& scheme, int format);
