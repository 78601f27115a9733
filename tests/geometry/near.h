// Comparing geometry in tests.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <ostream>

#include "orv/geometry.h"

inline void PrintTo(const orvBaseVector3d& v, std::ostream* out) { *out << v.x << ", " << v.y << ", " << v.z; }
inline void PrintTo(const orvBasePoint3d& p, std::ostream* out) { *out << p.x << ", " << p.y << ", " << p.z; }

/// Every bit the same: -0 is not 0, and NaN equals itself.
inline bool sameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

template <class T>
testing::AssertionResult sameBits(const T& a, const T& b) {
    if (sameBits(a.x, b.x) && sameBits(a.y, b.y) && sameBits(a.z, b.z)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(a) << " is not " << testing::PrintToString(b);
}

/// Every component within `tolerance`.
template <class T>
testing::AssertionResult isNear(const T& a, const T& b, double tolerance = 1e-14) {
    if (std::fabs(a.x - b.x) <= tolerance && std::fabs(a.y - b.y) <= tolerance && std::fabs(a.z - b.z) <= tolerance) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << testing::PrintToString(a) << " is not near " << testing::PrintToString(b);
}
