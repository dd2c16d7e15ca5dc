#include "util/clipboard/win/bitmap_copy.h"

#include <cstring>
#include <new>

namespace quorvel {

namespace {

// A memory device context with a bitmap selected into it.
class BitmapDC {
public:
    explicit BitmapDC(HBITMAP bitmap)
        : m_dc(::CreateCompatibleDC(nullptr)), m_former(::SelectObject(m_dc, bitmap)) {}
    BitmapDC(const BitmapDC&) = delete;
    ~BitmapDC() {
        if (m_former != nullptr)
            ::SelectObject(m_dc, m_former);
        ::DeleteDC(m_dc);
    }
    bool IsSelected() const { return m_former != nullptr; }
    HDC Get() const { return m_dc; }

private:
    const HDC m_dc;
    const HGDIOBJ m_former; // null when the bitmap could not be selected
};

struct SectionInfo {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256]; // or the three masks of BI_BITFIELDS
};

// A plain bitmap of the same depth would stay empty. The system draws only into plain bitmaps of
// one bit, which have no colours, and of the screen's depth.
HBITMAP NewSectionLike(HBITMAP source, const DIBSECTION& section) {
    SectionInfo info = {};
    info.header = section.dsBmih;
    info.header.biSize = sizeof info.header;
    info.header.biSizeImage = 0;
    if (info.header.biCompression == BI_BITFIELDS)
        std::memcpy(info.colors, section.dsBitfields, sizeof section.dsBitfields);
    if (info.header.biBitCount <= 8)
        info.header.biClrUsed = ::GetDIBColorTable(BitmapDC(source).Get(), 0, 256, info.colors);
    void* pixels = nullptr;
    return ::CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS,
                              &pixels, nullptr, 0);
}

HBITMAP NewOfTheScreen(const BITMAP& description) {
    const HDC screen = ::GetDC(nullptr);
    const HBITMAP bitmap =
        ::CreateCompatibleBitmap(screen, description.bmWidth, description.bmHeight);
    ::ReleaseDC(nullptr, screen);
    return bitmap;
}

HBITMAP NewPlainLike(BITMAP description) {
    description.bmBits = nullptr;
    return ::CreateBitmapIndirect(&description);
}

bool CopyPixels(HBITMAP target, HBITMAP source, const BITMAP& description) {
    const BitmapDC from(source);
    if (!from.IsSelected())
        return false;
    const BitmapDC to(target);
    return to.IsSelected() && ::BitBlt(to.Get(), 0, 0, description.bmWidth, description.bmHeight,
                                       from.Get(), 0, 0, SRCCOPY);
}

// For plain bitmaps that cannot be selected, because the screen lacks their depth or another device
// context holds them. Both bitmaps have the same layout.
bool CopyBytes(HBITMAP target, HBITMAP source, const BITMAP& description) {
    const LONG size = description.bmWidthBytes * description.bmHeight;
    const std::unique_ptr<BYTE[]> bytes(new (std::nothrow) BYTE[static_cast<std::size_t>(size)]);
    if (bytes == nullptr) {
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    return ::GetBitmapBits(source, size, bytes.get()) == size &&
           ::SetBitmapBits(target, static_cast<DWORD>(size), bytes.get()) == size;
}

BitmapHandle Copied(HBITMAP source, HBITMAP (*newCopyOfSection)(HBITMAP, const DIBSECTION&)) {
    DIBSECTION description = {};
    const bool isSection =
        ::GetObjectW(source, sizeof description, &description) == sizeof description;
    const BITMAP& bitmap = description.dsBm;
    BitmapHandle copy(isSection ? newCopyOfSection(source, description) : NewPlainLike(bitmap));
    if (copy == nullptr) {
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY); // the system may set no error
        return nullptr;
    }
    if (CopyPixels(copy.get(), source, bitmap) ||
        (!isSection && CopyBytes(copy.get(), source, bitmap)))
        return copy;
    const DWORD error = ::GetLastError();
    copy.reset();
    ::SetLastError(error != ERROR_SUCCESS ? error : DWORD{ERROR_INVALID_HANDLE});
    return nullptr;
}

} // namespace

BitmapHandle CopyOfBitmap(HBITMAP source) {
    return Copied(source, NewSectionLike);
}

BitmapHandle CopyForOtherProcesses(HBITMAP source) {
    return Copied(source,
                  [](HBITMAP, const DIBSECTION& section) { return NewOfTheScreen(section.dsBm); });
}

} // namespace quorvel
