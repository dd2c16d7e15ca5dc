// Texts from the program's string table, in its language.
#pragma once

#include <quorvel/framework/string.h>

inline CString TextOf(UINT id) {
    CString text;
    text.LoadString(id);
    return text;
}

template <class... Inserts>
CString TextOf(UINT id, const Inserts&... inserts) {
    CString text;
    text.FormatMessage(TextOf(id), inserts...);
    return text;
}

inline CString NumberText(int number) {
    CString text;
    text.Format(_T("%d"), number);
    return text;
}
