#include "platform/linux/keyboard/keyboard_layout.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace quorvel {
namespace {

struct Key {
    BYTE code;
    BYTE scan;
    WCHAR character;
};
// clang-format off: a key has more than one code, and a scan code belongs to the first that has it
constexpr Key kKeys[] = {
    {3, 0x46, 3},      {8, 0x0e, 8},      {9, 0x0f, 9},     {12, 0x4c, 0},     {13, 0x1c, 13},
    {16, 0x2a, 0},     {17, 0x1d, 0},     {18, 0x38, 0},    {20, 0x3a, 0},     {27, 0x01, 27},
    {32, 0x39, ' '},   {33, 0x49, 0},     {34, 0x51, 0},    {35, 0x4f, 0},     {36, 0x47, 0},
    {37, 0x4b, 0},     {38, 0x48, 0},     {39, 0x4d, 0},    {40, 0x50, 0},     {44, 0x54, 0},
    {45, 0x52, 0},     {46, 0x53, 0},     {47, 0x63, 0},    {'0', 0x0b, '0'},  {'1', 0x02, '1'},
    {'2', 0x03, '2'},  {'3', 0x04, '3'},  {'4', 0x05, '4'}, {'5', 0x06, '5'},  {'6', 0x07, '6'},
    {'7', 0x08, '7'},  {'8', 0x09, '8'},  {'9', 0x0a, '9'}, {'A', 0x1e, 'A'},  {'B', 0x30, 'B'},
    {'C', 0x2e, 'C'},  {'D', 0x20, 'D'},  {'E', 0x12, 'E'}, {'F', 0x21, 'F'},  {'G', 0x22, 'G'},
    {'H', 0x23, 'H'},  {'I', 0x17, 'I'},  {'J', 0x24, 'J'}, {'K', 0x25, 'K'},  {'L', 0x26, 'L'},
    {'M', 0x32, 'M'},  {'N', 0x31, 'N'},  {'O', 0x18, 'O'}, {'P', 0x19, 'P'},  {'Q', 0x10, 'Q'},
    {'R', 0x13, 'R'},  {'S', 0x1f, 'S'},  {'T', 0x14, 'T'}, {'U', 0x16, 'U'},  {'V', 0x2f, 'V'},
    {'W', 0x11, 'W'},  {'X', 0x2d, 'X'},  {'Y', 0x15, 'Y'}, {'Z', 0x2c, 'Z'},  {91, 0x5b, 0},
    {92, 0x5c, 0},     {93, 0x5d, 0},     {95, 0x5f, 0},    {96, 0x52, '0'},   {97, 0x4f, '1'},
    {98, 0x50, '2'},   {99, 0x51, '3'},   {100, 0x4b, '4'}, {101, 0x4c, '5'},  {102, 0x4d, '6'},
    {103, 0x47, '7'},  {104, 0x48, '8'},  {105, 0x49, '9'}, {106, 0x37, '*'},  {107, 0x4e, '+'},
    {109, 0x4a, '-'},  {110, 0x53, '.'},  {111, 0x35, '/'}, {112, 0x3b, 0},    {113, 0x3c, 0},
    {114, 0x3d, 0},    {115, 0x3e, 0},    {116, 0x3f, 0},   {117, 0x40, 0},    {118, 0x41, 0},
    {119, 0x42, 0},    {120, 0x43, 0},    {121, 0x44, 0},   {122, 0x57, 0},    {123, 0x58, 0},
    {124, 0x64, 0},    {125, 0x65, 0},    {126, 0x66, 0},   {127, 0x67, 0},    {128, 0x68, 0},
    {129, 0x69, 0},    {130, 0x6a, 0},    {131, 0x6b, 0},   {132, 0x6c, 0},    {133, 0x6d, 0},
    {134, 0x6e, 0},    {135, 0x76, 0},    {144, 0x45, 0},   {145, 0x46, 0},    {160, 0x2a, 0},
    {161, 0x36, 0},    {162, 0x1d, 0},    {163, 0x1d, 0},   {164, 0x38, 0},    {165, 0x38, 0},
    {166, 0x6a, 0},    {167, 0x69, 0},    {168, 0x67, 0},   {169, 0x68, 0},    {170, 0x65, 0},
    {171, 0x66, 0},    {172, 0x32, 0},    {173, 0x20, 0},   {174, 0x2e, 0},    {175, 0x30, 0},
    {176, 0x19, 0},    {177, 0x10, 0},    {178, 0x24, 0},   {179, 0x22, 0},    {180, 0x6c, 0},
    {181, 0x6d, 0},    {182, 0x6b, 0},    {183, 0x21, 0},   {186, 0x27, ';'},  {187, 0x0d, '='},
    {188, 0x33, ','},  {189, 0x0c, '-'},  {190, 0x34, '.'}, {191, 0x35, '/'},  {192, 0x29, '`'},
    {193, 0x73, 0},    {194, 0x7e, 0},    {219, 0x1a, '['}, {220, 0x2b, '\\'}, {221, 0x1b, ']'},
    {222, 0x28, '\''}, {226, 0x56, '\\'}, {233, 0x71, 0},   {234, 0x5c, 0},    {235, 0x7b, 0},
    {237, 0x6f, 0},    {238, 0x5a, 0},    {241, 0x5b, 0},   {243, 0x5f, 0},    {245, 0x5e, 0},
    {249, 0x5d, 0},    {251, 0x62, 0},
};
// clang-format on

struct Name {
    int key; // the scan code, and kExtended
    const WCHAR* text;
};
constexpr int kExtended = 0x100;
// The layout's own key names. Every other key that types a character has that character as name.
// clang-format off
constexpr Name kNames[] = {
    {0x01, u"Esc"}, {0x0e, u"Backspace"}, {0x0f, u"Tab"}, {0x1c, u"Enter"}, {0x1d, u"Ctrl"}, {0x2a, u"Shift"},
    {0x36, u"Right Shift"}, {0x37, u"Num *"}, {0x38, u"Alt"}, {0x39, u"Space"}, {0x3a, u"Caps Lock"},
    {0x3b, u"F1"}, {0x3c, u"F2"}, {0x3d, u"F3"}, {0x3e, u"F4"}, {0x3f, u"F5"}, {0x40, u"F6"}, {0x41, u"F7"},
    {0x42, u"F8"}, {0x43, u"F9"}, {0x44, u"F10"}, {0x45, u"Pause"}, {0x46, u"Scroll Lock"}, {0x47, u"Num 7"},
    {0x48, u"Num 8"}, {0x49, u"Num 9"}, {0x4a, u"Num -"}, {0x4b, u"Num 4"}, {0x4c, u"Num 5"}, {0x4d, u"Num 6"},
    {0x4e, u"Num +"}, {0x4f, u"Num 1"}, {0x50, u"Num 2"}, {0x51, u"Num 3"}, {0x52, u"Num 0"},
    {0x53, u"Num Del"}, {0x54, u"Sys Req"}, {0x57, u"F11"}, {0x58, u"F12"}, {0x7c, u"F13"}, {0x7d, u"F14"},
    {0x7e, u"F15"}, {0x7f, u"F16"},
    {kExtended | 0x1c, u"Num Enter"}, {kExtended | 0x1d, u"Right Ctrl"}, {kExtended | 0x35, u"Num /"},
    {kExtended | 0x37, u"Prnt Scrn"}, {kExtended | 0x38, u"Right Alt"}, {kExtended | 0x45, u"Num Lock"},
    {kExtended | 0x46, u"Break"}, {kExtended | 0x47, u"Home"}, {kExtended | 0x48, u"Up"},
    {kExtended | 0x49, u"Page Up"}, {kExtended | 0x4b, u"Left"}, {kExtended | 0x4d, u"Right"},
    {kExtended | 0x4f, u"End"}, {kExtended | 0x50, u"Down"}, {kExtended | 0x51, u"Page Down"},
    {kExtended | 0x52, u"Insert"}, {kExtended | 0x53, u"Delete"}, {kExtended | 0x54, u"<00>"},
    {kExtended | 0x56, u"Help"}, {kExtended | 0x5b, u"Left Windows"}, {kExtended | 0x5c, u"Right Windows"},
    {kExtended | 0x5d, u"Application"},
};
// clang-format on

// The characters of keys with Shift, except capital letters.
constexpr std::u16string_view kPlainMarks = u"`1234567890-=[]\\;',./";
constexpr std::u16string_view kShiftedMarks = u"~!@#$%^&*()_+{}|:\"<>?";
static_assert(kPlainMarks.size() == kShiftedMarks.size());

// The keys that type a character with Ctrl, except letters, which type the control characters.
struct Control {
    WCHAR character;
    WORD key; // as VkKeyScanW returns it
};
constexpr Control kControls[] = {
    {0, 0x0332},  {3, 0x0003},    {8, 0x0008},    {9, 0x0009},    {13, 0x000d},   {10, 0x020d},
    {27, 0x001b}, {0x1c, 0x02dc}, {0x1d, 0x02dd}, {0x1e, 0x0336}, {0x1f, 0x03bd}, {0x7f, 0x0208},
};

const Key* FindKey(UINT code) {
    const auto key = std::ranges::lower_bound(kKeys, code, {}, &Key::code);
    return key != std::end(kKeys) && key->code == code ? &*key : nullptr;
}

// The code of the key that types a character without modifiers. Excludes the numeric pad.
SHORT PlainCode(WCHAR character) {
    for (const Key& key : kKeys)
        if (key.character == character && (key.code < 96 || key.code > 111))
            return key.code;
    return -1;
}

WCHAR CharacterOfScanCode(int scan) {
    // Excludes keys of the numeric pad: they have names and share scan codes with cursor keys.
    for (const Key& key : kKeys)
        if (key.scan == scan &&
            (key.code < 96 || key.code == 107 || key.code == 109 || key.code > 111))
            return key.code == 3 ? WCHAR(0) : key.character;
    return 0;
}

// The character of a key if VkKeyScanW finds that character on a different key.
WCHAR SecondKeyCharacter(UINT code, int modifiers) {
    constexpr int kShift = 1;
    constexpr int kControl = 2;
    const Key* const key = FindKey(code);
    const bool isOfPad = code >= VK_NUMPAD0 && code <= VK_DIVIDE;
    const bool isSign = isOfPad && code > VK_NUMPAD9 && code != VK_DECIMAL;
    if (key == nullptr || modifiers > kControl)
        return 0;
    if (code == VK_OEM_102)
        return modifiers == 0 ? key->character : modifiers == kShift ? u'|' : u'\x1c';
    const bool isTyped =
        modifiers == 0 ? isOfPad : code == VK_SPACE || (modifiers == kShift && isSign);
    return isTyped ? key->character : WCHAR(0);
}

} // namespace

