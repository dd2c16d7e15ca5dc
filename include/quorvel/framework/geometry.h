// CPoint, CSize and CRect: the platform's records with the framework's arithmetic. Copyable.
#pragma once

#include <quorvel/platform/platform.h>

class CSize : public SIZE { // a width and a height
public:
    // Both members are 0, the arguments, or those of the record.
    constexpr CSize() : SIZE{} {}
    constexpr CSize(LONG width, LONG height) : SIZE{width, height} {}
    constexpr CSize(const SIZE& size) : SIZE(size) {}
};

class CPoint : public POINT { // a place
public:
    // Both members are 0, the arguments, or those of the record.
    constexpr CPoint() : POINT{} {}
    constexpr CPoint(LONG left, LONG top) : POINT{left, top} {}
    constexpr CPoint(const POINT& point) : POINT(point) {}
};

// The right and bottom edges are outside the rectangle.
class CRect : public RECT {
public:
    // Left, top, right and bottom edge. Without arguments all are 0. The edges may be in any order.
    constexpr CRect() : RECT{} {}
    constexpr CRect(LONG l, LONG t, LONG r, LONG b) : RECT{l, t, r, b} {}
    constexpr CRect(const RECT& rect) : RECT(rect) {}
    constexpr CRect(POINT topLeft, SIZE size)
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy} {}

    // A rectangle whose edges are in the wrong order has a negative size and counts as empty.
    constexpr LONG Width() const { return right - left; }
    constexpr LONG Height() const { return bottom - top; }
    constexpr CSize Size() const { return {Width(), Height()}; }
    constexpr CPoint TopLeft() const { return {left, top}; }
    constexpr bool IsRectEmpty() const { return Width() <= 0 || Height() <= 0; }
    constexpr void OffsetRect(LONG x, LONG y) {
        left += x;
        right += x;
        top += y;
        bottom += y;
    }

    // For functions that take the address of a rectangle.
    constexpr operator RECT*() { return this; }
    constexpr operator const RECT*() const { return this; }
};

// Equal when all members are equal.
constexpr bool operator==(const CSize& left, const CSize& right) {
    return left.cx == right.cx && left.cy == right.cy;
}
constexpr bool operator==(const CPoint& left, const CPoint& right) {
    return left.x == right.x && left.y == right.y;
}
constexpr bool operator==(const CRect& left, const CRect& right) {
    return left.left == right.left && left.top == right.top && left.right == right.right &&
           left.bottom == right.bottom;
}
