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
    const struct {
        const char* label;
        bool holds;
        UINT action;
        const WCHAR* name;
        int answer;
        DWORD error;
        BOOL result;
        int emptied;
        std::vector<UINT> boxes; // types of the boxes
    } rows[] = {
        {"empty", true, 0, nullptr, 0, 0, TRUE, 1, {}},
        {"yes", true, 1, _T("Editor"), IDYES, 0, TRUE, 1, {MB_YESNO}},
        {"no", true, 1, _T("Editor"), IDNO, 0, TRUE, 0, {MB_YESNO}},
        {"closed", true, 1, _T("Editor"), IDCANCEL, 0, TRUE, 0, {MB_YESNO}},
        {"no name", true, 1, nullptr, IDYES, 0, FALSE, 0, {}},
        {"no name, no data", false, 1, nullptr, IDYES, 0, TRUE, 0, {}},
        {"keep", true, 2, nullptr, 0, 0, TRUE, 0, {}},
        {"no action", true, 3, _T("Editor"), IDYES, 0, FALSE, 0, {}},
        {"no action, no data", false, 3, _T("Editor"), IDYES, 0, FALSE, 0, {}},
        {"no data", false, 0, nullptr, 0, 0, TRUE, 0, {}},
        {"fails", true, 0, nullptr, IDOK, 5, TRUE, 1, {MB_OK | MB_ICONEXCLAMATION}},
        {"fails, no text", true, 0, nullptr, IDOK, kErrorWithoutText, TRUE, 1, {}},
    };
    for (const auto& row : rows) {
        MessageBoxRecorder app(row.answer);
        FakeClipboard clipboard(row.holds, row.error);
        EXPECT_EQ(quorvel::EmptyOnExit(clipboard, kFormat, row.action, row.name), row.result)
            << row.label;
        EXPECT_EQ(clipboard.m_emptied, row.emptied) << row.label;
        std::vector<UINT> types;
        for (const RecordedMessageBox& box : app.m_boxes) {
            types.push_back(box.type);
            EXPECT_EQ(box.helpId, 0u) << row.label;
            EXPECT_EQ(box.text.Find(row.action == 1 ? _T("data placed there by Editor.  Do you")
                                                    : _T("emptying the clipboard.\r\n\r\n")) >= 0,
                      true)
                << row.label;
        }
        EXPECT_EQ(types, row.boxes) << row.label;
    }
}

TEST(ClipboardExit, FailuresAreReportedByAction) {
    const CString placing = _T("An error occurred while placing data on the clipboard.\r\n\r\n");
    const CString retrieving =
        _T("An error occurred while retrieving data from clipboard.\r\n\r\n");
    const CString emptying = _T("An error occurred while emptying the clipboard.\r\n\r\n");
    const struct {
        UINT action;
        DWORD error;
        CString text; // precedes the system's text; empty: no box
    } rows[] = {{0, 5, placing},    {1, 5, placing},   {2, 5, placing},
                {3, 5, retrieving}, {4, 5, emptying},  {5, 5, placing},
                {6, 5, {}},         {UINT_MAX, 5, {}}, {1, kErrorWithoutText, {}}};
    MessageBoxRecorder app(IDCANCEL);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.action);
        SetLastError(row.error);
        EXPECT_EQ(AfxClipboardErrorMessageBox(row.action, MB_OKCANCEL),
                  row.text.IsEmpty() ? 0 : IDCANCEL);
        const auto boxes = app.Take();
        ASSERT_EQ(boxes.size(), row.text.IsEmpty() ? 0u : 1u);
        if (boxes.empty())
            continue;
        EXPECT_EQ(boxes[0].text.Left(row.text.GetLength()), row.text);
        EXPECT_GT(boxes[0].text.GetLength(), row.text.GetLength()) << "the system's text";
        EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_OKCANCEL));
        EXPECT_EQ(boxes[0].helpId, 0u);
    }
    EXPECT_EQ(AfxIsValidClipboardExit(2), TRUE);
    EXPECT_EQ(AfxIsValidClipboardExit(3), FALSE);
    EXPECT_EQ(AfxIsValidClipboardAction(5), TRUE);
    EXPECT_EQ(AfxIsValidClipboardAction(6), FALSE);
}

TEST(TextBlock, EndsAtItsTerminatorOrAtTheBlock) {
    const WCHAR block[] = {'a', 'b', 0, 'c', 'd'};
    const struct {
        const WCHAR* begin;
        std::size_t sizeInBytes, length;
    } rows[] = {{block, 10, 2},    {block, 4, 2},     {block, 2, 1},
                {block, 3, 1},     {block, 1, 0},     {block, 0, 0},
                {block + 2, 6, 0}, {block + 3, 4, 2}, {block + 3, 3, 1}};
    for (const auto& row : rows)
        EXPECT_EQ(quorvel::TextLengthOfBlock(row.begin, row.sizeInBytes), row.length)
            << row.begin - block << ", " << row.sizeInBytes;
}

} // namespace
