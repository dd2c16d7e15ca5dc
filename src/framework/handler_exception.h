// Where an exception ends that left a message's handler.
#pragma once

#include <quorvel/platform/platform.h>

class CException;

namespace quorvel {

// Called in a catch block: passes the exception that was caught to the application's
// ProcessWndProcException, or to its default, and frees it. The result is the message's. While one
// exception of the thread is being reported, further ones are dropped: the box that reports it has
// a message loop, and a handler that fails for every timer message would pile up boxes.
LRESULT EndHandlerException(const MSG& message) noexcept;

// What CWinApp::ProcessWndProcException does.
LRESULT DefaultWndProcException(CException* exception, const MSG* message);

} // namespace quorvel
