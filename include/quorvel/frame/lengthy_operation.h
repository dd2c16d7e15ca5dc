// CLengthyOperationHandler: keeps the user interface alive during long work.
//
// The long-running functions take an optional pointer to one and call PumpMessages between their
// steps, on the thread that called them; null means no pumping.
#pragma once

#include <quorvel/platform/platform.h>

class QUORVEL_API CLengthyOperationHandler {
public:
    virtual ~CLengthyOperationHandler();

    // Dispatches the messages that wait in the thread's queue. It runs in the middle of the
    // caller's work, and what it throws ends that work. The default does it on Windows; on Linux,
    // where there is no user interface to keep alive, it does nothing.
    virtual void PumpMessages();
};
