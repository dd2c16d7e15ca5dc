#include "frame/message_box_layout.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr LONG kMarginWithoutIcon = 11;
constexpr LONG kCheckBoxHeight = 13;
constexpr LONG kCheckBoxWidth = 13;     // without its text
constexpr LONG kCheckBoxTextSpace = 19; // added to the width of the text

// The smallest positive top. A button placed outside the client area is not in the row.
LONG TopOf(const std::vector<CRect>& buttons) {
    LONG top = 0;
    for (const CRect& button : buttons)
        if (button.top > 0 && (top == 0 || button.top < top))
            top = button.top;
    return top;
}

// Keeps the buttons in the middle of their row, and the row at the bottom.
void Grow(MessageBoxLayout& layout, LONG width, LONG height) {
    layout.windowSize = {layout.windowSize.cx + width, layout.windowSize.cy + height};
    layout.clientSize = {layout.clientSize.cx + width, layout.clientSize.cy + height};
    for (CRect& button : layout.buttons)
        button.OffsetRect(width / 2, height);
}

void AddHeading(MessageBoxLayout& layout, const MessageBoxParts& parts, LONG margin) {
    const MessageBoxHeading& heading = *parts.heading;
    // Without an icon the text's first line is as high as an icon would be.
    const LONG top = parts.icon ? parts.icon->top : parts.text.top;
    layout.heading = CRect(CPoint(parts.text.left, top), heading.extent);
    const LONG widthGrowth =
        std::max<LONG>(0, layout.heading.right + margin - layout.clientSize.cx);

    const LONG shift = layout.heading.bottom - parts.text.top + heading.fontHeight +
                       std::max<LONG>(0, heading.externalLeading);
    layout.text.OffsetRect(0, std::max<LONG>(0, shift));

    // Deliberate: keeps the space below the icon and not that below the text. So the space below a
    // text that is longer than the icon grows.
    const LONG buttonsTop = TopOf(layout.buttons);
    const LONG iconBottom = parts.icon ? parts.icon->bottom : 0;
    const LONG before = buttonsTop - std::max(layout.heading.bottom, iconBottom);
    const LONG after = buttonsTop - std::max(layout.heading.bottom, layout.text.bottom);
    Grow(layout, widthGrowth, std::max<LONG>(0, before - after));
}

void AddCheckBox(MessageBoxLayout& layout, const MessageBoxParts& parts, LONG margin) {
    const LONG textWidth = parts.checkBoxText->cx;
    const LONG width = textWidth > 0 ? textWidth + kCheckBoxTextSpace : kCheckBoxWidth;
    const LONG buttonsTop = TopOf(layout.buttons);
    Grow(layout, std::max<LONG>(0, width + 2 * margin - layout.clientSize.cx),
         kCheckBoxHeight + margin);
    layout.checkBox = CRect(CPoint(margin, buttonsTop),
                            CSize(layout.clientSize.cx - 2 * margin + 1, kCheckBoxHeight));
}

} // namespace

MessageBoxLayout LayOutMessageBox(const MessageBoxParts& parts) {
    MessageBoxLayout layout = {
        parts.clientSize, parts.windowSize, parts.text, parts.buttons, {}, {}};
    const LONG margin = parts.icon ? parts.icon->left : kMarginWithoutIcon;
    if (parts.heading)
        AddHeading(layout, parts, margin);
    if (parts.checkBoxText)
        AddCheckBox(layout, parts, margin);
    return layout;
}

} // namespace quorvel
