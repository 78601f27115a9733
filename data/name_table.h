// Names of nodes and leaves, which repeat in all trees: one text for each, as long as the process lives.
#pragma once

#include "orv/wide.h"

namespace orv {

/// The characters of a string with that text, shared without counting; null for a long one, or when there are enough
/// (4096). For several threads at once.
wchar_t* lastingName(WideView name);

}  // namespace orv
