#include "framework/cpu.h"

#include <algorithm>

namespace orv {

namespace detail {

constinit std::atomic<unsigned char> vectorLevel{kLevelUnknown};

namespace {

VectorLevel highestVectorLevel() {
    __builtin_cpu_init();
    const auto has = [](int answer) { return answer != 0; };
    if (!has(__builtin_cpu_supports("avx2")) || !has(__builtin_cpu_supports("bmi")) ||
        !has(__builtin_cpu_supports("bmi2")) || !has(__builtin_cpu_supports("popcnt"))) {
        return VectorLevel::kSse2;
    }
    // Every processor with AVX2 counts leading zeros (lzcnt), for which there is no portable question.
    if (has(__builtin_cpu_supports("avx512f")) && has(__builtin_cpu_supports("avx512bw")) &&
        has(__builtin_cpu_supports("avx512dq")) && has(__builtin_cpu_supports("avx512vl")) &&
        has(__builtin_cpu_supports("avx512vbmi")) && has(__builtin_cpu_supports("avx512vbmi2"))) {
        return VectorLevel::kAvx512;
    }
    return VectorLevel::kAvx2;
}

}  // namespace

VectorLevel detectVectorLevel() {
    const VectorLevel level = highestVectorLevel();
    vectorLevel.store(static_cast<unsigned char>(level), std::memory_order_relaxed);
    return level;
}

}  // namespace detail

VectorLevel limitVectorLevel(VectorLevel level) {
    const VectorLevel used = std::min(level, detail::highestVectorLevel());
    detail::vectorLevel.store(static_cast<unsigned char>(used), std::memory_order_relaxed);
    return used;
}

}  // namespace orv
