// CLengthyOperationHandler: keeps the user interface alive during long work.
//
// Long-running functions take an optional pointer to a handler and call PumpMessages between their
// steps, on the thread of their caller. Null means that no messages are dispatched.
#pragma once

#include <quorvel/platform/platform.h>

class QUORVEL_API CLengthyOperationHandler {
public:
    virtual ~CLengthyOperationHandler();

    // Dispatches the messages in the thread's queue. It is called in the middle of the operation;
    // an exception from it ends the operation. The default dispatches on Windows; on Linux, which
    // has no user interface to keep responsive, it does nothing.
    virtual void PumpMessages();
};
