#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "framework/utf8.h"
#include "platform/folders.h"
#include "platform/posix/system_path.h"

namespace orv::platform {
namespace {

DIR* asFolder(std::intptr_t handle) { return reinterpret_cast<DIR*>(handle); }

/// False for a name that no path of ours can hold: with a backslash in it, or no UTF-8.
bool setName(std::string_view bytes, FindRecord& record) {
    if (bytes.size() >= std::size(record.name)) return false;
    std::size_t length = 0;
    for (; length < bytes.size(); ++length) {
        const auto byte = static_cast<unsigned char>(bytes[length]);
        if (byte == '\\') return false;
        if (byte >= 0x80) break;
        record.name[length] = byte;
    }
    if (length < bytes.size()) {
        wchar_t decoded[sizeof(record.name) / sizeof(wchar_t) + kUtf8Slack];
        if (!decodeValidUtf8(bytes, decoded, length) || WideView(decoded, length).find(L'\\') != WideView::npos) {
            return false;
        }
        WideTraits::copy(record.name, decoded, length);
    }
    record.name[length] = 0;
    return true;
}

/// Kind and link of an entry; what a link names decides its kind.
void setAttributes(int folder, const dirent& entry, FindRecord& record) {
    record.attributes = entry.d_type == DT_DIR ? FindRecord::kFolder : FindRecord::kNormal;
    record.reparseTag = 0;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return;
    struct stat status {};
    const bool isLink = entry.d_type == DT_LNK ||
                        (::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode));
    if (::fstatat(folder, entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode)) {
        record.attributes = FindRecord::kFolder;
    }
    if (isLink) {
        record.attributes |= FindRecord::kReparsePoint;
        record.reparseTag = FindRecord::kSymbolicLink;
    }
}

}  // namespace

bool systemMatchesNames() { return false; }

FolderListing::~FolderListing() {
    if (handle_ != 0) ::closedir(asFolder(handle_));
}

FolderListing::Opened FolderListing::open(const wchar_t* path, NameMatch match) {
    const WideView given(path);
    const std::size_t nameAt = given.find_last_of(L"\\/") + 1;  // npos + 1 is 0
    if (nameAt == given.size()) return Opened::kNoMatch;        // no name at all
    pattern_ = given.substr(nameAt);
    if (pattern_ == L"*" || pattern_ == L"*.*") pattern_.clear();
    match_ = match;
    const WideString folder = nameAt != 0 ? WideString(given.substr(0, nameAt)) : WideString(L".");
    handle_ = reinterpret_cast<std::intptr_t>(::opendir(systemPath(folder.c_str()).c_str()));
    if (handle_ != 0) {
        hasFirst_ = advance(first_);
        return hasFirst_ ? Opened::kYes : complete_ ? Opened::kNoMatch : Opened::kRefused;
    }
    return errno == ENOENT || errno == ENOTDIR ? Opened::kNoFolder : Opened::kRefused;
}

bool FolderListing::next(FindRecord& record) {
    if (handle_ == 0) return false;
    if (!hasFirst_) return advance(record);
    record = first_;
    hasFirst_ = false;
    return true;
}

bool FolderListing::advance(FindRecord& record) {
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(asFolder(handle_));
        if (entry == nullptr) {
            if (errno != 0) complete_ = false;
            return false;
        }
        if (!setName(entry->d_name, record)) {
            complete_ = false;
            continue;
        }
        if (!pattern_.empty() && !match_(record.name, pattern_)) continue;
        setAttributes(::dirfd(asFolder(handle_)), *entry, record);
        return true;
    }
}

}  // namespace orv::platform
