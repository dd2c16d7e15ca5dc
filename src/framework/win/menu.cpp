#include <quorvel/framework/win/menu.h>

#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/wnd.h>

#include "framework/handle_map.h"

#include <utility>

IMPLEMENT_DYNAMIC(CMenu, CObject)

namespace {

struct MenuTraits {
    typedef CMenu Object;
    typedef HMENU Handle;
    static CMenu* Make(HMENU handle) {
        CMenu* const menu = new CMenu;
        menu->m_hMenu = handle;
        return menu;
    }
    static void Release(CMenu* menu) { menu->m_hMenu = nullptr; }
    static bool IsAlive(HMENU menu) { return ::IsMenu(menu) != FALSE; }
};

quorvel::HandleMap<MenuTraits>& Menus() {
    return quorvel::ThreadState<quorvel::HandleMap<MenuTraits>>();
}

} // namespace

CMenu::CMenu() : m_hMenu(nullptr) {}

CMenu::~CMenu() {
    DestroyMenu();
}

CMenu* CMenu::FromHandle(HMENU menu) {
    return menu != nullptr ? Menus().FindOrMake(menu) : nullptr;
}

BOOL CMenu::Attach(HMENU menu) {
    if (menu == nullptr || m_hMenu != nullptr || !Menus().AddPermanent(menu, this))
        return FALSE;
    m_hMenu = menu;
    return TRUE;
}

HMENU CMenu::Detach() {
    const HMENU menu = std::exchange(m_hMenu, nullptr);
    if (menu != nullptr)
        Menus().RemovePermanent(menu);
    return menu;
}

BOOL CMenu::DestroyMenu() {
    const HMENU menu = Detach();
    return menu != nullptr && ::DestroyMenu(menu);
}

BOOL CMenu::LoadMenu(const WCHAR* name) {
    return m_hMenu == nullptr && Attach(::LoadMenuW(AfxFindResourceHandle(name, RT_MENU), name));
}

int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const {
    const int length = ::GetMenuStringW(m_hMenu, item, nullptr, 0, flags);
    ::GetMenuStringW(m_hMenu, item, text.GetBuffer(length), length + 1, flags);
    text.ReleaseBuffer();
    return text.GetLength();
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const RECT*) {
    return ::TrackPopupMenu(m_hMenu, flags, x, y, 0, owner != nullptr ? owner->m_hWnd : nullptr,
                            nullptr);
}
