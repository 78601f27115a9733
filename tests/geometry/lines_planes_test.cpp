#include <random>
#include <type_traits>

#include "near.h"
#include "orv/matrices.h"
#include "random_bits.h"

namespace {

using Line = orvBaseLine3d;
using P = orvBasePoint3d;
using Plane = orvBasePlane3d;
using V = orvBaseVector3d;
using orv::LineRelation;

static_assert(std::is_trivially_copyable_v<Line> && std::is_trivially_copyable_v<Plane> && sizeof(Line) == 48);

TEST(Line, NoMeetingIsTheOrigin) {
    // clang-format off
    struct Row { const char* name; Line a, b; P meeting; };
    const Row rows[] = {
        {"meeting", Line(P(0, 2, 3), V(1, 0, 0)), Line(P(4, 0, 3), V(0, 5, 0)), P(4, 2, 3)},
        {"parallel", Line(P(0, 0, 0), V(1, 0, 0)), Line(P(0, 1, 0), V(2, 0, 0)), P(0, 0, 0)},
        {"the same line", Line(P(3, 1, 0), V(1, 0, 0)), Line(P(5, 1, 0), V(-1, 0, 0)), P(0, 0, 0)},
        {"skew", Line(P(1, 1, 1), V(1, 0, 0)), Line(P(2, 2, 2), V(0, 1, 0)), P(0, 0, 0)},
        {"genuinely at the origin", Line(P(0, 0, 0), V(1, 0, 0)), Line(P(0, 0, 0), V(0, 1, 0)), P(0, 0, 0)},
        {"no direction", Line(P(3, 3, 3), V(0, 0, 0)), Line(P(3, 3, 3), V(0, 1, 0)), P(0, 0, 0)},
        {"direction below a thousandth of the tolerance", Line(P(1, 1, 0), V(0.9e-13, 0, 0)),
         Line(P(1, 0, 0), V(0, 1, 0)), P(0, 0, 0)},
        {"short direction that a thousandfold shows", Line(P(1, 1, 0), V(1e-6, 0, 0)), Line(P(2, 0, 0), V(0, 1, 0)),
         P(2, 1, 0)},
        {"two short directions", Line(P(1, 1, 0), V(1e-6, 0, 0)), Line(P(2, 0, 0), V(0, 2e-5, 0)), P(2, 1, 0)},
        {"shorter ones count as parallel", Line(P(1, 1, 0), V(1e-6, 0, 0)), Line(P(2, 0, 0), V(0, 9e-6, 0)),
         P(0, 0, 0)},
    };
    // clang-format on
    EXPECT_TRUE(sameBits(Line(P(1, 2, 3), P(2, 4, 6)).getPointOnLine(-2), P(-1, -2, -3)));
    for (const Row& row : rows) {
        EXPECT_TRUE(isNear(row.a.intersectsWithLine(row.b), row.meeting, 1e-9)) << row.name;
        EXPECT_TRUE(isNear(row.b.intersectsWithLine(row.a), row.meeting, 1e-9)) << row.name;
    }
}

TEST(Line, RelationsAreToldApart) {
    // clang-format off
    struct Row { const char* name; Line a, b; LineRelation relation; P onFirst, onSecond; };
    const Row rows[] = {
        {"meeting at the origin", Line(), Line(P(0, -7, 0), V(0, 1, 0)), LineRelation::kMeeting, P(), P()},
        {"skew", Line(), Line(P(3, 0, 1), V(0, 1, 0)), LineRelation::kSkew, P(3, 0, 0), P(3, 0, 1)},
        {"parallel", Line(), Line(P(9, 2, 0), V(-4, 0, 0)), LineRelation::kParallel, P(), P(0, 2, 0)},
        {"the same line", Line(), Line(P(9, 0, 0), V(1, 0, 0)), LineRelation::kParallel, P(), P()},
        {"tiny directions", Line(P(1, 1, 0), V(1e-200, 0, 0)), Line(P(2, 0, 0), V(0, 1e-200, 0)),
         LineRelation::kMeeting, P(2, 1, 0), P(2, 1, 0)},
        {"huge directions", Line(P(1, 1, 0), V(1e200, 0, 0)), Line(P(2, 0, 0), V(0, 1e300, 0)), LineRelation::kMeeting,
         P(2, 1, 0), P(2, 1, 0)},
        {"first without direction", Line(P(3, 4, 0), V()), Line(), LineRelation::kDegenerate, P(3, 4, 0), P(3, 0, 0)},
        {"second without direction", Line(), Line(P(3, 4, 0), V()), LineRelation::kDegenerate, P(3, 0, 0), P(3, 4, 0)},
        {"two points", Line(P(1, 2, 3), V()), Line(P(4, 5, 6), V()), LineRelation::kDegenerate, P(1, 2, 3), P(4, 5, 6)},
    };
    // clang-format on
    for (const Row& row : rows) {
        const orv::LineMeeting meeting = orv::relateLines(row.a, row.b);
        EXPECT_TRUE(meeting.relation == row.relation) << row.name;
        EXPECT_TRUE(isNear(meeting.onFirst, row.onFirst) && isNear(meeting.onSecond, row.onSecond)) << row.name;
        EXPECT_NEAR(meeting.gap, row.onFirst.getDistanceTo(row.onSecond), 1e-12) << row.name;
    }
    const Line high(P(0, 0, 1e-3), V(0, 1, 0));
    EXPECT_TRUE(orv::relateLines(Line(), high, 1e-2).relation == LineRelation::kMeeting);
    EXPECT_TRUE(orv::relateLines(Line(P(std::nan(""), 0, 0), V::kOne), high).relation == LineRelation::kDegenerate);
}

TEST(Line, ClosestPointsAreBridgedPerpendicularly) {
    Random random(3);
    std::uniform_real_distribution<double> number(-10, 10);
    const auto any = [&] { return number(random); };
    for (int i = 0; i < 2000; ++i) {
        const Line a(P(any(), any(), any()), V(any(), any(), any()));
        const Line b(P(any(), any(), any()), V(any(), any(), any()));
        const orv::LineMeeting meeting = orv::relateLines(a, b);
        const V bridge = meeting.onSecond - meeting.onFirst;
        const double scale = 1e-11 * (1 + meeting.onFirst.getDistanceTo(P()));
        ASSERT_NEAR(bridge.getDotProduct(a.dir.getNormal()), 0, scale);
        ASSERT_NEAR(bridge.getDotProduct(b.dir.getNormal()), 0, scale);
        // Made to meet: shift the second line by the bridge.
        const Line moved(b.origin - bridge, b.dir);
        const orv::LineMeeting met = orv::relateLines(a, moved, scale);
        ASSERT_TRUE(met.relation == LineRelation::kMeeting);
        const P fixedMethod = a.intersectsWithLine(moved);
        if (sameBits(fixedMethod, P())) continue;
        ASSERT_TRUE(isNear(fixedMethod, met.onFirst, 1e4 * scale));
    }
}

TEST(Plane, Construction) {
    EXPECT_TRUE(sameBits(Plane().getNormal(), V::kZAxis));
    EXPECT_TRUE(sameBits(Plane(P(1, 1, 1), P(2, 1, 1), P(1, 4, 1)).getNormal(), V(0, 0, 3)));
    EXPECT_TRUE(isNear(Plane(P(), V(0, 0, 2)).getUAxis(), V(0, 2, 0), 0));
    EXPECT_TRUE(isNear(Plane(P(), V(0, 0, 2)).getVAxis(), V(-4, 0, 0), 0));
}

TEST(Plane, CoordinateSystemIsNormalisedOnTheWayOut) {
    Plane plane;
    plane.setCoordSystem(P(1, 2, 3), V(0, 3, 4), V(1e-11, 0, 0));
    P origin;
    V u, v;
    plane.getCoordSystem(origin, u, v);
    EXPECT_TRUE(sameBits(origin, P(1, 2, 3)) && isNear(u, V(0, 0.6, 0.8)) && sameBits(v, V(1e-11, 0, 0)));
    EXPECT_TRUE(sameBits(plane.getUAxis(), V(0, 3, 4)));
    plane.setUAxis(V(2, 0, 0));
    plane.setVAxis(V(0, 2, 0));
    plane.getCoordSystem(plane.origin, plane.vAxis, plane.uAxis);  // its own members, crosswise
    EXPECT_TRUE(sameBits(plane.vAxis, V(1, 0, 0)) && sameBits(plane.uAxis, V(0, 1, 0)));
}

TEST(Plane, ParallelTestIsLooseAndUnscaled) {
    const Plane plane;
    EXPECT_TRUE(plane.isParallelTo(Line(P(0, 0, 5), V(1, 1, 0.99e-4))));
    EXPECT_FALSE(plane.isParallelTo(Line(P(0, 0, 5), V(1, 1, 1e-4))));
    EXPECT_TRUE(Plane(P(), V(1e-3, 0, 0), V(0, 1, 0)).isParallelTo(Line(P(), V(0, 0, 0.09))));
    P hit;
    EXPECT_TRUE(plane.getIntersection(Line(P(0, 0, 1), V(0, 0, 1e-5)), hit));  // parallel there, but met
    EXPECT_TRUE(isNear(hit, P(0, 0, 0), 1e-12));
}

TEST(Plane, Intersections) {
    const Plane plane(P(0, 0, 2), V(2, 0, 0), V(0, 0.5, 0));
    P hit(9, 9, 9);
    EXPECT_TRUE(plane.getIntersection(Line(P(100, 50, -2), V(1, 0, 2)), hit));  // far outside the patch
    EXPECT_TRUE(isNear(hit, P(102, 50, 2)));
    EXPECT_FALSE(plane.getIntersection(Line(P(0, 0, 2), V(1, 1, 0)), hit));  // lying in it
    EXPECT_TRUE(sameBits(hit, P(0, 0, 0)));
    EXPECT_FALSE(Plane(P(), V(1, 0, 0), V(2, 0, 0)).getIntersection(Line(P(1, 1, 1), V(1, 2, 3)), hit));
    EXPECT_FALSE(plane.getIntersection(Line(P(0, 0, 0), V(0, 0, 1e-10)), hit));  // |D| of exactly the tolerance
    EXPECT_TRUE(plane.getIntersection(Line(P(0, 0, 0), V(0, 0, 1.1e-10)), hit));
}

TEST(Line, MeetingsAtSmallAnglesHaveNoGap) {
    for (const double angle : {1e-3, 1e-5, 1e-7, 1e-9}) {
        const orvBasePoint3d meeting(7.25, -3.5, 11.75);
        const orvBaseVector3d dir = orvBaseVector3d(0.3, 0.7, -0.2).getNormal();
        const orvBaseVector3d turned = dir + dir.getPerpVector().getNormal() * angle;
        const orvBaseLine3d first(meeting - dir * 9.0, dir);
        const orvBaseLine3d second(meeting - turned * 5.0, turned);
        const orv::LineMeeting found = orv::relateLines(first, second);
        EXPECT_EQ(orv::LineRelation::kMeeting, found.relation) << angle;
        EXPECT_LT(found.gap, 1e-12) << angle;
    }
    orvBaseLine3d line(orvBasePoint3d(1, 2, 3), orvBaseVector3d(4, 5, 6));
    line.setTo(orvBasePoint3d(line.dir), line.origin.asVector());  // its own members
    EXPECT_EQ(1.0, line.dir.x);
    EXPECT_EQ(4.0, line.origin.x);
}

}  // namespace
