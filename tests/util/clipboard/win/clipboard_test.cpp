// The functions with the real clipboard, which another process may hold, own or fill.
#include <quorvel/framework/win/gdi.h>
#include <quorvel/util/clipboard/win/clipboard.h>

#include "support/message_box_recorder.h"
#include "support/test.h"
#include "util/clipboard/win/clipboard_holder.h"

#include <cstring>
#include <thread>

namespace {

struct CloseEvent {
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
typedef std::unique_ptr<void, CloseEvent> Handle;

HWND NewWindow() {
    return ::CreateWindowExW(0, L"Static", nullptr, WS_POPUP, 0, 0, 1, 1, HWND_MESSAGE, nullptr,
                             nullptr, nullptr);
}

// The program clipboard_holder.
class OtherProcess {
public:
    explicit OtherProcess(const WCHAR* arguments) {
        CString line = CString(_T("clipboard_holder.exe")) + arguments; // must be writable
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        PROCESS_INFORMATION process = {};
        EXPECT_TRUE(::CreateProcessW(nullptr, line.GetBuffer(), nullptr, nullptr, FALSE, 0, nullptr,
                                     nullptr, &start, &process));
        ::CloseHandle(process.hThread);
        m_process.reset(process.hProcess);
    }
    DWORD ExitCode() const {
        DWORD code = 0;
        ::WaitForSingleObject(m_process.get(), 30000);
        ::GetExitCodeProcess(m_process.get(), &code);
        return code;
    }

private:
    Handle m_process;
};

// Another process holds the clipboard while the object exists.
class Holder {
public:
    Holder() { EXPECT_EQ(::WaitForSingleObject(m_held.get(), 30000), WAIT_OBJECT_0); }
    ~Holder() {
        ::SetEvent(m_release.get());
        m_process.ExitCode();
    }

private:
    const Handle m_held{::CreateEventW(nullptr, TRUE, FALSE, kHeldEvent)};
    const Handle m_release{::CreateEventW(nullptr, TRUE, FALSE, kReleaseEvent)};
    const OtherProcess m_process{_T("")};
};

// A bitmap whose pixels can be compared: a section, or a plain one.
struct Info {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256];
};
HBITMAP NewBitmap(int bits, int side, bool isSection) {
    const std::size_t row = (static_cast<std::size_t>(side * bits) + 31) / 32 * 4;
    std::vector<BYTE> bytes(row * static_cast<std::size_t>(side));
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<BYTE>(i * 7 + 1);
    if (!isSection) // the size of its rows is even
        return ::CreateBitmap(side, side, 1, static_cast<UINT>(bits), bytes.data());
    Info info = {};
    info.header.biSize = sizeof info.header;
    info.header.biWidth = info.header.biHeight = side;
    info.header.biPlanes = 1;
    info.header.biBitCount = static_cast<WORD>(bits);
    for (int i = 0; i < 256; ++i)
        info.colors[i] = {static_cast<BYTE>(i), static_cast<BYTE>(255 - i), 9, 0};
    void* pixels = nullptr;
    const HBITMAP section = ::CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info),
                                               DIB_RGB_COLORS, &pixels, nullptr, 0);
    std::memcpy(pixels, bytes.data(), bytes.size());
    return section;
}
// Of a plain bitmap of a depth that the screen lacks, which nothing can draw.
std::vector<BYTE> BytesOf(HBITMAP bitmap) {
    BITMAP description = {};
    ::GetObjectW(bitmap, sizeof description, &description);
    std::vector<BYTE> bytes(
        static_cast<std::size_t>(description.bmWidthBytes * description.bmHeight));
    ::GetBitmapBits(bitmap, static_cast<LONG>(bytes.size()), bytes.data());
    return bytes;
}

class Clipboard : public testing::Test {
protected:
    Clipboard() {
        Fill([] {});
    }
    ~Clipboard() override {
        Fill([] {});
    }

    template <class Work>
    static void Fill(Work work) {
        ASSERT_TRUE(::OpenClipboard(nullptr));
        ::EmptyClipboard();
        work();
        ::CloseClipboard();
    }
    static void FillText(const void* bytes, SIZE_T size) {
        Fill([bytes, size] {
            const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, size);
            if (size > 0) {
                std::memcpy(::GlobalLock(memory), bytes, size);
                ::GlobalUnlock(memory);
            }
            ::SetClipboardData(CF_UNICODETEXT, memory);
        });
    }
    CString Text() {
        CString text = _T("before");
        return AfxGetTextFromClipboard(text) ? text : CString(_T("none, ")) + text;
    }
    // Expects one box with the error's text.
    void ExpectBox(const WCHAR* begin, DWORD error) {
        WCHAR cause[500] = L"";
        ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, error, 0, cause, 500, nullptr);
        CString text = CString(begin) + cause;
        text.TrimRight(_T("\r\n"));
        EXPECT_EQ(m_app.Take(),
                  (std::vector<RecordedMessageBox>{{text, MB_OK | MB_ICONEXCLAMATION, 0}}));
    }
    static constexpr const WCHAR* kPlacing =
        _T("An error occurred while placing data on the clipboard.\r\n\r\n");
    static constexpr const WCHAR* kRetrieving =
        _T("An error occurred while retrieving data from clipboard.\r\n\r\n");

    MessageBoxRecorder m_app;
};

