// Making, copying and removing folders with all that is in them.
#include "environment/folder_entries.h"
#include "environment/make_folder.h"
#include "orv/files.h"

namespace {

using orv::FindRecord;
using orv::FolderCopy;
using orv::Listed;
using orv::Subfolder;
using orv::WideView;
namespace platform = orv::platform;
using platform::FolderIdentity;

bool exists(const CString& path) { return platform::attributesOf(path) != platform::kNoAttributes; }

struct Content {
    std::vector<FindRecord> folders;
    std::vector<CString> files;      // bare names
    std::vector<CString> fileLinks;  // bare names
    Listed listed = Listed::kComplete;
};

Content contentOf(const CString& folder) {
    Content content;
    content.listed = orv::forEachEntry(folder, L"*", [&](const FindRecord& entry) {
        if (entry.isFolder()) {
            content.folders.push_back(entry);
        } else {
            (entry.isLink() ? content.fileLinks : content.files).push_back(entry.name);
        }
    });
    return content;
}

/// The folders that really hold a path that may not be there yet, the path's own included.
std::set<FolderIdentity> foldersAround(const CDirPath& path) {
    std::set<FolderIdentity> around;
    const CDirPath normalized = path.Normalized();
    WideView at = orv::viewOf(normalized);
    while (!at.empty() && !exists(orv::textOf(at))) {
        at = orv::withoutEndSeparators(at);
        const orv::PathParts parts = orv::splitPath(at);
        const WideView parent = at.substr(0, parts.drive.size() + parts.folder.size());
        if (orv::withoutEndSeparators(parent) == at) break;
        at = parent;
    }
    orv::WideString real = platform::realPath(at.empty() ? L"." : orv::textOf(at).GetString());
    FolderIdentity identity{};
    while (!real.empty()) {
        if (platform::identityOf(real.c_str(), identity)) around.insert(identity);
        std::size_t end = real.size();
        while (end > 0 && orv::isSeparator(real[end - 1]))
            --end;
        while (end > 0 && !orv::isSeparator(real[end - 1]))
            --end;
        real.resize(end);
    }
    return around;
}

/// Copies a tree: into each folder's target first its subfolders, then its files.
class TreeCopy {
  public:
    explicit TreeCopy(CString& at) : at_(at) {}

    FolderCopy run(const CDirPath& from, const CDirPath& to) {
        const FolderCopy begun = begin(from, to);
        return begun == FolderCopy::kDone ? work() : begun;
    }

  private:
    struct Level {
        CString from, to;  // what stands before the entries' names
        Content content;
        std::size_t nextFolder = 0;
    };

    FolderCopy begin(const CDirPath& from, const CDirPath& to) {
        at_ = from;
        const bool isThere = exists(from);
        around_ = foldersAround(to);
        FolderIdentity source{};
        FolderIdentity target{};
        const bool isOnItself =
            isThere && platform::identityOf(from, source) && platform::identityOf(to, target) && source == target;
        if (isThere && !isOnItself && leadsToTarget(from)) return FolderCopy::kIntoItself;
        if (!isThere) {
            at_ = to;
            return CreateDirectoryRecursive(to) ? FolderCopy::kSourceMissing : FolderCopy::kTargetFailed;
        }
        return enter({from, false}, to);
    }

    FolderCopy work() {
        while (!levels_.empty()) {
            Level& level = levels_.back();
            FolderCopy result = FolderCopy::kDone;
            if (level.nextFolder < level.content.folders.size()) {
                const FindRecord& folder = level.content.folders[level.nextFolder++];
                result = enter({orv::entryPath(level.from, folder), folder.isLink()}, orv::entryPath(level.to, folder));
            } else {
                result = copyFiles(level, level.content.files);
                if (result == FolderCopy::kDone) result = copyFiles(level, level.content.fileLinks);
                levels_.pop_back();
            }
            if (result != FolderCopy::kDone) return result;
        }
        return FolderCopy::kDone;
    }

