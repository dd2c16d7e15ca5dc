// The last error of HTML Help.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/win32.h"

namespace quorvel {

struct HtmlHelpError {
    LONG code = 0;       // a result code: a failure is negative
    CString description; // empty when HTML Help has none
};

// FALSE when HTML Help cannot be asked.
BOOL QueryHtmlHelpError(HtmlHelpError& error);

// The box of AfxHtmlHelpErrorMessageBox over a given query.
BOOL ShowHtmlHelpError(BOOL (*query)(HtmlHelpError&), UINT type);

} // namespace quorvel