TEST_F(Clipboard, TextComesBackAsItWas) {
    EXPECT_TRUE(AfxCopyUnicodeTextToClipboard(_T("a\r\n\x20ac\xd83d\xde00")));
    EXPECT_EQ(Text(), _T("a\r\n\x20ac\xd83d\xde00"));
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("b")));
    EXPECT_EQ(Text(), _T("b"));
    EXPECT_TRUE(AfxCopyAnsiTextToClipboard("c\xfc"));
    EXPECT_EQ(Text(), _T("c\u00fc"));
    for (const WCHAR* none : {static_cast<const WCHAR*>(nullptr), _T("")})
        EXPECT_FALSE(AfxCopyTextToClipboard(none));
    for (const char* none : {static_cast<const char*>(nullptr), ""})
        EXPECT_FALSE(AfxCopyAnsiTextToClipboard(none));
    EXPECT_EQ(Text(), _T("c\u00fc"));
    const CString large(_T('w'), 50 << 20); // 100 MB
    EXPECT_TRUE(AfxCopyTextToClipboard(large));
    EXPECT_TRUE(Text() == large);
    EXPECT_TRUE(m_app.Take().empty());
}

TEST_F(Clipboard, TextEndsAtItsTerminatorOrAtTheBlock) {
    const WCHAR text[] = _T("ab\0cd");
    const struct {
        SIZE_T size;
        const WCHAR* expected;
    } rows[] = {{sizeof text, _T("ab")}, {3, _T("a")}, {1, _T("")}};
    for (const auto& row : rows) {
        FillText(text, row.size);
        EXPECT_EQ(Text(), row.expected) << row.size;
    }
    EXPECT_TRUE(m_app.Take().empty());
    FillText(text, 0);
    EXPECT_EQ(Text(), _T("none, "));
    EXPECT_EQ(m_app.Take().size(), 1u);
}

TEST_F(Clipboard, DataOfAnotherKindIsNoText) {
    EXPECT_EQ(Text(), _T("none, "));
    ExpectBox(kRetrieving, ERROR_NOT_FOUND);
    CBitmap bitmap;
    bitmap.Attach(NewBitmap(32, 3, true));
    EXPECT_TRUE(AfxCopyBitmapToClipboard(&bitmap));
    EXPECT_EQ(Text(), _T("none, "));
    ExpectBox(kRetrieving, ERROR_NOT_FOUND);
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("a")));
    EXPECT_FALSE(AfxGetBitmapFromClipboard(&bitmap));
    EXPECT_EQ(bitmap.m_hObject, nullptr);
    ExpectBox(kRetrieving, ERROR_NOT_FOUND);
}

TEST_F(Clipboard, HeldByAnotherProcessIsReported) {
    CBitmap bitmap;
    bitmap.Attach(NewBitmap(32, 3, true));
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("kept")));
    {
        const Holder holder;
        EXPECT_FALSE(AfxCopyTextToClipboard(_T("a")));
        ExpectBox(kPlacing, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(AfxCopyAnsiTextToClipboard("a"));
        ExpectBox(kPlacing, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(AfxCopyBitmapToClipboard(&bitmap));
        ExpectBox(kPlacing, ERROR_ACCESS_DENIED);
        EXPECT_EQ(Text(), _T("none, "));
        ExpectBox(kRetrieving, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(AfxGetBitmapFromClipboard(&bitmap));
        ExpectBox(kRetrieving, ERROR_ACCESS_DENIED);
        EXPECT_TRUE(AfxEmptyClipboardOnExit(CF_UNICODETEXT, 0, nullptr));
        ExpectBox(_T("An error occurred while emptying the clipboard.\r\n\r\n"),
                  ERROR_ACCESS_DENIED);
    }
    EXPECT_EQ(Text(), _T("kept"));
}

TEST_F(Clipboard, StaysOpenAfterItWasEmptiedOnExit) {
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("a")));
    EXPECT_TRUE(AfxEmptyClipboardOnExit(CF_BITMAP, 0, nullptr));
    EXPECT_FALSE(::CloseClipboard()) << "no data in that format";
    m_app.m_answer = IDNO;
    EXPECT_TRUE(AfxEmptyClipboardOnExit(CF_UNICODETEXT, 1, _T("Editor")));
    EXPECT_EQ(Text(), _T("a"));
    EXPECT_TRUE(AfxEmptyClipboardOnExit(CF_UNICODETEXT, 0, nullptr));
    EXPECT_FALSE(::IsClipboardFormatAvailable(CF_UNICODETEXT));
    EXPECT_TRUE(::CloseClipboard());
}

