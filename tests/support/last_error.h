// The error of a call that fails, to stand in a row beside the expected one.
#pragma once

#include <quorvel/platform/platform.h>

inline constexpr DWORD kUnset = 0xdead;

// 0 when the call succeeds, otherwise its error: kUnset when it sets none.
template <class Call>
DWORD ErrorOf(Call call) {
    using namespace quorvel::win32;
    SetLastError(kUnset);
    return call() ? 0 : GetLastError();
}
