// The definition of the interpolation tables, step by step and with the plainest search: the oracle of tests and
// fuzzer.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace slow {

inline constexpr double kNoValue = 1.7976931348623157e308;

inline bool isAscending(const std::vector<double>& axis) { return axis[1] > axis[0]; }

inline bool isUsable(const std::vector<double>& axis) {
    if (axis.size() < 2) return false;
    for (std::size_t i = 1; i < axis.size(); ++i) {
        if (isAscending(axis) ? !(axis[i] > axis[i - 1]) : !(axis[i] < axis[i - 1])) return false;
    }
    return true;
}

inline double clamped(const std::vector<double>& axis, double x) {
    if (isAscending(axis)) return x < axis.front() ? axis.front() : x > axis.back() ? axis.back() : x;
    return x > axis.front() ? axis.front() : x < axis.back() ? axis.back() : x;
}

// The index at which the segment ends. A NaN is found nowhere; any segment serves it.
inline std::size_t segmentEnd(const std::vector<double>& axis, double inside) {
    std::size_t i = 0;
    while (i < axis.size() && !(isAscending(axis) ? axis[i] >= inside : axis[i] <= inside))
        ++i;
    if (i == axis.size()) return 1;
    return i < 1 ? 1 : i;
}

inline double getY(const std::vector<double>& xs, const std::vector<double>& ys, double x, bool extrapolate) {
    if (xs.size() == 1 && !extrapolate) return ys[0];
    if (!isUsable(xs)) return kNoValue;
    const double inside = clamped(xs, x);
    const std::size_t i2 = segmentEnd(xs, inside);
    const std::size_t i1 = i2 - 1;
    const double abscissa = extrapolate ? x : inside;
    const double t = (abscissa - xs[i1]) / (xs[i2] - xs[i1]);
    return ys[i2] * t + (1 - t) * ys[i1];
}

struct Grid {
    std::vector<double> xs;
    std::vector<double> ys;
    std::vector<std::vector<double>> z;  // [row][column]
};

inline double getZ(const Grid& g, double x, double y, bool extrapolate) {
    if (!isUsable(g.xs) || !isUsable(g.ys)) return kNoValue;
    const std::size_t i2 = segmentEnd(g.xs, clamped(g.xs, x));
    const std::size_t j2 = segmentEnd(g.ys, clamped(g.ys, y));
    const std::size_t i1 = i2 - 1;
    const std::size_t j1 = j2 - 1;
    if (!extrapolate) {
        x = clamped(g.xs, x);
        y = clamped(g.ys, y);
    }
    const double xi = 2 * (x - g.xs[i1]) / (g.xs[i2] - g.xs[i1]) - 1;
    const double eta = 2 * (y - g.ys[j1]) / (g.ys[j2] - g.ys[j1]) - 1;
    return (1 - xi) * (1 - eta) / 4 * g.z[i1][j1] + (1 + xi) * (1 - eta) / 4 * g.z[i2][j1] +
           (1 - xi) * (1 + eta) / 4 * g.z[i1][j2] + (1 + xi) * (1 + eta) / 4 * g.z[i2][j2];
}

}  // namespace slow
