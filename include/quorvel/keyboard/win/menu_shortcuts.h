// Menus that show the keys of a scheme. Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/win/menu.h>
#include <quorvel/keyboard/keyboard_mapping_scheme.h>

// Puts the key of each item's command behind a tab in the item's text, in the menus below too, and
// takes away what stood there when the command has no key. Commands that the scheme does not have,
// separators and items without text stay as they are. Call it again after the scheme has changed,
// or whenever a menu opens (WM_INITMENUPOPUP). How many items were changed.
QUORVEL_API int AfxUpdateMenuShortcuts(CMenu& menu, const CKeyboardMappingScheme& scheme);
