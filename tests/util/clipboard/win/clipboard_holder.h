// What the tests and the program that holds the clipboard share.
#pragma once

#include <quorvel/platform/platform.h>

#include <vector>

inline constexpr const WCHAR* kHeldEvent = _T("QuorvelClipboardIsHeld");
inline constexpr const WCHAR* kReleaseEvent = _T("QuorvelReleaseClipboard");

// The pixels in 24 bits of colour each, whatever the bitmap's depth; empty when it can't be read.
inline std::vector<DWORD> ColorsOf(HBITMAP bitmap) {
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
    if (::GetDIBits(dc, bitmap, 0, static_cast<UINT>(description.bmHeight), colors.data(), &info,
                    DIB_RGB_COLORS) != description.bmHeight)
        colors.clear();
    ::DeleteDC(dc);
    for (DWORD& color : colors)
        color &= 0xffffff;
    return colors;
}

inline DWORD SumOfColors(HBITMAP bitmap) {
    DWORD sum = 1;
    for (const DWORD color : ColorsOf(bitmap))
        sum = sum * 31 + color;
    return sum;
}
