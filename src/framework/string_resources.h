// Finds texts of the resource chain without copying them.
#pragma once

#include <quorvel/platform/platform.h>

#include <string_view>

namespace quorvel {

// The text in the module's string table. Valid as long as the module is loaded. Empty if there is
// no such text.
std::basic_string_view<WCHAR> FindString(HINSTANCE module, UINT id);
// The text from the first module of the resource chain that has it.
std::basic_string_view<WCHAR> FindString(UINT id);

} // namespace quorvel
