// Whether a modifier key is held, as of the message that the thread is handling. Windows only; on
// the thread that handles messages.
#pragma once

#include <quorvel/platform/platform.h>

QUORVEL_API BOOL AfxIsCtrlKeyDown();
QUORVEL_API BOOL AfxIsShiftKeyDown();
QUORVEL_API BOOL AfxIsAltKeyDown();
