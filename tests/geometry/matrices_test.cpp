#include "orv/matrices.h"

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

// The Leibniz expansion, row by row over the columns that are left.
template <class M>
double determinantOf(const M& m, unsigned row = 0, unsigned usedColumns = 0) {
    if (row == sizeOf<M>()) return 1;
    double sum = 0, sign = 1;
    for (unsigned c = 0; c < sizeOf<M>(); ++c) {
        if ((usedColumns >> c & 1U) != 0) continue;
        sum += sign * m[row][c] * determinantOf(m, row + 1, usedColumns | 1U << c);
        sign = -sign;
    }
    return sum;
}

// Small integers: every intermediate result is exact, so only the right formula gives the right number.
template <class M>
void checkIntegerMatrices() {
    Random random(5);
    int singular = 0;
    for (int i = 0; i < 3000; ++i) {
        M m, n, product, transposed;
        for (unsigned at = 0; at < sizeOf<M>() * sizeOf<M>(); ++at) {
            m[at / sizeOf<M>()][at % sizeOf<M>()] = static_cast<double>(random() % 9) - 4;
            n[at / sizeOf<M>()][at % sizeOf<M>()] = static_cast<double>(random() % 9) - 4;
        }
        for (unsigned r = 0; r < sizeOf<M>(); ++r) {
            for (unsigned c = 0; c < sizeOf<M>(); ++c) {
                transposed[r][c] = m[c][r];
                product[r][c] = 0;
                for (unsigned k = 0; k < sizeOf<M>(); ++k)
                    product[r][c] += m[r][k] * n[k][c];
            }
        }
        M changed(m);
        changed *= n;
        ASSERT_TRUE(equal(m * n, product) && equal(changed, product));
        changed *= changed;
        ASSERT_TRUE(equal(changed, product * product));
        changed = m;
        ASSERT_TRUE(equal(m.getTransposed(), transposed) && equal(changed.transpose(), transposed));
        changed.setToIdentity();
        ASSERT_TRUE(equal(changed, M()) && equal(M() * m, m));
        const double determinant = determinantOf(m);
        ASSERT_EQ(m.getDeterminant(), determinant);
        const std::optional<M> checked = orv::tryInvert(m);
        ASSERT_EQ(checked.has_value(), determinant != 0);
        M inverse(m);
        ASSERT_EQ(&inverse.invert(), &inverse);
        if (determinant == 0) {
            ++singular;
            ASSERT_FALSE(equal(inverse, M(), 1e300)) << "not all finite";
            continue;
        }
        ASSERT_TRUE(equal(m * inverse, M(), 1e-12) && equal(inverse * m, M(), 1e-12));
        ASSERT_TRUE(equal(*checked, inverse, 1e-10) && equal(m.getInverse(), inverse));
    }
    EXPECT_GT(singular, 10);
}

TEST(Matrix3, IntegerMatrices) { checkIntegerMatrices<M3>(); }
TEST(Matrix4, IntegerMatrices) { checkIntegerMatrices<M4>(); }

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
    // clang-format off
    struct Row { const char* name; M3 matrix; bool solvable; };
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
    // clang-format on
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

// The protected step is for derived transforms.
struct Turned : M4 {
    using M4::graphicMultWithRotation;
};

TEST(Matrix4, TransformsPoints) {
    Turned t;
    t.graphicSetTranslation(1, 2, 3);
    t.graphicAddScale(2);
    EXPECT_TRUE(equal<M4>(t, M4(2, 0, 0, 1, 0, 2, 0, 2, 0, 0, 2, 3, 0, 0, 0, 1)));
    V v(1, 1, 1);
    t.graphicApplyTransformToVector(v);
    EXPECT_TRUE(sameBits(v, V(3, 4, 5)));
    t.graphicAddTranslation(V(10, 20, 30));
    t.graphicAddTranslation(0.5, 0, 0);
    t.graphicSetRotation(M3(0, -1, 0, 1, 0, 0, 0, 0, 1));
    v.setTo(1, 0, 7);
    t.graphicApplyTransformToVector(v);
    EXPECT_TRUE(sameBits(v, V(11.5, 23, 40)));
    t.graphicMultWithRotation(v);
    EXPECT_TRUE(sameBits(v, V(-23, 11.5, 40)));
    t.graphicSetTranslation(V(0, 0, 0));
    EXPECT_TRUE(equal<M4>(t, M4(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)));
}

TEST(Matrix4, ScaleActsOnColumnsOfAllFourRows) {
    M4 m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    m.graphicAddScale(V(2, 3, 5));
    EXPECT_TRUE(equal(m, M4(2, 6, 15, 4, 10, 18, 35, 8, 18, 30, 55, 12, 26, 42, 75, 16)));
    m.graphicAddScale(0.5, 1, 0.2);
    EXPECT_EQ(m[3][0], 13);
    EXPECT_EQ(m[3][3], 16);
}

TEST(Complex, ProductOfIntegersIsExact) {
    ComplexMatrix a, b, wanted;
    for (int row = 1; row <= 2; ++row) {
        for (int col = 1; col <= 2; ++col) {
            a.setAt(row, col, row - 3 * col, 2 * row * col - 5);
            b.setAt(row, col, ComplexMatrix::complex(col * col - 3 * row, row + 4 * col));
        }
    }
    for (int row = 1; row <= 2; ++row) {
        for (int col = 1; col <= 2; ++col)
            wanted.setAt(row, col, a.getAt(row, 1) * b.getAt(1, col) + a.getAt(row, 2) * b.getAt(2, col));
    }
    EXPECT_TRUE(a * b == wanted);
    a *= b;
    EXPECT_TRUE(a == wanted);
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
    constexpr double kEpsilon = 2.220446049250313e-16;
    for (const auto& [re, im, null] : {std::tuple{1e-17, -1e-17, 1},
                                       {kEpsilon, 0.0, 0},
                                       {0.0, -kEpsilon, 0},
                                       {std::nextafter(kEpsilon, 0), 0.0, 1},
                                       {std::nan(""), 0.0, 0}}) {
        for (int at = 0; at < 4; ++at) {
            ComplexMatrix m;
            m.setAt(1 + at / 2, 1 + at % 2, re, im);
            EXPECT_EQ(m.isNull(), null) << re << ", " << im;
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
