// Listing folders and trees.
#include "environment/folder_entries.h"
#include "orv/files.h"

using orv::FindRecord;
using orv::Listed;
using orv::Subfolder;
using orv::WideView;
using orv::platform::FolderListing;

namespace {

constexpr std::int64_t kNoHandle = -1;

FolderListing* asListing(std::int64_t handle) { return reinterpret_cast<FolderListing*>(handle); }

static_assert(sizeof(std::int64_t) == sizeof(FolderListing*));

bool exists(const CString& path) { return orv::platform::attributesOf(path) != orv::platform::kNoAttributes; }

bool fillNames(const CDirPath& dir, const CString& pattern, bool folders, CStringArray& names) {
    names.RemoveAll();
    const auto add = [&](const FindRecord& entry) {
        if (entry.isFolder() == folders) names.Add(entry.name);
    };
    return exists(dir) && orv::forEachEntry(dir, orv::viewOf(pattern), add) == Listed::kComplete;
}

/// Calls use(file) for the matching files and subfolder(entry) for all subfolders, in one enumeration where it can be.
template <class UseFile, class UseFolder>
void forEachFileAndFolder(const CString& folder, const CString& pattern, UseFile useFile, UseFolder useFolder) {
    const WideView wanted = orv::viewOf(pattern);
    const bool all = orv::matchesAll(wanted);
    const bool isOneName = wanted.find_first_of(L"\\/") == WideView::npos && !wanted.empty();
    const bool once = all || (isOneName && !orv::platform::systemMatchesNames());
    if (!once) {
        orv::forEachEntry(folder, wanted, [&](const FindRecord& entry) {
            if (!entry.isFolder()) useFile(entry);
        });
    }
    orv::forEachEntry(folder, L"*", [&](const FindRecord& entry) {
        if (entry.isFolder()) {
            useFolder(entry);
        } else if (once && (all || orv::matchesName(entry.name, wanted))) {
            useFile(entry);
        }
    });
}

std::uint32_t sizeOf(const CString& prefix, const FindRecord& entry) {
    if (orv::platform::systemMatchesNames() && !entry.isLink()) return entry.sizeLow;
    FindRecord record;  // the listing did not tell
    return orv::platform::readRecord(orv::entryPath(prefix, entry), record) ? record.sizeLow : 0;
}

}  // namespace

CFindFiles::CFindFiles(const CDirPath& dir, const CString& pattern, bool files)
    : dir_(dir), pattern_(pattern), files_(files) {}

CFindFiles::~CFindFiles() { close(); }

void CFindFiles::close() {
    if (handle_ != kNoHandle) delete asListing(handle_);
    handle_ = kNoHandle;
}

bool CFindFiles::GetNext(CString& name) {
    name.Empty();
    if (handle_ == kNoHandle) {
        if (!exists(dir_)) return false;
        handle_ = reinterpret_cast<std::int64_t>(new FolderListing);
        if (asListing(handle_)->open(Path::AppendPath(dir_, pattern_), orv::matchesName) !=
            FolderListing::Opened::kYes) {
            close();
            return false;
        }
    }
    while (asListing(handle_)->next(record_)) {
        if (record_.isFolder() == files_ || record_.isSelfOrParent()) continue;
        name = record_.name;
        return true;
    }
    close();
    return false;
}

void CollectFilesRecursive(const CDirPath& dir, const CString& pattern, CArray<CFilePath, const CFilePath&>& files) {
    orv::EnteredFolders entered;
    std::vector<Subfolder> waiting{{dir, false}};  // the next one last
    std::vector<Subfolder> found;
    while (!waiting.empty()) {
        const Subfolder folder = std::move(waiting.back());
        waiting.pop_back();
        if (!entered.enter(folder)) continue;
        const CString prefix = orv::entryPrefix(folder.path);
        forEachFileAndFolder(
            folder.path, pattern, [&](const FindRecord& file) { files.Add(CFilePath(orv::entryPath(prefix, file))); },
            [&](const FindRecord& sub) {
                found.push_back({orv::entryPath(prefix, sub), sub.isLink()});
            });
        for (; !found.empty(); found.pop_back())
            waiting.push_back(std::move(found.back()));
    }
}

bool GetFileNames(const CDirPath& dir, const CString& pattern, CStringArray& names) {
    return fillNames(dir, pattern, false, names);
}

bool GetDirNames(const CDirPath& dir, const CString& pattern, CStringArray& names) {
    return fillNames(dir, pattern, true, names);
}

// ODDITY(space-modulo): each file counts with the lower 32 bits of its size. Pinned by FilesAndFolders.SpaceIsSummedUp.
std::int64_t GetSpaceUsageLong(const CDirPath& dir, const CString& pattern, bool recursive) {
    const WideView wanted = pattern.IsEmpty() ? WideView(L"*") : orv::viewOf(pattern);
    std::int64_t sum = 0;
    orv::EnteredFolders entered;
    std::vector<Subfolder> waiting{{dir, false}};
    while (!waiting.empty()) {
        const Subfolder folder = std::move(waiting.back());
        waiting.pop_back();
        if (!entered.enter(folder)) continue;
        const CString prefix = orv::entryPrefix(folder.path);
        orv::forEachEntry(folder.path, wanted, [&](const FindRecord& entry) {
            if (!entry.isFolder() || !recursive) {
                sum += entry.isFolder() ? 0 : sizeOf(prefix, entry);
            } else {
                waiting.push_back({orv::entryPath(prefix, entry), entry.isLink()});
            }
        });
    }
    return sum;
}

std::uint32_t GetSpaceUsage(const CDirPath& dir, const CString& pattern, bool recursive) {
    return static_cast<std::uint32_t>(GetSpaceUsageLong(dir, pattern, recursive));
}
