#include <quorvel/keyboard/win/menu_shortcuts.h>

#include <quorvel/keyboard/menu_text.h>

#include "keyboard/resource_reader.h"
#include "keyboard/shortcuts_by_command.h"

namespace {

// The text of an item, empty for a separator. `info` receives its id and its submenu.
CString TextOf(HMENU menu, int position, MENUITEMINFOW& info) {
    info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_SUBMENU | MIIM_STRING | MIIM_FTYPE;
    CString text;
    if (!::GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info) || info.cch == 0)
        return text;
    ++info.cch; // includes the terminator
    info.dwTypeData = text.GetBuffer(static_cast<int>(info.cch));
    ::GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    text.ReleaseBuffer();
    return text;
}

int UpdateMenu(HMENU menu, const quorvel::ShortcutsByCommand& shortcuts) {
    int changed = 0;
    const int count = ::GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        MENUITEMINFOW info;
        const CString text = TextOf(menu, position, info);
        if (info.hSubMenu != nullptr) {
            changed += UpdateMenu(info.hSubMenu, shortcuts);
            continue;
        }
        const CKeyboardShortcut* const shortcut = shortcuts.Find(info.wID);
        if (text.IsEmpty() || shortcut == nullptr)
            continue;
        CString updated = AfxGetMenuTextWithShortcut(text, shortcut->GetShortcutKey());
        if (updated == text)
            continue;
        info.fMask = MIIM_STRING;
        info.dwTypeData = updated.GetBuffer();
        changed += ::SetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info) != FALSE;
    }
    return changed;
}

int AddCommands(HMENU menu, CKeyboardMappingScheme& scheme) {
    int added = 0;
    const int count = ::GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        MENUITEMINFOW info;
        const CString label = quorvel::LabelOf(TextOf(menu, position, info));
        if (info.hSubMenu != nullptr)
            added += AddCommands(info.hSubMenu, scheme);
        else if (!label.IsEmpty() && scheme.FindCommandID(info.wID) < 0)
            added += scheme.AddKeyboardShortcut({info.wID, label, CShortcutKey()});
    }
    return added;
}

} // namespace

int AfxUpdateMenuShortcuts(CMenu& menu, const CKeyboardMappingScheme& scheme) {
    return menu.m_hMenu != nullptr ? UpdateMenu(menu.m_hMenu, quorvel::ShortcutsByCommand(scheme))
                                   : 0;
}

int AfxAddMenuCommands(const CMenu& menu, CKeyboardMappingScheme& scheme) {
    return menu.m_hMenu != nullptr ? AddCommands(menu.m_hMenu, scheme) : 0;
}
