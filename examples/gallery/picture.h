// Pictures of windows.
#pragma once

#include <quorvel/framework/geometry.h>

#include <cstdio>
#include <memory>

// The window with its title bar as a bitmap file. False when it cannot be drawn or written.
inline bool SavePicture(HWND window, const char* path) {
    ::RedrawWindow(window, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    CRect rect;
    ::GetWindowRect(window, rect);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = rect.Width();
    info.bmiHeader.biHeight = -rect.Height(); // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const DWORD size = static_cast<DWORD>(rect.Width() * rect.Height() * 4);

    const HDC screen = ::GetWindowDC(window);
    const HDC memory = ::CreateCompatibleDC(screen);
    void* pixels = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(memory, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    bool saved = false;
    if (bitmap != nullptr) {
        const HGDIOBJ former = ::SelectObject(memory, bitmap);
        const BOOL drawn =
            ::BitBlt(memory, 0, 0, rect.Width(), rect.Height(), screen, 0, 0, SRCCOPY);
        ::GdiFlush();
        BITMAPFILEHEADER header = {};
        header.bfType = 0x4d42; // "BM"
        header.bfOffBits = sizeof header + sizeof info.bmiHeader;
        header.bfSize = header.bfOffBits + size;
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "wb"),
                                                                   std::fclose);
        saved = drawn && file != nullptr &&
                std::fwrite(&header, sizeof header, 1, file.get()) == 1 &&
                std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, file.get()) == 1 &&
                std::fwrite(pixels, 1, size, file.get()) == size;
        ::SelectObject(memory, former);
        ::DeleteObject(bitmap);
    }
    ::DeleteDC(memory);
    ::ReleaseDC(window, screen);
    return saved;
}
