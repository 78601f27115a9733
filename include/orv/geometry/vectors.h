// Points and vectors of space (see geometry.h for the rules of the family).
//
// Both are three doubles, x, y, z, and share their operations; a point can be seen in place as a vector (asVector).
#pragma once

#include <cmath>

#include "orv/export.h"
#include "orv/geometry/plane_points.h"

/// A vector. It may alias other types of its layout, so that asVector() is sound under optimisation.
class ORV_MAY_ALIAS orvBaseVector3d {
  public:
    double x;
    double y;
    double z;

    static const orvBaseVector3d kZero;
    static const orvBaseVector3d kOne;
    static const orvBaseVector3d kMax;  // the largest finite double in each component
    static const orvBaseVector3d kMin;  // the most negative finite double in each component
    static const orvBaseVector3d kXAxis;
    static const orvBaseVector3d kYAxis;
    static const orvBaseVector3d kZAxis;

    constexpr orvBaseVector3d() noexcept : x(0.0), y(0.0), z(0.0) {}
    constexpr orvBaseVector3d(double newX, double newY, double newZ) noexcept : x(newX), y(newY), z(newZ) {}

    constexpr void setTo(double newX, double newY, double newZ) noexcept {
        x = newX;
        y = newY;
        z = newZ;
    }
    constexpr void setTo(const orvBaseVector3d& v) noexcept { *this = v; }
    constexpr void setX(double newX) noexcept { x = newX; }
    constexpr void setY(double newY) noexcept { y = newY; }
    constexpr void setZ(double newZ) noexcept { z = newZ; }
    constexpr double getX() const noexcept { return x; }
    constexpr double getY() const noexcept { return y; }
    constexpr double getZ() const noexcept { return z; }

    /// Component 0 = x, 1 = y, 2 = z. There is no range check; whatever is above 1 means z.
    constexpr double& operator[](unsigned int i) noexcept { return i == 0 ? x : i == 1 ? y : z; }
    constexpr double operator[](unsigned int i) const noexcept { return i == 0 ? x : i == 1 ? y : z; }

    constexpr orvBaseVector3d operator*(double factor) const noexcept { return {x * factor, y * factor, z * factor}; }
    constexpr orvBaseVector3d& operator*=(double factor) noexcept { return *this = *this * factor; }
    constexpr orvBaseVector3d& operator/=(double divisor) noexcept {
        setTo(x / divisor, y / divisor, z / divisor);
        return *this;
    }
    constexpr orvBaseVector3d operator-() const noexcept { return {-x, -y, -z}; }
    constexpr orvBaseVector3d getNegateVec() const noexcept { return -*this; }
    constexpr orvBaseVector3d operator+(const orvBaseVector3d& v) const noexcept { return {x + v.x, y + v.y, z + v.z}; }
    constexpr orvBaseVector3d operator-(const orvBaseVector3d& v) const noexcept { return {x - v.x, y - v.y, z - v.z}; }
    constexpr orvBaseVector3d& operator+=(const orvBaseVector3d& v) noexcept { return *this = *this + v; }
    constexpr orvBaseVector3d& operator-=(const orvBaseVector3d& v) noexcept { return *this = *this - v; }

    /// The largest of the signed components.
    constexpr double getLargestComponent() const noexcept {
        const double yOrZ = y < z ? z : y;
        return x < yOrZ ? yOrZ : x;
    }