// A clipboard owner that renders its data on request, on its own thread.
class LateOwner {
public:
    explicit LateOwner(bool renders) {
        const Handle ready(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
        m_thread = std::thread([this, renders, &ready] { Run(renders, ready.get()); });
        ::WaitForSingleObject(ready.get(), 30000);
    }
    ~LateOwner() { End(); }
    void End() {
        if (!m_thread.joinable())
            return;
        ::PostThreadMessageW(m_threadId, WM_QUIT, 0, 0);
        m_thread.join();
    }

private:
    static LRESULT CALLBACK Render(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_RENDERFORMAT)
            return ::DefWindowProcW(window, message, wParam, lParam);
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, sizeof L"late");
        std::memcpy(::GlobalLock(memory), L"late", sizeof L"late");
        ::GlobalUnlock(memory);
        ::SetClipboardData(CF_UNICODETEXT, memory);
        return 0;
    }
    void Run(bool renders, HANDLE ready) {
        m_threadId = ::GetCurrentThreadId();
        const HWND window = NewWindow();
        if (renders)
            ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Render));
        EXPECT_TRUE(::OpenClipboard(window));
        ::EmptyClipboard();
        ::SetClipboardData(CF_UNICODETEXT, nullptr);
        ::CloseClipboard();
        MSG message;
        ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        ::SetEvent(ready);
        while (::GetMessageW(&message, nullptr, 0, 0) > 0)
            ::DispatchMessageW(&message);
        ::DestroyWindow(window);
    }

    std::thread m_thread;
    DWORD m_threadId = 0;
};

TEST_F(Clipboard, OwnersRenderLateNeverOrVanish) {
    for (const bool renders : {true, false}) {
        LateOwner owner(renders);
        EXPECT_EQ(Text(), renders ? _T("late") : _T("none, "));
        EXPECT_EQ(m_app.Take().size(), renders ? 0u : 1u);
        owner.End();
    }
    LateOwner(false).End();
    EXPECT_EQ(Text(), _T("none, ")) << "vanished";
    EXPECT_EQ(m_app.Take().size(), 1u);
}

TEST_F(Clipboard, BitmapsComeBackWithEveryPixel) {
    for (const bool isSection : {true, false}) {
        for (const int bits : {1, 4, 8, 16, 24, 32}) {
            for (const int side : {1, 9, 4000}) {
                if (side == 4000 && bits != 32 && bits != 8)
                    continue;
                SCOPED_TRACE(testing::Message() << (isSection ? "section of " : "plain of ") << bits
                                                << " bits, side " << side);
                CBitmap source;
                ASSERT_TRUE(source.Attach(NewBitmap(bits, side, isSection)));
                EXPECT_TRUE(AfxCopyBitmapToClipboard(&source));
                CBitmap back;
                back.Attach(NewBitmap(1, 2, true)); // will be replaced
                ASSERT_TRUE(AfxGetBitmapFromClipboard(&back));
                BITMAP description = {};
                back.GetBitmap(&description);
                EXPECT_EQ(description.bmWidth, side);
                if (isSection) {
                    EXPECT_FALSE(ColorsOf(back).empty());
                    EXPECT_TRUE(ColorsOf(back) == ColorsOf(source));
                } else {
                    EXPECT_EQ(description.bmBitsPixel, bits);
                    EXPECT_TRUE(BytesOf(back) == BytesOf(source));
                }
                if (side == 9 && (isSection || bits == 32)) {
                    EXPECT_EQ(OtherProcess(_T(" read")).ExitCode(), SumOfColors(source));
                }
            }
        }
    }
    EXPECT_TRUE(m_app.Take().empty());
}

TEST_F(Clipboard, BitmapsThatCannotBeReadAreRefused) {
    CBitmap none;
    EXPECT_FALSE(AfxCopyBitmapToClipboard(&none));
    EXPECT_FALSE(AfxCopyBitmapToClipboard(static_cast<CBitmap*>(nullptr)));
    EXPECT_FALSE(AfxGetBitmapFromClipboard(nullptr));
    EXPECT_FALSE(AfxCopyBitmapToClipboard(static_cast<HBITMAP>(::GetStockObject(BLACK_PEN))));
    CBitmap deleted;
    deleted.Attach(NewBitmap(32, 3, true));
    const HBITMAP handle = deleted;
    deleted.DeleteObject();
    EXPECT_FALSE(AfxCopyBitmapToClipboard(handle));
    EXPECT_TRUE(m_app.Take().empty());

    EXPECT_TRUE(AfxCopyTextToClipboard(_T("former")));
    const HDC dc = ::CreateCompatibleDC(nullptr);
    CBitmap selected;
    ASSERT_TRUE(selected.Attach(NewBitmap(8, 9, true)));
    const HGDIOBJ former = ::SelectObject(dc, selected);
    EXPECT_FALSE(AfxCopyBitmapToClipboard(&selected));
    EXPECT_EQ(m_app.Take().size(), 1u);
    EXPECT_FALSE(::IsClipboardFormatAvailable(CF_UNICODETEXT)) << "emptied before the copy";
    ::SelectObject(dc, former);
    EXPECT_TRUE(AfxCopyBitmapToClipboard(&selected));
    ::DeleteDC(dc);
}

} // namespace
