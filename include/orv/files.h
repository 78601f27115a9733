// Files and folders: asking, listing, copying, making, removing. What only Windows has is in files_windows.h.
//
// Rules of the family:
// - Nothing throws and nothing shows a message: failure is false, or the value that is named. What was done before a
//   failure stays done.
// - Paths may be longer than the system's old limit of 260 characters. On systems that separate by "/" alone a
//   backslash separates as well, and an entry whose name holds one, or is no text, cannot be named here: it is passed
//   over, and whatever must not miss an entry (copying, removing) fails.
// - Links: a link or junction counts as what it names, and every recursion follows it, but enters each real folder
//   once, so that a loop ends. Removing takes the link itself and leaves what it names.
// - Patterns are the system's: "*" and "?", ignoring case, "*.*" meaning "*".
// - For several threads at once; a CFindFiles belongs to one thread at a time.
#pragma once

#include <cstdint>

#include "orv/export.h"
#include "orv/find_record.h"
#include "orv/framework/arrays.h"
#include "orv/framework/time.h"
#include "orv/paths.h"

/// Which time of a file. Any other value does nothing: reading succeeds and leaves its result, writing fails.
enum EFileTime { eFileTimeCreation = 0, eFileTimeLastAccess = 1, eFileTimeLastWrite = 2 };

/// Goes through the files, or the subfolders, of one folder, in the system's order.
class ORV_API CFindFiles {
  public:
    /// `files`: true for files only, false for subfolders only (without "." and "..").
    CFindFiles(const CDirPath& dir, const CString& pattern, bool files);
    CFindFiles(const CFindFiles&) = delete;
    CFindFiles& operator=(const CFindFiles&) = delete;
    ~CFindFiles();

    /// The next bare name; false and "" at the end, or when the folder is not there. A call after the end starts anew.
    bool GetNext(CString& name);

  private:
    void close();

    CDirPath dir_;
    CString pattern_;
    bool files_;
    orv::FindRecord record_{};
    std::int64_t handle_ = -1;
};

// ---- Listing ----

/// Appends every matching file of the folder, then those of its subfolders, each with its folder in front.
ORV_API void CollectFilesRecursive(const CDirPath& dir, const CString& pattern,
                                   CArray<CFilePath, const CFilePath&>& files);
/// Fill `names` anew with bare names. False when the folder is not there or cannot be read to its end.
ORV_API bool GetFileNames(const CDirPath& dir, const CString& pattern, CStringArray& names);
ORV_API bool GetDirNames(const CDirPath& dir, const CString& pattern, CStringArray& names);
/// Bytes in the matching files, of the matching subfolders too if `recursive`; "" matches all. A folder that cannot be
/// read counts 0, a file modulo 2^32.
ORV_API std::int64_t GetSpaceUsageLong(const CDirPath& dir, const CString& pattern, bool recursive);
/// The same, modulo 2^32.
ORV_API std::uint32_t GetSpaceUsage(const CDirPath& dir, const CString& pattern, bool recursive);

// ---- Asking about one file; false when it is not there ----

ORV_API bool GetFileData(const CFilePath& file, orv::FindRecord& record);
/// Modulo 2^32.
ORV_API bool GetFileSize(const CFilePath& file, unsigned& size);
ORV_API bool GetFileSize(const CFilePath& file, std::int64_t& size);
ORV_API bool GetFileTime(const CFilePath& file, EFileTime which, CTime& time);
/// A time of creation cannot be set on every system.
ORV_API bool SetFileTime(const CFilePath& file, EFileTime which, const CTime& time);
/// Clears the attribute if it is set; true if it is then not set.
ORV_API bool RemoveReadOnlyFlag(const CFilePath& file);
/// The last writing of `a` was earlier (-1), in the same second (0) or later (1) than that of `b`; -2 if one of them is
/// not there.
ORV_API int CompareFileTime(const CFilePath& a, const CFilePath& b);

namespace FileUtils {

/// The same.
ORV_API int CompareFileTime(const CFilePath& a, const CFilePath& b);
/// Copies unless `to` is there and not older; the time of the last writing is kept. An existing file is overwritten.
ORV_API bool CopyFileWithTimeCompare(const CFilePath& from, const CFilePath& to);
/// Up to `attempts` times (negative: without end; 0: never) with `waitMs` between; at once where the system names no
/// error.
ORV_API bool CopyFileWithRetries(const CFilePath& from, const CFilePath& to, unsigned waitMs, int attempts);

}  // namespace FileUtils

// ---- Folders ----

/// Makes the folder and those above it that are missing. True at once if anything has that path.
ORV_API bool CreateDirectoryRecursive(const CDirPath& dir);
/// Copies every subfolder, then every file (CopyFileWithTimeCompare), up to the first failure. A `from` that is not
/// there makes `to` and is true. A folder is not copied into itself. See also orv::copyFolder.
ORV_API bool CopyDirectoryRecursive(const CDirPath& from, const CDirPath& to);
/// Removes everything in the folder, read-only files too, and the folder; stops at the first failure.
ORV_API bool RemoveDirectoryRecursive(const CDirPath& dir);

/// The user's folder for temporary files. A last folder of 36 characters or more, such as one named by a GUID for one
/// log-on, is stepped out of.
ORV_API CDirPath GetTempPathW();

namespace orv {

enum class FolderCopy {
    kDone,
    kSourceMissing,  // the target was made
    kIntoItself,     // nothing was done, or not from the link on that leads there
    kTargetFailed,   // a folder could not be made
    kUnreadable,     // a folder could not be read to its end
    kFileFailed,
};

/// CopyDirectoryRecursive that says what happened; `at` becomes the path at which it stopped.
ORV_API FolderCopy copyFolder(const CDirPath& from, const CDirPath& to, CString& at);

}  // namespace orv
