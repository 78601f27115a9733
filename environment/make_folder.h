// Making a folder with those above it.
#pragma once

#include <vector>

#include "environment/path_text.h"
#include "orv/paths.h"
#include "platform/folders.h"

namespace orv {

/// make(path) makes one folder.
template <class Make>
bool makeFolders(const CDirPath& dir, Make make) {
    std::vector<CDirPath> missing;
    for (WideView at = viewOf(dir); !at.empty() && platform::attributesOf(textOf(at)) == platform::kNoAttributes;) {
        at = withoutEndSeparators(at);
        missing.emplace_back(textOf(at));
        const PathParts parts = splitPath(at);
        const WideView parent = at.substr(0, parts.drive.size() + parts.folder.size());
        if (withoutEndSeparators(parent) == at) break;  // a drive that is not there
        at = parent;
    }
    for (; !missing.empty(); missing.pop_back()) {
        if (!make(missing.back())) return false;
    }
    return true;
}

}  // namespace orv
