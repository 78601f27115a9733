// Matrices of fixed size: 3x3, 4x4 as an affine transform, and 2x2 of complex numbers.
//
// Rules of the family:
// - Plain values, stored by rows; vectors are columns, so that (M * v)[i] = sum over j of m[i][j] * v[j].
// - No operation tests for singularity: a division by a determinant of 0 follows IEEE arithmetic and gives infinities
//   or NaN. orv::tryInvert and orv::trySolve do test.
// - Every sum and product is done in double precision in the order stated, without fused operations (hosts compile with
//   -ffp-contract=off, which the package tells them).
// - Different objects may be used from different threads.
#pragma once

#include <emmintrin.h>

#include <complex>
#include <optional>
#include <type_traits>

#include "orv/export.h"
#include "orv/framework/string.h"
#include "orv/geometry/vectors.h"

/// A 3x3 matrix.
class orvBaseMatrix3d {
  public:
    double m[3][3];

    /// The identity.
    constexpr orvBaseMatrix3d() noexcept : m{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}} {}
    /// Row by row.
    constexpr orvBaseMatrix3d(double m00, double m01, double m02, double m10, double m11, double m12, double m20,
                              double m21, double m22) noexcept
        : m{{m00, m01, m02}, {m10, m11, m12}, {m20, m21, m22}} {}

    constexpr void setToIdentity() noexcept { *this = orvBaseMatrix3d(); }
    /// A row's three doubles. There is no range check; whatever is above 1 means the last row.
    constexpr double* operator[](unsigned int row) noexcept { return m[row < 2 ? row : 2]; }
    constexpr const double* operator[](unsigned int row) const noexcept { return m[row < 2 ? row : 2]; }

    /// this * b.
    constexpr orvBaseMatrix3d operator*(const orvBaseMatrix3d& b) const noexcept {
        orvBaseMatrix3d product;
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) {
                product.m[r][c] = m[r][0] * b.m[0][c] + m[r][1] * b.m[1][c] + m[r][2] * b.m[2][c];
            }
        }
        return product;
    }
    constexpr orvBaseMatrix3d& operator*=(const orvBaseMatrix3d& b) noexcept { return *this = *this * b; }
    constexpr orvBaseVector3d operator*(const orvBaseVector3d& v) const noexcept {
        return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z, m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
                m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
    }

    /// By the rule of Sarrus.
    constexpr double getDeterminant() const noexcept {
        return m[0][0] * m[1][1] * m[2][2] + m[0][1] * m[1][2] * m[2][0] + m[0][2] * m[1][0] * m[2][1] -
               m[0][2] * m[1][1] * m[2][0] - m[1][0] * m[0][1] * m[2][2] - m[0][0] * m[1][2] * m[2][1];
    }
    /// The adjugate, each cofactor multiplied by 1/determinant. A singular matrix gives entries that are not finite.
    constexpr orvBaseMatrix3d getInverse() const noexcept {
        const double f = 1.0 / getDeterminant();
        return {(m[1][1] * m[2][2] - m[1][2] * m[2][1]) * f, (m[0][2] * m[2][1] - m[0][1] * m[2][2]) * f,
                (m[0][1] * m[1][2] - m[0][2] * m[1][1]) * f, (m[1][2] * m[2][0] - m[1][0] * m[2][2]) * f,
                (m[0][0] * m[2][2] - m[0][2] * m[2][0]) * f, (m[0][2] * m[1][0] - m[0][0] * m[1][2]) * f,
                (m[1][0] * m[2][1] - m[1][1] * m[2][0]) * f, (m[0][1] * m[2][0] - m[0][0] * m[2][1]) * f,
                (m[0][0] * m[1][1] - m[0][1] * m[1][0]) * f};
    }
    constexpr orvBaseMatrix3d& invert() noexcept { return *this = getInverse(); }
    constexpr orvBaseMatrix3d getTransposed() const noexcept {
        return {m[0][0], m[1][0], m[2][0], m[0][1], m[1][1], m[2][1], m[0][2], m[1][2], m[2][2]};
    }
    constexpr orvBaseMatrix3d& transpose() noexcept { return *this = getTransposed(); }

    // ODDITY(rotation-matrix): M * v turns by MINUS the angle (it is the transpose of what orvBaseVector3d::rotate
    // applies), and the axis is taken as it is, without normalising. Stored transforms of hosts rely on it. Pinned by
    // Matrix3.RotationMatrixTurnsTheOtherWay.
    ///   (pi/2, Z) => rows (0, 1, 0), (-1, 0, 0), (0, 0, 1)
    ORV_API static orvBaseMatrix3d getRotationMatrix(double angle, const orvBaseVector3d& axis) noexcept;

    /// x with M * x = b, by Cramer's rule without pivoting and without a test: a singular matrix gives infinities or
    /// NaN.
    ORV_API orvBaseVector3d solveLGS(const orvBaseVector3d& b) const noexcept;
};

