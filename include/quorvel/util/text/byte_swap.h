// Byte order of whole blocks of data.
#pragma once

#include <quorvel/platform/platform.h>

// Reverses the bytes of each of `count` units in place. FALSE for null data or a count of 0. Never
// throws. Any thread.
QUORVEL_API BOOL AfxSwapWordData(WORD* words, ULONGLONG count);
QUORVEL_API BOOL AfxSwapDWordData(DWORD* dwords, ULONGLONG count);
