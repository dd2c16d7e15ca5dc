// Accelerator tables and menus as resources hold them.
//
// Modules are not trusted: every length is tested against the bytes at hand, and the depth of menus
// costs memory alone.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <map>
#include <span>
#include <vector>

namespace quorvel {

// The entries of a table: four words each, flags, key, command and nothing, up to the one whose
// flags say that it is the last. False, and the entries as they were, when that one is missing.
bool ReadAccelerators(std::span<const BYTE> table, std::vector<ACCEL>& entries);

// Adds the labels of a menu's commands: without mnemonics and without what follows a tab. Those
// that are there already stay. False for what is no menu or ends too early; what was read until
// then has been added.
bool ReadMenuLabels(std::span<const BYTE> menu, std::map<unsigned int, CString>& labels);

} // namespace quorvel
