// Lines, planes and axis-aligned boxes in space, and where they meet (see geometry.h for the rules of the family).
#pragma once

#include <cstdint>
#include <utility>

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/geometry/vectors.h"

/// The infinite line origin + t * dir. `dir` has any length and is declared first.
class orvBaseLine3d {
  public:
    orvBaseVector3d dir;
    orvBasePoint3d origin;

    /// The x axis.
    constexpr orvBaseLine3d() noexcept : dir(orvBaseVector3d::kXAxis), origin(orvBasePoint3d::kZero) {}
    constexpr orvBaseLine3d(const orvBasePoint3d& newOrigin, const orvBaseVector3d& newDir) noexcept
        : dir(newDir), origin(newOrigin) {}
    /// From p1 to p2: dir = p2 - p1.
    constexpr orvBaseLine3d(const orvBasePoint3d& p1, const orvBasePoint3d& p2) noexcept : dir(p2 - p1), origin(p1) {}

    constexpr void setTo(const orvBasePoint3d& newOrigin, const orvBaseVector3d& newDir) noexcept {
        *this = orvBaseLine3d(newOrigin, newDir);  // the arguments may be this line's own members
    }
    constexpr void setOrigin(const orvBasePoint3d& newOrigin) noexcept { origin = newOrigin; }
    constexpr void setDir(const orvBaseVector3d& newDir) noexcept { dir = newDir; }
    constexpr const orvBasePoint3d& getOrigin() const noexcept { return origin; }
    constexpr const orvBaseVector3d& getDir() const noexcept { return dir; }

    constexpr orvBasePoint3d getPointOnLine(double t) const noexcept { return origin + dir * t; }

    // ODDITY(no-meeting-is-origin): parallel and skew lines, and lines without direction, "meet" in (0, 0, 0), which
    // cannot be told from a meeting there. orv::relateLines tells. Pinned by Line.NoMeetingIsTheOrigin.
    /// The point where both lines meet within 1e-10, else (0, 0, 0).
    orvBasePoint3d intersectsWithLine(orvBaseLine3d other) const noexcept { return meeting(*this, other); }

  private:
    ORV_API static orvBasePoint3d meeting(const orvBaseLine3d& first, const orvBaseLine3d& second) noexcept;
};

/// The plane origin + a * uAxis + b * vAxis. The axes need be neither of unit length nor perpendicular.
class orvBasePlane3d {
  public:
    orvBasePoint3d origin;
    orvBaseVector3d uAxis;
    orvBaseVector3d vAxis;

    /// The xy plane.
    constexpr orvBasePlane3d() noexcept
        : origin(orvBasePoint3d::kZero), uAxis(orvBaseVector3d::kXAxis), vAxis(orvBaseVector3d::kYAxis) {}
    constexpr orvBasePlane3d(const orvBasePoint3d& newOrigin, const orvBaseVector3d& u,
                             const orvBaseVector3d& v) noexcept
        : origin(newOrigin), uAxis(u), vAxis(v) {}
    /// u = p2 - p1, v = p3 - p1.
    constexpr orvBasePlane3d(const orvBasePoint3d& p1, const orvBasePoint3d& p2, const orvBasePoint3d& p3) noexcept
        : origin(p1), uAxis(p2 - p1), vAxis(p3 - p1) {}
    /// u = normal x X (for a normal along X: normal x Y), v = normal x u; neither is normalised.
    ///   normal (1, 0, 0) => u (0, 0, 1), v (0, -1, 0)
    orvBasePlane3d(const orvBasePoint3d& newOrigin, const orvBaseVector3d& normal) noexcept
        : origin(newOrigin),
          uAxis(normal.getCrossProduct(normal.isParallelTo(orvBaseVector3d::kXAxis) ? orvBaseVector3d::kYAxis
                                                                                    : orvBaseVector3d::kXAxis)),
          vAxis(normal.getCrossProduct(uAxis)) {}

    constexpr const orvBasePoint3d& getOrigin() const noexcept { return origin; }
    constexpr const orvBaseVector3d& getUAxis() const noexcept { return uAxis; }
    constexpr const orvBaseVector3d& getVAxis() const noexcept { return vAxis; }
    constexpr void setOrigin(const orvBasePoint3d& newOrigin) noexcept { origin = newOrigin; }
    constexpr void setUAxis(const orvBaseVector3d& u) noexcept { uAxis = u; }
    constexpr void setVAxis(const orvBaseVector3d& v) noexcept { vAxis = v; }
    constexpr void setCoordSystem(const orvBasePoint3d& newOrigin, const orvBaseVector3d& u,
                                  const orvBaseVector3d& v) noexcept {
        *this = orvBasePlane3d(newOrigin, u, v);
    }
    /// The origin as it is, both axes normalised.
    void getCoordSystem(orvBasePoint3d& toOrigin, orvBaseVector3d& u, orvBaseVector3d& v) const noexcept {
        const orvBasePlane3d copy(*this);  // the arguments may be this plane's own members
        toOrigin = copy.origin;
        u = copy.uAxis.getNormal();
        v = copy.vAxis.getNormal();
    }
    /// u x v, not normalised.
    constexpr orvBaseVector3d getNormal() const noexcept { return uAxis.getCrossProduct(vAxis); }

