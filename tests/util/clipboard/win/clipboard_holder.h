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
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = description.bmWidth;
    info.bmiHeader.biHeight = description.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    std::vector<DWORD> colors(static_cast<std::size_t>(description.bmWidth * description.bmHeight));
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const int lines = ::GetDIBits(dc, bitmap, 0, static_cast<UINT>(description.bmHeight),
                                  colors.data(), &info, DIB_RGB_COLORS);
    ::DeleteDC(dc);
    if (lines == 0 || lines != description.bmHeight)
        return 0;
    return std::accumulate(colors.begin(), colors.end(), DWORD{1},
                           [](DWORD sum, DWORD color) { return sum * 31 + (color & 0xffffff); });
}
