// Export and import of the library's names.
#pragma once

#if (defined(_MSVC_LANG) ? _MSVC_LANG : __cplusplus) <= 201703L
#error "The headers of Quorvel need C++20: compile with -std=c++20 or later."
// A missing file ends the compilation at once, so that other errors do not hide this one.
#include <needs_cpp20>
#endif

#if defined(_WIN32)
// What QUORVEL_API is in the library itself, and in programs that use it.
#define QUORVEL_EXPORT __declspec(dllexport)
#define QUORVEL_IMPORT __declspec(dllimport)
#else
#define QUORVEL_EXPORT __attribute__((visibility("default")))
#define QUORVEL_IMPORT __attribute__((visibility("default")))
#endif

// Marks an exported function, object or class, and a class template whose instances are in the
// library.
#if defined(QUORVEL_BUILDING)
#define QUORVEL_API QUORVEL_EXPORT
#elif defined(QUORVEL_STATIC)
#define QUORVEL_API
#else
#define QUORVEL_API QUORVEL_IMPORT
#endif
