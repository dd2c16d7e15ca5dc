// The question and action when a program ends, the reports of failures, and the end of a text.
#include <quorvel/util/clipboard/clipboard_error.h>

#include "support/message_box_recorder.h"
#include "support/test.h"
#include "util/clipboard/clipboard_exit.h"
#include "util/clipboard/text_block.h"

using namespace quorvel::win32;

namespace {

constexpr UINT kFormat = 13;
constexpr DWORD kErrorWithoutText = 0x20000123; // an application's error; no system text

class FakeClipboard final : public quorvel::ExitClipboard {
public:
    FakeClipboard(bool holds, DWORD error) : m_holds(holds), m_error(error) {}
    bool Holds(UINT format) const override { return format == kFormat && m_holds; }
    bool Empty() override {
        m_isEmptied = true;
        SetLastError(m_error);
        return m_error == 0;
    }
    bool m_isEmptied = false;

private:
    const bool m_holds;
    const DWORD m_error;
};

// The type and the first line of the only box; empty without one.
CString BoxOf(MessageBoxRecorder& app) {
    const auto boxes = app.Take();
    EXPECT_LE(boxes.size(), 1u);
    CString box;
    if (!boxes.empty())
        box.Format(_T("%u: %s"), boxes[0].type, boxes[0].text.SpanExcluding(_T("\r")).GetString());
    return box;
}

TEST(ClipboardExit, AsksAndEmptiesAsTheActionSays) {
    const auto exit = [](bool holds, UINT action, const WCHAR* name, int answer, DWORD error = 0) {
        MessageBoxRecorder app(answer);
        FakeClipboard clipboard(holds, error);
        const BOOL isDone = quorvel::EmptyOnExit(clipboard, kFormat, action, name);
        return CString(isDone ? _T("done, ") : _T("refused, ")) +
               (clipboard.m_isEmptied ? _T("emptied, ") : _T("kept, ")) + BoxOf(app).Left(53);
    };
    const WCHAR* const editor = _T("Editor");
    const CString asked(_T("4: The clipboard contains data placed there by Editor"));
    ExpectCases<CString>({
        CASE(exit(true, 0, nullptr, 0), _T("done, emptied, ")),
        CASE(exit(true, 1, editor, IDYES), _T("done, emptied, ") + asked),
        CASE(exit(true, 1, editor, IDNO), _T("done, kept, ") + asked),
        CASE(exit(true, 1, editor, IDCANCEL), _T("done, kept, ") + asked),
        CASE(exit(true, 1, nullptr, IDYES), _T("refused, kept, ")),
        CASE(exit(false, 1, nullptr, IDYES), _T("done, kept, ")),
        CASE(exit(true, 2, nullptr, 0), _T("done, kept, ")),
        CASE(exit(false, 3, editor, IDYES), _T("refused, kept, ")),
        CASE(exit(true, 0, nullptr, IDOK, 5),
             _T("done, emptied, 48: An error occurred while emptying the clipboard.")),
        CASE(exit(true, 0, nullptr, IDOK, kErrorWithoutText), _T("done, emptied, ")),
    });
}

TEST(ClipboardExit, FailuresAreReportedByAction) {
    MessageBoxRecorder app(IDCANCEL);
    const auto report = [&app](UINT action, DWORD error) {
        SetLastError(error);
        const int answer = AfxClipboardErrorMessageBox(action, MB_OKCANCEL);
        const CString box = BoxOf(app);
        EXPECT_EQ(answer, box.IsEmpty() ? 0 : IDCANCEL);
        return box;
    };
    const CString placing(_T("1: An error occurred while placing data on the clipboard."));
    ExpectCases<CString>({
        CASE(report(0, 5), placing),
        CASE(report(3, 5), _T("1: An error occurred while retrieving data from clipboard.")),
        CASE(report(4, 5), _T("1: An error occurred while emptying the clipboard.")),
        CASE(report(5, 5), placing),
        CASE(report(6, 5), _T("")),
        CASE(report(1, kErrorWithoutText), _T("")),
    });
}

TEST(TextBlock, EndsAtItsTerminatorOrAtTheBlock) {
    const WCHAR block[] = {'a', 'b', 0, 'c', 'd'};
    // The first unit, the size in bytes, and the length.
    const std::tuple<int, std::size_t, std::size_t> rows[] = {
        {0, 10, 2}, {0, 4, 2}, {0, 2, 1}, {0, 3, 1}, {0, 1, 0}, {0, 0, 0}, {2, 6, 0}, {3, 4, 2}};
    for (const auto& [begin, size, length] : rows)
        EXPECT_EQ(quorvel::TextLengthOfBlock(block + begin, size), length) << begin << ' ' << size;
}

} // namespace
