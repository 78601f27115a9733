// What all nodes of the process share, and how places in a tree are named.
#pragma once

#include <cstddef>
#include <vector>

#include "orv/node_format.h"

namespace orv {

/// Between attribute name and value, and behind packed fields.
wchar_t nodeSeparator() noexcept;

inline constexpr std::size_t kMostReports = 1000;

/// "PROJ/ADR"; of more than 32 names the innermost, so that reports on deep trees stay small.
CString nodePath(const std::vector<CProNodeBase*>& open);

}  // namespace orv
