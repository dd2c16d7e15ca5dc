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
        ++m_emptied;
        SetLastError(m_error);
        return m_error == 0;
    }
    int m_emptied = 0;

private:
    const bool m_holds;
    const DWORD m_error;
};

TEST(ClipboardExit, AsksAndEmptiesAsTheActionSays) {
    const WCHAR* const editor = _T("Editor");
    const CString question(_T("data placed there by Editor.  Do you"));
    const CString failed(_T("An error occurred while emptying the clipboard.\r\n\r\n"));
    const struct {
        const char* label;
        bool holds;
        UINT action;
        const WCHAR* name;
        int answer;
        DWORD error;
        BOOL result;
        int emptied;
        UINT box = UINT_MAX; // its type
    } rows[] = {
        {"empty", true, 0, nullptr, 0, 0, TRUE, 1},
        {"yes", true, 1, editor, IDYES, 0, TRUE, 1, MB_YESNO},
        {"no", true, 1, editor, IDNO, 0, TRUE, 0, MB_YESNO},
        {"closed", true, 1, editor, IDCANCEL, 0, TRUE, 0, MB_YESNO},
        {"no name", true, 1, nullptr, IDYES, 0, FALSE, 0},
        {"no name, no data", false, 1, nullptr, IDYES, 0, TRUE, 0},
        {"keep", true, 2, nullptr, 0, 0, TRUE, 0},
        {"no action, no data", false, 3, editor, IDYES, 0, FALSE, 0},
        {"no data", false, 0, nullptr, 0, 0, TRUE, 0},
        {"fails", true, 0, nullptr, IDOK, 5, TRUE, 1, MB_OK | MB_ICONEXCLAMATION},
        {"fails, no text", true, 0, nullptr, IDOK, kErrorWithoutText, TRUE, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        MessageBoxRecorder app(row.answer);
        FakeClipboard clipboard(row.holds, row.error);
        EXPECT_EQ(quorvel::EmptyOnExit(clipboard, kFormat, row.action, row.name), row.result);
        EXPECT_EQ(clipboard.m_emptied, row.emptied);
        ASSERT_EQ(app.m_boxes.size(), row.box == UINT_MAX ? 0u : 1u);
        for (const auto& [text, type, helpId] : app.m_boxes) {
            EXPECT_EQ(type, row.box);
            EXPECT_GE(text.Find(row.action == 1 ? question : failed), 0);
        }
    }
}

TEST(ClipboardExit, FailuresAreReportedByAction) {
    const CString placing(_T("An error occurred while placing data on the clipboard.\r\n\r\n")),
        none;
    // The text precedes the system's text; without one there is no box.
    const std::tuple<UINT, DWORD, CString> rows[] = {
        {0, 5, placing},
        {3, 5, _T("An error occurred while retrieving data from clipboard.\r\n\r\n")},
        {4, 5, _T("An error occurred while emptying the clipboard.\r\n\r\n")},
        {5, 5, placing},
        {6, 5, none},
        {UINT_MAX, 5, none},
        {1, kErrorWithoutText, none}};
    MessageBoxRecorder app(IDCANCEL);
    for (const auto& [action, error, start] : rows) {
        SCOPED_TRACE(action);
        SetLastError(error);
        EXPECT_EQ(AfxClipboardErrorMessageBox(action, MB_OKCANCEL), start.IsEmpty() ? 0 : IDCANCEL);
        const auto boxes = app.Take();
        ASSERT_EQ(boxes.size(), start.IsEmpty() ? 0u : 1u);
        for (const auto& [text, type, helpId] : boxes) {
            EXPECT_EQ(text.Left(start.GetLength()), start);
            EXPECT_GT(text.GetLength(), start.GetLength());
            EXPECT_EQ(type, UINT{MB_OKCANCEL});
        }
    }
    EXPECT_TRUE(AfxIsValidClipboardExit(2) && !AfxIsValidClipboardExit(3));
    EXPECT_TRUE(AfxIsValidClipboardAction(5) && !AfxIsValidClipboardAction(6));
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
