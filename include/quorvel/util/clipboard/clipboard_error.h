// The actions of a program on the clipboard, and message boxes for their failures.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// What was attempted. 0, 2 and 5 are also valid; they are reported like placing.
enum ClipboardAction : UINT {
    kClipboardPlacing = 1,
    kClipboardRetrieving = 3,
    kClipboardEmptying = 4,
};

// What AfxEmptyClipboardOnExit does with the data.
enum ClipboardExit : UINT {
    kClipboardExitEmpty = 0, // without a question
    kClipboardExitAsk = 1,
    kClipboardExitKeep = 2,
};

} // namespace quorvel

QUORVEL_API BOOL AfxIsValidClipboardAction(UINT action);   // 0 to 5
QUORVEL_API BOOL AfxIsValidClipboardExit(UINT exitAction); // 0 to 2

// Reports the thread's last error as a failure of the action, in a box of type `type` (MB_OK ...)
// without a help button. Returns the id of the button. Returns 0 and shows no box when the action
// is not valid or the system has no text for the error. User-interface thread.
QUORVEL_API int AfxClipboardErrorMessageBox(UINT action, UINT type);
