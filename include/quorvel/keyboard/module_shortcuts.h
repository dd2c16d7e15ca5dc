// The shortcuts of a program, read from the accelerator tables and menus in its file.
//
// Any thread. Characters in tables are converted with the keyboard layout. Throws without memory.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

// Replaces `schemes` by one scheme for each accelerator table of a module, with the table's name
// ("101", "MAIN"). A scheme has the entries in the table's order, including duplicate keys and
// commands, with the texts that the module's menus give the commands. The module may be loaded as a
// data file. `damaged` is the number of tables and menus that could not be read; they are skipped.
// FALSE when no table could be read.
QUORVEL_API BOOL AfxGetModuleShortcuts(HMODULE module, std::vector<CKeyboardMappingScheme>& schemes,
                                       int& damaged);
