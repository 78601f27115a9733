// Which vector instructions the library's kernels use.
#pragma once

#include "orv/export.h"

namespace orv {

/// Each level holds the ones before it. kAvx512 means F, BW, DQ, VL, VBMI and VBMI2 together.
enum class VectorLevel : unsigned char { kSse2, kAvx2, kAvx512 };

/// For tests and benchmarks: uses no instructions above `level` from now on, or all that the processor has when it has
/// less. Returns what is then in use. Process-wide.
ORV_API VectorLevel limitVectorLevel(VectorLevel level);

}  // namespace orv
