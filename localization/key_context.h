// The translator's context in front of a text.
#pragma once

#include "orv/wide.h"

namespace orv {

/// The length of "@context@"; 0 for a text without one.
inline std::size_t contextLength(WideView text) {
    if (text.empty() || text[0] != L'@') return 0;
    const std::size_t second = text.find(L'@', 1);
    return second == WideView::npos ? 0 : second + 1;
}

}  // namespace orv
