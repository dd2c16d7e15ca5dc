#include "common/console.h"

std::vector<CString> ProgramArguments(int argc, char** argv) {
    std::vector<CString> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.emplace_back(argv[i]); // the active code page is UTF-8
    return arguments;
}

void UsePlainStreams() {}
