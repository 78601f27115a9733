#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "platform/posix/system_path.h"

namespace orv::platform {
namespace {

int descriptor(std::intptr_t handle) { return static_cast<int>(handle); }

int openDescriptor(const wchar_t* path, int flags) {
    const std::string narrow = systemPath(path);
    int result = 0;
    do {
        result = ::open(narrow.c_str(), flags | O_CLOEXEC, 0666);
    } while (result < 0 && errno == EINTR);
    return result;
}

}  // namespace

File::File(File&& other) noexcept : handle_(other.release()) {}

File& File::operator=(File&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

File::~File() { close(); }

// Share is left aside: this system has no mandatory locks.
bool File::open(const wchar_t* path, Access access, Creation creation, Share /*share*/) {
    close();
    if (path == nullptr) return false;
    constexpr int kAccess[] = {O_RDONLY, O_WRONLY, O_RDWR};
    constexpr int kCreation[] = {0, O_CREAT | O_TRUNC, O_CREAT};
    handle_ = openDescriptor(path, kAccess[static_cast<int>(access)] | kCreation[static_cast<int>(creation)]);
    struct stat status {};
    if (isOpen() && access == Access::kRead && fstat(descriptor(handle_), &status) == 0 && S_ISDIR(status.st_mode)) {
        close();  // a folder is not a file; opening one for writing fails by itself
    }
    return isOpen();
}

// There are no sharing violations here, so nothing to wait for. A folder opens, and fails at the first read.
bool File::openForReading(const wchar_t* path) {
    close();
    if (path != nullptr) handle_ = openDescriptor(path, O_RDONLY);
    return isOpen();
}

void File::close() noexcept {
    if (isOpen()) ::close(descriptor(std::exchange(handle_, kNone)));
}

std::ptrdiff_t File::read(void* buffer, std::size_t count) {
    auto* to = static_cast<char*>(buffer);
    std::size_t total = 0;
    while (total < count) {
        const ssize_t got = ::read(descriptor(handle_), to + total, count - total);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return -1;
        if (got == 0) break;
        total += static_cast<std::size_t>(got);
    }
    return static_cast<std::ptrdiff_t>(total);
}

bool File::write(const void* bytes, std::size_t count) {
    const auto* from = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t done = ::write(descriptor(handle_), from, count);
        if (done < 0 && errno == EINTR) continue;
        if (done <= 0) return false;
        from += done;
        count -= static_cast<std::size_t>(done);
    }
    return isOpen();
}

bool File::flush() { return ::fsync(descriptor(handle_)) == 0; }

std::int64_t File::seek(std::int64_t offset, unsigned from) {
    constexpr int kFrom[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    return from > 2 ? -1 : ::lseek(descriptor(handle_), offset, kFrom[from]);
}

std::int64_t File::size() const {
    struct stat status {};
    return ::fstat(descriptor(handle_), &status) == 0 ? status.st_size : -1;
}

std::intptr_t File::release() noexcept { return std::exchange(handle_, kNone); }

File File::adopt(std::intptr_t handle) noexcept {
    File file;
    file.handle_ = handle;
    return file;
}

}  // namespace orv::platform
