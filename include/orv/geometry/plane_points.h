// Points and rectangles of the plane (see geometry.h for the rules of the family).
#pragma once

#include <cmath>
#include <cstdint>

#include "orv/export.h"
#include "orv/framework/string.h"

namespace orv {

/// Absolute tolerance of the geometry, in model units.
inline constexpr double kGeometryTolerance = 1e-10;
inline constexpr double kLargestDouble = 1.7976931348623157e308;
inline constexpr double kSmallestNormalDouble = 2.2250738585072014e-308;

}  // namespace orv

/// A point of the plane, also used as a vector.
class orvBasePoint2d {
  public:
    double x;
    double y;

    static const orvBasePoint2d kZero;
    static const orvBasePoint2d kOne;
    static const orvBasePoint2d kMax;  // the largest finite double, twice
    static const orvBasePoint2d kMin;  // the most negative finite double, twice

    constexpr orvBasePoint2d() noexcept : x(0.0), y(0.0) {}
    constexpr orvBasePoint2d(double newX, double newY) noexcept : x(newX), y(newY) {}

    constexpr void setTo(double newX, double newY) noexcept {
        x = newX;
        y = newY;
    }
    constexpr void setXTo(double newX) noexcept { x = newX; }
    constexpr void setYTo(double newY) noexcept { y = newY; }
    constexpr double getX() const noexcept { return x; }
    constexpr double getY() const noexcept { return y; }

    /// Exact, without tolerance.
    constexpr bool operator==(const orvBasePoint2d& p) const noexcept { return x == p.x && y == p.y; }
    constexpr bool operator!=(const orvBasePoint2d& p) const noexcept { return !(*this == p); }
    /// Both differences below 1e-10.
    bool bIsEqualTo(const orvBasePoint2d& p) const noexcept {
        return std::fabs(x - p.x) < orv::kGeometryTolerance && std::fabs(y - p.y) < orv::kGeometryTolerance;
    }

    constexpr orvBasePoint2d operator+(const orvBasePoint2d& p) const noexcept { return {x + p.x, y + p.y}; }
    constexpr orvBasePoint2d operator-(const orvBasePoint2d& p) const noexcept { return {x - p.x, y - p.y}; }
    constexpr orvBasePoint2d operator*(const double& factor) const noexcept { return {x * factor, y * factor}; }
    constexpr orvBasePoint2d& operator+=(const orvBasePoint2d& p) noexcept {
        x += p.x;
        y += p.y;
        return *this;
    }
    constexpr orvBasePoint2d& operator-=(const orvBasePoint2d& p) noexcept {
        x -= p.x;
        y -= p.y;
        return *this;
    }
    constexpr orvBasePoint2d& operator*=(double factor) noexcept {
        x *= factor;
        y *= factor;
        return *this;
    }
    constexpr orvBasePoint2d& add(const orvBasePoint2d& p) noexcept { return *this += p; }
    constexpr orvBasePoint2d& subtract(const orvBasePoint2d& p) noexcept { return *this -= p; }
    constexpr orvBasePoint2d& multiplyWith(double factor) noexcept { return *this *= factor; }
    /// Divides each coordinate; by 0 that gives infinities or NaN.
    constexpr orvBasePoint2d& divideBy(double divisor) noexcept {
        x /= divisor;
        y /= divisor;
        return *this;
    }

    double getVectorLength() const noexcept { return std::sqrt(x * x + y * y); }
    double getDistanceTo(const orvBasePoint2d& p) const noexcept {
        return std::sqrt((y - p.y) * (y - p.y) + (x - p.x) * (x - p.x));
    }
    constexpr double getDotProduct(const orvBasePoint2d& p) const noexcept { return x * p.x + y * p.y; }
    /// This vector scaled to length 1 (not a perpendicular). Unchanged when its length is at most 1e-10, or within
    /// 1e-10 of 1.
    orvBasePoint2d getNormal() const noexcept {
        const double length = getVectorLength();
        if (length <= orv::kGeometryTolerance || std::fabs(1.0 - length) <= orv::kGeometryTolerance) return *this;
        const double factor = 1.0 / length;
        return {x * factor, y * factor};
    }

    /// Turn in place about the origin. One degree is pi / 180.
    ORV_API orvBasePoint2d& rotateCounterclockwiseRadians(double angle) noexcept;
    ORV_API orvBasePoint2d& rotateClockwiseRadians(double angle) noexcept;
    ORV_API orvBasePoint2d& rotateCounterclockwiseDegrees(double degrees) noexcept;
    ORV_API orvBasePoint2d& rotateClockwiseDegrees(double degrees) noexcept;

