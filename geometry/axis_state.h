// Where an argument lies on an axis, in words.
#pragma once

#include <cmath>

#include "orv/interpolation.h"

namespace orv {

inline AxisState axisState(double x, double low, double high, bool extrapolate) noexcept {
    if (std::isnan(x)) return AxisState::kNotANumber;
    if (x < low) return extrapolate ? AxisState::kExtrapolatedLow : AxisState::kClampedLow;
    if (x > high) return extrapolate ? AxisState::kExtrapolatedHigh : AxisState::kClampedHigh;
    return AxisState::kInside;
}

}  // namespace orv
