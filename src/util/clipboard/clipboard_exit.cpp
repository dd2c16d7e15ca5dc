#include "util/clipboard/clipboard_exit.h"

#include <quorvel/frame/message_box.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/util/clipboard/clipboard_error.h>

namespace quorvel {

BOOL EmptyOnExit(ExitClipboard& clipboard, UINT format, UINT exitAction,
                 const WCHAR* applicationName) {
    if (!AfxIsValidClipboardExit(exitAction))
        return FALSE;
    if (!clipboard.Holds(format) || exitAction == kClipboardExitKeep)
        return TRUE;
    if (exitAction == kClipboardExitAsk) {
        if (applicationName == nullptr)
            return FALSE;
        if (AfxFormatStringErrorMessageBox(kTextEmptyClipboardOnExit, MB_YESNO, 0,
                                           applicationName) != IDYES)
            return TRUE;
    }
    if (!clipboard.Empty())
        AfxClipboardErrorMessageBox(kClipboardEmptying, MB_OK | MB_ICONEXCLAMATION);
    return TRUE;
}

} // namespace quorvel
