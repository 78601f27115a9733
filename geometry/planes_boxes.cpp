// Where a line meets a plane and a box.
#include <emmintrin.h>

#include <bit>

#include "orv/geometry/lines_planes_boxes.h"

namespace {

using Box = orvBaseExtents;
using Line = orvBaseLine3d;
using Point = orvBasePoint3d;

// The determinant of the columns a, b, c by the rule of Sarrus.
double determinant(const orvBaseVector3d& a, const orvBaseVector3d& b, const orvBaseVector3d& c) {
    return a.x * b.y * c.z + b.x * c.y * a.z + c.x * a.y * b.z - c.x * b.y * a.z - a.y * b.x * c.z - a.x * c.y * b.z;
}

// What the face search leaves behind.
struct Hits {
    Point* p1;
    Point* p2;
    int count = 0;

    // False when the search is over.
    bool take(const Point& hit) {
        ++count;
        if (count == 1) *p1 = hit;
        if (count == 2) *p2 = hit;
        if (count == 3 && !hit.isEqualTo(*p1, orv::kGeometryTolerance)) *p2 = hit;
        return count < 3;
    }
};

// The six faces as planes, in the order in which they are looked at.
bool intersectFaces(const Box& box, const Line& line, Hits& hits) {
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
    for (const orvBasePlane3d& face : faces) {
        Point hit;
        if (face.getIntersection(line, hit) && box.isInExtents(hit) && !hits.take(hit)) break;
    }
    return hits.count > 0;
}

// The two faces across one axis at a time, the low one in the low lane.
//
// For numbers of ordinary size and a box whose sides are not negative each determinant of a face has one product that
// is not a zero: (side * side) * c, with c the component across the face. It enters with a minus sign on a low face and
// with a plus sign on a high one, and the zeros added to it only turn a -0 into +0. So the parameters are, to the last
// bit, those of the planes above. The tests compare every bit with the planes' own steps.
struct Lanes {
    __m128d x, y, z;
    int inside;  // a bit per lane
};

struct Request {
    const Box& box;
    const Line& line;

    Lanes hit(__m128d numerator, __m128d denominator) const {
        const __m128d lowIsMinus = _mm_set_pd(0.0, -0.0);
        const __m128d zero = _mm_setzero_pd();
        const __m128d tolerance = _mm_set1_pd(orv::kGeometryTolerance);
        const __m128d d3 = _mm_add_pd(zero, _mm_xor_pd(numerator, lowIsMinus));
        const __m128d d = _mm_add_pd(zero, _mm_xor_pd(denominator, lowIsMinus));
        const __m128d t = _mm_div_pd(d3, d);
        const __m128d magnitude = _mm_andnot_pd(_mm_set1_pd(-0.0), d);
        __m128d inside = _mm_cmpgt_pd(magnitude, tolerance);
        Lanes lanes;
        lanes.x = along(t, line.origin.x, line.dir.x, box.min.x, box.max.x, inside);
        lanes.y = along(t, line.origin.y, line.dir.y, box.min.y, box.max.y, inside);
        lanes.z = along(t, line.origin.z, line.dir.z, box.min.z, box.max.z, inside);
        lanes.inside = _mm_movemask_pd(inside);
        return lanes;
    }

    static __m128d along(__m128d t, double origin, double dir, double lo, double hi, __m128d& inside) {
        const __m128d tolerance = _mm_set1_pd(orv::kGeometryTolerance);
        const __m128d p = _mm_add_pd(_mm_set1_pd(origin), _mm_mul_pd(_mm_set1_pd(dir), t));
        const __m128d aboveLow = _mm_cmpgt_pd(_mm_add_pd(p, tolerance), _mm_set1_pd(lo));
        const __m128d belowHigh = _mm_cmpgt_pd(_mm_set1_pd(hi), _mm_sub_pd(p, tolerance));
        inside = _mm_and_pd(inside, _mm_and_pd(aboveLow, belowHigh));
        return p;
    }
};

Point lane(const Lanes& lanes, int which) {
    double x[2];
    double y[2];
    double z[2];
    _mm_storeu_pd(x, lanes.x);
    _mm_storeu_pd(y, lanes.y);
    _mm_storeu_pd(z, lanes.z);
    return {x[which], y[which], z[which]};
}

__m128d scaled(double factor, __m128d v) {
    return _mm_mul_pd(_mm_set1_pd(factor), v);
}
__m128d fromLowAndHigh(double origin, double lo, double hi) {
    return _mm_sub_pd(_mm_set1_pd(origin), _mm_set_pd(hi, lo));
}

}  // namespace

