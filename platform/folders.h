// Single calls about files and folders, and the listing of one folder. Paths are wide texts; natively "\" separates
// too.
#pragma once

#include <cstdint>

#include "orv/find_record.h"
#include "orv/wide.h"

namespace orv::platform {

// ---- Asking ----

inline constexpr std::uint32_t kNoAttributes = 0xFFFFFFFF;

/// FindRecord's bits, without opening the file; kNoAttributes when nothing has this path.
std::uint32_t attributesOf(const wchar_t* path);
/// A link to a folder or file itself, not what it names.
bool isLink(const wchar_t* path);
/// Everything about what has this path, a link followed. A path with wildcards in its last component names nothing.
bool readRecord(const wchar_t* path, FindRecord& record);

/// What a real folder is known by, however it is reached. False when there is none.
struct FolderIdentity {
    std::uint64_t volume;
    std::uint64_t index;
    auto operator<=>(const FolderIdentity&) const = default;
};
bool identityOf(const wchar_t* folder, FolderIdentity& identity);
/// The complete path without links or steps up, in whatever form; "" when nothing has this path.
WideString realPath(const wchar_t* path);

/// With a separator at its end.
WideString temporaryFolder();

// ---- Doing; false on failure ----

bool makeFolder(const wchar_t* path);
bool removeFile(const wchar_t* path);
/// An empty folder.
bool removeFolder(const wchar_t* path);
/// The link itself.
bool removeLink(const wchar_t* path, bool toFolder);
bool clearReadOnly(const wchar_t* path);
/// Overwrites a file that is not read-only; keeps the last-write time and the read-only attribute. Leaves no half copy.
bool copyFile(const wchar_t* from, const wchar_t* to);
enum class FileTimeKind { kCreation, kLastAccess, kLastWrite };
/// 100 ns units since 1601.
bool setFileTime(const wchar_t* path, FileTimeKind kind, std::uint64_t time);

/// Whether a call of this thread has failed with an error code since forgetError().
void forgetError();
bool errorIsKnown();

// ---- Listing ----

/// How names are matched on systems that do not do it themselves.
using NameMatch = bool (*)(WideView name, WideView pattern);
bool systemMatchesNames();

/// One enumeration of a folder, in the system's order.
class FolderListing {
  public:
    enum class Opened { kYes, kNoMatch, kNoFolder, kRefused };

    FolderListing() = default;
    FolderListing(const FolderListing&) = delete;
    FolderListing& operator=(const FolderListing&) = delete;
    ~FolderListing();

    /// `path`: a folder, a separator and a pattern.
    Opened open(const wchar_t* path, NameMatch match);
    /// The next entry, "." and ".." too; false when there is none. Natively a record holds name, kind and link alone.
    bool next(FindRecord& record);
    /// After next() was false: whether that was the end, and no entry was passed over.
    bool isComplete() const { return complete_; }

  private:
    bool advance(FindRecord& record);

    std::intptr_t handle_ = 0;
    bool complete_ = true;
    bool hasFirst_ = false;
    FindRecord first_;
    WideString pattern_;
    NameMatch match_ = nullptr;
};

}  // namespace orv::platform
