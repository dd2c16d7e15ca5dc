// What the tests and the program that holds the clipboard share.
#pragma once

#include <quorvel/platform/platform.h>

#include <numeric>
#include <vector>

inline constexpr const WCHAR* kHeldEvent = _T("QuorvelClipboardIsHeld");
inline constexpr const WCHAR* kReleaseEvent = _T("QuorvelReleaseClipboard");

// Of the pixels in 24 bits of colour each, whatever the bitmap's depth; 0 when it can't be read.
inline DWORD SumOfColors(HBITMAP bitmap) {
    BITMAP description = {};
    ::GetObjectW(bitmap, sizeof description, &description);
    const LONG width = description.bmWidth, height = description.bmHeight;
    BITMAPINFO info = {{sizeof info.bmiHeader, width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    std::vector<DWORD> colors(static_cast<std::size_t>(width * height));
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const int lines =
        ::GetDIBits(dc, bitmap, 0, static_cast<UINT>(height), colors.data(), &info, DIB_RGB_COLORS);
    ::DeleteDC(dc);
    if (lines == 0 || lines != height)
        return 0;
    return std::accumulate(colors.begin(), colors.end(), DWORD{1},
                           [](DWORD sum, DWORD color) { return sum * 31 + (color & 0xffffff); });
}
