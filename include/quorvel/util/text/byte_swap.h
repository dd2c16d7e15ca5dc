// Byte order of blocks of data.
#pragma once

#include <quorvel/platform/platform.h>

// Reverses the byte order of each of `count` units in place. Returns FALSE for null data or a count
// of 0. Never throws. Any thread.
QUORVEL_API BOOL AfxSwapWordData(WORD* words, ULONGLONG count);
QUORVEL_API BOOL AfxSwapDWordData(DWORD* dwords, ULONGLONG count);
