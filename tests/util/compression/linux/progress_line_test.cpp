#include "util/compression/linux/progress_line.h"

#include "support/test.h"

#include <cstdlib>

TEST(ProgressLine, IsOneLineThatFitsAndIsWipedOff) {
    const std::tuple<int, const WCHAR*, const WCHAR*, int, std::string, std::size_t> rows[] = {
        {80, _T("Pack"), _T("Wait."), 429, "Pack: Wait. 42%", 15},
        {80, _T("a\nb\r\n"), _T("\x1b[2Jc\td"), 0, "a b : [2Jc d 0%", 15},
        {10, _T("größe"), _T("x"), 0, "größe: 0%", 9},
        {3, _T("Pack"), _T("Wait."), 0, " 0%", 3},
    };
    for (const auto& [columns, caption, status, step, line, width] : rows) {
        char* text = nullptr;
        std::size_t size = 0;
        std::FILE* const out = open_memstream(&text, &size);
        {
            quorvel::ProgressLine shown(out, columns);
            shown.SetCaption(caption);
            shown.SetStatus(status);
            shown.SetStep(step);
            shown.SetStep(step); // looks the same
        }
        std::fclose(out);
        const std::unique_ptr<char, decltype(&std::free)> owner(text, std::free);
        const std::string blanks(width, ' ');
        EXPECT_EQ(std::string(text, size), "\r" + line + "\r" + blanks + "\r");
    }
}
