// The modules of tests/data/pe; QUORVEL_SAMPLES is their folder.
#pragma once

#include <quorvel/framework/string.h>

inline CString Sample(const WCHAR* name) {
    return CString(QUORVEL_SAMPLES) + _T("/") + name;
}
