// The shortcuts of a program, read from the accelerator tables and menus in its file.
//
// Any thread; the keyboard layout is asked for the characters in tables. Lack of memory throws.
#pragma once

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

// Replaces `schemes` by one for each accelerator table of a module, named as the table is ("101",
// "MAIN"). Each has the table's entries in its order, keys and commands that occur twice included,
// with the labels that the module's menus give the commands. A module loaded as a data file does.
// `damaged` counts the tables and menus that could not be read; they are left out. FALSE when there
// is no table that can be read.
QUORVEL_API BOOL AfxGetModuleShortcuts(HMODULE module, std::vector<CKeyboardMappingScheme>& schemes,
                                       int& damaged);
