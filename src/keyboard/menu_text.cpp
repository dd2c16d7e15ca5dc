#include <quorvel/keyboard/menu_text.h>

#include "keyboard/command_names.h"

CString AfxGetMenuTextWithShortcut(const WCHAR* text, const CShortcutKey& key) {
    const CString whole(text);
    const int tab = whole.Find('\t');
    const CString label = tab < 0 ? whole : whole.Left(tab);
    CString name = key.IsKeySet() ? quorvel::DisplayName(key) : CString();
    name.Replace(_T("&"), _T("&&")); // a single one would underline the next letter
    return name.IsEmpty() ? label : label + _T("\t") + name;
}
