// Numbers as most are typed, read in one go.
#pragma once

#include <cstddef>

#include "orv/wide.h"

namespace orv {

/// At most 15 digits with at most one point or comma, and nothing of a number behind it.
struct PlainNumber {
    double value = 0;
    std::size_t length = 0;  // 0: the number is another
    bool mayMeanThousands = false;
};
PlainNumber readPlainNumber(const wchar_t* at, const wchar_t* end);

}  // namespace orv
