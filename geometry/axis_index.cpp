#include "geometry/axis_index.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orv {

AxisIndex::AxisIndex(const double* values, std::size_t count, std::size_t stride)
    : count_(count), sign_(values[stride] > values[0] ? 1.0 : -1.0) {
    keys_.assign(std::max(count, kSmall), std::numeric_limits<double>::infinity());
    for (std::size_t i = 0; i < count; ++i)
        keys_[i] = values[i * stride] * sign_;
    low_ = sign_ > 0.0 ? values[0] : values[(count - 1) * stride];
    high_ = sign_ > 0.0 ? values[(count - 1) * stride] : values[0];
    if (count <= kSmall) return;

    // No buckets where their width is no ordinary number: bisection serves as well.
    const double scale = 2.0 * static_cast<double>(count) / (keys_[count - 1] - keys_[0]);
    if (!(scale > 0.0) || !std::isfinite(scale) || count > (1U << 30)) return;
    scale_ = scale;
    starts_.assign(bucket(keys_[count - 1]) + 2, 0);
    for (std::size_t i = 0; i < count; ++i)
        ++starts_[bucket(keys_[i]) + 1];
    for (std::size_t b = 1; b < starts_.size(); ++b)
        starts_[b] += starts_[b - 1];
}

}  // namespace orv
