// The keyboard layout (US on both systems) and collation.
#include "platform/win32.h"

#include "support/test.h"

#include <type_traits>

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
    const struct {
        UINT code;
        UINT scanCode;
        const WCHAR* name;
        const WCHAR* extendedName;
        UINT character;
    } rows[] = {
        {VK_BACK, 0x0e, _T("Backspace"), _T("\b"), 8},
        {VK_TAB, 0x0f, _T("Tab"), _T("\t"), 9},
        {VK_CLEAR, 0x4c, _T("Num 5"), _T(""), 0},
        {VK_RETURN, 0x1c, _T("Enter"), _T("Num Enter"), 13},
        {VK_SHIFT, 0x2a, _T("Shift"), _T(""), 0},
        {VK_CONTROL, 0x1d, _T("Ctrl"), _T("Right Ctrl"), 0},
        {VK_MENU, 0x38, _T("Alt"), _T("Right Alt"), 0},
        {VK_PAUSE, 0, _T(""), _T(""), 0},
        {VK_CAPITAL, 0x3a, _T("Caps Lock"), _T(""), 0},
        {VK_ESCAPE, 0x01, _T("Esc"), _T("\x1b"), 27},
        {VK_SPACE, 0x39, _T("Space"), _T(" "), ' '},
        {VK_PRIOR, 0x49, _T("Num 9"), _T("Page Up"), 0},
        {VK_DOWN, 0x50, _T("Num 2"), _T("Down"), 0},
        {VK_INSERT, 0x52, _T("Num 0"), _T("Insert"), 0},
        {VK_DELETE, 0x53, _T("Num Del"), _T("Delete"), 0},
        {'0', 0x0b, _T("0"), _T("0"), '0'},
        {'A', 0x1e, _T("A"), _T("A"), 'A'},
        {'Z', 0x2c, _T("Z"), _T("Z"), 'Z'},
        {VK_LWIN, 0x5b, _T(""), _T("Left Windows"), 0},
        {VK_NUMPAD0, 0x52, _T("Num 0"), _T("Insert"), '0'},
        {VK_MULTIPLY, 0x37, _T("Num *"), _T("Prnt Scrn"), '*'},
        {VK_ADD, 0x4e, _T("Num +"), _T("+"), '+'},
        {VK_SUBTRACT, 0x4a, _T("Num -"), _T("-"), '-'},
        {VK_DECIMAL, 0x53, _T("Num Del"), _T("Delete"), '.'},
        {VK_DIVIDE, 0x35, _T("/"), _T("Num /"), '/'},
        {VK_F1, 0x3b, _T("F1"), _T(""), 0},
        {VK_F12, 0x58, _T("F12"), _T(""), 0},
        {VK_F24, 0x76, _T(""), _T(""), 0},
        {VK_NUMLOCK, 0x45, _T("Pause"), _T("Num Lock"), 0},
        {VK_SCROLL, 0x46, _T("Scroll Lock"), _T("Break"), 0},
        {161, 0x36, _T("Right Shift"), _T(""), 0},
        {173, 0x20, _T("D"), _T("D"), 0},
        {VK_OEM_1, 0x27, _T(";"), _T(";"), ';'},
        {VK_OEM_2, 0x35, _T("/"), _T("Num /"), '/'},
        {VK_OEM_3, 0x29, _T("`"), _T("`"), '`'},
        {VK_OEM_102, 0x56, _T("\\"), _T("Help"), '\\'},
        {0, 0, _T(""), _T(""), 0},
        {255, 0, _T(""), _T(""), 0},
        {256 + 'A', 0, _T(""), _T(""), 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(MapVirtualKeyW(row.code, MAPVK_VK_TO_VSC), row.scanCode) << row.code;
        EXPECT_EQ(MapVirtualKeyW(row.code, MAPVK_VK_TO_CHAR), row.character) << row.code;
        EXPECT_EQ(NameOf(row.code, false), row.name) << row.code;
        EXPECT_EQ(NameOf(row.code, true), row.extendedName) << row.code;
    }
}

TEST(Keyboard, NamesAreCutToTheBuffer) {
    const auto name = [](LONG keyData, int size) {
        WCHAR text[8] = _T("*******");
        const int length = GetKeyNameTextW(keyData, text, size);
        return std::pair(length, CString(text, 4));
    };
    constexpr LONG kCtrl = 0x001d0000;
    EXPECT_EQ(name(kCtrl, 8), std::pair(4, CString(_T("Ctrl"))));
    EXPECT_EQ(name(kCtrl, 4), std::pair(3, CString(_T("Ctr\0"), 4)));
    EXPECT_EQ(name(kCtrl, 0), std::pair(0, CString(_T("****"))));
    // Wine counts the zero that it writes for a key without a name.
    EXPECT_EQ(name(0, 8).first, kOnLinux ? 0 : 1);
}

