#include "orv/geometry/vectors.h"

#include <limits>
#include <random>
#include <type_traits>

#include "near.h"
#include "random_bits.h"
#include "view_as_vector.h"

namespace {

using P = orvBasePoint3d;
using V = orvBaseVector3d;

constexpr double kPi = 3.141592653589793;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

static_assert(std::is_trivially_copyable_v<P> && std::is_trivially_copyable_v<V>);

const V startVector = V::kXAxis + V::kYAxis * 2 + V::kZAxis * 3;

TEST(Vector, ConstantsHoldBeforeMain) {
    EXPECT_TRUE(sameBits(startVector, V(1, 2, 3)));
    EXPECT_TRUE(sameBits(P(-V::kMin), P::kMax));
}

TEST(Vector, PointSeenAsVectorIsTheSameStorage) {
    P p(1, 2, 3);
    EXPECT_EQ(writeThroughVector(p, p.asVector()), 20.0);
    p.asVector().setTo(4, 5, 6);
    EXPECT_TRUE(sameBits(p, P(4, 5, 6)));
    const P& constant = p;
    EXPECT_EQ(constant.asVector().getLength(), std::sqrt(77.0));
}

TEST(Vector, OperatorsActOnEveryComponent) {
    const V v(1, -2, 4), w(3, 5, -7);
    const P p(v), q(w);
    V changed(v);
    P moved(p);
    changed += w, changed *= 3, changed -= v, changed /= 2;
    moved += w, moved *= 3, moved -= v, moved /= 2;
    EXPECT_TRUE(sameBits(P(changed), moved));
    for (unsigned i = 0; i < 3; ++i) {
        EXPECT_EQ(changed[i], ((v[i] + w[i]) * 3 - v[i]) / 2);
        EXPECT_TRUE((v + w)[i] == v[i] + w[i] && (p + w)[i] == v[i] + w[i]);
        EXPECT_TRUE((v - w)[i] == v[i] - w[i] && (p - w)[i] == v[i] - w[i]);
        EXPECT_TRUE((p - q)[i] == v[i] - w[i] && q.getVectorTo(p)[i] == v[i] - w[i]);
        EXPECT_TRUE((-v)[i] == -v[i] && (-p)[i] == -v[i] && v.getNegateVec()[i] == -v[i]);
        EXPECT_TRUE((v * 2)[i] == 2 * v[i] && (p * 2)[i] == 2 * v[i] && (p / 2)[i] == v[i] / 2);
    }
    EXPECT_TRUE(sameBits(P(1, -1, 2) / 0.0, P(kInfinity, -kInfinity, kInfinity)));
    EXPECT_EQ(V(-3, -1, -2).getLargestComponent(), -1);
    EXPECT_EQ(P(-3, -1, 2).getLargestComponent(), 2);
}

TEST(Vector, ProductsAndDistances) {
    const V a(3, 4, 7), b(1, 1, 1);
    EXPECT_TRUE(a.getDotProduct(b) == 14 && V::getDotProduct(a, b) == 14);
    EXPECT_TRUE(sameBits(a.getCrossProduct(V(0, 0, 2)), V(8, -6, 0)));
    EXPECT_TRUE(sameBits(V::getCrossProduct(V(1, 2, 3), V(4, -5, 6)), V(27, 6, -13)));
    EXPECT_EQ(V(2, 3, 6).getLength(), 7);
    EXPECT_TRUE(a.getDistanceTo(b) == 7 && V::getDistanceTo(a, b) == 7);
    EXPECT_TRUE(P(a).getDistanceTo(P(b)) == 7 && P::getDistanceTo(P(a), P(b)) == 7);
}

TEST(Vector, Angles) {
    EXPECT_EQ(V(1, 0, 0).getAngleTo(V(-1, 0, 0)), kPi);
    EXPECT_NEAR(V::getAngleTo(V(1, 0, 0), V(1, 1, 0)), kPi / 4, 1e-15);
    EXPECT_TRUE(std::isnan(V(1, 0, 0).getAngleTo(V::kZero)));
    Random random(9);
    int above = 0;
    for (int i = 0; i < 1000; ++i) {
        const V v(random() % 100 + 1.0, random() % 100, random() % 100);
        above += v.getDotProduct(v * 3) / (v.getLength() * (v * 3).getLength()) > 1 ? 1 : 0;  // by rounding
        ASSERT_LT(v.getAngleTo(v * 3), 1e-7);
    }
    EXPECT_GT(above, 0);
}

TEST(Vector, TolerancesAreStrict) {
    EXPECT_TRUE(V(9.9e-11, -9.9e-11, 0).isZero());
    for (unsigned i = 0; i < 3; ++i) {
        V v;
        v[i] = -1e-10;
        EXPECT_FALSE(v.isZero());
        EXPECT_FALSE(v.isEqualTo(V::kZero));
        EXPECT_FALSE(P(v).isEqualTo(P(), 1e-10));
        EXPECT_TRUE(P(v).isEqualTo(P(), 1.1e-10));
    }
    EXPECT_TRUE(V(1, 1, 1).isEqualTo(V(1, 1, 1 + 5e-11)));
    EXPECT_TRUE(V(1, 0, 0).isPerpendicularTo(V(9e-11, 1, 0)));
    EXPECT_FALSE(V::isPerpendicularTo(V(1, 0, 0), V(1e-10, 1, 0)));
}

TEST(Vector, ParallelTestDependsOnLength) {
    const V skewed(1, 5e-11, 0);
    EXPECT_TRUE(V(1, 0, 0).isParallelTo(skewed) && V::isParallelTo(V(-1, 0, 0), skewed));
    EXPECT_FALSE(V(10, 0, 0).isParallelTo(skewed));
    EXPECT_TRUE(V(1, 0, 0).isCodirectionalTo(V(25, 0, 0)));
    EXPECT_FALSE(V(1, 0, 0).isCodirectionalTo(V(-1, 0, 0)) || V(1, 0, 0).isCodirectionalTo(V(1, 1e-9, 0)));
}

TEST(Vector, NormalizingMultipliesByTheReciprocal) {
    V v(0, 3, 4);
    EXPECT_EQ(&v.normalize(), &v);
    EXPECT_TRUE(sameBits(v, V(0, 3 * (1.0 / 5), 4 * (1.0 / 5))));
    for (const V& same : {V(), V(1e-11, 0, 0), V(0, 1e-10, 0), V(0, 0, 1 - 9e-11), V(0, 0, 1 + 9e-11)}) {
        EXPECT_TRUE(sameBits(same.getNormal(), same));
    }
    EXPECT_EQ(V(2e-10, 0, 0).getNormal().x, 2e-10 * (1 / 2e-10));
    EXPECT_EQ(V(1 + 2e-10, 0, 0).getNormal().x, (1 + 2e-10) * (1 / (1 + 2e-10)));
}

TEST(Vector, Perpendicular) {
    EXPECT_TRUE(isNear(V(1, 0, 0).getPerpVector(), V(0, -1, 0), 0));
    EXPECT_TRUE(isNear(V(0, 0, 2).getPerpVector(), V(-2, 0, 0), 0));
    EXPECT_TRUE(isNear(V(9e-11, 0, 1).getPerpVector(), V(-1, 0, 9e-11), 0));
}

TEST(Vector, RotationIsRightHanded) {
    V v(1, 0, 0);
    EXPECT_EQ(&v.rotate(V::kZAxis, kPi / 2), &v);
    EXPECT_TRUE(isNear(v, V(0, 1, 0)));
    EXPECT_TRUE(isNear(V::getRotated(V(0, 1, 0), V(7, 0, 0), kPi / 2), V(0, 0, 1)));
    EXPECT_TRUE(isNear(V::getRotated(V(0, 0, 1), V(0, 0.01, 0), kPi / 2), V(1, 0, 0)));
    const V odd(-0.0, 5e-324, 1e308);
    EXPECT_TRUE(sameBits(V::getRotated(odd, V(1, 2, 3), 0.0), odd));
    EXPECT_TRUE(sameBits(V::getRotated(odd, V(1, 2, 3), -0.0), odd));
}

// The nine factors as they are defined, one by one.
V rotatedLiterally(const V& v, const V& axis, double angle) {
    const V n = axis.getNormal();
    const double a = n.x, b = n.y, c = n.z, C = std::cos(angle), S = std::sin(angle), T = 1 - C;
    return {(T * a * a + C) * v.x + (T * a * b - c * S) * v.y + (T * a * c + b * S) * v.z,
            (T * a * b + c * S) * v.x + (T * b * b + C) * v.y + (T * b * c - a * S) * v.z,
            (T * a * c - b * S) * v.x + (T * b * c + a * S) * v.y + (T * c * c + C) * v.z};
}

TEST(Vector, RotationKeepsEveryBitOfTheStatedOrderAndUndoesItself) {
    Random random(7);
    std::uniform_real_distribution<double> number(-10, 10);
    for (int i = 0; i < 2000; ++i) {
        const V v(number(random), number(random), number(random));
        const V axis(number(random), number(random), number(random));
        const double angle = number(random);
        const V turned = V::getRotated(v, axis, angle);
        ASSERT_TRUE(sameBits(turned, rotatedLiterally(v, axis, angle)));
        ASSERT_NEAR(turned.getLength(), v.getLength(), 1e-13);
        ASSERT_NEAR(turned.getDotProduct(axis), v.getDotProduct(axis), 1e-12);
        ASSERT_TRUE(isNear(V::getRotated(turned, axis, -angle), v, 1e-13));
    }
}

}  // namespace
