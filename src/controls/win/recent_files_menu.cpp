#include <quorvel/controls/win/recent_files_menu.h>

void AfxShowRecentFiles(CMenu& menu, const CRecentFiles& files, UINT firstCommand,
                        const WCHAR* textWithoutFiles) {
    while (menu.GetMenuItemCount() > 0 && menu.DeleteMenu(0, MF_BYPOSITION)) {
    }
    for (int i = 0; i < files.GetCount(); ++i) {
        CString path = files.GetFile(i), text;
        path.Replace(_T("&"), _T("&&"));
        text.Format(i < 9 ? _T("&%d %s") : _T("%d %s"), i + 1, path.GetString());
        menu.AppendMenu(MF_STRING, firstCommand + static_cast<UINT>(i), text);
    }
    if (files.GetCount() == 0)
        menu.AppendMenu(MF_STRING | MF_GRAYED, firstCommand, textWithoutFiles);
}
