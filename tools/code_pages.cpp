// code_pages.cpp: prints what the platform answers for each code of each code page, one answer a
// line. Built for both systems: what differs between the two outputs is wrong, or not yet there, in
// src/platform/linux/text/code_page_data.inc.
#ifdef _WIN32
#include <windows.h>
#else
#include <quorvel/platform/linux_api.h>
using namespace quorvel::win32;
using namespace quorvel::win32::constants;
#endif

#include <cstdio>
#include <initializer_list>

namespace {

void PrintUnits(const WCHAR* units, int count) {
    for (int i = 0; i < count; ++i)
        std::printf(" %04x", static_cast<unsigned>(units[i]));
}

// The first unit of each code that is one character, alone and with each flag, where a flag
// changes it.
void PrintDecoding(UINT page, const char* code, int length) {
    WCHAR plain[8];
    const int count = MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, code, length, plain, 8);
    if (count == 1)
        std::printf("%u %02x%02x", page, code[0] & 0xff, length == 2 ? code[1] & 0xff : 0);
    else
        return;
    PrintUnits(plain, count);
    for (const DWORD flag : {DWORD{MB_COMPOSITE}, DWORD{MB_USEGLYPHCHARS}}) {
        WCHAR shaped[8];
        const int units = MultiByteToWideChar(page, flag, code, length, shaped, 8);
        if (units != count || shaped[0] != plain[0]) {
            std::printf(flag == MB_COMPOSITE ? " composite" : " glyph");
            PrintUnits(shaped, units);
        }
    }
    std::printf("\n");
}

void PrintEncoding(UINT page, WCHAR unit) {
    for (const DWORD flags : {DWORD{WC_NO_BEST_FIT_CHARS}, DWORD{0}}) {
        char bytes[8] = {};
        BOOL used = FALSE;
        const int length = WideCharToMultiByte(page, flags, &unit, 1, bytes, 8, nullptr, &used);
        if (length == 0 || used)
            continue;
        std::printf("%u %s %04x: %02x%02x\n", page, flags != 0 ? "exact" : "fit",
                    static_cast<unsigned>(unit), bytes[0] & 0xff, bytes[1] & 0xff);
        break;
    }
}

void PrintCodePage(UINT page) {
    for (int lead = 0; lead < 0x100; ++lead) {
        const char alone = static_cast<char>(lead);
        WCHAR unit[2];
        if (MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, &alone, 1, unit, 2) != 0) {
            PrintDecoding(page, &alone, 1);
            continue;
        }
        for (int trail = 1; trail < 0x100; ++trail) {
            const char pair[] = {alone, static_cast<char>(trail)};
            PrintDecoding(page, pair, 2);
        }
    }
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        PrintEncoding(page, static_cast<WCHAR>(unit));
}

} // namespace

int main() {
    // Pages of one and two bytes, those that both systems convert by table.
    for (UINT page = 37; page < 52000; ++page)
        if (page < 50000 && IsValidCodePage(page))
            PrintCodePage(page);
    return 0;
}
