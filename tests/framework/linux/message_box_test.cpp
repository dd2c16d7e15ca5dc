#include "platform/linux/windows/terminal_message_box.h"

#include "platform/win32.h"

#include "support/test.h"

#include <cstdlib>
#include <cstring>

namespace {

// The result and the output of a box on a terminal where the user types the lines; without lines
// there is no terminal.
std::pair<int, std::string> Show(LPCWSTR text, UINT type, const char* lines) {
    char* output = nullptr;
    std::size_t size = 0;
    std::FILE* const out = open_memstream(&output, &size);
    std::FILE* const in =
        lines != nullptr ? fmemopen(const_cast<char*>(lines), std::strlen(lines), "r") : nullptr;
    const int result = quorvel::TerminalMessageBox(text, _T("Title"), type, out, in);
    std::fclose(out);
    if (in != nullptr)
        std::fclose(in);
    const std::string written(output, size);
    std::free(output);
    return {result, written};
}

} // namespace

TEST(TerminalMessageBox, AnswersByLetterOrByDefault) {
    const std::tuple<const char*, UINT, const char*, int> rows[] = {
        {"nobody there", MB_YESNO, nullptr, IDYES},
        {"third button preset", MB_YESNOCANCEL | MB_DEFBUTTON3, nullptr, IDCANCEL},
        {"one button is not asked for", MB_OK, "x\n", IDOK},
        {"capital letter", MB_ABORTRETRYIGNORE, "Ignore\n", IDIGNORE},
        {"empty line", MB_YESNO | MB_DEFBUTTON2, "\n", IDNO},
        {"unknown set", 7, "o\n", 0},
    };
    for (const auto& [label, type, lines, result] : rows)
        EXPECT_EQ(Show(_T("text"), type, lines).first, result) << label;
    EXPECT_EQ(quorvel::win32::GetLastError(), ERROR_INVALID_MSGBOX_STYLE);
}

TEST(TerminalMessageBox, WritesTitleIconAndTextWithoutControlCharacters) {
    EXPECT_EQ(Show(_T("a\r\nb\x1b[2J\x9b\tc\xe9"), MB_OK | MB_ICONERROR, nullptr).second,
              "Title (error)\na\nb[2J\tc\xc3\xa9\n");
    EXPECT_EQ(Show(nullptr, MB_OK, nullptr).second, "Title\n\n");
    EXPECT_EQ(Show(_T("?"), MB_YESNO | MB_DEFBUTTON2 | MB_ICONQUESTION, "y\n").second,
              "Title (question)\n?\n[y] Yes  [n] No (default)  ? ");
}
