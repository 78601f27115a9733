// Where a line meets a plane and a box.
#include <emmintrin.h>

#include <bit>

#include "orv/geometry/lines_planes_boxes.h"

namespace {

using Box = orvBaseExtents;
using Line = orvBaseLine3d;
using Point = orvBasePoint3d;

// What the face search finds. Kept apart from the caller's points, which may be parts of the line or the box.
struct Hits {
    Point p1;
    Point p2;
    int count = 0;

    // False when the search is over.
    bool take(const Point& hit) {
        ++count;
        if (count == 1) p1 = hit;
        if (count == 2) p2 = hit;
        if (count == 3 && !hit.isEqualTo(p1, orv::kGeometryTolerance)) p2 = hit;
        return count < 3;
    }
    bool report(Point& toP1, Point& toP2) const {
        if (count > 0) toP1 = p1;
        toP2 = count < 2 ? toP1 : p2;
        return count > 0;
    }
};

// The six faces as planes, in the order in which they are looked at.
bool intersectFaces(const Box& box, const Line& line, Point& p1, Point& p2) {
    const Point& lo = box.min;
    const Point& hi = box.max;
    const orvBasePlane3d faces[6] = {
        {lo, Point(lo.x, lo.y, hi.z), Point(lo.x, hi.y, lo.z)},  // x low
        {hi, Point(hi.x, lo.y, hi.z), Point(hi.x, hi.y, lo.z)},  // x high
        {hi, Point(lo.x, hi.y, hi.z), Point(hi.x, lo.y, hi.z)},  // z high
        {lo, Point(lo.x, hi.y, lo.z), Point(hi.x, lo.y, lo.z)},  // z low
        {lo, Point(hi.x, lo.y, lo.z), Point(lo.x, lo.y, hi.z)},  // y low
        {hi, Point(hi.x, hi.y, lo.z), Point(lo.x, hi.y, hi.z)},  // y high
    };
    Hits hits;
    for (const orvBasePlane3d& face : faces) {
        Point hit;
        if (face.getIntersection(line, hit) && box.isInExtents(hit) && !hits.take(hit)) break;
    }
    return hits.report(p1, p2);
}

constexpr int kNoFace = 6;  // behind the six

// The two faces across one axis at a time, one in each lane.
//
// For numbers of ordinary size and a box whose sides are not negative each determinant of a face has one product that
// is not a zero: (side * side) * c, with c the component across the face. It enters with a minus sign on a low face and
// with a plus sign on a high one, and the zeros added to it only turn a -0 into +0. So the parameters are, to the last
// bit, those of the planes above. The tests compare every bit with the planes' own steps.
struct Faces {
    double x[kNoFace + 1], y[kNoFace + 1], z[kNoFace + 1];  // the hits, in the order in which the faces are looked at
    unsigned inside = 0;                                    // a bit a face

    // `minus` has the sign bit in the lane of the low face.
    void hit(int first, const Box& box, const Line& line, __m128d numerator, __m128d denominator, __m128d minus) {
        const __m128d zero = _mm_setzero_pd();
        const __m128d d = _mm_add_pd(zero, _mm_xor_pd(denominator, minus));
        const __m128d t = _mm_div_pd(_mm_add_pd(zero, _mm_xor_pd(numerator, minus)), d);
        const __m128d magnitude = _mm_andnot_pd(_mm_set1_pd(-0.0), d);
        __m128d within = _mm_cmpgt_pd(magnitude, _mm_set1_pd(orv::kGeometryTolerance));
        _mm_storeu_pd(x + first, along(t, line.origin.x, line.dir.x, box.min.x, box.max.x, within));
        _mm_storeu_pd(y + first, along(t, line.origin.y, line.dir.y, box.min.y, box.max.y, within));
        _mm_storeu_pd(z + first, along(t, line.origin.z, line.dir.z, box.min.z, box.max.z, within));
        inside |= static_cast<unsigned>(_mm_movemask_pd(within)) << first;
    }

    Point hitOf(int face) const { return {x[face], y[face], z[face]}; }

    static __m128d along(__m128d t, double origin, double dir, double lo, double hi, __m128d& within) {
        const __m128d tolerance = _mm_set1_pd(orv::kGeometryTolerance);
        const __m128d p = _mm_add_pd(_mm_set1_pd(origin), _mm_mul_pd(_mm_set1_pd(dir), t));
        const __m128d aboveLow = _mm_cmpgt_pd(_mm_add_pd(p, tolerance), _mm_set1_pd(lo));
        const __m128d belowHigh = _mm_cmpgt_pd(_mm_set1_pd(hi), _mm_sub_pd(p, tolerance));
        within = _mm_and_pd(within, _mm_and_pd(aboveLow, belowHigh));
        return p;
    }
};

// The first bound goes to the low lane.
__m128d from(double origin, double first, double second) {
    return _mm_sub_pd(_mm_set1_pd(origin), _mm_set_pd(second, first));
}

__m128d magnitude(__m128d v) { return _mm_andnot_pd(_mm_set1_pd(-0.0), v); }
__m128d times(__m128d a, double b) { return _mm_mul_pd(a, _mm_set1_pd(b)); }

}  // namespace

