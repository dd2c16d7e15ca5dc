// CMenu: a menu. Windows only.
//
// An object that loaded, created or attached a menu owns it and is its permanent object on this
// thread. FromHandle and GetSubMenu return temporary objects otherwise: use them at once, do not
// store them.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

class CWnd;

class QUORVEL_API CMenu : public CObject {
    DECLARE_DYNAMIC(CMenu)
public:
    CMenu();
    ~CMenu() override; // destroys its menu, if any

    HMENU m_hMenu;                                 // null without a menu
    HMENU GetSafeHmenu() const { return m_hMenu; } // null without a menu
    static CMenu* FromHandle(HMENU menu);          // null for a null handle

    // Returns FALSE and changes nothing for a null handle, when there already is a menu, and when
    // the menu has another object.
    BOOL Attach(HMENU menu);
    HMENU Detach();     // the caller then owns it
    BOOL DestroyMenu(); // FALSE without a menu

    // Each returns FALSE when this object has a menu. Resources are searched along the resource
    // chain, so a language library's menu is used.
    BOOL CreateMenu() { return Attach(m_hMenu == nullptr ? ::CreateMenu() : nullptr); }
    BOOL CreatePopupMenu() { return Attach(m_hMenu == nullptr ? ::CreatePopupMenu() : nullptr); }
    BOOL LoadMenu(const WCHAR* name);
    BOOL LoadMenu(UINT id) { return LoadMenu(MAKEINTRESOURCEW(id)); }

    // Each of the following members calls the platform's function of the same name. MF_BYPOSITION
    // or MF_BYCOMMAND in `flags` says whether `item` is a position or a command id.
    int GetMenuItemCount() const { return ::GetMenuItemCount(m_hMenu); }
    UINT GetMenuItemID(int position) const { return ::GetMenuItemID(m_hMenu, position); }
    UINT GetMenuState(UINT item, UINT flags) const { return ::GetMenuState(m_hMenu, item, flags); }
    int GetMenuString(UINT item, CString& text, UINT flags) const;
    CMenu* GetSubMenu(int position) const { return FromHandle(::GetSubMenu(m_hMenu, position)); }
    BOOL GetMenuItemInfo(UINT item, MENUITEMINFOW* info, BOOL byPosition = FALSE) const {
        return ::GetMenuItemInfoW(m_hMenu, item, byPosition, info);
    }
    BOOL SetMenuItemInfo(UINT item, const MENUITEMINFOW* info, BOOL byPosition = FALSE) {
        return ::SetMenuItemInfoW(m_hMenu, item, byPosition, info);
    }

    // Each calls the platform's function. DeleteMenu destroys a sub-menu of the item, RemoveMenu
    // does not.
    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const WCHAR* text = nullptr) {
        return ::AppendMenuW(m_hMenu, flags, id, text);
    }
    BOOL InsertMenu(UINT item, UINT flags, UINT_PTR id = 0, const WCHAR* text = nullptr) {
        return ::InsertMenuW(m_hMenu, item, flags, id, text);
    }
    BOOL ModifyMenu(UINT item, UINT flags, UINT_PTR id = 0, const WCHAR* text = nullptr) {
        return ::ModifyMenuW(m_hMenu, item, flags, id, text);
    }
    BOOL DeleteMenu(UINT item, UINT flags) { return ::DeleteMenu(m_hMenu, item, flags); }
    BOOL RemoveMenu(UINT item, UINT flags) { return ::RemoveMenu(m_hMenu, item, flags); }

    // Each calls the platform's function. An item that does not exist gives UINT(-1), or FALSE.
    UINT CheckMenuItem(UINT item, UINT check) { return ::CheckMenuItem(m_hMenu, item, check); }
    BOOL CheckMenuRadioItem(UINT first, UINT last, UINT item, UINT flags) {
        return ::CheckMenuRadioItem(m_hMenu, first, last, item, flags);
    }
    BOOL EnableMenuItem(UINT item, UINT enable) { return ::EnableMenuItem(m_hMenu, item, enable); }
    BOOL SetDefaultItem(UINT item, BOOL byPosition = FALSE) {
        return ::SetMenuDefaultItem(m_hMenu, item, static_cast<UINT>(byPosition));
    }
    UINT GetDefaultItem(UINT flags = 0, BOOL byPosition = FALSE) const {
        return ::GetMenuDefaultItem(m_hMenu, static_cast<UINT>(byPosition), flags);
    }

    // Shows a pop-up menu at a point of the screen until it closes. `owner` gets its messages. With
    // TPM_RETURNCMD the result is the command, or 0 when the user chose no item; otherwise the
    // owner gets WM_COMMAND. The owner may have been destroyed when this returns.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const RECT* = nullptr);
};
