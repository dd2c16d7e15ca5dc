// The geometry of a message box with a heading or a check box, compared with rectangles calculated
// by hand.
#include "frame/message_box_layout.h"

#include <gtest/gtest.h>

#include <ostream>

using quorvel::LayOutMessageBox;
using quorvel::MessageBoxLayout;
using quorvel::MessageBoxParts;

void PrintTo(const CRect& rect, std::ostream* stream) {
    *stream << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom;
}
void PrintTo(const CSize& size, std::ostream* stream) {
    *stream << size.cx << 'x' << size.cy;
}

namespace {

struct Row {
    const char* label;
    MessageBoxParts parts;
    MessageBoxLayout expected;
};

const CRect kIcon(11, 11, 43, 43);
const CRect kLine(60, 19, 240, 35);
const CRect kButton(110, 80, 190, 104);
const CRect kLow(110, 130, 190, 154);
const CSize kClient(300, 120);
const CSize kWindow(306, 148);
const CSize kTall(300, 170);
const CSize kTallWindow(306, 198);

const Row kRows[] = {
    {"external leading moves the text",
     {kClient, kWindow, kIcon, kLine, {kButton}, {{{100, 16}, 16, 2}}, {}},
     {{300, 138}, {306, 166}, {60, 45, 240, 61}, {{110, 98, 190, 122}}, {60, 11, 160, 27}, {}}},
    {"wide heading, odd growth halved for the buttons",
     {kClient, kWindow, kIcon, kLine, {kButton}, {{{260, 16}, 16, 0}}, {}},
     {{331, 136}, {337, 164}, {60, 43, 240, 59}, {{125, 96, 205, 120}}, {60, 11, 320, 27}, {}}},
    {"text longer than the icon",
     {kTall, kTallWindow, kIcon, {60, 11, 240, 107}, {kLow}, {{{100, 16}, 16, 2}}, {}},
     {{300, 268}, {306, 296}, {60, 45, 240, 141}, {{110, 228, 190, 252}}, {60, 11, 160, 27}, {}}},
    {"text below the heading already",
     {kTall, kTallWindow, kIcon, {60, 90, 240, 106}, {kLow}, {{{100, 16}, 16, 0}}, {}},
     {{300, 233}, {306, 261}, {60, 90, 240, 106}, {{110, 193, 190, 217}}, {60, 11, 160, 27}, {}}},
    {"no icon",
     {kClient, kWindow, {}, {11, 11, 191, 27}, {kButton}, {{{100, 16}, 16, 0}}, {}},
     {{300, 152}, {306, 180}, {11, 43, 191, 59}, {{110, 112, 190, 136}}, {11, 11, 111, 27}, {}}},
    {"check box without a text",
     {{30, 120}, {36, 148}, kIcon, kLine, {kButton}, {}, {{0, 0}}},
     {{35, 144}, {41, 172}, kLine, {{112, 104, 192, 128}}, {}, {11, 80, 25, 93}}},
    {"margin of the icon",
     {kClient, kWindow, {{20, 11, 52, 43}}, kLine, {kButton}, {}, {{150, 13}}},
     {{300, 153}, {306, 181}, kLine, {{110, 113, 190, 137}}, {}, {20, 80, 281, 93}}},
    {"a button at the top edge does not count for the row, but moves",
     {kClient, kWindow, kIcon, kLine, {{5, 0, 15, 10}, kButton}, {}, {{150, 13}}},
     {{300, 144},
      {306, 172},
      kLine,
      {{5, 24, 15, 34}, {110, 104, 190, 128}},
      {},
      {11, 80, 290, 93}}},
    {"both",
     {kClient, kWindow, kIcon, kLine, {kButton}, {{{260, 16}, 16, 0}}, {{300, 13}}},
     {{341, 160},
      {347, 188},
      {60, 43, 240, 59},
      {{130, 120, 210, 144}},
      {60, 11, 320, 27},
      {11, 96, 331, 109}}},
};

TEST(MessageBoxLayout, GivesHeadingAndCheckBoxTheirPlace) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.label);
        const MessageBoxLayout layout = LayOutMessageBox(row.parts);
        EXPECT_EQ(layout.clientSize, row.expected.clientSize);
        EXPECT_EQ(layout.windowSize, row.expected.windowSize);
        EXPECT_EQ(layout.text, row.expected.text);
        EXPECT_EQ(layout.buttons, row.expected.buttons);
        EXPECT_EQ(layout.heading, row.expected.heading);
        EXPECT_EQ(layout.checkBox, row.expected.checkBox);
    }
}

} // namespace