    bool leadsToTarget(const CString& folder) const {
        FolderIdentity identity{};
        return platform::identityOf(folder, identity) && around_.count(identity) != 0;
    }

    FolderCopy enter(const Subfolder& from, const CString& to) {
        at_ = from.path;
        if (from.isLink && leadsToTarget(from.path)) return FolderCopy::kIntoItself;
        if (!CreateDirectoryRecursive(to)) {
            at_ = to;
            return FolderCopy::kTargetFailed;
        }
        if (!entered_.enter(from)) return FolderCopy::kDone;
        levels_.push_back({orv::entryPrefix(from.path), orv::entryPrefix(to), contentOf(from.path)});
        return levels_.back().content.listed == Listed::kComplete ? FolderCopy::kDone : FolderCopy::kUnreadable;
    }

    FolderCopy copyFiles(const Level& level, const std::vector<CString>& names) {
        for (const CString& name : names) {
            at_ = level.from + name;
            if (!FileUtils::CopyFileWithTimeCompare(at_, level.to + name)) return FolderCopy::kFileFailed;
        }
        return FolderCopy::kDone;
    }

    CString& at_;
    std::set<FolderIdentity> around_;
    orv::EnteredFolders entered_;
    std::vector<Level> levels_;
};

}  // namespace

bool CreateDirectoryRecursive(const CDirPath& dir) {
    return orv::makeFolders(dir, [](const CDirPath& path) { return platform::makeFolder(path); });
}

FolderCopy orv::copyFolder(const CDirPath& from, const CDirPath& to, CString& at) { return TreeCopy(at).run(from, to); }

bool CopyDirectoryRecursive(const CDirPath& from, const CDirPath& to) {
    CString at;
    const FolderCopy result = orv::copyFolder(from, to, at);
    return result == FolderCopy::kDone || result == FolderCopy::kSourceMissing;
}

bool RemoveDirectoryRecursive(const CDirPath& dir) {
    const CDirPath top = orv::textOf(orv::withoutEndSeparators(orv::viewOf(dir)));
    const std::uint32_t attributes = platform::attributesOf(top);
    if (top.IsEmpty() || attributes == platform::kNoAttributes) return false;
    if (platform::isLink(top)) return platform::removeLink(top, (attributes & FindRecord::kFolder) != 0);

    struct Level {
        CString path;
        std::vector<CString> folders;
    };
    std::vector<Level> levels;
    const auto enter = [&](const CString& path) {
        const CString prefix = orv::entryPrefix(path);
        const Content content = contentOf(path);
        if (content.listed != Listed::kComplete) return false;
        for (const CString& name : content.fileLinks) {
            if (!platform::removeLink(prefix + name, false)) return false;
        }
        for (const CString& name : content.files) {
            const CString file = prefix + name;
            platform::clearReadOnly(file);
            if (!platform::removeFile(file)) return false;
        }
        Level level{path, {}};
        for (const FindRecord& folder : content.folders) {
            const CString sub = orv::entryPath(prefix, folder);
            if (!folder.isLink()) {
                level.folders.push_back(sub);
            } else if (!platform::removeLink(sub, true)) {
                return false;
            }
        }
        levels.push_back(std::move(level));
        return true;
    };
    if (!enter(top)) return false;
    while (!levels.empty()) {
        if (!levels.back().folders.empty()) {
            const CString next = levels.back().folders.back();
            levels.back().folders.pop_back();
            if (!enter(next)) return false;
        } else {
            if (!platform::removeFolder(levels.back().path)) return false;
            levels.pop_back();
        }
    }
    return true;
}

// ODDITY(temp-steps-out): a folder with a name of 36 characters or more is taken for one that a terminal server made
// for this log-on, named by a GUID, and removes at its end. Pinned by
// FilesAndFolders.TemporaryFolderStepsOutOfLongNames.
CDirPath GetTempPathW() {
    constexpr int kGuidLength = 36;
    const CDirPath folder = orv::textOf(platform::temporaryFolder());
    return folder.GetDirName().GetLength() >= kGuidLength ? folder.GetParentDirPath() : folder;
}
