#include "orv/matrices.h"

#include <array>
#include <limits>
#include <random>
#include <type_traits>

#include "near.h"
#include "random_bits.h"
#include "support/text.h"

namespace {

using M3 = orvBaseMatrix3d;
using M4 = orvBaseMatrix4d;
using V = orvBaseVector3d;

constexpr double kPi = 3.141592653589793;

static_assert(std::is_trivially_copyable_v<M3> && std::is_trivially_copyable_v<M4>);

template <class M>
constexpr unsigned sizeOf() {
    return sizeof(M) == sizeof(M3) ? 3 : 4;
}

template <class M>
bool equal(const M& a, const M& b, double tolerance = 0.0) {
    for (unsigned r = 0; r < sizeOf<M>(); ++r) {
        for (unsigned c = 0; c < sizeOf<M>(); ++c) {
            if (!(std::fabs(a[r][c] - b[r][c]) <= tolerance)) return false;
        }
    }
    return true;
}

// The Leibniz expansion along the first column, in integers.
long long determinantOf(std::array<std::array<long long, 4>, 4> a, int size) {
    if (size == 1) return a[0][0];
    long long sum = 0;
    for (int row = 0; row < size; ++row) {
        std::array<std::array<long long, 4>, 4> minor{};
        for (int r = 0, to = 0; r < size; ++r) {
            if (r == row) continue;
            for (int c = 1; c < size; ++c)
                minor[std::size_t(to)][std::size_t(c - 1)] = a[std::size_t(r)][std::size_t(c)];
            ++to;
        }
        sum += (row % 2 == 0 ? 1 : -1) * a[std::size_t(row)][0] * determinantOf(minor, size - 1);
    }
    return sum;
}

// Small integers: every intermediate result is exact, so only the right formula gives the right number.
template <class M>
void checkIntegerMatrices() {
    Random random(5);
    int singular = 0;
    for (int i = 0; i < 3000; ++i) {
        M m;
        std::array<std::array<long long, 4>, 4> exact{};
        for (unsigned r = 0; r < sizeOf<M>(); ++r) {
            for (unsigned c = 0; c < sizeOf<M>(); ++c) {
                exact[r][c] = static_cast<long long>(random() % 9) - 4;
                m[r][c] = static_cast<double>(exact[r][c]);
            }
        }
        const long long determinant = determinantOf(exact, static_cast<int>(sizeOf<M>()));
        ASSERT_EQ(m.getDeterminant(), static_cast<double>(determinant));
        ASSERT_EQ(m.getTransposed().getDeterminant(), static_cast<double>(determinant));
        const std::optional<M> checked = orv::tryInvert(m);
        ASSERT_EQ(checked.has_value(), determinant != 0);
        if (determinant == 0) {
            ++singular;
            const M inverse = m.getInverse();
            bool finite = true;
            for (unsigned r = 0; r < sizeOf<M>(); ++r) {
                for (unsigned c = 0; c < sizeOf<M>(); ++c)
                    finite = finite && std::isfinite(inverse[r][c]);
            }
            ASSERT_FALSE(finite);
            continue;
        }
        M inverse(m);
        ASSERT_EQ(&inverse.invert(), &inverse);
        ASSERT_TRUE(equal(m * inverse, M(), 1e-12));
        ASSERT_TRUE(equal(inverse * m, M(), 1e-12));
        ASSERT_TRUE(equal(*checked, inverse, 1e-10));
    }
    EXPECT_GT(singular, 10);
}

TEST(Matrix3, IntegerMatrices) { checkIntegerMatrices<M3>(); }
TEST(Matrix4, IntegerMatrices) { checkIntegerMatrices<M4>(); }

TEST(Matrix3, ElementsStandInRows) {
    M3 m(1, 2, 3, 4, 5, 6, 7, 8, 10);
    EXPECT_EQ(m[1][2], 6);
    EXPECT_EQ(m.getTransposed()[2][1], 6);
    EXPECT_TRUE(sameBits(m * V(1, 0, 2), V(7, 16, 27)));
    EXPECT_TRUE(equal(m * M3(1, 0, 0, 0, 0, 1, 0, 1, 0), M3(1, 3, 2, 4, 6, 5, 7, 10, 8)));
    m *= m;
    EXPECT_TRUE(equal(m, M3(30, 36, 45, 66, 81, 102, 109, 134, 169)));
    m.transpose();
    EXPECT_EQ(m[0][2], 109);
    m.setToIdentity();
    EXPECT_TRUE(equal(m, M3()));
}

TEST(Matrix3, InverseMultipliesCofactorsByTheReciprocal) {
    const M3 inverse = M3(3, 0, 0, 0, 7, 0, 0, 0, 11).getInverse();
    const double f = 1.0 / 231;
    EXPECT_TRUE(equal(inverse, M3(77 * f, 0, 0, 0, 33 * f, 0, 0, 0, 21 * f)));
}

TEST(Matrix3, RotationMatrixTurnsTheOtherWay) {
    const M3 quarter = M3::getRotationMatrix(kPi / 2, V::kZAxis);
    EXPECT_TRUE(equal(quarter, M3(0, 1, 0, -1, 0, 0, 0, 0, 1), 1e-15));
    EXPECT_TRUE(isNear(quarter * V(1, 0, 0), V(0, -1, 0)));
    const V axis = V(1, -2, 3).getNormal();
    for (const double angle : {0.3, -2.0, 5.0}) {
        const M3 m = M3::getRotationMatrix(angle, axis);
        for (const V& v : {V(1, 0, 0), V(0, 1, 0), V(0.3, -4, 2)}) {
            EXPECT_TRUE(isNear(m.getTransposed() * v, V::getRotated(v, axis, angle)));
            EXPECT_TRUE(isNear(m * v, V::getRotated(v, axis, -angle)));
        }
    }
    // The axis is not normalised.
    EXPECT_NEAR(M3::getRotationMatrix(kPi, V(0, 0, 2))[2][2], 2 * 2 * 2 - 1, 1e-15);
    EXPECT_NEAR(M3::getRotationMatrix(kPi / 2, V(0, 0, 2))[0][1], 2, 1e-15);
}

TEST(Matrix3, SolvesByCramersRule) {
    EXPECT_TRUE(sameBits(M3().solveLGS(V(1, 2, 3)), V(1, 2, 3)));
    const M3 m(2, 1, -1, -3, -1, 2, -2, 1, 2);
    EXPECT_TRUE(sameBits(m.solveLGS(V(8, -11, -3)), V(2, 3, -1)));
    EXPECT_TRUE(isNear(*orv::trySolve(m, V(8, -11, -3)), V(2, 3, -1)));
    const V nowhere = M3(1, 2, 3, 2, 4, 6, 0, 0, 1).solveLGS(V(1, 1, 1));
    EXPECT_FALSE(std::isfinite(nowhere.x) && std::isfinite(nowhere.y) && std::isfinite(nowhere.z));
    // No tolerance: a determinant of 1e-300 still divides.
    EXPECT_TRUE(isNear(M3(1e-100, 0, 0, 0, 1e-100, 0, 0, 0, 1e-100).solveLGS(V(1e-100, 0, 0)), V(1, 0, 0)));
    EXPECT_TRUE(sameBits(m.solveLGS(m * V(4, 5, 6)), V(4, 5, 6)));
}

TEST(Matrix3, CheckedFormsAreRelativeAndPivot) {
    struct Row {
        const char* name;
        M3 matrix;
        bool solvable;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Row rows[] = {
        {"small units", M3(1e-120, 0, 0, 0, 2e-120, 0, 0, 0, 3e-120), true},
        {"rows of very different units", M3(1e-80, 2e-80, 0, 0, 1e90, 3e90, 1, 0, 1), true},
        {"zeros on the diagonal", M3(0, 1, 0, 0, 0, 1, 1, 0, 0), true},
        {"a tiny first pivot", M3(1e-18, 1, 0, 1, 1, 0, 0, 0, 1), true},
        {"rank 2", M3(1, 2, 3, 4, 5, 6, 7, 8, 9), false},
        {"rank 2 but for rounding", M3(0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9), false},
        {"a zero row", M3(1, 2, 3, 0, 0, 0, 7, 8, 9), false},
        {"a zero column", M3(1, 0, 3, 4, 0, 6, 7, 0, 1), false},
        {"not a number", M3(1, 0, 0, 0, nan, 0, 0, 0, 1), false},
    };
    for (const Row& row : rows) {
        const std::optional<M3> inverse = orv::tryInvert(row.matrix);
        ASSERT_EQ(inverse.has_value(), row.solvable) << row.name;
        const std::optional<V> solution = orv::trySolve(row.matrix, row.matrix * V(1, -2, 3));
        ASSERT_EQ(solution.has_value(), row.solvable) << row.name;
        if (!row.solvable) continue;
        EXPECT_TRUE(equal(*inverse * row.matrix, M3(), 1e-12)) << row.name;
        EXPECT_TRUE(isNear(*solution, V(1, -2, 3), 1e-12)) << row.name;
    }
}

TEST(Matrix4, TransformsPoints) {
    M4 t;
    t.graphicSetTranslation(1, 2, 3);
    t.graphicAddScale(2);
    EXPECT_TRUE(equal(t, M4(2, 0, 0, 1, 0, 2, 0, 2, 0, 0, 2, 3, 0, 0, 0, 1)));
    V v(1, 1, 1);
    t.graphicApplyTransformToVector(v);
    EXPECT_TRUE(sameBits(v, V(3, 4, 5)));
    t.graphicAddTranslation(V(10, 20, 30));
    t.graphicAddTranslation(0.5, 0, 0);
    t.graphicSetRotation(M3(0, -1, 0, 1, 0, 0, 0, 0, 1));
    v.setTo(1, 0, 7);
    t.graphicApplyTransformToVector(v);
    EXPECT_TRUE(sameBits(v, V(11.5, 23, 40)));
    t.graphicSetTranslation(V(0, 0, 0));
    EXPECT_TRUE(equal(t, M4(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)));
}

TEST(Matrix4, ScaleActsOnColumnsOfAllFourRows) {
    M4 m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    m.graphicAddScale(V(2, 3, 5));
    EXPECT_TRUE(equal(m, M4(2, 6, 15, 4, 10, 18, 35, 8, 18, 30, 55, 12, 26, 42, 75, 16)));
    m.graphicAddScale(0.5, 1, 0.2);
    EXPECT_EQ(m[3][0], 13);
    EXPECT_EQ(m[3][3], 16);
}

TEST(Matrix4, ProductsAreFullAndAssociativeOnIntegers) {
    const M4 a(1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2, 3, 4, 5, 6, 7);
    const M4 b(2, 0, 1, 3, 1, 1, 0, 2, 4, 5, 6, 1, 0, 2, 3, 4);
    M4 product(a);
    product *= b;
    EXPECT_TRUE(equal(product, M4(16, 25, 31, 26, 44, 57, 71, 66, 27, 17, 30, 43, 37, 49, 61, 56)));
    product *= product;
    EXPECT_TRUE(equal(product, a * b * a * b));
    EXPECT_TRUE(equal((a * b).getTransposed(), b.getTransposed() * a.getTransposed()));
    EXPECT_TRUE(equal(product.transpose().transpose(), a * b * (a * b)));
}

// The protected step is for derived transforms.
struct Turned : M4 {
    using M4::graphicMultWithRotation;
};

TEST(Matrix4, DerivedTransformsMayTurnWithoutMoving) {
    Turned t;
    t.graphicSetTranslation(1, 2, 3);
    t.graphicSetRotation(M3(0, 0, 1, 1, 0, 0, 0, 1, 0));
    V v(1, 2, 3);
    t.graphicMultWithRotation(v);
    EXPECT_TRUE(sameBits(v, V(3, 1, 2)));
}

TEST(Complex, ProductOfIntegersIsExact) {
    ComplexMatrix a, b, wanted;
    a.setAt(1, 1, 1, 2);
    a.setAt(1, 2, 3, -1);
    a.setAt(2, 1, 0, 1);
    a.setAt(2, 2, 2, 2);
    b.setAt(1, 1, 2, 1);
    b.setAt(1, 2, 0, 3);
    b.setAt(2, 1, 1, 1);
    b.setAt(2, 2, ComplexMatrix::complex(4, 0));
    wanted.setAt(1, 1, 4, 7);   // (1+2i)(2+i) + (3-i)(1+i)
    wanted.setAt(1, 2, 6, -1);  // (1+2i)(3i) + (3-i)4
    wanted.setAt(2, 1, -1, 6);  // i(2+i) + (2+2i)(1+i)
    wanted.setAt(2, 2, 5, 8);   // i(3i) + (2+2i)4
    EXPECT_TRUE(a * b == wanted);
    a *= b;
    EXPECT_TRUE(a == wanted);
    EXPECT_EQ(a.getAt(2, 1), ComplexMatrix::complex(-1, 6));
    a.reset();
    EXPECT_TRUE(a == ComplexMatrix());
    EXPECT_TRUE(ComplexMatrix::unitTestMatrixMultiplication());
}

TEST(Complex, EqualityIsExactAndFalseForNaN) {
    ComplexMatrix a, b;
    a.setAt(2, 1, 0, 5e-324);
    EXPECT_TRUE(a != b);
    b.setAt(2, 1, 0, std::nan(""));
    EXPECT_TRUE(b != b);  // NOLINT
    EXPECT_FALSE(b == b);
}

TEST(Complex, NullBelowTheMachineEpsilon) {
    for (const auto& [re, im, null] : {std::tuple{1e-17, -1e-17, 1}, std::tuple{2.220446049250313e-16, 0.0, 0},
                                       std::tuple{0.0, -2.220446049250313e-16, 0},
                                       std::tuple{2.2204460492503128e-16, 0.0, 1}, std::tuple{std::nan(""), 0.0, 0}}) {
        for (int row = 1; row <= 2; ++row) {
            for (int col = 1; col <= 2; ++col) {
                ComplexMatrix m;
                m.setAt(row, col, re, im);
                EXPECT_EQ(m.isNull(), null) << re << ", " << im;
            }
        }
    }
}

TEST(Complex, WatchedTextGivesImaginaryPartsFirst) {
    ComplexMatrix m;
    m.setAt(1, 2, 1.5, -2);
    m.setAt(2, 1, 1e-7, 1234567);
    EXPECT_TEXT(
        L"\n\t- MatrixEntries -\n\t[1 1] im 0 re 0\t[1 2] im -2 re 1.5"
        L"\n\t[2 1] im 1.23457e+06 re 1e-07\t[2 2] im 0 re 0",
        orv::matrixEntriesText(m));
    m.watchMatrixEntries();
    ComplexMatrix::watchMatrixEntries(m);
}

}  // namespace
