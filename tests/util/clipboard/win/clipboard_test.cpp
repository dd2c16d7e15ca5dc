// The functions with the real clipboard, which another process may hold, own or fill.
#include <quorvel/framework/win/gdi.h>
#include <quorvel/util/clipboard/clipboard_error.h>
#include <quorvel/util/clipboard/win/clipboard.h>

#include "support/message_box_recorder.h"
#include "support/test.h"
#include "util/clipboard/win/clipboard_holder.h"

#include <process.h>

#include <cstring>

namespace {

// Starts the program; the result is its handle, or its exit code after a wait.
std::intptr_t OtherProcess(int mode, const char* argument) {
    return ::_spawnl(mode, "clipboard_holder.exe", "clipboard_holder.exe", argument, nullptr);
}

// A bitmap whose pixels can be compared: a section, or a plain one.
HBITMAP NewBitmap(int bits, int side, bool isSection) {
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256];
    } info = {{sizeof info.header, side, side, 1, static_cast<WORD>(bits), BI_RGB, 0, 0, 0, 0, 0},
              {}};
    for (int i = 0; i < 256; ++i)
        info.colors[i] = {static_cast<BYTE>(i), static_cast<BYTE>(255 - i), 9, 0};
    void* pixels = nullptr;
    const HBITMAP section = ::CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info),
                                               DIB_RGB_COLORS, &pixels, nullptr, 0);
    for (int i = 0; i < (side * bits + 31) / 32 * 4 * side; ++i)
        static_cast<BYTE*>(pixels)[i] = static_cast<BYTE>(i * 7 + 1);
    if (isSection)
        return section;
    const HBITMAP plain = ::CreateBitmap(side, side, 1, static_cast<UINT>(bits), pixels);
    ::DeleteObject(section);
    return plain;
}

class Clipboard : public testing::Test {
protected:
    Clipboard() {
        Fill(nullptr, nullptr);
        m_bitmap.Attach(NewBitmap(32, 3, true));
    }
    ~Clipboard() override { Fill(nullptr, nullptr); }

    // Empties the clipboard, and puts a text there if there is memory or an owner.
    static void Fill(HWND owner, HGLOBAL text) {
        ASSERT_TRUE(::OpenClipboard(owner));
        ::EmptyClipboard();
        if (owner != nullptr || text != nullptr)
            ::SetClipboardData(CF_UNICODETEXT, text);
        ::CloseClipboard();
    }
    static HGLOBAL Memory(const void* bytes, SIZE_T size) {
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, size);
        if (size > 0)
            std::memcpy(::GlobalLock(memory), bytes, size);
        ::GlobalUnlock(memory);
        return memory;
    }
    CString Text() {
        CString text = _T("before");
        return AfxGetTextFromClipboard(text) ? text : CString(_T("none, ")) + text;
    }
    // Expects one box with the texts of the action and the error.
    void ExpectBox(UINT action, DWORD error) {
        const auto boxes = m_app.Take();
        ::SetLastError(error);
        AfxClipboardErrorMessageBox(action, MB_OK | MB_ICONEXCLAMATION);
        EXPECT_EQ(boxes, m_app.Take());
    }

    MessageBoxRecorder m_app;
    CBitmap m_bitmap;
};

TEST_F(Clipboard, TextComesBackAsItWas) {
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("a\r\n\x20ac\xd83d\xde00")));
    EXPECT_EQ(Text(), _T("a\r\n\x20ac\xd83d\xde00"));
    EXPECT_TRUE(AfxCopyAnsiTextToClipboard("c\xfc"));
    EXPECT_EQ(Text(), _T("c\u00fc"));
    EXPECT_FALSE(AfxCopyTextToClipboard(nullptr) || AfxCopyTextToClipboard(_T("")));
    EXPECT_FALSE(AfxCopyAnsiTextToClipboard(nullptr) || AfxCopyAnsiTextToClipboard(""));
    EXPECT_EQ(Text(), _T("c\u00fc"));
    const CString large(_T('w'), 50 << 20); // 100 MB
    EXPECT_TRUE(AfxCopyTextToClipboard(large));
    EXPECT_TRUE(Text() == large);
    EXPECT_TRUE(m_app.Take().empty());
}

