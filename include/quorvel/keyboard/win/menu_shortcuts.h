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