/// A 4x4 matrix. As a transform it maps p to R * p + t, with R its upper left 3x3 block and t the upper three of its
/// last column. The last row is (0, 0, 0, 1) then; no transform operation changes such a row.
class orvBaseMatrix4d {
  public:
    double m[4][4];

    /// The identity.
    constexpr orvBaseMatrix4d() noexcept
        : m{{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}} {}
    /// Row by row.
    constexpr orvBaseMatrix4d(double m00, double m01, double m02, double m03, double m10, double m11, double m12,
                              double m13, double m20, double m21, double m22, double m23, double m30, double m31,
                              double m32, double m33) noexcept
        : m{{m00, m01, m02, m03}, {m10, m11, m12, m13}, {m20, m21, m22, m23}, {m30, m31, m32, m33}} {}

    constexpr void setToIdentity() noexcept { *this = orvBaseMatrix4d(); }
    /// A row's four doubles. There is no range check; only the row number's low two bits count.
    constexpr double* operator[](unsigned int row) noexcept { return m[row & 3U]; }
    constexpr const double* operator[](unsigned int row) const noexcept { return m[row & 3U]; }

    /// this * b.
    constexpr orvBaseMatrix4d operator*(const orvBaseMatrix4d& b) const noexcept {
        orvBaseMatrix4d product(Unset{});
        if (!std::is_constant_evaluated()) {
            multiply(m, b.m, product.m);
            return product;
        }
        for (int r = 0; r < 4; ++r) {
            for (int c = 0; c < 4; ++c) {
                product.m[r][c] = m[r][0] * b.m[0][c] + m[r][1] * b.m[1][c] + m[r][2] * b.m[2][c] + m[r][3] * b.m[3][c];
            }
        }
        return product;
    }
    constexpr orvBaseMatrix4d& operator*=(const orvBaseMatrix4d& b) noexcept { return *this = *this * b; }

    /// By the 2x2 minors of rows 0 and 1 and of rows 2 and 3.
    constexpr double getDeterminant() const noexcept { return Minors(m).determinant(); }
    /// The adjugate, each cofactor multiplied by 1/determinant. A singular matrix gives entries that are not finite.
    ORV_API orvBaseMatrix4d getInverse() const noexcept;
    orvBaseMatrix4d& invert() noexcept { return *this = getInverse(); }
    constexpr orvBaseMatrix4d getTransposed() const noexcept {
        return {m[0][0], m[1][0], m[2][0], m[3][0], m[0][1], m[1][1], m[2][1], m[3][1],
                m[0][2], m[1][2], m[2][2], m[3][2], m[0][3], m[1][3], m[2][3], m[3][3]};
    }
    constexpr orvBaseMatrix4d& transpose() noexcept { return *this = getTransposed(); }