bool orvBasePlane3d::getIntersection(const orvBaseLine3d& line, orvBasePoint3d& result) const noexcept {
    // Both determinants side by side: the third column is -dir in the low lane and line.origin - origin in the high
    // one.
    const orvBaseVector3d& a = uAxis;
    const orvBaseVector3d& b = vAxis;
    const __m128d x = _mm_set_pd(line.origin.x - origin.x, -line.dir.x);
    const __m128d y = _mm_set_pd(line.origin.y - origin.y, -line.dir.y);
    const __m128d z = _mm_set_pd(line.origin.z - origin.z, -line.dir.z);
    __m128d sum = _mm_add_pd(times(z, a.x * b.y), times(times(y, b.x), a.z));
    sum = _mm_add_pd(sum, times(times(x, a.y), b.z));
    sum = _mm_sub_pd(sum, times(times(x, b.y), a.z));
    sum = _mm_sub_pd(sum, times(z, a.y * b.x));
    sum = _mm_sub_pd(sum, times(times(y, a.x), b.z));
    const double d = _mm_cvtsd_f64(sum);
    if (std::fabs(d) <= orv::kGeometryTolerance) {
        result = orvBasePoint3d::kZero;
        return false;
    }
    const double d3 = _mm_cvtsd_f64(_mm_unpackhi_pd(sum, sum));
    result = line.getPointOnLine(d3 / d);
    return true;
}

bool orvBaseExtents::getIntersections(const orvBaseLine3d& line, orvBasePoint3d& p1,
                                      orvBasePoint3d& p2) const noexcept {
    // Numbers so small that no product of three overflows (and none is NaN).
    constexpr double kSmallEnough = 1e100;
    const orvBaseVector3d s = max - min;
    const __m128d x = from(line.origin.x, min.x, max.x);
    const __m128d z = from(line.origin.z, max.z, min.z);  // high before low
    const __m128d y = from(line.origin.y, min.y, max.y);
    const __m128d reach = _mm_add_pd(_mm_add_pd(magnitude(x), magnitude(y)), magnitude(z));
    const double slope = std::fabs(line.dir.x) + std::fabs(line.dir.y) + std::fabs(line.dir.z);
    const bool plain = s.x >= 0.0 && s.y >= 0.0 && s.z >= 0.0 && slope < kSmallEnough &&
                       _mm_movemask_pd(_mm_cmplt_pd(reach, _mm_set1_pd(kSmallEnough))) == 3;
    if (!plain) [[unlikely]]
        return intersectFaces(*this, line, p1, p2);

    const __m128d lowFirst = _mm_set_pd(0.0, -0.0);
    const __m128d lowSecond = _mm_set_pd(-0.0, 0.0);
    Faces faces;
    faces.hit(0, *this, line, times(times(x, s.y), s.z), _mm_set1_pd(-line.dir.x * s.y * s.z), lowFirst);
    faces.hit(2, *this, line, times(z, s.x * s.y), _mm_set1_pd(s.x * s.y * -line.dir.z), lowSecond);
    faces.hit(4, *this, line, times(times(y, s.x), s.z), _mm_set1_pd(s.x * -line.dir.y * s.z), lowFirst);
    // Hits are a matter of chance, so what follows is chosen without branches; no hit picks the caller's own point.
    faces.x[kNoFace] = p1.x;
    faces.y[kNoFace] = p1.y;
    faces.z[kNoFace] = p1.z;
    const unsigned second = faces.inside & (faces.inside - 1U);  // without the first hit
    const int first = std::countr_zero(faces.inside | 1U << kNoFace);
    int last = std::countr_zero(second | 1U << kNoFace);
    last = second != 0 ? last : first;
    const unsigned third = second & (second - 1U);
    if (third != 0) [[unlikely]] {
        const int at = std::countr_zero(third);
        if (!faces.hitOf(at).isEqualTo(faces.hitOf(first), orv::kGeometryTolerance)) last = at;
    }
    p1.setTo(faces.x[first], faces.y[first], faces.z[first]);
    p2.setTo(faces.x[last], faces.y[last], faces.z[last]);
    return faces.inside != 0;
}