TEST(Keyboard, CharactersHaveKeys) {
    std::string scanned;
    for (int character = 0; character < 0x100; ++character) {
        char code[8];
        std::snprintf(code, sizeof code, "%04x ",
                      static_cast<WORD>(VkKeyScanW(static_cast<WCHAR>(character))));
        scanned += code;
        if (character % 16 == 15)
            scanned.back() = '\n';
    }
    std::string expected =
        "0332 0241 0242 0003 0244 0245 0246 0247 0008 0009 020d 024b 024c 000d 024e 024f\n"
        "0250 0251 0252 0253 0254 0255 0256 0257 0258 0259 025a 001b 02dc 02dd 0336 03bd\n"
        "0020 0131 01de 0133 0134 0135 0137 00de 0139 0130 0138 01bb 00bc 00bd 00be 00bf\n"
        "0030 0031 0032 0033 0034 0035 0036 0037 0038 0039 01ba 00ba 01bc 00bb 01be 01bf\n"
        "0132 0141 0142 0143 0144 0145 0146 0147 0148 0149 014a 014b 014c 014d 014e 014f\n"
        "0150 0151 0152 0153 0154 0155 0156 0157 0158 0159 015a 00db 00dc 00dd 0136 01bd\n"
        "00c0 0041 0042 0043 0044 0045 0046 0047 0048 0049 004a 004b 004c 004d 004e 004f\n"
        "0050 0051 0052 0053 0054 0055 0056 0057 0058 0059 005a 01db 01dc 01dd 01c0 0208\n";
    for (int i = 0; i < 128; ++i)
        expected += i % 16 == 15 ? "ffff\n" : "ffff ";
    EXPECT_EQ(scanned, expected);
    EXPECT_EQ(VkKeyScanW(0x20ac), -1);
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
    ExpectCases<int>({
        CASE(typed('A', false, false, false), 'a'),
        CASE(typed('A', true, false, false), 'A'),
        CASE(typed('A', false, true, false), 1),
        CASE(typed('A', false, true, true), 0), // no AltGr on this layout
        CASE(typed('E', true, true, true), 0),
        CASE(typed('2', true, false, false), '@'),
        CASE(typed(VK_OEM_4, true, false, false), '{'),
        CASE(typed(VK_F5, false, false, false), 0),
        CASE(typed(VK_SPACE, true, false, false), ' '),
        CASE(typed(VK_NUMPAD9, true, false, false), 0),
        CASE(typed(VK_NUMPAD9, false, true, false), 0),
        CASE(typed(VK_MULTIPLY, false, false, false), '*'),
        CASE(typed(VK_ADD, true, false, false), '+'),
        CASE(typed(VK_SUBTRACT, false, false, false), '-'),
        CASE(typed(VK_DIVIDE, true, false, false), '/'),
        CASE(typed(VK_DIVIDE, false, true, false), 0),
        CASE(typed(VK_DECIMAL, true, false, false), 0),
    });
    // Windows types them, and so does the Linux build; Wine has no characters for these keys.
    const bool isWithoutThem =
        std::is_same_v<WCHAR, wchar_t> && typed(VK_NUMPAD0, false, false, false) == 0;
    const auto expected = [isWithoutThem](int character) { return isWithoutThem ? 0 : character; };
    ExpectCases<int>({
        CASE(typed(VK_NUMPAD0, false, false, false), expected('0')),
        CASE(typed(VK_NUMPAD9, false, false, false), expected('9')),
        CASE(typed(VK_DECIMAL, false, false, false), expected('.')),
        CASE(typed(VK_OEM_102, false, false, false), expected('\\')),
        CASE(typed(VK_OEM_102, true, false, false), expected('|')),
        CASE(typed(VK_OEM_102, false, true, false), expected(0x1c)),
    });
}

TEST(Collation, OrdersTextsForPeople) {
    const auto order = [](const WCHAR* first, const WCHAR* second) {
        return CompareStringW(LOCALE_USER_DEFAULT, 0, first, -1, second, -1) - CSTR_EQUAL;
    };
    ExpectCases<int>({
        CASE(order(_T("a"), _T("B")), -1),
        CASE(order(_T("B"), _T("a")), 1),
        CASE(order(_T("a"), _T("A")), -1),
        CASE(order(_T("A"), _T("a")), 1),
        CASE(order(_T("Ab"), _T("aa")), 1), // letters decide before case
        CASE(order(_T("\x00e4"), _T("b")), -1),
        CASE(order(_T("z"), _T("\x00e4")), 1),
        CASE(order(_T("Open"), _T("Open")), 0),
        CASE(order(_T(""), _T("a")), -1),
        CASE(CompareStringW(LOCALE_USER_DEFAULT, 0, _T("ab"), 1, _T("ac"), 1), int{CSTR_EQUAL}),
    });
    EXPECT_EQ(ErrorOf([] { return CompareStringW(LOCALE_USER_DEFAULT, 0, nullptr, 1, _T(""), 0); }),
              DWORD{ERROR_INVALID_PARAMETER});
}
