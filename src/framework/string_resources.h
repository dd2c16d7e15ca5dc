// The texts of the resource chain, where they lie.
#pragma once

#include <quorvel/platform/platform.h>

#include <string_view>

namespace quorvel {

// The text in the module's string table, in place: as long as the module is loaded. Empty when
// there is none.
std::basic_string_view<WCHAR> FindString(HINSTANCE module, UINT id);
// The text of the first module of the resource chain that has one.
std::basic_string_view<WCHAR> FindString(UINT id);

} // namespace quorvel
