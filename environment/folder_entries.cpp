#include "environment/folder_entries.h"

#include "orv/string_utilities.h"

namespace orv {

bool matchesName(WideView name, WideView pattern) { return globMatch(name, pattern, false); }

bool matchesAll(WideView pattern) { return pattern == L"*" || pattern == L"*.*"; }

bool EnteredFolders::enter(const Subfolder& folder) {
    if (!hasLinks_ && !folder.isLink) {
        unasked_.push_back(folder.path);
        return true;
    }
    platform::FolderIdentity identity{};
    hasLinks_ = true;
    for (const CString& path : unasked_) {
        if (platform::identityOf(path, identity)) known_.insert(identity);
    }
    unasked_.clear();
    return platform::identityOf(folder.path, identity) && known_.insert(identity).second;
}

}  // namespace orv
