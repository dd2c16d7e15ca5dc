// Lays out a message box that gets a heading or a check box. All lengths are pixels,
// all rectangles are in the box's client coordinates.
#pragma once

#include <quorvel/framework/geometry.h>

#include <optional>
#include <vector>

namespace quorvel {

struct MessageBoxHeading {
    CSize extent;    // of its text on one line, in the bold font
    LONG fontHeight; // of the bold font
    LONG externalLeading;
};

struct MessageBoxParts {
    CSize clientSize;
    CSize windowSize;
    std::optional<CRect> icon;
    CRect text;
    std::vector<CRect> buttons;
    std::optional<MessageBoxHeading> heading;
    std::optional<CSize> checkBoxText; // its extent on one line; 0 by 0 when it is empty
};

struct MessageBoxLayout {
    CSize clientSize;
    CSize windowSize;
    CRect text;
    std::vector<CRect> buttons;
    CRect heading;  // empty when the box has no heading
    CRect checkBox; // empty when the box has no check box
};

MessageBoxLayout LayOutMessageBox(const MessageBoxParts& parts);

} // namespace quorvel
