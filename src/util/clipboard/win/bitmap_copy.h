// Copies of bitmaps.
#pragma once

#include <quorvel/platform/platform.h>

#include <memory>
#include <type_traits>

namespace quorvel {

struct DeleteBitmapHandle {
    void operator()(HBITMAP bitmap) const { ::DeleteObject(bitmap); }
};
typedef std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteBitmapHandle> BitmapHandle;

// A bitmap of the same kind, size, depth, colour table and pixels. Null leaves the cause as the
// thread's last error: no memory, or a section that is selected into a device context.
BitmapHandle CopyOfBitmap(HBITMAP source);

} // namespace quorvel
