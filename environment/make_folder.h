// Making a folder with those above it.
#pragma once

#include <vector>

#include "orv/paths.h"
#include "platform/folders.h"

namespace orv {

/// make(path) makes one folder.
template <class Make>
bool makeFolders(const CDirPath& dir, Make make) {
    std::vector<CDirPath> missing;
    CDirPath at = dir;
    while (!at.IsEmpty() && platform::attributesOf(at) == platform::kNoAttributes) {
        at.Trim();
        if (at.IsEmpty()) break;
        missing.push_back(at);
        const CDirPath parent = at.GetParentDirPath();
        if (parent.Trimmed() == at) break;  // a drive that is not there
        at = parent;
    }
    for (; !missing.empty(); missing.pop_back()) {
        if (!make(missing.back())) return false;
    }
    return platform::attributesOf(dir) != platform::kNoAttributes;
}

}  // namespace orv