TEST_F(Clipboard, OnlyTextIsTextAndOnlyABitmapIsOne) {
    Fill(nullptr, Memory(_T("ab"), 3)); // no terminator
    EXPECT_EQ(Text(), _T("a"));
    EXPECT_TRUE(m_app.Take().empty());
    Fill(nullptr, Memory(nullptr, 0));
    EXPECT_EQ(Text(), _T("none, "));
    EXPECT_EQ(m_app.Take().size(), 1u);
    EXPECT_TRUE(AfxCopyBitmapToClipboard(&m_bitmap));
    EXPECT_EQ(Text(), _T("none, "));
    ExpectBox(quorvel::kClipboardRetrieving, ERROR_NOT_FOUND);
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("a")));
    EXPECT_FALSE(AfxGetBitmapFromClipboard(&m_bitmap));
    ExpectBox(quorvel::kClipboardRetrieving, ERROR_NOT_FOUND);

    const HWND owner = ::CreateWindowExW(0, L"Static", nullptr, WS_POPUP, 0, 0, 1, 1, HWND_MESSAGE,
                                         nullptr, nullptr, nullptr);
    Fill(owner, nullptr); // promised, and never rendered
    EXPECT_EQ(Text(), _T("none, "));
    EXPECT_EQ(m_app.Take().size(), 1u);
    ::DestroyWindow(owner);
}

TEST_F(Clipboard, HeldByAnotherProcessIsReported) {
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("kept")));
    const HANDLE held = ::CreateEventW(nullptr, TRUE, FALSE, kHeldEvent);
    const HANDLE release = ::CreateEventW(nullptr, TRUE, FALSE, kReleaseEvent);
    const std::intptr_t holder = OtherProcess(_P_NOWAIT, nullptr);
    EXPECT_EQ(::WaitForSingleObject(held, 30000), WAIT_OBJECT_0);
    EXPECT_FALSE(AfxCopyTextToClipboard(_T("a")));
    ExpectBox(quorvel::kClipboardPlacing, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(AfxCopyBitmapToClipboard(&m_bitmap));
    ExpectBox(quorvel::kClipboardPlacing, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Text(), _T("none, "));
    ExpectBox(quorvel::kClipboardRetrieving, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(AfxEmptyClipboardOnExit(CF_UNICODETEXT, 0, nullptr));
    ExpectBox(quorvel::kClipboardEmptying, ERROR_ACCESS_DENIED);
    ::SetEvent(release);
    ::_cwait(nullptr, holder, 0);
    ::CloseHandle(held);
    ::CloseHandle(release);
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

TEST_F(Clipboard, BitmapsComeBackWithEveryPixel) {
    const std::tuple<bool, int, int> rows[] = {
        {true, 1, 9},     {true, 4, 9},  {true, 8, 9},   {true, 16, 9},
        {true, 24, 9},    {true, 32, 9}, {true, 24, 1},  {true, 8, 4000},
        {true, 32, 4000}, {false, 1, 9}, {false, 32, 9}, {false, 32, 4000},
    };
    for (const auto& [isSection, bits, side] : rows) {
        SCOPED_TRACE(testing::Message() << (isSection ? "section of " : "plain of ") << bits
                                        << " bits, side " << side);
        CBitmap source, back;
        source.Attach(NewBitmap(bits, side, isSection));
        EXPECT_TRUE(AfxCopyBitmapToClipboard(&source));
        back.Attach(NewBitmap(1, 2, true)); // will be replaced
        ASSERT_TRUE(AfxGetBitmapFromClipboard(&back));
        EXPECT_TRUE(SumOfColors(back) != 0 && SumOfColors(back) == SumOfColors(source));
        EXPECT_EQ(OtherProcess(_P_WAIT, "read"), static_cast<int>(SumOfColors(source)));
    }
    EXPECT_TRUE(m_app.Take().empty());
}

TEST_F(Clipboard, BitmapsThatCannotBeReadAreRefused) {
    CBitmap none, selected;
    ASSERT_TRUE(selected.Attach(NewBitmap(8, 9, true)));
    EXPECT_TRUE(AfxCopyTextToClipboard(_T("former")));
    EXPECT_FALSE(AfxCopyBitmapToClipboard(&none) ||
                 AfxCopyBitmapToClipboard(static_cast<CBitmap*>(nullptr)) ||
                 AfxGetBitmapFromClipboard(nullptr));
    for (const auto object : {::GetStockObject(BLACK_PEN), static_cast<HGDIOBJ>(nullptr)})
        EXPECT_FALSE(AfxCopyBitmapToClipboard(static_cast<HBITMAP>(object)));
    EXPECT_TRUE(m_app.Take().empty());
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const HGDIOBJ former = ::SelectObject(dc, selected);
    EXPECT_FALSE(AfxCopyBitmapToClipboard(&selected));
    EXPECT_EQ(m_app.Take().size(), 1u);
    EXPECT_FALSE(::IsClipboardFormatAvailable(CF_UNICODETEXT)) << "emptied before the copy";
    ::SelectObject(dc, former);
    EXPECT_TRUE(AfxCopyBitmapToClipboard(&selected));
    ::DeleteDC(dc);
}

} // namespace
