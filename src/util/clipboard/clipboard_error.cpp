#include <quorvel/util/clipboard/clipboard_error.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/message_box.h>
#include <quorvel/res/message_ids.h>

#include "platform/win32.h"

namespace {

UINT TextIdOf(UINT action) {
    switch (action) {
    case quorvel::kClipboardRetrieving:
        return quorvel::kTextErrorRetrievingClipboardData;
    case quorvel::kClipboardEmptying:
        return quorvel::kTextErrorEmptyingClipboard;
    default:
        return quorvel::kTextErrorPlacingClipboardData;
    }
}

} // namespace

BOOL AfxIsValidClipboardAction(UINT action) {
    return action < 6;
}

BOOL AfxIsValidClipboardExit(UINT exitAction) {
    return exitAction < 3;
}

int AfxClipboardErrorMessageBox(UINT action, UINT type) {
    const DWORD error = GetLastError();
    CString cause;
    if (!AfxIsValidClipboardAction(action) || !AfxGetSystemErrorText(error, cause))
        return 0;
    return AfxFormatStringErrorMessageBox(TextIdOf(action), type, 0, cause.GetString());
}
