// CVector2D: a vector in the plane.
//
// Plain arithmetic of doubles, without checks. Nothing throws. One thread at a time may use an
// object.
#pragma once

#include <quorvel/platform/platform.h>

class QUORVEL_API CVector2D {
public:
    // The components of a new vector.
    static constexpr double DEFAULT_X = 1.0;
    static constexpr double DEFAULT_Y = 1.0;

    CVector2D() noexcept = default;
    CVector2D(double newX, double newY) noexcept : x(newX), y(newY) {} // not checked
    CVector2D(const POINT& from, const POINT& to) noexcept;            // exact for all points
    CVector2D(const CVector2D& other) noexcept = default;
    CVector2D& operator=(const CVector2D& other) noexcept = default;

    // Components are compared exactly.
    BOOL operator==(const CVector2D& other) const noexcept;
    BOOL operator!=(const CVector2D& other) const noexcept;

    double GetSquared() const noexcept;   // x * x + y * y
    double GetMagnitude() const noexcept; // its square root

    // a.x * b.x + a.y * b.y
    static double GetDotProduct(const CVector2D& a, const CVector2D& b) noexcept;
    // The distance of the point `a` from the line through the origin in direction `b`. Not finite
    // when `b` is zero.
    static double GetLengthOfNormal(const CVector2D& a, const CVector2D& b) noexcept;

    // Both may be set directly.
    double x = DEFAULT_X;
    double y = DEFAULT_Y;
};

// Subtracts the components.
QUORVEL_API CVector2D operator-(const CVector2D& left, const CVector2D& right) noexcept;
