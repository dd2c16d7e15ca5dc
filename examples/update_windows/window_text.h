// What a window shows, read back from its controls.
#pragma once

#include <quorvel/framework/string.h>

// Prints the title and then the controls in the order of Tab: a label and what it names in one
// line, a line for each row of a list, and the buttons that follow one another in one line.
void PrintControls(HWND window);
