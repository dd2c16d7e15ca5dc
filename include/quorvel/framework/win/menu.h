// CMenu: a menu handle and the object that stands for it. Windows only.
//
// An object that loaded, created or attached a menu owns it and is its permanent object on this
// thread; one that FromHandle or GetSubMenu returns is temporary, to be used at once and not
// stored.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

class CWnd;

class QUORVEL_API CMenu : public CObject {
    DECLARE_DYNAMIC(CMenu)
public:
    CMenu();
    ~CMenu() override; // destroys the menu that it still has

    HMENU m_hMenu; // null when there is none
    HMENU GetSafeHmenu() const { return m_hMenu; }
    static CMenu* FromHandle(HMENU menu); // null for a null handle

    // FALSE, and nothing changed, for a null handle, when there is a menu already and when the menu
    // has another object.
    BOOL Attach(HMENU menu);
    HMENU Detach(); // the caller's from here on
    BOOL DestroyMenu();

    // Each is FALSE when this object has a menu. A resource is found along the resource chain, so
    // that a language library's menu is loaded.
    BOOL CreateMenu() { return Attach(m_hMenu == nullptr ? ::CreateMenu() : nullptr); }
    BOOL CreatePopupMenu() { return Attach(m_hMenu == nullptr ? ::CreatePopupMenu() : nullptr); }
    BOOL LoadMenu(const WCHAR* name);
    BOOL LoadMenu(UINT id) { return LoadMenu(MAKEINTRESOURCEW(id)); }

    // Each of the rest forwards to the platform's function of its name; `flags` say by
    // MF_BYPOSITION or MF_BYCOMMAND what an item is named by.
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
    // TPM_RETURNCMD the result is the command, 0 when none was chosen; otherwise the owner gets
    // WM_COMMAND. The owner may be gone when this returns.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const RECT* = nullptr);
};
