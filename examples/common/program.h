// The frame of a console program: how it ends, and what it says then.
#pragma once

#include "common/console.h"

#include <functional>

// What ends the program: its exit code and one line for the user.
struct Failure {
    int code;
    CString text;
};

// Runs the program's body and returns the exit code. Prints failures and all other exceptions on
// standard error, after the program's name. The other exceptions, and standard output that cannot
// be written, end the program with `failedCode`.
int RunProgram(const WCHAR* name, int failedCode, const std::function<int()>& body);
