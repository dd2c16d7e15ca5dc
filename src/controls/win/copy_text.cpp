#include "controls/win/copy_text.h"

#include <cstring>
#include <memory>
#include <type_traits>

namespace quorvel {

namespace {

struct FreeGlobal {
    void operator()(HGLOBAL memory) const { ::GlobalFree(memory); }
};
typedef std::unique_ptr<std::remove_pointer_t<HGLOBAL>, FreeGlobal> GlobalMemory;

} // namespace

bool CopyTextToClipboard(HWND owner, const CString& text) {
    const SIZE_T size = (static_cast<SIZE_T>(text.GetLength()) + 1) * sizeof(WCHAR);
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, size));
    void* const target = memory != nullptr ? ::GlobalLock(memory.get()) : nullptr;
    if (target == nullptr)
        return false;
    std::memcpy(target, text.GetString(), size);
    ::GlobalUnlock(memory.get());
    if (!::OpenClipboard(owner))
        return false;
    const bool isSet =
        ::EmptyClipboard() && ::SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr;
    if (isSet)
        memory.release(); // the clipboard's from here on
    ::CloseClipboard();
    return isSet;
}

} // namespace quorvel
