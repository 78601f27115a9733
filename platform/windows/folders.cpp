#include "platform/folders.h"

#include "platform/windows/folder_handle.h"
#include "platform/windows/system_path.h"
#include "platform/windows/windows.h"

namespace orv::platform {
namespace {

static_assert(sizeof(FindRecord) == sizeof(WIN32_FIND_DATAW));
static_assert(offsetof(FindRecord, name) == offsetof(WIN32_FIND_DATAW, cFileName));
static_assert(offsetof(FindRecord, sizeHigh) == offsetof(WIN32_FIND_DATAW, nFileSizeHigh));
static_assert(FindRecord::kFolder == FILE_ATTRIBUTE_DIRECTORY && FindRecord::kReadOnly == FILE_ATTRIBUTE_READONLY &&
              FindRecord::kReparsePoint == FILE_ATTRIBUTE_REPARSE_POINT);
static_assert(kNoAttributes == INVALID_FILE_ATTRIBUTES);

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

WIN32_FIND_DATAW* asSystem(FindRecord& record) { return reinterpret_cast<WIN32_FIND_DATAW*>(&record); }

FileTimeHalves halves(const FILETIME& time) { return {time.dwLowDateTime, time.dwHighDateTime}; }

}  // namespace

OpenHandle::OpenHandle(const wchar_t* path, unsigned long access)
    : handle_(CreateFileW(SystemPath(path).get(), access, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                          nullptr)) {}

OpenHandle::~OpenHandle() {
    if (isOpen()) {
        const DWORD error = GetLastError();
        CloseHandle(handle_);
        SetLastError(error);
    }
}

bool OpenHandle::isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

std::uint32_t attributesOf(const wchar_t* path) { return GetFileAttributesW(SystemPath(path).get()); }

bool isLink(const wchar_t* path) {
    const std::uint32_t attributes = attributesOf(path);
    if (attributes == kNoAttributes || (attributes & FindRecord::kReparsePoint) == 0) return false;
    FindRecord record;
    const HANDLE found = FindFirstFileW(SystemPath(path).get(), asSystem(record));
    if (found == INVALID_HANDLE_VALUE) return false;
    FindClose(found);
    return record.isLink();
}

bool readRecord(const wchar_t* path, FindRecord& record) {
    const WideView given(path);
    const std::size_t nameAt = given.find_last_of(L"\\/") + 1;  // npos + 1 is 0
    if (given.substr(nameAt).find_first_of(L"*?") != WideView::npos) {
        SetLastError(ERROR_INVALID_NAME);
        return false;
    }
    const HANDLE found = FindFirstFileExW(SystemPath(path).get(), FindExInfoStandard, asSystem(record),
                                          FindExSearchNameMatch, nullptr, 0);
    if (found == INVALID_HANDLE_VALUE) return false;
    FindClose(found);
    if (!record.isLink()) return true;
    // The entry of a link tells about the link.
    const OpenHandle target(path, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION information;
    if (!target.isOpen() || GetFileInformationByHandle(target.get(), &information) == 0) return false;
    record.attributes = information.dwFileAttributes;
    record.creation = halves(information.ftCreationTime);
    record.lastAccess = halves(information.ftLastAccessTime);
    record.lastWrite = halves(information.ftLastWriteTime);
    record.sizeHigh = information.nFileSizeHigh;
    record.sizeLow = information.nFileSizeLow;
    return true;
}

bool identityOf(const wchar_t* folder, FolderIdentity& identity) {
    const OpenHandle handle(folder, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION information;
    if (!handle.isOpen() || GetFileInformationByHandle(handle.get(), &information) == 0) return false;
    identity.volume = information.dwVolumeSerialNumber;
    identity.index = static_cast<std::uint64_t>(information.nFileIndexHigh) << 32 | information.nFileIndexLow;
    return true;
}

WideString realPath(const wchar_t* path) {
    const OpenHandle handle(path, FILE_READ_ATTRIBUTES);
    if (!handle.isOpen()) return {};
    WideString real(MAX_PATH, 0);
    for (;;) {
        const DWORD length =
            GetFinalPathNameByHandleW(handle.get(), real.data(), static_cast<DWORD>(real.size()), FILE_NAME_NORMALIZED);
        if (length == 0) return {};
        const bool fits = length < real.size();
        real.resize(length);
        if (fits) return real;
    }
}

WideString temporaryFolder() {
    WideString folder(MAX_PATH + 2, 0);
    folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

bool makeFolder(const wchar_t* path) { return CreateDirectoryW(SystemPath(path).get(), nullptr) != 0; }

bool removeFile(const wchar_t* path) { return DeleteFileW(SystemPath(path).get()) != 0; }

bool removeFolder(const wchar_t* path) { return RemoveDirectoryW(SystemPath(path).get()) != 0; }

bool removeLink(const wchar_t* path, bool toFolder) {
    clearReadOnly(path);  // the link's own
    return toFolder ? removeFolder(path) : removeFile(path);
}

bool clearReadOnly(const wchar_t* path) {
    const SystemPath systemPath(path);
    const DWORD attributes = GetFileAttributesW(systemPath.get());
    if (attributes == INVALID_FILE_ATTRIBUTES) return false;
    if ((attributes & FILE_ATTRIBUTE_READONLY) == 0) return true;
    const DWORD rest = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    return SetFileAttributesW(systemPath.get(), rest != 0 ? rest : FILE_ATTRIBUTE_NORMAL) != 0;
}

bool copyFile(const wchar_t* from, const wchar_t* to) {
    // The system says so too, except where the user may do everything.
    const std::uint32_t attributes = attributesOf(to);
    if (attributes != kNoAttributes && (attributes & FindRecord::kReadOnly) != 0) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    return CopyFileW(SystemPath(from).get(), SystemPath(to).get(), FALSE) != 0;
}

bool setFileTime(const wchar_t* path, FileTimeKind kind, std::uint64_t time) {
    const OpenHandle handle(path, FILE_WRITE_ATTRIBUTES);
    if (!handle.isOpen()) return false;
    const FILETIME fileTime{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    const auto only = [&](FileTimeKind wanted) { return kind == wanted ? &fileTime : nullptr; };
    return SetFileTime(handle.get(), only(FileTimeKind::kCreation), only(FileTimeKind::kLastAccess),
                       only(FileTimeKind::kLastWrite)) != 0;
}

void forgetError() { SetLastError(ERROR_SUCCESS); }

bool errorIsKnown() { return GetLastError() != ERROR_SUCCESS; }

// ---- Listing ----

bool systemMatchesNames() { return true; }

FolderListing::~FolderListing() {
    if (handle_ != 0) FindClose(reinterpret_cast<HANDLE>(handle_));
}

FolderListing::Opened FolderListing::open(const wchar_t* path, NameMatch /*match*/) {
    const HANDLE found = FindFirstFileExW(SystemPath(path).get(), FindExInfoBasic, asSystem(first_),
                                          FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (found != INVALID_HANDLE_VALUE) {
        handle_ = reinterpret_cast<std::intptr_t>(found);
        hasFirst_ = true;
        return Opened::kYes;
    }
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_NO_MORE_FILES) return Opened::kNoMatch;
    return error == ERROR_PATH_NOT_FOUND || error == ERROR_DIRECTORY ? Opened::kNoFolder : Opened::kRefused;
}

bool FolderListing::next(FindRecord& record) {
    if (handle_ == 0) return false;
    if (hasFirst_) {
        record = first_;
        hasFirst_ = false;
        return true;
    }
    return advance(record);
}

bool FolderListing::advance(FindRecord& record) {
    if (FindNextFileW(reinterpret_cast<HANDLE>(handle_), asSystem(record)) != 0) return true;
    if (GetLastError() != ERROR_NO_MORE_FILES) complete_ = false;
    return false;
}

}  // namespace orv::platform