    /// Replaces R.
    constexpr void graphicSetRotation(orvBaseMatrix3d rotation) noexcept {
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c)
                m[r][c] = rotation.m[r][c];
        }
    }
    /// Replaces t.
    constexpr void graphicSetTranslation(double x, double y, double z) noexcept {
        m[0][3] = x;
        m[1][3] = y;
        m[2][3] = z;
    }
    constexpr void graphicSetTranslation(const orvBaseVector3d& t) noexcept { graphicSetTranslation(t.x, t.y, t.z); }
    /// Moves after what the transform does already.
    constexpr void graphicAddTranslation(double x, double y, double z) noexcept {
        m[0][3] += x;
        m[1][3] += y;
        m[2][3] += z;
    }
    constexpr void graphicAddTranslation(const orvBaseVector3d& t) noexcept { graphicAddTranslation(t.x, t.y, t.z); }
    /// Scales before what the transform does already: columns 0, 1, 2 of all four rows; the translation stays.
    constexpr void graphicAddScale(double sx, double sy, double sz) noexcept {
        for (int r = 0; r < 4; ++r) {
            m[r][0] *= sx;
            m[r][1] *= sy;
            m[r][2] *= sz;
        }
    }
    constexpr void graphicAddScale(double s) noexcept { graphicAddScale(s, s, s); }
    constexpr void graphicAddScale(const orvBaseVector3d& s) noexcept { graphicAddScale(s.x, s.y, s.z); }
    /// v = R * v, then v += t.
    constexpr void graphicApplyTransformToVector(orvBaseVector3d& v) const noexcept {
        graphicMultWithRotation(v);
        v += orvBaseVector3d(m[0][3], m[1][3], m[2][3]);
    }

  protected:
    /// v = R * v.
    constexpr void graphicMultWithRotation(orvBaseVector3d& v) const noexcept {
        v.setTo(m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z, m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
                m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z);
    }

  private:
    // Two columns at a time, each sum in the order of the columns of a.
    static void multiply(const double (&a)[4][4], const double (&b)[4][4], double (&product)[4][4]) noexcept {
        for (int c = 0; c < 4; c += 2) {
            const __m128d b0 = _mm_loadu_pd(&b[0][c]);
            const __m128d b1 = _mm_loadu_pd(&b[1][c]);
            const __m128d b2 = _mm_loadu_pd(&b[2][c]);
            const __m128d b3 = _mm_loadu_pd(&b[3][c]);
            for (int r = 0; r < 4; ++r) {
                __m128d sum = _mm_mul_pd(_mm_set1_pd(a[r][0]), b0);
                sum = _mm_add_pd(sum, _mm_mul_pd(_mm_set1_pd(a[r][1]), b1));
                sum = _mm_add_pd(sum, _mm_mul_pd(_mm_set1_pd(a[r][2]), b2));
                sum = _mm_add_pd(sum, _mm_mul_pd(_mm_set1_pd(a[r][3]), b3));
                _mm_storeu_pd(&product[r][c], sum);
            }
        }
    }

    struct Unset {};
    constexpr explicit orvBaseMatrix4d(Unset) noexcept {}

    // Named by their two columns: top from rows 0 and 1, bottom from rows 2 and 3.
    struct Minors {
        double top01, top02, top03, top12, top13, top23;
        double bottom01, bottom02, bottom03, bottom12, bottom13, bottom23;

        constexpr explicit Minors(const double (&m)[4][4]) noexcept
            : top01(m[0][0] * m[1][1] - m[1][0] * m[0][1]),
              top02(m[0][0] * m[1][2] - m[1][0] * m[0][2]),
              top03(m[0][0] * m[1][3] - m[1][0] * m[0][3]),
              top12(m[0][1] * m[1][2] - m[1][1] * m[0][2]),
              top13(m[0][1] * m[1][3] - m[1][1] * m[0][3]),
              top23(m[0][2] * m[1][3] - m[1][2] * m[0][3]),
              bottom01(m[2][0] * m[3][1] - m[3][0] * m[2][1]),
              bottom02(m[2][0] * m[3][2] - m[3][0] * m[2][2]),
              bottom03(m[2][0] * m[3][3] - m[3][0] * m[2][3]),
              bottom12(m[2][1] * m[3][2] - m[3][1] * m[2][2]),
              bottom13(m[2][1] * m[3][3] - m[3][1] * m[2][3]),
              bottom23(m[2][2] * m[3][3] - m[3][2] * m[2][3]) {}
        constexpr double determinant() const noexcept {
            return top01 * bottom23 - top02 * bottom13 + top03 * bottom12 + top12 * bottom03 - top13 * bottom02 +
                   top23 * bottom01;
        }
    };
};

