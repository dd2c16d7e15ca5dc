// Reads accelerator tables and menus from resources.
//
// Modules are not trusted: every length is checked against the available bytes, and deep menus only
// cost memory.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <map>
#include <span>
#include <vector>

namespace quorvel {

// Reads a table's entries of four words: flags, key, command, unused. Flags mark the last one. If
// it is missing, returns false and does not change `entries`.
bool ReadAccelerators(std::span<const BYTE> table, std::vector<ACCEL>& entries);

// The label of a menu item's text, without mnemonics and without the text after a tab.
CString LabelOf(const CString& text);

// Adds the labels of a menu's commands, without mnemonics and without the text after a tab.
// Existing labels are kept. Returns false if the bytes are not a menu or end too early; the labels
// read until then have been added.
bool ReadMenuLabels(std::span<const BYTE> menu, std::map<unsigned int, CString>& labels);

} // namespace quorvel