    // ODDITY(plane-parallel): the tolerance is 0.0001, and it is applied to the triple product of the axes and the
    // line's direction as they are, so it depends on their lengths. Pinned by Plane.ParallelTestIsLooseAndUnscaled.
    bool isParallelTo(const orvBaseLine3d& line) const noexcept {
        return std::fabs(line.dir.getCrossProduct(vAxis).getDotProduct(uAxis)) < 0.0001;
    }
    /// Where the line meets the plane. False, and (0, 0, 0), when the determinant of u, v and -dir is at most
    /// 1e-10 in magnitude.
    ORV_API bool getIntersection(const orvBaseLine3d& line, orvBasePoint3d& result) const noexcept;
};

/// An axis-aligned box with its boundary. Empty (the default) is min = kMax, max = kMin: any point added to it makes it
/// that point.
class orvBaseExtents {
  public:
    orvBasePoint3d min;
    orvBasePoint3d max;

    constexpr orvBaseExtents() noexcept : min{orvBasePoint3d::kMax}, max{orvBasePoint3d::kMin} {}
    constexpr orvBaseExtents(const orvBasePoint3d& a, const orvBasePoint3d& b) noexcept { setTo(a, b); }
    // ODDITY(extents-copy): a copy is built from the corners as from any two points, so that the copy of an empty box
    // is the box of everything; assignment keeps it empty. Pinned by Extents.CopyOfTheEmptyBoxEnclosesEverything.
    constexpr orvBaseExtents(const orvBaseExtents& other) noexcept { setTo(other.min, other.max); }
    constexpr orvBaseExtents& operator=(const orvBaseExtents& other) noexcept = default;

    /// Empties the box.
    constexpr void reset() noexcept {
        min = orvBasePoint3d::kMax;
        max = orvBasePoint3d::kMin;
    }
    /// The smallest box around both points.
    constexpr void setTo(const orvBasePoint3d& a, const orvBasePoint3d& b) noexcept {
        const orvBasePoint3d second(b);  // both may be corners of this box
        min = max = orvBasePoint3d(a);
        addPoint(second);
    }
    constexpr void addPoint(const orvBasePoint3d& point) noexcept {
        const orvBasePoint3d p(point);
        if (min.x > p.x) min.x = p.x;
        if (min.y > p.y) min.y = p.y;
        if (min.z > p.z) min.z = p.z;
        if (max.x < p.x) max.x = p.x;
        if (max.y < p.y) max.y = p.y;
        if (max.z < p.z) max.z = p.z;
    }
    /// An empty box adds nothing.
    constexpr void addExt(const orvBaseExtents& e) noexcept {
        if (!e.isValid()) return;
        addPoint(e.min);
        addPoint(e.max);
    }
    constexpr bool isValid() const noexcept { return max.x >= min.x && max.y >= min.y && max.z >= min.z; }
    /// Inside the box grown by 1e-10. Beyond coordinates of about 2^20 the tolerance is below the spacing of doubles,
    /// and a point on the boundary itself is outside.
    constexpr bool isInExtents(const orvBasePoint3d& p) const noexcept {
        constexpr double e = orv::kGeometryTolerance;
        return p.x + e > min.x && p.y + e > min.y && p.z + e > min.z && max.x > p.x - e && max.y > p.y - e &&
               max.z > p.z - e;
    }

    constexpr const orvBasePoint3d& getMinPoint() const noexcept { return min; }
    constexpr const orvBasePoint3d& getMaxPoint() const noexcept { return max; }
    constexpr double getWidth() const noexcept { return max.x - min.x; }
    constexpr double getHeight() const noexcept { return max.y - min.y; }
    constexpr double getDepth() const noexcept { return max.z - min.z; }
    constexpr orvBasePoint3d getCenter() const noexcept { return min + (max - min) * 0.5; }

    /// Where an infinite line meets the faces, looked at in the order x low, x high, z high, z low, y low, y high. The
    /// first two hits go to p1 and p2; a third ends the search and, if it differs from p1 by 1e-10 or more, replaces p2
    /// (a line through an edge hits two faces in one point). One hit: p2 = p1. No hit: p2 = p1 too, and the result is
    /// false.
    ORV_API bool getIntersections(const orvBaseLine3d& line, orvBasePoint3d& p1, orvBasePoint3d& p2) const noexcept;
};

/// Reverses the order of the points, in place.
template <class ARG_TYPE>
void reversePoint3dArray(CArray<orvBasePoint3d, ARG_TYPE>& points) {
    for (std::intptr_t i = 0, last = points.GetSize() - 1; i < last; ++i, --last) {
        std::swap(points.ElementAt(i), points.ElementAt(last));
    }
}

namespace orv {

enum class LineRelation {
    kMeeting,    // the gap is at most the tolerance
    kSkew,       // neither parallel nor meeting
    kParallel,   // the sine of the angle is at most 1e-10; the gap may be 0 (the same line)
    kDegenerate  // a line has no direction, or a number (the gap too) is not finite
};

/// How two lines lie to each other, without the ambiguity of orvBaseLine3d::intersectsWithLine.
struct LineMeeting {
    LineRelation relation;
    orvBasePoint3d onFirst;   // the points where the lines come closest to each other;
    orvBasePoint3d onSecond;  // for parallel lines the first line's origin and its foot on the second
    double gap;               // their distance
};

/// `tolerance` is the largest gap, in model units, that still counts as a meeting. The test for parallel lines does not
/// depend on the lengths of the directions. A line without direction stands for its origin alone.
///   x axis, line through (3, 0, 1) along y => kSkew, (3, 0, 0), (3, 0, 1), 1
///   x axis, line through (0, 2, 0) along x => kParallel, (0, 0, 0), (0, 2, 0), 2
ORV_API LineMeeting relateLines(const orvBaseLine3d& first, const orvBaseLine3d& second,
                                double tolerance = kGeometryTolerance) noexcept;

}  // namespace orv
