#include <quorvel/types/vector2d.h>

#include <cmath>

CVector2D::CVector2D(const POINT& from, const POINT& to) noexcept
    : x(static_cast<double>(to.x) - from.x), y(static_cast<double>(to.y) - from.y) {}

BOOL CVector2D::operator==(const CVector2D& other) const noexcept {
    return x == other.x && y == other.y;
}

BOOL CVector2D::operator!=(const CVector2D& other) const noexcept {
    return !(*this == other);
}

double CVector2D::GetSquared() const noexcept {
    return GetDotProduct(*this, *this);
}

double CVector2D::GetMagnitude() const noexcept {
    return std::sqrt(GetSquared());
}

double CVector2D::GetDotProduct(const CVector2D& a, const CVector2D& b) noexcept {
    return a.x * b.x + a.y * b.y;
}

double CVector2D::GetLengthOfNormal(const CVector2D& a, const CVector2D& b) noexcept {
    const double k = GetDotProduct(a, b) / b.GetSquared();
    return (a - CVector2D(k * b.x, k * b.y)).GetMagnitude();
}

CVector2D operator-(const CVector2D& left, const CVector2D& right) noexcept {
    return {left.x - right.x, left.y - right.y};
}