namespace win32 {

UINT MapVirtualKeyW(UINT code, UINT kind) {
    const Key* const key = FindKey(code);
    if (key == nullptr)
        return 0;
    return kind == MAPVK_VK_TO_VSC ? key->scan : kind == MAPVK_VK_TO_CHAR ? key->character : 0;
}

int GetKeyNameTextW(LONG keyData, LPWSTR name, int size) {
    if (name == nullptr || size < 2)
        return 0;
    const int scan = keyData >> 16 & 0xff;
    const bool isExtended = (keyData >> 16 & kExtended) != 0;
    const auto found = std::ranges::find(kNames, scan | (isExtended ? kExtended : 0), &Name::key);
    const WCHAR character = CharacterOfScanCode(scan);
    std::u16string_view text(&character, character != 0 ? 1 : 0);
    if (found != std::end(kNames))
        text = found->text;
    if (text.empty())
        return 0;
    const std::size_t length = text.copy(name, static_cast<std::size_t>(size) - 1);
    name[length] = 0;
    return static_cast<int>(length);
}

SHORT VkKeyScanW(WCHAR character) {
    constexpr int kShift = 0x0100;
    constexpr int kControl = 0x0200;
    const auto control = std::ranges::find(kControls, character, &Control::character);
    if (control != std::end(kControls))
        return static_cast<SHORT>(control->key);
    if (character < 0x20) // of a letter or of a mark that follows the letters
        return static_cast<SHORT>(PlainCode(static_cast<WCHAR>(character + 0x40)) | kControl);
    if (character >= 'a' && character <= 'z')
        return PlainCode(static_cast<WCHAR>(character - 'a' + 'A'));
    if (character >= 'A' && character <= 'Z')
        return static_cast<SHORT>(PlainCode(character) | kShift);
    const std::size_t shifted = kShiftedMarks.find(character);
    if (shifted != std::u16string_view::npos)
        return static_cast<SHORT>(PlainCode(kPlainMarks[shifted]) | kShift);
    return PlainCode(character);
}

int ToUnicode(UINT code, UINT, const BYTE* state, LPWSTR text, int size, UINT) {
    if (text == nullptr || state == nullptr || size < 1)
        return 0;
    constexpr BYTE kDown = 0x80;
    const int modifiers = ((state[VK_SHIFT] & kDown) != 0 ? 1 : 0) |
                          ((state[VK_CONTROL] & kDown) != 0 ? 2 : 0) |
                          ((state[VK_MENU] & kDown) != 0 ? 4 : 0);
    const WCHAR own = SecondKeyCharacter(code, modifiers);
    if (own != 0) {
        *text = own;
        return 1;
    }
    for (WCHAR character = 1; character < 0x80; ++character)
        if (VkKeyScanW(character) == static_cast<SHORT>(modifiers << 8 | static_cast<int>(code))) {
            *text = character;
            return 1;
        }
    return 0;
}

} // namespace win32
} // namespace quorvel
