// Runs a check with each set of vector instructions that this processor has.
#pragma once

#include <gtest/gtest.h>

#include "orv/vector_level.h"

template <class Check>
void atEachVectorLevel(Check check) {
    using orv::VectorLevel;
    for (const VectorLevel level : {VectorLevel::kSse2, VectorLevel::kAvx2, VectorLevel::kAvx512}) {
        if (orv::limitVectorLevel(level) != level) break;
        SCOPED_TRACE(testing::Message() << "vector level " << static_cast<int>(level));
        check();
    }
    orv::limitVectorLevel(VectorLevel::kAvx512);
}
