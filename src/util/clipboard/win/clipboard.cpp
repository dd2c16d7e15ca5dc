#include <quorvel/util/clipboard/win/clipboard.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/win/gdi.h>
#include <quorvel/util/clipboard/clipboard_error.h>

#include "util/clipboard/clipboard_exit.h"
#include "util/clipboard/text_block.h"
#include "util/clipboard/win/bitmap_copy.h"
#include "util/clipboard/win/opened_clipboard.h"

#include <cstring>
#include <memory>
#include <type_traits>

namespace {

struct FreeGlobal {
    void operator()(HGLOBAL memory) const { ::GlobalFree(memory); }
};
typedef std::unique_ptr<std::remove_pointer_t<HGLOBAL>, FreeGlobal> GlobalMemory;

// A block of memory, locked.
class LockedMemory {
public:
    explicit LockedMemory(HGLOBAL memory) : m_memory(memory), m_data(::GlobalLock(memory)) {}
    LockedMemory(const LockedMemory&) = delete;
    ~LockedMemory() {
        const DWORD error = ::GetLastError(); // the system clears it when it unlocks
        if (m_data != nullptr)
            ::GlobalUnlock(m_memory);
        ::SetLastError(error);
    }
    void* Data() const { return m_data; } // null when it could not be locked

private:
    const HGLOBAL m_memory;
    void* const m_data;
};

GlobalMemory MemoryWith(const void* bytes, SIZE_T size) {
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size));
    if (memory == nullptr)
        return nullptr;
    const LockedMemory locked(memory.get());
    if (locked.Data() == nullptr)
        return nullptr;
    std::memcpy(locked.Data(), bytes, size);
    return memory;
}

BOOL Report(bool isDone, UINT action) {
    if (!isDone)
        AfxClipboardErrorMessageBox(action, MB_OK | MB_ICONEXCLAMATION);
    return isDone;
}

// The clipboard's data. For a missing format the system sets no error, and a message would describe
// success, so the function sets one.
HANDLE DataOf(UINT format) {
    ::SetLastError(ERROR_SUCCESS);
    const HANDLE data = ::GetClipboardData(format);
    if (data == nullptr && ::GetLastError() == ERROR_SUCCESS)
        ::SetLastError(ERROR_NOT_FOUND);
    return data;
}

bool ReadText(CString& text) {
    const HANDLE data = DataOf(CF_UNICODETEXT);
    if (data == nullptr)
        return false;
    const LockedMemory locked(data);
    if (locked.Data() == nullptr)
        return false;
    const WCHAR* const block = static_cast<const WCHAR*>(locked.Data());
    const std::size_t length = quorvel::TextLengthOfBlock(block, ::GlobalSize(data));
    try {
        text = CString(block, quorvel::StringLength(length));
    } catch (CMemoryException* exception) {
        exception->Delete();
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    return true;
}

bool ReadBitmap(CBitmap& bitmap) {
    const HANDLE data = DataOf(CF_BITMAP);
    if (data == nullptr)
        return false;
    quorvel::BitmapHandle copy = quorvel::CopyOfBitmap(static_cast<HBITMAP>(data));
    return copy != nullptr && bitmap.Attach(copy.release());
}

// Transfers what a unique_ptr owns to the clipboard, which frees it then.
template <class Data>
bool TransferToClipboard(UINT format, Data& data) {
    if (data == nullptr || ::SetClipboardData(format, data.get()) == nullptr)
        return false;
    data.release();
    return true;
}

bool PlaceBitmap(HBITMAP bitmap) {
    return quorvel::WithOpenedClipboard(nullptr, [bitmap] {
        if (!::EmptyClipboard())
            return false;
        quorvel::BitmapHandle copy = quorvel::CopyForOtherProcesses(bitmap);
        return TransferToClipboard(CF_BITMAP, copy);
    });
}

class SystemClipboard final : public quorvel::ExitClipboard {
public:
    bool Holds(UINT format) const override { return ::IsClipboardFormatAvailable(format) != FALSE; }
    bool Empty() override { return ::OpenClipboard(nullptr) && ::EmptyClipboard(); }
};

} // namespace

bool quorvel::PlaceOnClipboard(HWND owner, UINT format, const void* bytes, SIZE_T size) {
    return WithOpenedClipboard(owner, [format, bytes, size] {
        if (!::EmptyClipboard())
            return false;
        GlobalMemory memory = MemoryWith(bytes, size);
        return TransferToClipboard(format, memory);
    });
}

BOOL AfxCopyAnsiTextToClipboard(const char* text) {
    if (text == nullptr || text[0] == 0)
        return FALSE;
    return Report(quorvel::PlaceOnClipboard(nullptr, CF_TEXT, text, std::strlen(text) + 1),
                  quorvel::kClipboardPlacing);
}

BOOL AfxCopyUnicodeTextToClipboard(const WCHAR* text) {
    if (text == nullptr || text[0] == 0)
        return FALSE;
    const SIZE_T size = (std::char_traits<WCHAR>::length(text) + 1) * sizeof(WCHAR);
    return Report(quorvel::PlaceOnClipboard(nullptr, CF_UNICODETEXT, text, size),
                  quorvel::kClipboardPlacing);
}

BOOL AfxCopyTextToClipboard(const WCHAR* text) {
    return AfxCopyUnicodeTextToClipboard(text);
}

BOOL AfxGetTextFromClipboard(CString& text) {
    text.Empty();
    CString found;
    const bool isRead = quorvel::WithOpenedClipboard(nullptr, [&found] { return ReadText(found); });
    if (isRead)
        text = found;
    return Report(isRead, quorvel::kClipboardRetrieving);
}

BOOL AfxCopyBitmapToClipboard(CBitmap* bitmap) {
    return bitmap != nullptr && AfxCopyBitmapToClipboard(static_cast<HBITMAP>(bitmap->m_hObject));
}

BOOL AfxCopyBitmapToClipboard(HBITMAP bitmap) {
    if (::GetObjectType(bitmap) != OBJ_BITMAP)
        return FALSE;
    return Report(PlaceBitmap(bitmap), quorvel::kClipboardPlacing);
}

BOOL AfxGetBitmapFromClipboard(CBitmap* bitmap) {
    if (bitmap == nullptr)
        return FALSE;
    bitmap->DeleteObject();
    const bool isRead =
        quorvel::WithOpenedClipboard(nullptr, [bitmap] { return ReadBitmap(*bitmap); });
    if (!isRead) {
        const DWORD error = ::GetLastError();
        bitmap->DeleteObject(); // the clipboard could not be closed
        ::SetLastError(error);
    }
    return Report(isRead, quorvel::kClipboardRetrieving);
}

BOOL AfxEmptyClipboardOnExit(UINT clipboardFormat, UINT exitAction, const WCHAR* applicationName) {
    SystemClipboard clipboard;
    return quorvel::EmptyOnExit(clipboard, clipboardFormat, exitAction, applicationName);
}
