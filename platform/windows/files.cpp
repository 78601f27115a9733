#include "platform/files.h"

#include <algorithm>
#include <utility>

#include "platform/windows/system_path.h"
#include "platform/windows/windows.h"

namespace orv::platform {
namespace {

constexpr unsigned kRetryMilliseconds = 100;
constexpr std::size_t kLargestTransfer = 1U << 30;  // the system counts in 32 bits

HANDLE asHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

std::intptr_t asNumber(HANDLE handle) { return reinterpret_cast<std::intptr_t>(handle); }

static_assert(sizeof(std::intptr_t) == sizeof(HANDLE));

HANDLE create(const wchar_t* path, DWORD access, DWORD share, DWORD creation) {
    const SystemPath systemPath(path);
    return CreateFileW(systemPath.get(), access, share, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

File::File(File&& other) noexcept : handle_(other.release()) {}

File& File::operator=(File&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

File::~File() { close(); }

bool File::open(const wchar_t* path, Access access, Creation creation, Share share) {
    close();
    if (path == nullptr) return false;
    constexpr DWORD kAccess[] = {GENERIC_READ, GENERIC_WRITE, GENERIC_READ | GENERIC_WRITE};
    constexpr DWORD kCreation[] = {OPEN_EXISTING, CREATE_ALWAYS, OPEN_ALWAYS};
    constexpr DWORD kShare[] = {FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, FILE_SHARE_READ,
                                FILE_SHARE_WRITE, 0};
    handle_ = asNumber(create(path, kAccess[static_cast<int>(access)], kShare[static_cast<int>(share)],
                              kCreation[static_cast<int>(creation)]));
    return isOpen();
}

bool File::openForReading(const wchar_t* path) {
    // Nothing ends the waiting but the other side: that is the contract, and the files of the suite are held briefly.
    while (!open(path, Access::kRead, Creation::kOpenExisting, Share::kAll)) {
        if (path == nullptr || GetLastError() != ERROR_SHARING_VIOLATION) return false;
        Sleep(kRetryMilliseconds);
    }
    return true;
}

void File::close() noexcept {
    if (!isOpen()) return;
    const DWORD error = GetLastError();
    CloseHandle(asHandle(std::exchange(handle_, kNone)));
    SetLastError(error);
}

std::ptrdiff_t File::read(void* buffer, std::size_t count) {
    auto* to = static_cast<char*>(buffer);
    std::size_t total = 0;
    while (total < count) {
        const auto wanted = static_cast<DWORD>(std::min(count - total, kLargestTransfer));
        DWORD got = 0;
        if (ReadFile(asHandle(handle_), to + total, wanted, &got, nullptr) == 0) {
            if (GetLastError() == ERROR_BROKEN_PIPE) break;  // the end of a pipe
            return -1;
        }
        total += got;
        if (got == 0) break;
    }
    return static_cast<std::ptrdiff_t>(total);
}

bool File::write(const void* bytes, std::size_t count) {
    const auto* from = static_cast<const char*>(bytes);
    while (count > 0) {
        DWORD done = 0;
        const auto part = static_cast<DWORD>(std::min(count, kLargestTransfer));
        if (WriteFile(asHandle(handle_), from, part, &done, nullptr) == 0 || done == 0) return false;
        from += done;
        count -= done;
    }
    return isOpen();
}

bool File::flush() { return FlushFileBuffers(asHandle(handle_)) != 0; }

std::int64_t File::seek(std::int64_t offset, unsigned from) {
    constexpr DWORD kFrom[] = {FILE_BEGIN, FILE_CURRENT, FILE_END};
    if (from > 2) return -1;
    LARGE_INTEGER distance;
    LARGE_INTEGER position;
    distance.QuadPart = offset;
    if (SetFilePointerEx(asHandle(handle_), distance, &position, kFrom[from]) == 0) return -1;
    return position.QuadPart;
}

std::int64_t File::size() const {
    LARGE_INTEGER size;
    return GetFileSizeEx(asHandle(handle_), &size) != 0 ? size.QuadPart : -1;
}

std::intptr_t File::release() noexcept { return std::exchange(handle_, kNone); }

File File::adopt(std::intptr_t handle) noexcept {
    File file;
    file.handle_ = handle;
    return file;
}

}  // namespace orv::platform
