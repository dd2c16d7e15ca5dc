#include "update/win/priority_marks.h"

#include <quorvel/framework/win/dc.h>

#include "controls/win/high_contrast.h"

#include <iterator>

namespace quorvel {

namespace {

constexpr COLORREF kTransparent = RGB(255, 0, 255); // no mark uses this colour

void DrawShape(CDC& dc, int priority, int side) {
    const int third = side / 3;
    if (priority == CUpdateListingItem::PRIORITY_HIGH) {
        const int left = side / 2 - side / 8;
        const int right = left + side / 4 + 1;
        const int gap = side - side / 3;
        const CRect bar(left, 0, right, gap);
        const CRect dot(left, gap + 1, right, side);
        dc.Rectangle(bar);
        dc.Rectangle(dot);
    } else if (priority == CUpdateListingItem::PRIORITY_NORMAL) {
        const CRect bar(third, side / 2, side - third, side / 2 + 2);
        dc.Rectangle(bar);
    } else {
        const POINT corners[] = {{1, third}, {side - 2, third}, {side / 2, side - third + 1}};
        dc.Polygon(corners, static_cast<int>(std::size(corners)));
    }
}

void AddMark(CImageList& images, int priority, COLORREF color) {
    const int side = SideOfPriorityMarks();
    CClientDC screen(nullptr);
    CDC dc;
    CBitmap bitmap;
    if (!dc.CreateCompatibleDC(&screen) || !bitmap.CreateCompatibleBitmap(screen, side, side))
        return;
    {
        const int saved = dc.SaveDC();
        CPen pen(PS_SOLID, 1, color);
        CBrush brush(color);
        dc.SelectObject(&bitmap);
        dc.FillSolidRect(CRect(0, 0, side, side), kTransparent);
        dc.SelectObject(&pen);
        dc.SelectObject(&brush);
        DrawShape(dc, priority, side);
        dc.RestoreDC(saved);
    }
    images.Add(&bitmap, kTransparent);
}

// Red only with the usual background: on a user's own colours it might be invisible.
COLORREF ColorOfHighPriority() {
    const bool isUsual = !IsHighContrast() && ::GetSysColor(COLOR_WINDOW) == RGB(255, 255, 255);
    return isUsual ? RGB(192, 0, 0) : ::GetSysColor(COLOR_WINDOWTEXT);
}

} // namespace

int SideOfPriorityMarks() {
    return ::GetSystemMetrics(SM_CXSMICON) * 3 / 4;
}

void MakePriorityMarks(CImageList& images) {
    const int side = SideOfPriorityMarks();
    images.DeleteImageList();
    images.Create(side, side, ILC_COLOR24 | ILC_MASK, kMarkOfHeader + 1, 0);
    const COLORREF text = ::GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF selected = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
    for (int priority = 0; priority < kMarkOfSelected; ++priority)
        AddMark(images, priority,
                priority == CUpdateListingItem::PRIORITY_HIGH ? ColorOfHighPriority() : text);
    for (int priority = 0; priority < kMarkOfSelected; ++priority)
        AddMark(images, priority, selected);
    AddMark(images, CUpdateListingItem::PRIORITY_HIGH, ::GetSysColor(COLOR_BTNTEXT));
}

} // namespace quorvel
