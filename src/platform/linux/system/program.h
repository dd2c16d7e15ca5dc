// Runs other programs without a shell.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace quorvel {

struct ProgramRun {
    enum End {
        NotStarted,  // the program is missing or may not be run
        Refused,     // the arguments are too long, or memory is short
        Exited,      // with `exitCode`
        Interrupted, // by the user, at the terminal
        Killed,
        StillRunning
    };
    End end;
    int exitCode; // of Exited only
};

// Runs the program of the first argument, which is searched in PATH, with the other arguments, in
// `folder` (empty: the current one), with this process's standard input and output. Waits for its
// end, at most `patience`, and then lets it continue. Any thread.
ProgramRun RunProgram(const std::vector<std::string>& arguments, const std::string& folder,
                      std::chrono::milliseconds patience);

// Creates a folder, accessible only to its owner, in the folder for temporary files. Empty with the
// last error set on failure.
std::string NewPrivateFolder(const char* prefix);

} // namespace quorvel
