// A text allocated by the platform's message formatter.
#pragma once

#include "platform/win32.h"

#include <memory>

namespace quorvel {

struct FreeLocal {
    void operator()(WCHAR* text) const { LocalFree(text); }
};
typedef std::unique_ptr<WCHAR, FreeLocal> LocalText;

} // namespace quorvel