    double getLength() const noexcept { return std::sqrt(x * x + y * y + z * z); }
    constexpr double getDotProduct(const orvBaseVector3d& v) const noexcept { return x * v.x + y * v.y + z * v.z; }
    static constexpr double getDotProduct(const orvBaseVector3d& a, const orvBaseVector3d& b) noexcept {
        return a.getDotProduct(b);
    }
    /// this x v (right-handed).
    constexpr orvBaseVector3d getCrossProduct(const orvBaseVector3d& v) const noexcept {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    static constexpr orvBaseVector3d getCrossProduct(const orvBaseVector3d& a, const orvBaseVector3d& b) noexcept {
        return a.getCrossProduct(b);
    }
    double getDistanceTo(const orvBaseVector3d& v) const noexcept { return (*this - v).getLength(); }
    static double getDistanceTo(const orvBaseVector3d& a, const orvBaseVector3d& b) noexcept {
        return a.getDistanceTo(b);
    }
    /// 0..pi. NaN when one of the vectors is zero.
    ORV_API double getAngleTo(const orvBaseVector3d& v) const noexcept;
    static double getAngleTo(const orvBaseVector3d& a, const orvBaseVector3d& b) noexcept { return a.getAngleTo(b); }

    bool isZero() const noexcept {
        return std::fabs(x) < orv::kGeometryTolerance && std::fabs(y) < orv::kGeometryTolerance &&
               std::fabs(z) < orv::kGeometryTolerance;
    }
    bool isEqualTo(const orvBaseVector3d& v) const noexcept { return (*this - v).isZero(); }
    /// Parallel or antiparallel: the raw cross product is zero within the tolerance, which is stricter for longer
    /// vectors.
    bool isParallelTo(const orvBaseVector3d& v) const noexcept { return getCrossProduct(v).isZero(); }
    static bool isParallelTo(const orvBaseVector3d& a, const orvBaseVector3d& b) noexcept { return a.isParallelTo(b); }
    /// The same direction, not the opposite one.
    bool isCodirectionalTo(const orvBaseVector3d& v) const noexcept {
        return (getNormal() - v.getNormal()).getLength() < orv::kGeometryTolerance;
    }
    bool isPerpendicularTo(const orvBaseVector3d& v) const noexcept {
        return std::fabs(getDotProduct(v)) < orv::kGeometryTolerance;
    }
    static bool isPerpendicularTo(const orvBaseVector3d& a, const orvBaseVector3d& b) noexcept {
        return a.isPerpendicularTo(b);
    }

    /// Scales to length 1 by one multiplication with 1/length. Unchanged when the length is at most 1e-10 (so a zero
    /// vector stays zero), or within 1e-10 of 1.
    orvBaseVector3d& normalize() noexcept { return *this = getNormal(); }
    orvBaseVector3d getNormal() const noexcept {
        const double length = getLength();
        if (std::fabs(length) <= orv::kGeometryTolerance || std::fabs(1.0 - length) <= orv::kGeometryTolerance) {
            return *this;
        }
        return *this * (1.0 / length);
    }
    /// A perpendicular, not normalised: this x Z, or for a vector along Z this x Y.
    ///   (1, 0, 0) => (0, -1, 0)     (0, 0, 2) => (-2, 0, 0)
    orvBaseVector3d getPerpVector() const noexcept;

    /// Turns right-handed about the axis, in place; the axis is normalised by getNormal. An angle of exactly 0 changes
    /// no bit. orvBaseMatrix3d::getRotationMatrix turns the other way.
    ///   (1, 0, 0) about Z by pi/2 => (0, 1, 0)
    ORV_API orvBaseVector3d& rotate(const orvBaseVector3d& axis, double angle) noexcept;
    static orvBaseVector3d getRotated(const orvBaseVector3d& v, const orvBaseVector3d& axis, double angle) noexcept {
        orvBaseVector3d copy(v);
        return copy.rotate(axis, angle);
    }
};

inline constexpr orvBaseVector3d orvBaseVector3d::kZero{0.0, 0.0, 0.0};
inline constexpr orvBaseVector3d orvBaseVector3d::kOne{1.0, 1.0, 1.0};
inline constexpr orvBaseVector3d orvBaseVector3d::kMax{orv::kLargestDouble, orv::kLargestDouble, orv::kLargestDouble};
inline constexpr orvBaseVector3d orvBaseVector3d::kMin{-orv::kLargestDouble, -orv::kLargestDouble,
                                                       -orv::kLargestDouble};
inline constexpr orvBaseVector3d orvBaseVector3d::kXAxis{1.0, 0.0, 0.0};
inline constexpr orvBaseVector3d orvBaseVector3d::kYAxis{0.0, 1.0, 0.0};
inline constexpr orvBaseVector3d orvBaseVector3d::kZAxis{0.0, 0.0, 1.0};

inline orvBaseVector3d orvBaseVector3d::getPerpVector() const noexcept {
    const orvBaseVector3d perpendicular = getCrossProduct(kZAxis);
    return perpendicular.getLength() < orv::kGeometryTolerance ? getCrossProduct(kYAxis) : perpendicular;
}

/// A point.
class orvBasePoint3d {
  public:
    double x;
    double y;
    double z;

    static const orvBasePoint3d kZero;
    static const orvBasePoint3d kOne;
    static const orvBasePoint3d kMax;  // the largest finite double in each coordinate
    static const orvBasePoint3d kMin;  // the most negative finite double in each coordinate

