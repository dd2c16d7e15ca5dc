// Other programs, run without a shell.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace quorvel {

struct ProgramRun {
    enum End {
        NotStarted,  // there is no such program, or it may not be run
        Exited,      // with `exitCode`
        Interrupted, // by the user, at the terminal
        Killed,
        StillRunning
    };
    End end;
    int exitCode; // of Exited only
};

// Runs the program of the first argument, which is searched in PATH, with the others, in the folder
// (empty: the current one) and with standard input and output as they are. Waits for its end, at
// most for so long; a program that runs on is left to itself. Any thread.
ProgramRun RunProgram(const std::vector<std::string>& arguments, const std::string& folder,
                      std::chrono::milliseconds patience);

// A new folder for its owner alone, in the folder for temporary files; empty on failure, with the
// last error set.
std::string NewPrivateFolder(const char* prefix);

} // namespace quorvel
