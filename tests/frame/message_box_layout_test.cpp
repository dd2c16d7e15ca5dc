// The geometry of a message box with a heading or a check box, compared with rectangles calculated
// by hand.
#include "frame/message_box_layout.h"

#include <gtest/gtest.h>

#include <sstream>

using quorvel::MessageBoxLayout;
using quorvel::MessageBoxParts;

namespace {

// Client area and window, then the rectangles of the parts.
std::string TextOf(const MessageBoxLayout& layout) {
    std::ostringstream text;
    text << layout.clientSize.cx << 'x' << layout.clientSize.cy << " in " << layout.windowSize.cx
         << 'x' << layout.windowSize.cy;
    const auto add = [&text](const char* label, const CRect& rect) {
        if (rect != CRect())
            text << label << rect.left << ',' << rect.top << '-' << rect.right << ','
                 << rect.bottom;
    };
    add(", heading ", layout.heading);
    add(", text ", layout.text);
    for (const CRect& button : layout.buttons)
        add(", button ", button);
    add(", check ", layout.checkBox);
    return text.str();
}

struct Row {
    const char* label;
    MessageBoxParts parts;
    const char* layout;
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
     "300x138 in 306x166, heading 60,11-160,27, text 60,45-240,61, button 110,98-190,122"},
    {"wide heading, odd growth halved for the buttons",
     {kClient, kWindow, kIcon, kLine, {kButton}, {{{260, 16}, 16, 0}}, {}},
     "331x136 in 337x164, heading 60,11-320,27, text 60,43-240,59, button 125,96-205,120"},
    {"text longer than the icon",
     {kTall, kTallWindow, kIcon, {60, 11, 240, 107}, {kLow}, {{{100, 16}, 16, 2}}, {}},
     "300x268 in 306x296, heading 60,11-160,27, text 60,45-240,141, button 110,228-190,252"},
    {"text below the heading already",
     {kTall, kTallWindow, kIcon, {60, 90, 240, 106}, {kLow}, {{{100, 16}, 16, 0}}, {}},
     "300x233 in 306x261, heading 60,11-160,27, text 60,90-240,106, button 110,193-190,217"},
    {"no icon",
     {kClient, kWindow, {}, {11, 11, 191, 27}, {kButton}, {{{100, 16}, 16, 0}}, {}},
     "300x152 in 306x180, heading 11,11-111,27, text 11,43-191,59, button 110,112-190,136"},
    {"check box without a text",
     {{30, 120}, {36, 148}, kIcon, kLine, {kButton}, {}, {{0, 0}}},
     "35x144 in 41x172, text 60,19-240,35, button 112,104-192,128, check 11,80-25,93"},
    {"margin of the icon",
     {kClient, kWindow, {{20, 11, 52, 43}}, kLine, {kButton}, {}, {{150, 13}}},
     "300x153 in 306x181, text 60,19-240,35, button 110,113-190,137, check 20,80-281,93"},
    {"a button at the top edge does not count for the row, but moves",
     {kClient, kWindow, kIcon, kLine, {{5, 0, 15, 10}, kButton}, {}, {{150, 13}}},
     "300x144 in 306x172, text 60,19-240,35, button 5,24-15,34, button 110,104-190,128, "
     "check 11,80-290,93"},
    {"both",
     {kClient, kWindow, kIcon, kLine, {kButton}, {{{260, 16}, 16, 0}}, {{300, 13}}},
     "341x160 in 347x188, heading 60,11-320,27, text 60,43-240,59, button 130,120-210,144, "
     "check 11,96-331,109"},
};

TEST(MessageBoxLayout, GivesHeadingAndCheckBoxTheirPlace) {
    for (const Row& row : kRows)
        EXPECT_EQ(TextOf(LayOutMessageBox(row.parts)), row.layout) << row.label;
}

} // namespace