    constexpr void setToMaximum() noexcept { setTo(orv::kLargestDouble, orv::kLargestDouble); }
    // ODDITY(point-minimum): the smallest positive normal double, not the most negative one that kMin holds. Hosts tell
    // an unset point by it. Pinned by PlanePoint.MinimumIsTheSmallestPositiveDouble.
    constexpr void setToMinimum() noexcept { setTo(orv::kSmallestNormalDouble, orv::kSmallestNormalDouble); }

    /// "%f / %f": (1, -2.5) => "1.000000 / -2.500000".
    ORV_API CString toString() const;
};

inline constexpr orvBasePoint2d orvBasePoint2d::kZero{0.0, 0.0};
inline constexpr orvBasePoint2d orvBasePoint2d::kOne{1.0, 1.0};
inline constexpr orvBasePoint2d orvBasePoint2d::kMax{orv::kLargestDouble, orv::kLargestDouble};
inline constexpr orvBasePoint2d orvBasePoint2d::kMin{-orv::kLargestDouble, -orv::kLargestDouble};

/// A point with 32-bit coordinates. Arguments are `long` as hosts have it; only their low 32 bits count where a `long`
/// has more.
class orvBasePoint2i {
  public:
    std::int32_t x;
    std::int32_t y;

    constexpr orvBasePoint2i() noexcept : x(0), y(0) {}
    constexpr orvBasePoint2i(long newX, long newY) noexcept
        : x(static_cast<std::int32_t>(newX)), y(static_cast<std::int32_t>(newY)) {}

    constexpr bool operator==(const orvBasePoint2i& p) const noexcept { return x == p.x && y == p.y; }
    constexpr bool operator!=(const orvBasePoint2i& p) const noexcept { return !(*this == p); }
    constexpr long getX() const noexcept { return x; }
    constexpr long getY() const noexcept { return y; }
    constexpr void setTo(long newX, long newY) noexcept { *this = orvBasePoint2i(newX, newY); }
    constexpr void setXTo(long newX) noexcept { x = static_cast<std::int32_t>(newX); }
    constexpr void setYTo(long newY) noexcept { y = static_cast<std::int32_t>(newY); }
    constexpr void setToMaximum() noexcept { x = y = INT32_MAX; }
    constexpr void setToMinimum() noexcept { x = y = INT32_MIN; }
};

/// Two corners as they were given: p1 may lie right of p2 or below it. The y axis points downwards, as on the screen.
class orvBaseRect2i {
  public:
    orvBasePoint2i p1;
    orvBasePoint2i p2;

    constexpr orvBaseRect2i() noexcept = default;
    constexpr orvBaseRect2i(const orvBasePoint2i& newP1, const orvBasePoint2i& newP2) noexcept : p1(newP1), p2(newP2) {}
    // ODDITY(rect-order): four numbers are x1, x2, y1, y2, here and in setTo, while setP1To and setP2To take x, y.
    // Pinned by Rect.FourNumbersAreBothXThenBothY.
    constexpr orvBaseRect2i(long x1, long x2, long y1, long y2) noexcept : p1(x1, y1), p2(x2, y2) {}
    constexpr void setTo(long x1, long x2, long y1, long y2) noexcept { *this = orvBaseRect2i(x1, x2, y1, y2); }
    constexpr void setP1To(long x, long y) noexcept { p1.setTo(x, y); }
    constexpr void setP2To(long x, long y) noexcept { p2.setTo(x, y); }
    constexpr void setToZero() noexcept { *this = orvBaseRect2i(); }

    constexpr bool operator==(const orvBaseRect2i& r) const noexcept { return p1 == r.p1 && p2 == r.p2; }
    constexpr bool operator!=(const orvBaseRect2i& r) const noexcept { return !(*this == r); }

    constexpr long getP1X() const noexcept { return p1.x; }
    constexpr long getP1Y() const noexcept { return p1.y; }
    constexpr long getP2X() const noexcept { return p2.x; }
    constexpr long getP2Y() const noexcept { return p2.y; }
    constexpr long getLeft() const noexcept { return p1.x < p2.x ? p1.x : p2.x; }
    constexpr long getRight() const noexcept { return p1.x > p2.x ? p1.x : p2.x; }
    constexpr long getTop() const noexcept { return p1.y < p2.y ? p1.y : p2.y; }
    constexpr long getBottom() const noexcept { return p1.y > p2.y ? p1.y : p2.y; }
    /// The distance of the corners in 32 bits: a difference beyond them wraps around.
    constexpr long getWidth() const noexcept { return distance(p1.x, p2.x); }
    constexpr long getHeight() const noexcept { return distance(p1.y, p2.y); }

  private:
    static constexpr long distance(std::int32_t a, std::int32_t b) noexcept {
        const std::uint32_t difference = static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b);
        return static_cast<std::int32_t>(static_cast<std::int32_t>(difference) < 0 ? 0U - difference : difference);
    }
};
