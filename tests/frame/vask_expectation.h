// What the application object is given of a box, which the systems decide differently.
#pragma once

#include <quorvel/framework/string.h>

// Null: no heading, no check box.
CString ShownText(const WCHAR* heading, const WCHAR* text, const WCHAR* checkBox, int checkState);
