#include <quorvel/keyboard/shortcut_key.h>

#include <quorvel/keyboard/key_name.h>

#include "platform/win32.h"

namespace {

// Whether most users mean the extended key by this code.
bool IsNamedAsExtended(unsigned short code, bool isExtended) {
    switch (code) {
    case VK_CLEAR:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_END:
    case VK_HOME:
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_INSERT:
    case VK_DELETE:
        return true;
    case VK_RETURN:
        return false;
    default:
        return isExtended;
    }
}

} // namespace

CString CShortcutKey::GetShortcutKeyName(int forceStandardExtendedKeys) const {
    static constexpr struct {
        unsigned char modifier;
        UINT code;
    } kModifiers[] = {
        {MODIFIER_CONTROL, VK_CONTROL}, {MODIFIER_SHIFT, VK_SHIFT}, {MODIFIER_ALT, VK_MENU}};
    CString name;
    if (!IsKeySet())
        return name;
    for (const auto& row : kModifiers)
        if ((m_modifiers & row.modifier) != 0)
            name += AfxGetKeyName(row.code, FALSE) + _T("+");
    const bool isExtended = IsExtendedKey();
    return name +
           AfxGetKeyName(m_virtualKeyCode, forceStandardExtendedKeys != 0
                                               ? IsNamedAsExtended(m_virtualKeyCode, isExtended)
                                               : isExtended);
}

int CShortcutKey::GetModifiersSortingRank() const noexcept {
    // Indexed by the bits of Shift, Ctrl and Alt.
    static constexpr int kRanks[] = {1, 3, 2, 5, 4, 7, 6, 8};
    constexpr int kRankOfNoKey = 9;
    return IsKeySet() ? kRanks[m_modifiers & (MODIFIER_SHIFT | MODIFIER_CONTROL | MODIFIER_ALT)]
                      : kRankOfNoKey;
}
