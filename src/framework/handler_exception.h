// Handles an exception that left a message handler.
#pragma once

#include <quorvel/platform/platform.h>

class CException;

namespace quorvel {

// Call it in a catch block. Passes the caught exception to the application's
// ProcessWndProcException, or to its default, and frees it. Returns the message's result. While a
// thread reports one exception, its further ones are dropped: the report's message box has a
// message loop, so a handler that fails for each timer message would open one box after another.
LRESULT EndHandlerException(const MSG& message) noexcept;

// Implements CWinApp::ProcessWndProcException.
LRESULT DefaultWndProcException(CException* exception, const MSG* message);

} // namespace quorvel
