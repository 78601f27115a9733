#include <limits>
#include <type_traits>

#include "orv/geometry/plane_points.h"
#include "support/text.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

static_assert(std::is_trivially_copyable_v<orvBasePoint2d> && std::is_trivially_copyable_v<orvBasePoint2i> &&
              std::is_trivially_copyable_v<orvBaseRect2i> && sizeof(orvBaseRect2i) == 16);

// The constants serve in static initialisers of any file.
const orvBasePoint2d startPoint = orvBasePoint2d::kOne + orvBasePoint2d(1, 2);

TEST(PlanePoint, ConstantsHoldBeforeMain) { EXPECT_TRUE(startPoint == orvBasePoint2d(2, 3)); }

TEST(PlanePoint, MinimumIsTheSmallestPositiveDouble) {
    orvBasePoint2d p;
    p.setToMinimum();
    EXPECT_TRUE(p == orvBasePoint2d(std::numeric_limits<double>::min(), std::numeric_limits<double>::min()));
    orvBasePoint2i q;
    q.setToMinimum();
    EXPECT_TRUE(q == orvBasePoint2i(-2147483647L - 1, -2147483647L - 1));
}

TEST(PlanePoint, EqualityIsExactAndNearEqualityStrict) {
    const orvBasePoint2d p(0, 1);
    EXPECT_TRUE(p != orvBasePoint2d(1e-300, 1));
    EXPECT_TRUE(p.bIsEqualTo(orvBasePoint2d(0.99e-10, 1)));
    EXPECT_FALSE(p.bIsEqualTo(orvBasePoint2d(1e-10, 1)));
    EXPECT_FALSE(p.bIsEqualTo(orvBasePoint2d(0, 1 + 2e-10)));
}

TEST(PlanePoint, Arithmetic) {
    orvBasePoint2d p(1, 2);
    (p += orvBasePoint2d(1, 1)).add(orvBasePoint2d(1, 0)).multiplyWith(4);
    EXPECT_TRUE(p == (orvBasePoint2d(1, 2) + orvBasePoint2d(2, 1)) * 4.0 && p == orvBasePoint2d(12, 12));
    (p -= orvBasePoint2d(2, 0)).subtract(orvBasePoint2d(0, 4)).divideBy(2);
    EXPECT_TRUE(p == orvBasePoint2d(5, 7) - orvBasePoint2d(0, 3));
    EXPECT_TRUE(p.divideBy(0) == orvBasePoint2d(kInfinity, kInfinity));
    EXPECT_EQ(orvBasePoint2d(3, 4).getVectorLength(), 5);
    EXPECT_EQ(orvBasePoint2d(3, 4).getDistanceTo(orvBasePoint2d(6, 8)), 5);
    EXPECT_EQ(orvBasePoint2d(3, 4).getDotProduct(orvBasePoint2d(6, 8)), 50);
}

TEST(PlanePoint, NormalIsTheUnitVectorUnlessTooShortOrAlreadyUnit) {
    EXPECT_TRUE(orvBasePoint2d(3, 4).getNormal().bIsEqualTo(orvBasePoint2d(0.6, 0.8)));
    for (const orvBasePoint2d p : {orvBasePoint2d(0, 0), orvBasePoint2d(1e-10, 0), orvBasePoint2d(1 + 9e-11, 0)}) {
        EXPECT_TRUE(p.getNormal() == p) << p.x;
    }
    EXPECT_EQ(orvBasePoint2d(1.1e-10, 0).getNormal().x, 1.1e-10 * (1 / 1.1e-10));
}

TEST(PlanePoint, RotationsTurnInPlace) {
    orvBasePoint2d p(1, 0);
    EXPECT_TRUE(p.rotateCounterclockwiseDegrees(90).bIsEqualTo(orvBasePoint2d(0, 1)));
    EXPECT_TRUE(p.bIsEqualTo(orvBasePoint2d(0, 1)));
    EXPECT_TRUE(p.rotateClockwiseDegrees(180).bIsEqualTo(orvBasePoint2d(0, -1)));
    EXPECT_TRUE(p.rotateCounterclockwiseRadians(3.141592653589793 / 2).bIsEqualTo(orvBasePoint2d(1, 0)));
    EXPECT_TRUE(p.rotateClockwiseRadians(3.141592653589793 / 2).bIsEqualTo(orvBasePoint2d(0, -1)));
}

TEST(PlanePoint, AsText) {
    EXPECT_TEXT(L"1.000000 / -2.500000", orvBasePoint2d(1, -2.5).toString());
    EXPECT_EQ(orvBasePoint2d::kMax.toString().GetLength(), 309 + 7 + 3 + 309 + 7);
}

TEST(Rect, FourNumbersAreBothXThenBothY) {
    orvBaseRect2i r(1, 2, 3, 4);
    EXPECT_TRUE(r == orvBaseRect2i(orvBasePoint2i(1, 3), orvBasePoint2i(2, 4)));
    r.setTo(9, 5, 2, 7);
    EXPECT_TRUE(r == orvBaseRect2i(orvBasePoint2i(9, 2), orvBasePoint2i(5, 7)));
    r.setP1To(1, 2);
    r.setP2To(3, 4);
    EXPECT_TRUE(r == orvBaseRect2i(1, 3, 2, 4) && r != orvBaseRect2i(1, 2, 3, 4));
}

TEST(Rect, SidesDoNotDependOnTheOrderOfTheCorners) {
    const orvBaseRect2i rects[] = {{-3, 7, 20, 10}, {7, -3, 10, 20}, {-3, 7, 10, 20}, {7, -3, 20, 10}};
    for (const orvBaseRect2i& r : rects) {
        EXPECT_TRUE(r.getLeft() == -3 && r.getRight() == 7 && r.getTop() == 10 && r.getBottom() == 20);
        EXPECT_TRUE(r.getWidth() == 10 && r.getHeight() == 10);
    }
}

TEST(Rect, WidthsBeyond32BitsWrap) {
    constexpr long kLow = -2147483647L - 1;
    EXPECT_EQ(orvBaseRect2i(kLow, 2147483647L, 0, 0).getWidth(), 1);
    EXPECT_EQ(orvBaseRect2i(0, 0, kLow, 0).getHeight(), kLow);
}

}  // namespace
