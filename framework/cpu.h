// The one run-time dispatch of vector kernels.
//
// A kernel above the base line is a function of its own, marked with one of the macros below (as are the inline helpers
// it uses; no lambdas: they do not inherit the mark), and is called behind `if (vectorLevel() >= ...)`. Kernels must
// not keep wide vectors on the stack, which is aligned to 16 bytes only on Windows; scripts/check-vector-stack looks.
#pragma once

#include <atomic>

#include "orv/vector_level.h"

#define ORV_TARGET_AVX2 __attribute__((target("avx2,bmi,bmi2,lzcnt,popcnt")))
#define ORV_TARGET_AVX512 \
    __attribute__((target("avx2,avx512f,avx512bw,avx512dq,avx512vl,avx512vbmi,avx512vbmi2,bmi,bmi2,lzcnt,popcnt")))
/// For helpers of a marked kernel, together with its mark.
#define ORV_KERNEL_INLINE __attribute__((always_inline)) inline

namespace orv {

namespace detail {

inline constexpr unsigned char kLevelUnknown = 0xFF;
extern std::atomic<unsigned char> vectorLevel;
VectorLevel detectVectorLevel();

}  // namespace detail

/// What this processor and system can run, found out at the first call.
inline VectorLevel vectorLevel() {
    const unsigned char known = detail::vectorLevel.load(std::memory_order_relaxed);
    return known != detail::kLevelUnknown ? static_cast<VectorLevel>(known) : detail::detectVectorLevel();
}

}  // namespace orv
