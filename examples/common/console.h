// What a console program needs of the system it runs on.
#pragma once

#include <quorvel/framework/string.h>

#include <cstdio>
#include <vector>

// The arguments that main was called with, without the program's name. On Windows main gets them in
// the active code page, which cannot hold every character: there they are asked for once more.
std::vector<CString> ProgramArguments(int argc, char** argv);

// From now on standard input and output pass bytes as they are, and the console takes UTF-8.
void UsePlainStreams();

// The line as UTF-8, and a line end.
void Print(std::FILE* stream, const CString& line);
