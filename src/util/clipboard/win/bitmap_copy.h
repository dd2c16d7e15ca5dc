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

// Returns a bitmap of the same kind, size, depth, colour table and pixels. When null, the thread's
// last error is the cause: no memory, or a section that a device context holds.
BitmapHandle CopyOfBitmap(HBITMAP source);

// The same, but copies a section as a plain bitmap of the screen's depth: a section's memory
// belongs to one process, and plain bitmaps of another depth have no colours.
BitmapHandle CopyForOtherProcesses(HBITMAP source);

} // namespace quorvel
