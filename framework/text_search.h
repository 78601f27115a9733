// Finding a text in a text, exactly.
#pragma once

#include <cstddef>

#include "orv/wide.h"

namespace orv {

/// The first match at or after `from` (at most the length), or WideView::npos; an empty `what` is found at once. The
/// time grows with the length of both texts, never with their product.
std::size_t findText(WideView text, WideView what, std::size_t from);

}  // namespace orv
