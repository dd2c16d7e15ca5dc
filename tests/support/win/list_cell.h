// The text of a cell as the list-view shows it. Windows only.
#pragma once

#include <quorvel/framework/string.h>

#include <commctrl.h>

inline CString CellOf(HWND list, int row, int column) {
    WCHAR text[260] = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 260;
    ::SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return text;
}
