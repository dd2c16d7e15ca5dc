#include <quorvel/keyboard/win/menu_shortcuts.h>

#include <quorvel/keyboard/menu_text.h>

#include "keyboard/shortcuts_by_command.h"

namespace {

int UpdateMenu(HMENU menu, const quorvel::ShortcutsByCommand& shortcuts) {
    int changed = 0;
    const int count = ::GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        MENUITEMINFOW info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_ID | MIIM_SUBMENU | MIIM_STRING | MIIM_FTYPE;
        if (!::GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info))
            continue;
        if (info.hSubMenu != nullptr) {
            changed += UpdateMenu(info.hSubMenu, shortcuts);
            continue;
        }
        const CKeyboardShortcut* const shortcut = shortcuts.Find(info.wID);
        if (info.cch == 0 || shortcut == nullptr)
            continue;
        CString text;
        ++info.cch; // includes the terminator
        info.dwTypeData = text.GetBuffer(static_cast<int>(info.cch));
        ::GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
        text.ReleaseBuffer();
        CString updated = AfxGetMenuTextWithShortcut(text, shortcut->GetShortcutKey());
        if (updated == text)
            continue;
        info.fMask = MIIM_STRING;
        info.dwTypeData = updated.GetBuffer();
        changed += ::SetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info) != FALSE;
    }
    return changed;
}

} // namespace

int AfxUpdateMenuShortcuts(CMenu& menu, const CKeyboardMappingScheme& scheme) {
    return menu.m_hMenu != nullptr ? UpdateMenu(menu.m_hMenu, quorvel::ShortcutsByCommand(scheme))
                                   : 0;
}
