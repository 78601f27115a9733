// Inverting and solving with a test for singularity: elimination with full pivoting after scaling the rows.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "orv/matrices.h"

namespace orv {
namespace {

// N equations with R right-hand sides each; after solve() the right-hand sides hold the solution.
template <std::size_t N, std::size_t R>
struct Equations {
    double left[N][N];
    double right[N][R];

    bool solve(double tolerance) {
        if (!scaleRows()) return false;
        std::size_t unknownOf[N];  // which unknown stands in a column
        for (std::size_t i = 0; i < N; ++i)
            unknownOf[i] = i;
        double firstPivot = 0.0;
        for (std::size_t step = 0; step < N; ++step) {
            const double pivot = bringPivot(step, unknownOf);
            if (step == 0) firstPivot = pivot;
            if (!(pivot > tolerance * firstPivot) || !(pivot > 0.0)) return false;
            eliminate(step);
        }
        double solution[N][R];
        for (std::size_t i = 0; i < N; ++i) {
            for (std::size_t k = 0; k < R; ++k) {
                solution[unknownOf[i]][k] = right[i][k] / left[i][i];
                if (!std::isfinite(solution[unknownOf[i]][k])) return false;
            }
        }
        for (std::size_t i = 0; i < N; ++i)
            std::copy_n(solution[i], R, right[i]);
        return true;
    }

  private:
    // By powers of two, which round nothing. False when an entry is not finite or a row is zero.
    bool scaleRows() {
        for (std::size_t i = 0; i < N; ++i) {
            double largest = 0.0;
            for (const double entry : left[i]) {
                if (!std::isfinite(entry)) return false;
                largest = std::max(largest, std::fabs(entry));
            }
            if (largest == 0.0) return false;
            const int exponent = std::max(std::ilogb(largest), -1023);  // so that the scale itself is a double
            for (double& entry : left[i])
                entry = std::scalbn(entry, -exponent);
            for (double& entry : right[i])
                entry = std::scalbn(entry, -exponent);
        }
        return true;
    }

    // Moves the largest entry that is left to [step][step]; returns its magnitude.
    double bringPivot(std::size_t step, std::size_t (&unknownOf)[N]) {
        std::size_t row = step;
        std::size_t column = step;
        for (std::size_t i = step; i < N; ++i) {
            for (std::size_t j = step; j < N; ++j) {
                if (std::fabs(left[i][j]) > std::fabs(left[row][column])) {
                    row = i;
                    column = j;
                }
            }
        }
        if (row != step) {
            std::swap_ranges(left[row], left[row] + N, left[step]);
            std::swap_ranges(right[row], right[row] + R, right[step]);
        }
        for (std::size_t i = 0; i < N; ++i)
            std::swap(left[i][column], left[i][step]);
        std::swap(unknownOf[column], unknownOf[step]);
        return std::fabs(left[step][step]);
    }

    void eliminate(std::size_t step) {
        for (std::size_t i = 0; i < N; ++i) {
            if (i == step) continue;
            const double factor = left[i][step] / left[step][step];
            for (std::size_t j = step; j < N; ++j)
                left[i][j] -= factor * left[step][j];
            for (std::size_t k = 0; k < R; ++k)
                right[i][k] -= factor * right[step][k];
        }
    }
};

template <std::size_t N, class Matrix>
std::optional<Matrix> inverted(const Matrix& matrix, double tolerance) {
    Equations<N, N> equations;
    const Matrix identity;
    for (std::size_t i = 0; i < N; ++i) {
        std::copy_n(matrix.m[i], N, equations.left[i]);
        std::copy_n(identity.m[i], N, equations.right[i]);
    }
    if (!equations.solve(tolerance)) return std::nullopt;
    Matrix result;
    for (std::size_t i = 0; i < N; ++i)
        std::copy_n(equations.right[i], N, result.m[i]);
    return result;
}

}  // namespace

std::optional<orvBaseMatrix3d> tryInvert(const orvBaseMatrix3d& matrix, double tolerance) {
    return inverted<3>(matrix, tolerance);
}

std::optional<orvBaseMatrix4d> tryInvert(const orvBaseMatrix4d& matrix, double tolerance) {
    return inverted<4>(matrix, tolerance);
}

std::optional<orvBaseVector3d> trySolve(const orvBaseMatrix3d& matrix, const orvBaseVector3d& b, double tolerance) {
    Equations<3, 1> equations;
    for (std::size_t i = 0; i < 3; ++i) {
        std::copy_n(matrix.m[i], 3, equations.left[i]);
        equations.right[i][0] = b[static_cast<unsigned>(i)];
    }
    if (!equations.solve(tolerance)) return std::nullopt;
    return orvBaseVector3d(equations.right[0][0], equations.right[1][0], equations.right[2][0]);
}

}  // namespace orv
