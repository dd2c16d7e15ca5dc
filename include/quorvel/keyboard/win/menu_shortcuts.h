// Menus that show the keys of a scheme. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/win/menu.h>
#include <quorvel/keyboard/keyboard_mapping_scheme.h>

// Writes the key of each item's command after a tab in the item's text, also in submenus, and
// removes an old one when the command has no key. Commands that are not in the scheme, separators
// and items without text are unchanged. The scheme may be in any order; a command's first key
// counts. Call it again when the scheme has changed, or whenever a menu opens (WM_INITMENUPOPUP).
// Returns the number of changed items.
QUORVEL_API int AfxUpdateMenuShortcuts(CMenu& menu, const CKeyboardMappingScheme& scheme);
// Adds the commands of a menu and its submenus to the scheme, with their labels and without keys,
// as a program's default scheme begins. Labels have no mnemonics and no text after a tab. Commands
// that are in the scheme are unchanged; separators and items without text are skipped. Returns the
// number of added commands.
QUORVEL_API int AfxAddMenuCommands(const CMenu& menu, CKeyboardMappingScheme& scheme);
