#include <quorvel/framework/string.h>

#include "platform/win32.h"

int AfxLoadString(UINT, LPWSTR text, UINT maxChars) {
    if (maxChars > 0)
        *text = 0;
    return 0;
}
