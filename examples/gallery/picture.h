// Pictures of windows.
#pragma once

#include <quorvel/framework/geometry.h>

#include <cstdio>
#include <memory>
#include <type_traits>
#include <vector>

// Pixels an inch; 96 on a usual screen.
inline int ResolutionOfScreen() {
    const HDC screen = ::GetDC(nullptr);
    const int resolution = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    return resolution;
}

// The surface that a window is drawn on, with its title bar.
class WindowSurface {
public:
    explicit WindowSurface(HWND window) : m_window(window), m_dc(::GetWindowDC(window)) {}
    WindowSurface(const WindowSurface&) = delete;
    ~WindowSurface() { ::ReleaseDC(m_window, m_dc); }
    HDC Get() const { return m_dc; }

private:
    const HWND m_window;
    const HDC m_dc;
};

struct DeleteGdiObject {
    void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};

// A surface in memory: `info` says how its pixels lie.
class MemorySurface {
public:
    MemorySurface(HDC like, const BITMAPINFO& info)
        : m_dc(::CreateCompatibleDC(like)),
          m_bitmap(::CreateDIBSection(m_dc.get(), &info, DIB_RGB_COLORS, &m_pixels, nullptr, 0)),
          m_former(::SelectObject(m_dc.get(), m_bitmap.get())) {}
    MemorySurface(const MemorySurface&) = delete;
    ~MemorySurface() { ::SelectObject(m_dc.get(), m_former); }
    HDC Get() const { return m_dc.get(); }
    const void* Pixels() const { return m_pixels; } // null: there was no memory

private:
    struct DeleteSurface {
        void operator()(HDC dc) const { ::DeleteDC(dc); }
    };

    void* m_pixels = nullptr;
    const std::unique_ptr<std::remove_pointer_t<HDC>, DeleteSurface> m_dc;
    const std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject> m_bitmap;
    const HGDIOBJ m_former;
};

// The window, then what the thread shows over it: balloons, menus, drop-downs. They have no title.
inline std::vector<HWND> SceneOf(HWND window) {
    std::vector<HWND> scene = {window};
    const auto add = [](HWND each, LPARAM found) CALLBACK -> BOOL {
        CRect rect;
        ::GetWindowRect(each, rect);
        const bool hasTitle = (::GetWindowLongPtrW(each, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
        if (::IsWindowVisible(each) && !hasTitle && !rect.IsRectEmpty())
            reinterpret_cast<std::vector<HWND>*>(found)->push_back(each);
        return TRUE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&scene));
    return scene;
}

// Copies a window in its own shape. False when it cannot be drawn.
inline bool CopyWindow(HWND window, const MemorySurface& to, CPoint corner) {
    ::RedrawWindow(window, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    CRect rect;
    ::GetWindowRect(window, rect);
    const CPoint place(rect.left - corner.x, rect.top - corner.y);
    const std::unique_ptr<std::remove_pointer_t<HRGN>, DeleteGdiObject> shape(
        ::CreateRectRgn(0, 0, 0, 0));
    const bool hasShape = ::GetWindowRgn(window, shape.get()) > NULLREGION;
    if (hasShape)
        ::OffsetRgn(shape.get(), place.x, place.y);
    ::SelectClipRgn(to.Get(), hasShape ? shape.get() : nullptr);
    const WindowSurface from(window);
    return ::BitBlt(to.Get(), place.x, place.y, rect.Width(), rect.Height(), from.Get(), 0, 0,
                    SRCCOPY) != FALSE;
}

// The window with its title bar, and what is shown over it, on white, as a bitmap file. That has
// three bytes a pixel: with four the last would be read as how opaque the pixel is, and the system
// leaves it at 0. False when a window cannot be drawn or the file not be written.
inline bool SavePicture(HWND window, const char* path) {
    ::HideCaret(nullptr); // it blinks
    const std::vector<HWND> scene = SceneOf(window);
    CRect rect(0, 0, 0, 0);
    for (const HWND each : scene) {
        CRect its;
        ::GetWindowRect(each, its);
        ::UnionRect(rect, rect, its);
    }
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = rect.Width();
    info.bmiHeader.biHeight = -rect.Height(); // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    const DWORD bytesOfRow = static_cast<DWORD>(rect.Width() * 3 + 3) & ~DWORD{3};
    const DWORD size = bytesOfRow * static_cast<DWORD>(rect.Height());

    const MemorySurface memory(WindowSurface(window).Get(), info);
    if (memory.Pixels() == nullptr ||
        !::PatBlt(memory.Get(), 0, 0, rect.Width(), rect.Height(), WHITENESS))
        return false;
    for (const HWND each : scene) {
        if (!CopyWindow(each, memory, {rect.left, rect.top}))
            return false;
    }
    ::GdiFlush();
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4d42; // "BM"
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + size;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "wb"), std::fclose);
    return file != nullptr && std::fwrite(&header, sizeof header, 1, file.get()) == 1 &&
           std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, file.get()) == 1 &&
           std::fwrite(memory.Pixels(), 1, size, file.get()) == size;
}
