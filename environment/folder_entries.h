// One folder's entries, and the folders of a tree that were entered.
#pragma once

#include <set>
#include <vector>

#include "environment/path_text.h"
#include "orv/paths.h"
#include "platform/folders.h"

namespace orv {

/// How names are matched where the system does not do it.
bool matchesName(WideView name, WideView pattern);

/// "*" and "*.*".
bool matchesAll(WideView pattern);

/// What stands before the names of a folder's entries: joining each by Path::AppendPath gives the same.
inline CString entryPrefix(const CString& folder) {
    constexpr wchar_t kAnyName[] = L"x";
    CString joined = joinedPath(viewOf(folder), kAnyName);
    joined.Truncate(joined.GetLength() - 1);
    return joined;
}

inline CString entryPath(const CString& prefix, const FindRecord& entry) { return prefix + entry.name; }

/// What a listing came to. A folder without a match is kComplete.
enum class Listed { kComplete, kNoFolder, kBroken };

/// Calls use(entry) for every entry but "." and "..", in the system's order.
template <class Use>
Listed forEachEntry(const CString& folder, WideView pattern, Use use) {
    platform::FolderListing listing;
    using Opened = platform::FolderListing::Opened;
    const Opened opened = listing.open(joinedPath(viewOf(folder), pattern), matchesName);
    if (opened == Opened::kNoFolder) return Listed::kNoFolder;
    if (opened == Opened::kRefused) return Listed::kBroken;
    if (opened == Opened::kNoMatch) return Listed::kComplete;
    FindRecord entry;
    while (listing.next(entry)) {
        if (!entry.isSelfOrParent()) use(entry);
    }
    return listing.isComplete() ? Listed::kComplete : Listed::kBroken;
}

/// A subfolder that is still to be entered.
struct Subfolder {
    CString path;
    bool isLink;
};

/// Enters each real folder once. Without links no folder can come twice, so that nothing is asked of the system before
/// the first link.
class EnteredFolders {
  public:
    /// False if the folder was entered before, or does not exist.
    bool enter(const Subfolder& folder);

  private:
    std::vector<CString> unasked_;
    std::set<platform::FolderIdentity> known_;
    bool hasLinks_ = false;
};

}  // namespace orv
