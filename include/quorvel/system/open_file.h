// Opening files and addresses.
#pragma once

#include <quorvel/platform/platform.h>

// Opens the file, folder or address with the program that the user has for it: by the shell on
// Windows, by xdg-open, without a shell of the command line, on Linux, where the library waits up
// to five seconds for its answer. `directory` is the one that the program runs in and that a
// relative name counts from; it and `parameters`, which only a program takes, may be null or empty.
// Linux takes no parameters.
//
// FALSE when it could not be opened, with the last error set; `showError` then asks for a box with
// the system's text. A null or empty name is refused without a box and an error. There is no box
// for a user who cancelled.
//
// This opens everything, programs included, and does not ask the host's external-link hook: that is
// for links that come from elsewhere. User-interface thread.
QUORVEL_API BOOL AfxOpenFile(const WCHAR* file, const WCHAR* parameters, const WCHAR* directory,
                             BOOL showError);
