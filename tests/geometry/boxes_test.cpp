#include <limits>
#include <vector>

#include "near.h"
#include "orv/matrices.h"
#include "random_bits.h"

namespace {

using Box = orvBaseExtents;
using Line = orvBaseLine3d;
using P = orvBasePoint3d;
using V = orvBaseVector3d;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHuge = std::numeric_limits<double>::max();

TEST(Extents, CopyOfTheEmptyBoxEnclosesEverything) {
    const Box empty;
    const Box copy(empty);  // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_TRUE(sameBits(copy.min, P::kMin));
    EXPECT_TRUE(sameBits(copy.max, P::kMax));
    EXPECT_TRUE(copy.isValid());
    Box target(P(0, 0, 0), P(1, 1, 1));
    target = empty;
    EXPECT_FALSE(target.isValid());
    EXPECT_TRUE(sameBits(target.min, P::kMax));
}

TEST(Extents, GrowsByPointsAndBoxes) {
    Box box;
    EXPECT_FALSE(box.isValid());
    box.addPoint(P(5, -1, 2));
    EXPECT_TRUE(sameBits(box.getMinPoint(), P(5, -1, 2)) && sameBits(box.getMaxPoint(), P(5, -1, 2)));
    box.addPoint(P(1, 3, 2));
    EXPECT_TRUE(sameBits(box.min, P(1, -1, 2)) && sameBits(box.max, P(5, 3, 2)));
    box.addExt(Box());
    EXPECT_TRUE(sameBits(box.max, P(5, 3, 2)));
    box.addExt(Box(P(1, 1, 9), P(0, 0, 0)));
    EXPECT_TRUE(box.getWidth() == 5 && box.getHeight() == 4 && box.getDepth() == 9);
    EXPECT_TRUE(sameBits(box.getCenter(), P(2.5, 1, 4.5)));
    box.addPoint(P(std::nan(""), 10, std::nan("")));  // what is not a number moves no side
    box.setTo(box.max, box.min);                      // corners of the box itself
    EXPECT_TRUE(sameBits(box.min, P(0, -1, 0)) && sameBits(box.max, P(5, 10, 9)));
    box.reset();
    EXPECT_FALSE(box.isValid());
}

TEST(Extents, InsideIsTheBoxGrownByTheTolerance) {
    const Box box(P(0, 0, 0), P(1, 1, 1));
    for (unsigned axis = 0; axis < 3; ++axis) {
        P p(0.5, 0.5, 0.5);
        for (const double inside : {0.0, 1.0, -0.9e-10, 1 + 0.9e-10}) {
            p[axis] = inside;
            EXPECT_TRUE(box.isInExtents(p)) << axis << ": " << inside;
        }
        for (const double outside : {-1e-10, 1 + 1.1e-10, kInfinity, std::nan("")}) {
            p[axis] = outside;
            EXPECT_FALSE(box.isInExtents(p)) << axis << ": " << outside;
        }
    }
    // Beyond 2^20 the tolerance vanishes in rounding, and the boundary itself is outside.
    EXPECT_FALSE(Box(P(0, 0, 0), P(4e6, 1, 1)).isInExtents(P(4e6, 0.5, 0.5)));
}

// ---- The intersection with a line ----

// The definition, step by step: planes through three corners each, a determinant for every face.
double sarrus(const V& a, const V& b, const V& c) {
    return orvBaseMatrix3d(a.x, b.x, c.x, a.y, b.y, c.y, a.z, b.z, c.z).getDeterminant();
}

bool planeHitLiterally(const P& p1, const P& p2, const P& p3, const Line& line, P& hit) {
    const V u = p2 - p1;
    const V v = p3 - p1;
    const double d = sarrus(u, v, -line.dir);
    if (std::fabs(d) <= 1e-10) return false;
    hit = line.origin + line.dir * (sarrus(u, v, line.origin - p1) / d);
    return true;
}

bool intersectLiterally(const Box& box, const Line& line, P& p1, P& p2) {
    const auto corner = [&](const char* bounds) {  // "lhl": x low, y high, z low
        return P(bounds[0] == 'l' ? box.min.x : box.max.x, bounds[1] == 'l' ? box.min.y : box.max.y,
                 bounds[2] == 'l' ? box.min.z : box.max.z);
    };
    const char* faces[6][3] = {{"lll", "llh", "lhl"}, {"hhh", "hlh", "hhl"}, {"hhh", "lhh", "hlh"},
                               {"lll", "lhl", "hll"}, {"lll", "hll", "llh"}, {"hhh", "hhl", "lhh"}};
    int count = 0;
    for (const auto& face : faces) {
        P hit;
        if (!planeHitLiterally(corner(face[0]), corner(face[1]), corner(face[2]), line, hit)) continue;
        if (!box.isInExtents(hit)) continue;
        ++count;
        if (count == 1) p1 = hit;
        if (count == 2) p2 = hit;
        if (count == 3) {
            if (!hit.isEqualTo(p1, 1e-10)) p2 = hit;
            break;
        }
    }
    if (count < 2) p2 = p1;
    return count > 0;
}

testing::AssertionResult agrees(const Box& box, const Line& line) {
    P p1(7, 7, 7), p2(8, 8, 8), wanted1(7, 7, 7), wanted2(8, 8, 8);
    const bool hit = box.getIntersections(line, p1, p2);
    if (hit == intersectLiterally(box, line, wanted1, wanted2) && sameBits(p1, wanted1) && sameBits(p2, wanted2)) {
        return testing::AssertionSuccess();
    }
    using testing::PrintToString;
    return testing::AssertionFailure() << PrintToString(line.origin) << " along " << PrintToString(line.dir) << " box "
                                       << PrintToString(box.min) << " to " << PrintToString(box.max);
}

// clang-format off
struct Passage { const char* name; Line line; bool hits; P first, second; };
// clang-format on

TEST(Extents, LinesThroughTheUnitBox) {
    const Box box(P(0, 0, 0), P(1, 1, 1));
    const P before(7, 8, 9);  // what the caller passed in
    // clang-format off
    const Passage rows[] = {
        {"along x: low face first", Line(P(-5, 0.5, 0.25), V(1, 0, 0)), true, P(0, 0.5, 0.25), P(1, 0.5, 0.25)},
        {"against x: low face first all the same", Line(P(5, 0.5, 0.25), V(-2, 0, 0)), true, P(0, 0.5, 0.25),
         P(1, 0.5, 0.25)},
        {"along y: low face first", Line(P(0.5, 9, 0.25), V(0, 1, 0)), true, P(0.5, 0, 0.25), P(0.5, 1, 0.25)},
        {"along z: HIGH face first", Line(P(0.5, 0.25, -9), V(0, 0, 1)), true, P(0.5, 0.25, 1), P(0.5, 0.25, 0)},
        {"main diagonal: third hit is the other corner", Line(P(-1, -1, -1), V(1, 1, 1)), true, P(0, 0, 0), P(1, 1, 1)},
        {"in the face z low", Line(P(-1, 0.5, 0), V(1, 0, 0)), true, P(0, 0.5, 0), P(1, 0.5, 0)},
        {"through two edges: the third hit is the second point", Line(P(-1, 0.5, -1), V(1, 0, 1)), true, P(0, 0.5, 0),
         P(1, 0.5, 1)},
        {"touching one edge: both points the same", Line(P(-1, 0.5, 1), V(1, 0, -1)), true, P(0, 0.5, 0), P(0, 0.5, 0)},
        {"missing", Line(P(-1, 2, 0), V(1, 0, 0)), false, before, before},
        {"no direction", Line(P(0.5, 0.5, 0.5), V(0, 0, 0)), false, before, before},
    };
    // clang-format on
    for (const Passage& row : rows) {
        P p1(before);
        P p2(0, 0, 0);
        EXPECT_EQ(box.getIntersections(row.line, p1, p2), row.hits) << row.name;
        EXPECT_TRUE(isNear(p1, row.first) && isNear(p2, row.second) && agrees(box, row.line)) << row.name;
    }
}

// Boxes and lines in general position, then all combinations of a few telling numbers: corners, edges, flat and
// inverted boxes, no direction, zeros of both signs, numbers whose products over- or underflow, and what is no number.
TEST(Extents, EveryBitIsThatOfTheStatedSteps) {
    Random random(12);
    const std::vector<double> sides = {0.0,  -0.0,  1.0,    -1.0,  0.5,    1e-10,     2e-10,       3.0,
                                       -3.0, 1e160, 1e-160, kHuge, -kHuge, kInfinity, std::nan("")};
    const auto wild = [&] { return sides[random() % sides.size()]; };
    for (int i = 0; i < 200000; ++i) {
        const auto any = [&] { return i < 20000 ? static_cast<double>(random()) / 2e8 - 10 : sides[random() % 9]; };
        Box box;
        box.min = P(any(), any(), any());
        box.max = P(any(), any(), any());
        if (i < 10000) box.setTo(box.min, box.max);
        Line line(P(any(), any(), any()), V(any(), any(), any()));
        ASSERT_TRUE(agrees(box, line));
        if (i % 4 != 0) continue;
        box.min[random() % 3] = wild();
        box.max[random() % 3] = wild();
        line.origin[random() % 3] = wild();
        line.dir[random() % 3] = wild();
        ASSERT_TRUE(agrees(box, line));
    }
    ASSERT_TRUE(agrees(Box(), Line(P(0, 0, 0), V(1, 2, 3))));
}

TEST(Extents, ResultsMayReplaceTheirSources) {
    Box box(P(0, 0, 0), P(1, 1, 1));
    Line line(P(-5, 0.5, 0.25), V(1, 0, 0));
    EXPECT_TRUE(box.getIntersections(line, line.origin, box.max));
    EXPECT_TRUE(isNear(line.origin, P(0, 0.5, 0.25)) && isNear(box.max, P(1, 0.5, 0.25)));
}

TEST(PointArray, IsReversedInPlace) {
    for (int size = 0; size <= 5; ++size) {
        CArray<P> points;
        for (int i = 0; i < size; ++i)
            points.Add(P(i, 0, 0));
        reversePoint3dArray(points);
        ASSERT_EQ(points.GetSize(), size);
        for (int i = 0; i < size; ++i)
            EXPECT_EQ(points[i].x, size - 1 - i);
    }
}

}  // namespace
