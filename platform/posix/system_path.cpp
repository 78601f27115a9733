#include "platform/posix/system_path.h"

#include <algorithm>

#include "framework/utf8.h"

namespace orv::platform {

std::string systemPath(const wchar_t* path) {
    std::string narrow = path != nullptr ? wideToUtf8(path) : std::string();
    std::replace(narrow.begin(), narrow.end(), '\\', '/');
    return narrow;
}

}  // namespace orv::platform
