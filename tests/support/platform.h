// Which build this is, for the few rows where an emulated system is known to differ.
#pragma once

#include <quorvel/platform/platform.h>

#include <type_traits>

inline constexpr bool kOnLinux = !std::is_same_v<WCHAR, wchar_t>;
