// Finding the segment of a strictly monotonic axis that an argument belongs to.
//
// Up to eight values are compared with the argument all at once, and the smaller ones counted. A longer axis is cut
// into buckets of equal width, two per value: the bucket of the argument says where the search begins and ends. The
// bucket of a number is computed by the same monotonic expression for axis values and arguments, so rounding cannot
// lead astray: what lies in an earlier bucket is smaller, what lies in a later one is larger. Within a bucket
// (clustered values may crowd in one) and where the range of the axis is not finite, bisection decides.
#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orv {

/// The first value that does not go on strictly in the direction of the first two (ascending when the second is larger,
/// else descending), or 0 when all do. `count` must be at least 2; the values stand `stride` apart.
inline std::size_t firstOffender(const double* values, std::size_t count, std::size_t stride) noexcept {
    const bool ascending = values[stride] > values[0];
    for (std::size_t i = 1; i < count; ++i) {
        const double previous = values[(i - 1) * stride];
        const double next = values[i * stride];
        if (!(ascending ? next > previous : next < previous)) return i;
    }
    return 0;
}

/// The argument kept between the ends of an axis; NaN stays NaN, and an argument equal to an end stays itself.
inline double clamped(double x, double low, double high) noexcept {
    const double notBelow = low > x ? low : x;
    return high < notBelow ? high : notBelow;
}

class AxisIndex {
  public:
    /// For values that firstOffender has passed.
    AxisIndex(const double* values, std::size_t count, std::size_t stride);

    double low() const noexcept { return low_; }    // the smaller end
    double high() const noexcept { return high_; }  // the larger end

    /// The segment (i - 1, i), i in 1..count-1, for an argument that lies between the ends: i is the first value at or
    /// past it in the direction of the axis. NaN belongs to the first segment.
    std::size_t segmentEnd(double x) const noexcept {
        // In the order of a descending axis everything is mirrored, which changes no comparison.
        double key = x * sign_;
        key = key > keys_[0] ? key : keys_[0];
        const std::size_t smaller = count_ <= kSmall  ? countSmaller(key)
                                    : starts_.empty() ? bisect(key, 0, count_ - 1)
                                                      : inBucket(key);
        return smaller == 0 ? 1 : smaller;
    }

  private:
    static constexpr std::size_t kSmall = 8;

    std::size_t countSmaller(double key) const noexcept {
        const __m128d wanted = _mm_set1_pd(key);
        const double* k = keys_.data();  // padded with infinities
        const __m128i a = _mm_castpd_si128(_mm_cmplt_pd(_mm_loadu_pd(k), wanted));
        const __m128i b = _mm_castpd_si128(_mm_cmplt_pd(_mm_loadu_pd(k + 2), wanted));
        const __m128i c = _mm_castpd_si128(_mm_cmplt_pd(_mm_loadu_pd(k + 4), wanted));
        const __m128i d = _mm_castpd_si128(_mm_cmplt_pd(_mm_loadu_pd(k + 6), wanted));
        const __m128i pairs = _mm_add_epi64(_mm_add_epi64(a, b), _mm_add_epi64(c, d));
        const __m128i sum = _mm_add_epi64(pairs, _mm_unpackhi_epi64(pairs, pairs));
        return static_cast<std::size_t>(-_mm_cvtsi128_si64(sum));
    }

    // The first of [from, to] that is not smaller than the key; `to` is known not to be.
    std::size_t bisect(double key, std::size_t from, std::size_t to) const noexcept {
        const double* k = keys_.data();
        std::size_t length = to - from;
        while (length > 0) {
            const std::size_t half = (length + 1) / 2;
            from += k[from + half - 1] < key ? half : 0;
            length -= half;
        }
        return from;
    }

    std::size_t bucket(double key) const noexcept {
        return static_cast<std::size_t>(static_cast<std::int64_t>((key - keys_[0]) * scale_));
    }

    std::size_t inBucket(double key) const noexcept {
        const std::size_t at = bucket(key);
        const double* k = keys_.data();
        std::size_t i = starts_[at];
        i += k[i] < key ? 1 : 0;  // without branches: most buckets hold one value or none
        i += k[i] < key ? 1 : 0;
        if (k[i] < key) [[unlikely]]
            return bisect(key, i + 1, starts_[at + 1]);
        return i;
    }

    std::vector<double> keys_;           // the values times sign_, ascending
    std::vector<std::uint32_t> starts_;  // per bucket: how many values lie in earlier ones
    std::size_t count_;
    double sign_;
    double low_;
    double high_;
    double scale_ = 0.0;
};

}  // namespace orv
