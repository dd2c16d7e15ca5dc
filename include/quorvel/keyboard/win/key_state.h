// Whether a modifier key was pressed at the time of the message that the thread is handling.
// Windows only. Call them on the thread that handles the messages.
#pragma once

#include <quorvel/platform/platform.h>

// Either key of the pair counts.
QUORVEL_API BOOL AfxIsCtrlKeyDown();
QUORVEL_API BOOL AfxIsShiftKeyDown();
QUORVEL_API BOOL AfxIsAltKeyDown();