static_assert(sizeof(orvBaseMatrix3d) == 72 && sizeof(orvBaseMatrix4d) == 128);

/// A 2x2 matrix of complex numbers. Rows and columns count from 1; there is no range check, and of a number beyond 1..2
/// only the lowest bit of (number - 1) counts.
class ORV_API ComplexMatrix {
  public:
    using complex = std::complex<double>;

    /// All four entries 0.
    ComplexMatrix() noexcept = default;
    ComplexMatrix(const ComplexMatrix&) noexcept = default;
    ComplexMatrix& operator=(const ComplexMatrix&) noexcept = default;
    virtual ~ComplexMatrix();

    /// All four entries 0.
    void reset() noexcept { *this = ComplexMatrix(); }

    const complex& getAt(int row, int col) const noexcept { return entries_[at(row)][at(col)]; }
    void setAt(int row, int col, const complex& value) noexcept { entries_[at(row)][at(col)] = value; }
    void setAt(int row, int col, double re, double im) noexcept { setAt(row, col, complex(re, im)); }

    /// Exact in every part; an entry with NaN equals nothing.
    bool operator==(const ComplexMatrix& b) const noexcept;
    bool operator!=(const ComplexMatrix& b) const noexcept { return !(*this == b); }

    /// this * b. The products are written out: the library's complex multiplication would repair infinities and NaN.
    ComplexMatrix operator*(const ComplexMatrix& b) const noexcept {
        ComplexMatrix product;
        for (int r = 0; r < 2; ++r) {
            for (int c = 0; c < 2; ++c) {
                const complex first = multiplied(entries_[r][0], b.entries_[0][c]);
                const complex second = multiplied(entries_[r][1], b.entries_[1][c]);
                product.entries_[r][c] = complex(first.real() + second.real(), first.imag() + second.imag());
            }
        }
        return product;
    }
    ComplexMatrix& operator*=(const ComplexMatrix& b) noexcept { return *this = *this * b; }

    /// 1 when every real and imaginary part is smaller than 2.220446049250313e-16, else 0.
    int isNull() const noexcept;

    /// Build the text of orv::matrixEntriesText, to be looked at in a debugger, and drop it.
    void watchMatrixEntries() const;
    static void watchMatrixEntries(const ComplexMatrix& matrix);

    /// A self-check of the multiplication with the Pauli matrices.
    static bool unitTestMatrixMultiplication();

  private:
    static constexpr unsigned at(int number) noexcept { return (static_cast<unsigned>(number) - 1U) & 1U; }
    static complex multiplied(const complex& a, const complex& b) noexcept {
        return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
    }

    complex entries_[2][2];
};

namespace orv {

/// "\n\t- MatrixEntries -", then a line per row: "\n\t[1 1] im %g re %g\t[1 2] im %g re %g".
ORV_API CString matrixEntriesText(const ComplexMatrix& matrix);

/// Pivots up to this part of the largest one count as zero, after every row has been scaled to a largest entry near 1.
inline constexpr double kSingularPivot = 1e-12;

/// The inverse by elimination with full pivoting; nothing for a matrix that is singular within `tolerance` or has an
/// entry that is not finite. The units of the equations do not matter: rows are
/// scaled first.
ORV_API std::optional<orvBaseMatrix3d> tryInvert(const orvBaseMatrix3d& matrix, double tolerance = kSingularPivot);
ORV_API std::optional<orvBaseMatrix4d> tryInvert(const orvBaseMatrix4d& matrix, double tolerance = kSingularPivot);

/// x with matrix * x = b in the same way.
ORV_API std::optional<orvBaseVector3d> trySolve(const orvBaseMatrix3d& matrix, const orvBaseVector3d& b,
                                                double tolerance = kSingularPivot);

}  // namespace orv
