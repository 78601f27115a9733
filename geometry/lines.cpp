// Two lines: the fixed method of intersectsWithLine, and the full answer of relateLines.
#include <algorithm>

#include "orv/geometry/lines_planes_boxes.h"

orvBasePoint3d orvBaseLine3d::meeting(const orvBaseLine3d& first, const orvBaseLine3d& second) noexcept {
    // The shortest segment between two lines that are each given by two points. The second point stands 1000 directions
    // away, which decides how the tolerances below act on short and long directions.
    constexpr double kSecondPoint = 1000.0;
    const orvBasePoint3d p1 = first.origin;
    const orvBasePoint3d p3 = second.origin;
    const orvBaseVector3d d43 = second.getPointOnLine(kSecondPoint) - p3;
    if (d43.isZero()) return orvBasePoint3d::kZero;
    const orvBaseVector3d d21 = first.getPointOnLine(kSecondPoint) - p1;
    if (d21.isZero()) return orvBasePoint3d::kZero;
    const orvBaseVector3d d13 = p1 - p3;
    const double a = d13.getDotProduct(d43);
    const double b = d43.getDotProduct(d21);
    const double c = d13.getDotProduct(d21);
    const double e = d43.getDotProduct(d43);
    const double f = d21.getDotProduct(d21);
    const double denominator = f * e - b * b;
    if (std::fabs(denominator) < orv::kGeometryTolerance) return orvBasePoint3d::kZero;
    const double mua = (a * b - c * e) / denominator;
    const double mub = (a + b * mua) / e;
    const orvBasePoint3d pa = p1 + d21 * mua;
    const orvBasePoint3d pb = p3 + d43 * mub;
    if (!pa.isEqualTo(pb, orv::kGeometryTolerance)) return orvBasePoint3d::kZero;
    return pa;
}

namespace orv {
namespace {

// The direction with length 1, or zero when there is none. Scaled first, so that no square over- or underflows.
orvBaseVector3d unitDirection(const orvBaseVector3d& dir) {
    const double largest = std::max({std::fabs(dir.x), std::fabs(dir.y), std::fabs(dir.z)});
    if (!(largest > 0.0) || !std::isfinite(largest)) return orvBaseVector3d::kZero;
    const orvBaseVector3d scaled(dir.x / largest, dir.y / largest, dir.z / largest);
    return scaled * (1.0 / scaled.getLength());
}

bool isFinite(const orvBaseLine3d& line) {
    const orvBaseVector3d& d = line.dir;
    const orvBasePoint3d& o = line.origin;
    return std::isfinite(d.x) && std::isfinite(d.y) && std::isfinite(d.z) && std::isfinite(o.x) && std::isfinite(o.y) &&
           std::isfinite(o.z);
}

}  // namespace

LineMeeting relateLines(const orvBaseLine3d& first, const orvBaseLine3d& second, double tolerance) noexcept {
    LineMeeting meeting{LineRelation::kDegenerate, first.origin, second.origin, 0.0};
    const orvBaseVector3d u = unitDirection(first.dir);
    const orvBaseVector3d v = unitDirection(second.dir);
    const orvBaseVector3d between = second.origin - first.origin;
    const orvBaseVector3d normal = u.getCrossProduct(v);
    const double sine2 = normal.getDotProduct(normal);
    if (sine2 > 1e-20) {  // the sine above 1e-10
        meeting.onFirst = first.origin + u * (between.getCrossProduct(v).getDotProduct(normal) / sine2);
        // The foot of the first point: a parameter of its own would stray along its line when the angle is small.
        meeting.onSecond = second.origin + v * (meeting.onFirst - second.origin).getDotProduct(v);
    } else if (u.getDotProduct(u) > 0.0 && v.getDotProduct(v) == 0.0) {
        meeting.onFirst = first.origin + u * between.getDotProduct(u);
    } else {
        meeting.onSecond = second.origin - v * between.getDotProduct(v);
    }
    meeting.gap = meeting.onFirst.getDistanceTo(meeting.onSecond);
    const bool haveDirections = u.getDotProduct(u) > 0.0 && v.getDotProduct(v) > 0.0;
    if (!haveDirections || !isFinite(first) || !isFinite(second) || !std::isfinite(meeting.gap)) return meeting;
    meeting.relation = sine2 <= 1e-20             ? LineRelation::kParallel
                       : meeting.gap <= tolerance ? LineRelation::kMeeting
                                                  : LineRelation::kSkew;
    return meeting;
}

}  // namespace orv
