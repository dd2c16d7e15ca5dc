// The keyboard layout (US on both systems) and collation.
#include "platform/win32.h"

#include "support/test.h"

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
        {VK_CONTROL, 0x1d, _T("Ctrl"), _T("Right Ctrl"), 0},
        {VK_PAUSE, 0, _T(""), _T(""), 0},
        {VK_ESCAPE, 0x01, _T("Esc"), _T("\x1b"), 27},
        {VK_PRIOR, 0x49, _T("Num 9"), _T("Page Up"), 0},
        {'A', 0x1e, _T("A"), _T("A"), 'A'},
        {VK_DIVIDE, 0x35, _T("/"), _T("Num /"), '/'},
        {VK_F24, 0x76, _T(""), _T(""), 0},
        {VK_NUMLOCK, 0x45, _T("Pause"), _T("Num Lock"), 0},
        {173, 0x20, _T("D"), _T("D"), 0},
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
    constexpr LONG kCtrl = 0x001d0000;
    WCHAR text[8] = _T("*******");
    EXPECT_EQ(GetKeyNameTextW(kCtrl, text, 0), 0);
    EXPECT_EQ(text[0], '*');
    EXPECT_EQ(GetKeyNameTextW(kCtrl, text, 4), 3);
    EXPECT_EQ(CString(text), _T("Ctr"));
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
    const auto typed = [](UINT code, bool shift, bool control, bool alt) {
        BYTE state[256] = {};
        state[VK_SHIFT] = shift ? 0x80 : 0;
        state[VK_CONTROL] = control ? 0x80 : 0;
        state[VK_MENU] = alt ? 0x80 : 0;
        WCHAR text[4] = {};
        const int count = ToUnicode(code, MapVirtualKeyW(code, MAPVK_VK_TO_VSC), state, text, 4, 0);
        return count == 1 ? text[0] : count;
    };
    // Windows types the last three, and so does the Linux build; Wine has no characters for them.
    const bool isWithoutThem = !kOnLinux && typed(VK_NUMPAD0, false, false, false) == 0;
    // Ctrl+Alt is no AltGr on this layout.
    ExpectCases<int>({
        CASE(typed('A', false, false, false), 'a'),
        CASE(typed('A', true, false, false), 'A'),
        CASE(typed('A', false, true, false), 1),
        CASE(typed('A', false, true, true), 0),
        CASE(typed('2', true, false, false), '@'),
        CASE(typed(VK_F5, false, false, false), 0),
        CASE(typed(VK_SPACE, true, false, false), ' '),
        CASE(typed(VK_NUMPAD9, true, false, false), 0),
        CASE(typed(VK_DIVIDE, true, false, false), '/'),
        CASE(typed(VK_DIVIDE, false, true, false), 0),
        CASE(typed(VK_NUMPAD9, false, false, false), isWithoutThem ? 0 : '9'),
        CASE(typed(VK_DECIMAL, false, false, false), isWithoutThem ? 0 : '.'),
        CASE(typed(VK_OEM_102, true, false, false), isWithoutThem ? 0 : '|'),
    });
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
        CASE(order(_T("z"), _T("\x00e4")), 1),
        CASE(CompareStringW(LOCALE_USER_DEFAULT, 0, _T("ab"), 1, _T("ac"), 1), int{CSTR_EQUAL}),
    });
    EXPECT_EQ(ErrorOf([] { return CompareStringW(LOCALE_USER_DEFAULT, 0, nullptr, 1, _T(""), 0); }),
              DWORD{ERROR_INVALID_PARAMETER});
}
