#include "common/console.h"

#include <shellapi.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <memory>

std::vector<CString> ProgramArguments(int, char**) {
    int count = 0;
    const std::unique_ptr<WCHAR*, decltype(&LocalFree)> words(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    std::vector<CString> arguments;
    for (int i = 1; i < count; ++i)
        arguments.emplace_back(words.get()[i]);
    return arguments;
}

void UsePlainStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}