bool orvBasePlane3d::getIntersection(const orvBaseLine3d& line, orvBasePoint3d& result) const noexcept {
    const double d = determinant(uAxis, vAxis, -line.dir);
    if (std::fabs(d) <= orv::kGeometryTolerance) {
        result = orvBasePoint3d::kZero;
        return false;
    }
    const double d3 = determinant(uAxis, vAxis, line.origin - origin);
    result = line.getPointOnLine(d3 / d);
    return true;
}

bool orvBaseExtents::getIntersections(const orvBaseLine3d& lineGiven, orvBasePoint3d& p1,
                                      orvBasePoint3d& p2) const noexcept {
    // p1 and p2 may be parts of the line or of this box, which are still needed when they are written.
    const Line line(lineGiven);
    Box box;
    box = *this;
    Hits hits{&p1, &p2};

    const orvBaseVector3d s = box.max - box.min;
    const __m128d x = fromLowAndHigh(line.origin.x, box.min.x, box.max.x);
    const __m128d y = fromLowAndHigh(line.origin.y, box.min.y, box.max.y);
    const __m128d z = fromLowAndHigh(line.origin.z, box.min.z, box.max.z);
    // Numbers so small that no product of three overflows (and none is NaN).
    constexpr double kSmallEnough = 1e100;
    const __m128d sign = _mm_set1_pd(-0.0);
    const __m128d reach =
        _mm_add_pd(_mm_add_pd(_mm_andnot_pd(sign, x), _mm_andnot_pd(sign, y)), _mm_andnot_pd(sign, z));
    const double slope = std::fabs(line.dir.x) + std::fabs(line.dir.y) + std::fabs(line.dir.z);
    const bool plain = s.x >= 0.0 && s.y >= 0.0 && s.z >= 0.0 && slope < kSmallEnough &&
                       _mm_movemask_pd(_mm_cmplt_pd(reach, _mm_set1_pd(kSmallEnough))) == 3;
    if (!plain) {
        intersectFaces(box, line, hits);
        if (hits.count < 2) p2 = p1;
        return hits.count > 0;
    }

    const Request request{box, line};
    const __m128d sx = _mm_set1_pd(s.x);
    const __m128d sy = _mm_set1_pd(s.y);
    const __m128d sz = _mm_set1_pd(s.z);
    const Lanes onX = request.hit(_mm_mul_pd(_mm_mul_pd(x, sy), sz), _mm_mul_pd(scaled(-line.dir.x, sy), sz));
    const Lanes onZ = request.hit(scaled(s.x * s.y, z), scaled(s.x * s.y, _mm_set1_pd(-line.dir.z)));
    const Lanes onY = request.hit(_mm_mul_pd(_mm_mul_pd(sx, y), sz), _mm_mul_pd(scaled(-line.dir.y, sx), sz));
    // One bit a face, in the order in which they are looked at: z goes high before low.
    unsigned faces =
        static_cast<unsigned>(onX.inside | (onZ.inside >> 1) << 2 | (onZ.inside & 1) << 3 | onY.inside << 4);
    while (faces != 0) {
        const int face = std::countr_zero(faces);
        faces &= faces - 1;
        const Point hit = face < 2 ? lane(onX, face) : face < 4 ? lane(onZ, 3 - face) : lane(onY, face - 4);
        if (!hits.take(hit)) break;
    }
    if (hits.count < 2) p2 = p1;
    return hits.count > 0;
}

void reversePoint3dArray(CArray<orvBasePoint3d>& points) {
    for (std::intptr_t i = 0, last = points.GetSize() - 1; i < last; ++i, --last) {
        std::swap(points.ElementAt(i), points.ElementAt(last));
    }
}
