// The framework's exceptions. (Grows with its callers.)
#pragma once

#include <quorvel/platform/platform.h>

[[noreturn]] QUORVEL_API void AfxThrowMemoryException();