    constexpr orvBasePoint3d() noexcept : x(0.0), y(0.0), z(0.0) {}
    constexpr orvBasePoint3d(double newX, double newY, double newZ) noexcept : x(newX), y(newY), z(newZ) {}
    constexpr orvBasePoint3d(const orvBaseVector3d& v) noexcept : x(v.x), y(v.y), z(v.z) {}

    constexpr void setTo(double newX, double newY, double newZ) noexcept {
        x = newX;
        y = newY;
        z = newZ;
    }
    constexpr void setTo(const orvBasePoint3d& p) noexcept { *this = p; }
    constexpr void setTo(const orvBaseVector3d& v) noexcept { setTo(v.x, v.y, v.z); }
    constexpr void setX(double newX) noexcept { x = newX; }
    constexpr void setY(double newY) noexcept { y = newY; }
    constexpr void setZ(double newZ) noexcept { z = newZ; }
    constexpr double getX() const noexcept { return x; }
    constexpr double getY() const noexcept { return y; }
    constexpr double getZ() const noexcept { return z; }

    /// Coordinate 0 = x, 1 = y, 2 = z. There is no range check; whatever is above 1 means z.
    constexpr double& operator[](unsigned int i) noexcept { return i == 0 ? x : i == 1 ? y : z; }
    constexpr double operator[](unsigned int i) const noexcept { return i == 0 ? x : i == 1 ? y : z; }

    constexpr orvBasePoint3d operator*(double factor) const noexcept { return {x * factor, y * factor, z * factor}; }
    constexpr orvBasePoint3d operator/(double divisor) const noexcept {
        return {x / divisor, y / divisor, z / divisor};
    }
    constexpr orvBasePoint3d& operator*=(double factor) noexcept { return *this = *this * factor; }
    constexpr orvBasePoint3d& operator/=(double divisor) noexcept { return *this = *this / divisor; }
    constexpr orvBasePoint3d operator-() const noexcept { return {-x, -y, -z}; }
    constexpr orvBasePoint3d operator+(const orvBaseVector3d& v) const noexcept { return {x + v.x, y + v.y, z + v.z}; }
    constexpr orvBasePoint3d operator-(const orvBaseVector3d& v) const noexcept { return {x - v.x, y - v.y, z - v.z}; }
    /// The vector from `p` to this point.
    constexpr orvBaseVector3d operator-(const orvBasePoint3d& p) const noexcept { return {x - p.x, y - p.y, z - p.z}; }
    constexpr orvBasePoint3d& operator+=(const orvBaseVector3d& v) noexcept { return *this = *this + v; }
    constexpr orvBasePoint3d& operator-=(const orvBaseVector3d& v) noexcept { return *this = *this - v; }

    /// The largest of the signed coordinates.
    constexpr double getLargestComponent() const noexcept {
        const double yOrZ = y < z ? z : y;
        return x < yOrZ ? yOrZ : x;
    }

    /// p - this.
    constexpr orvBaseVector3d getVectorTo(const orvBasePoint3d& p) const noexcept { return p - *this; }
    double getDistanceTo(const orvBasePoint3d& p) const noexcept { return getVectorTo(p).getLength(); }
    static double getDistanceTo(const orvBasePoint3d& a, const orvBasePoint3d& b) noexcept {
        return a.getDistanceTo(b);
    }
    /// All three differences are smaller than `tolerance`.
    bool isEqualTo(const orvBasePoint3d& p, double tolerance) const noexcept {
        return std::fabs(x - p.x) < tolerance && std::fabs(y - p.y) < tolerance && std::fabs(z - p.z) < tolerance;
    }

    /// The same storage seen as a vector: what is written through it changes this point.
    orvBaseVector3d& asVector() noexcept { return reinterpret_cast<orvBaseVector3d&>(*this); }
    const orvBaseVector3d& asVector() const noexcept { return reinterpret_cast<const orvBaseVector3d&>(*this); }
};

inline constexpr orvBasePoint3d orvBasePoint3d::kZero{0.0, 0.0, 0.0};
inline constexpr orvBasePoint3d orvBasePoint3d::kOne{1.0, 1.0, 1.0};
inline constexpr orvBasePoint3d orvBasePoint3d::kMax{orv::kLargestDouble, orv::kLargestDouble, orv::kLargestDouble};
inline constexpr orvBasePoint3d orvBasePoint3d::kMin{-orv::kLargestDouble, -orv::kLargestDouble, -orv::kLargestDouble};

static_assert(sizeof(orvBasePoint3d) == 24 && sizeof(orvBaseVector3d) == 24 && sizeof(orvBasePoint2d) == 16);
