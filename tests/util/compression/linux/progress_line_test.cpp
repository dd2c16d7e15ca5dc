#include "util/compression/linux/progress_line.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

// What the actions write to a terminal of that many columns; the line's end is written last.
template <class Actions>
std::string Written(int columns, Actions actions) {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const out = open_memstream(&text, &size);
    {
        quorvel::ProgressLine line(out, columns);
        actions(line);
    }
    std::fclose(out);
    const std::string written(text, size);
    std::free(text);
    return written;
}

std::string Line(int columns, const WCHAR* caption, const WCHAR* status, int step) {
    return Written(columns, [=](quorvel::ProgressLine& line) {
        line.SetCaption(caption);
        line.SetStatus(status);
        line.SetStep(step);
    });
}

} // namespace

TEST(ProgressLine, IsOneLineThatFitsAndIsWipedOff) {
    const auto blanks = [](int count) {
        return "\r" + std::string(static_cast<std::size_t>(count), ' ') + "\r";
    };
    EXPECT_EQ(Line(80, _T("Pack"), _T("Wait."), 429), "\rPack: Wait. 42%" + blanks(15));
    EXPECT_EQ(Line(80, _T(""), _T("Wait."), 0), "\rWait. 0%" + blanks(8));
    EXPECT_EQ(Line(80, _T("Pack"), _T(""), 1000), "\rPack 100%" + blanks(9));
    EXPECT_EQ(Line(80, _T("a\nb\r\n"), _T("\x1b[2Jc\td"), 0), "\ra b : [2Jc d 0%" + blanks(15));
    EXPECT_EQ(Line(10, _T("größe"), _T("x"), 0), "\rgröße: 0%" + blanks(9));
    EXPECT_EQ(Line(3, _T("Pack"), _T("Wait."), 0), "\r 0%" + blanks(3));
    EXPECT_EQ(Written(80, [](quorvel::ProgressLine& line) { line.SetCaption(_T("x")); }), "");
    EXPECT_EQ(Written(80,
                      [](quorvel::ProgressLine& line) {
                          line.SetStatus(_T("Working"));
                          line.SetStep(100);
                          line.SetStep(104); // the same line
                          line.SetStatus(_T("Done"));
                      }),
              "\rWorking 10%\rDone 10%   " + blanks(8));
}
