// Opening files and addresses.
#pragma once

#include <quorvel/platform/platform.h>

// Opens the file, folder or address with the user's program for it: through the shell on
// Windows, through xdg-open (and no command shell) on Linux, where the call waits up to
// five seconds for xdg-open. `directory` is the program's working directory and the base of
// a relative name. `parameters` is for programs; Linux refuses any. Both may be null or
// empty.
//
// Returns FALSE and sets the last error on failure; `showError` then shows a box with the system's
// text, except when the user cancelled. A null or empty name returns FALSE without a box and
// without a new last error.
//
// This opens everything, programs included, and does not ask the host's external-link hook. Use the
// hook for links from downloads or other sources you do not control. User-interface thread.
QUORVEL_API BOOL AfxOpenFile(const WCHAR* file, const WCHAR* parameters, const WCHAR* directory,
                             BOOL showError);
