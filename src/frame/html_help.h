// The last error of HTML Help.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/win32.h"

namespace quorvel {

struct HtmlHelpError {
    LONG code = 0;       // a result code; negative for a failure
    CString description; // empty when HTML Help gives none
};

// Returns FALSE when HTML Help cannot be queried.
BOOL QueryHtmlHelpError(HtmlHelpError& error);

// Implements AfxHtmlHelpErrorMessageBox for a given query.
BOOL ShowHtmlHelpError(BOOL (*query)(HtmlHelpError&), UINT type);

} // namespace quorvel
