// Paths as the system's calls take them.
#pragma once

#include <string>

namespace orv::platform {

/// UTF-8, with "/" for every backslash: the suite's paths are Windows paths wherever it runs.
std::string systemPath(const wchar_t* path);

}  // namespace orv::platform
