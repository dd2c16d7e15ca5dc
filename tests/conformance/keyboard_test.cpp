// The keyboard layout (US on both systems) and collation.
#include "platform/win32.h"

#include "support/test.h"

#include <array>

namespace {

// As the library calls it: a code without a scan code has no name.
CString NameOf(UINT code, bool isExtended) {
    WCHAR name[260] = {};
    const UINT scanCode = MapVirtualKeyW(code, MAPVK_VK_TO_VSC) | (isExtended ? 0x100 : 0);
    GetKeyNameTextW(static_cast<LONG>(scanCode << 16), name, 260);
    return name;
}

} // namespace

TEST(Keyboard, KeysHaveScanCodesNamesAndCharacters) {
    // The code, its scan code, its name, its name as an extended key, and its character.
    const std::tuple<UINT, UINT, const WCHAR*, const WCHAR*, UINT> rows[] = {
        {VK_BACK, 0x0e, _T("Backspace"), _T("\b"), 8},
        {VK_CLEAR, 0x4c, _T("Num 5"), _T(""), 0},
        {VK_RETURN, 0x1c, _T("Enter"), _T("Num Enter"), 13},
        {VK_PAUSE, 0, _T(""), _T(""), 0},
        {VK_ESCAPE, 0x01, _T("Esc"), _T("\x1b"), 27},
        {'A', 0x1e, _T("A"), _T("A"), 'A'},
        {VK_DIVIDE, 0x35, _T("/"), _T("Num /"), '/'},
        {VK_F24, 0x76, _T(""), _T(""), 0},
        {VK_NUMLOCK, 0x45, _T("Pause"), _T("Num Lock"), 0},
        {VK_OEM_102, 0x56, _T("\\"), _T("Help"), '\\'},
        {256 + 'A', 0, _T(""), _T(""), 0}};
    for (const auto& [code, scanCode, name, extendedName, character] : rows) {
        EXPECT_EQ(MapVirtualKeyW(code, MAPVK_VK_TO_VSC), scanCode) << code;
        EXPECT_EQ(MapVirtualKeyW(code, MAPVK_VK_TO_CHAR), character) << code;
        EXPECT_EQ(NameOf(code, false), name) << code;
        EXPECT_EQ(NameOf(code, true), extendedName) << code;
    }
}

TEST(Keyboard, NamesAreCutToTheBuffer) {
    WCHAR text[8] = _T("*******");
    EXPECT_EQ(GetKeyNameTextW(0x001d0000, text, 4), 3);
    EXPECT_EQ(CString(text, 5), CString(_T("Ctr\0*"), 5));
    // Wine counts the zero that it writes for a key without a name.
    EXPECT_EQ(GetKeyNameTextW(0, text, 8), kOnLinux ? 0 : 1);
}

TEST(Keyboard, CharactersHaveKeys) {
    ExpectCases<int>(
        {CASE(VkKeyScanW('a'), 0x41), CASE(VkKeyScanW('Z'), 0x15a), CASE(VkKeyScanW('2'), 0x32),
         CASE(VkKeyScanW('"'), 0x1de), CASE(VkKeyScanW('\\'), 0xdc), CASE(VkKeyScanW(' '), 0x20),
         CASE(VkKeyScanW(0), 0x332), CASE(VkKeyScanW(3), 3), CASE(VkKeyScanW(26), 0x25a),
         CASE(VkKeyScanW(127), 0x208), CASE(VkKeyScanW(0x80), -1), CASE(VkKeyScanW(0xe9), -1),
         CASE(VkKeyScanW(0x20ac), -1)});
}

TEST(Keyboard, KeysTypeCharactersWithModifiers) {
    // The character without a modifier, with Shift, with Ctrl, and with Ctrl+Alt, which is no AltGr
    // on this layout. Windows types the last three, and so does the Linux build; Wine does not.
    const int missing = kOnLinux ? 1 : 0;
    const std::tuple<UINT, std::array<int, 4>> rows[] = {
        {'A', {'a', 'A', 1, 0}},
        {VK_SPACE, {' ', ' ', ' ', 0}},
        {VK_F5, {0, 0, 0, 0}},
        {VK_DIVIDE, {'/', '/', 0, 0}},
        {VK_NUMPAD9, {missing * '9', 0, 0, 0}},
        {VK_DECIMAL, {missing * '.', 0, 0, 0}},
        {VK_OEM_102, {missing * '\\', missing * '|', missing * 0x1c, 0}},
    };
    for (const auto& [code, characters] : rows)
        for (std::size_t modifiers = 0; modifiers < 4; ++modifiers) {
            BYTE state[256] = {};
            state[VK_SHIFT] = modifiers == 1 ? 0x80 : 0;
            state[VK_CONTROL] = modifiers >= 2 ? 0x80 : 0;
            state[VK_MENU] = modifiers == 3 ? 0x80 : 0;
            WCHAR text[4] = {};
            const UINT scanCode = MapVirtualKeyW(code, MAPVK_VK_TO_VSC);
            const int count = ToUnicode(code, scanCode, state, text, 4, 0);
            EXPECT_EQ(count == 1 ? text[0] : count, characters[modifiers]) << code;
        }
}

TEST(Collation, OrdersTextsForPeople) {
    const auto order = [](const WCHAR* first, const WCHAR* second) {
        return CompareStringW(LOCALE_USER_DEFAULT, 0, first, -1, second, -1) - CSTR_EQUAL;
    };
    ExpectCases<int>({
        CASE(order(_T("a"), _T("B")), -1),
        CASE(order(_T("a"), _T("A")), -1),
        CASE(order(_T("Ab"), _T("aa")), 1),
        CASE(order(_T("\x00e4"), _T("b")), -1),
        CASE(CompareStringW(LOCALE_USER_DEFAULT, 0, _T("ab"), 1, _T("ac"), 1), int{CSTR_EQUAL}),
    });
}
