// The frame of a console program: how it ends, and what it says then.
#pragma once

#include "common/console.h"

#include <functional>

// What ends the program: its exit code and one line for the user.
struct Failure {
    int code;
    CString text;
};

// Runs the program's body and gives the exit code. Failures, and all other exceptions, are told on
// standard error behind the program's name; the others, and standard output that cannot be written,
// end it with `failedCode`.
int RunProgram(const WCHAR* name, int failedCode, const std::function<int()>& body);
