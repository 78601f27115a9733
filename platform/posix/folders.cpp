#include "platform/folders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>

#include "framework/utf8.h"
#include "platform/posix/system_path.h"

namespace orv::platform {
namespace {

constexpr std::uint64_t kUnitsPerSecond = 10'000'000;
constexpr std::int64_t kSecondsFrom1601 = 11'644'473'600;

struct CloseFile {
    int descriptor;
    ~CloseFile() {
        if (descriptor >= 0) ::close(descriptor);
    }
};

FileTimeHalves halves(std::int64_t seconds, std::uint32_t nanoseconds) {
    if (seconds < -kSecondsFrom1601) return {};
    const std::uint64_t time =
        static_cast<std::uint64_t>(seconds + kSecondsFrom1601) * kUnitsPerSecond + nanoseconds / 100;
    return {static_cast<std::uint32_t>(time), static_cast<std::uint32_t>(time >> 32)};
}

FileTimeHalves halves(const statx_timestamp& time) { return halves(time.tv_sec, time.tv_nsec); }

std::uint32_t attributesFrom(mode_t mode) {
    std::uint32_t attributes = S_ISDIR(mode) ? FindRecord::kFolder : 0;
    if ((mode & S_IWUSR) == 0) attributes |= FindRecord::kReadOnly;
    return attributes != 0 ? attributes : FindRecord::kNormal;
}

bool copyBytes(int from, int to) {
    constexpr std::size_t kBlock = 256 * 1024;
    const std::unique_ptr<char[]> buffer(new char[kBlock]);
    for (;;) {
        const ssize_t got = ::read(from, buffer.get(), kBlock);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0;
        for (ssize_t done = 0; done < got;) {
            const ssize_t part = ::write(to, buffer.get() + done, static_cast<std::size_t>(got - done));
            if (part < 0 && errno == EINTR) continue;
            if (part <= 0) return false;
            done += part;
        }
    }
}

}  // namespace

std::uint32_t attributesOf(const wchar_t* path) {
    struct stat status {};
    return ::stat(systemPath(path).c_str(), &status) == 0 ? attributesFrom(status.st_mode) : kNoAttributes;
}

bool isLink(const wchar_t* path) {
    struct stat status {};
    return ::lstat(systemPath(path).c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool readRecord(const wchar_t* path, FindRecord& record) {
    const std::string narrow = systemPath(path);
    const std::size_t nameAt = narrow.find_last_of('/') + 1;  // npos + 1 is 0
    struct statx status {};
    if (nameAt == narrow.size() ||
        ::statx(AT_FDCWD, narrow.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) {
        return false;
    }
    const WideString name = utf8ToWide(std::string_view(narrow).substr(nameAt));
    record = {};
    if (name.size() >= std::size(record.name)) return false;
    WideTraits::copy(record.name, name.c_str(), name.size() + 1);
    record.attributes = attributesFrom(status.stx_mode);
    record.creation = halves(status.stx_btime);
    record.lastAccess = halves(status.stx_atime);
    record.lastWrite = halves(status.stx_mtime);
    const std::uint64_t size = record.isFolder() ? 0 : status.stx_size;
    record.sizeHigh = static_cast<std::uint32_t>(size >> 32);
    record.sizeLow = static_cast<std::uint32_t>(size);
    return true;
}

bool identityOf(const wchar_t* folder, FolderIdentity& identity) {
    struct stat status {};
    if (::stat(systemPath(folder).c_str(), &status) != 0) return false;
    identity = {status.st_dev, status.st_ino};
    return true;
}

WideString realPath(const wchar_t* path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(systemPath(path).c_str(), nullptr), &std::free);
    return real != nullptr ? utf8ToWide(real.get()) : WideString();
}

WideString temporaryFolder() {
    const char* named = std::getenv("TMPDIR");
    WideString folder = utf8ToWide(named != nullptr && *named != 0 ? named : "/tmp");
    if (!folder.ends_with(L'/')) folder += L'/';
    return folder;
}

bool makeFolder(const wchar_t* path) { return ::mkdir(systemPath(path).c_str(), 0777) == 0; }

bool removeFile(const wchar_t* path) { return ::unlink(systemPath(path).c_str()) == 0; }

bool removeFolder(const wchar_t* path) { return ::rmdir(systemPath(path).c_str()) == 0; }

bool removeLink(const wchar_t* path, bool /*toFolder*/) { return ::unlink(systemPath(path).c_str()) == 0; }

bool clearReadOnly(const wchar_t* path) {
    const std::string narrow = systemPath(path);
    struct stat status {};
    if (::stat(narrow.c_str(), &status) != 0) return false;
    return (status.st_mode & S_IWUSR) != 0 || ::chmod(narrow.c_str(), (status.st_mode & 07777) | S_IWUSR) == 0;
}

bool copyFile(const wchar_t* from, const wchar_t* to) {
    // Without waiting: a pipe would keep whoever opens it.
    const CloseFile source{::open(systemPath(from).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
    struct stat status {};
    if (source.descriptor < 0 || ::fstat(source.descriptor, &status) != 0) return false;
    if (!S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return false;
    }
    const std::string target = systemPath(to);
    struct stat old {};
    const bool isThere = ::stat(target.c_str(), &old) == 0;
    // A file over itself would lose its content; a read-only one is refused whoever asks, as the product's system does.
    const bool isItself = isThere && old.st_dev == status.st_dev && old.st_ino == status.st_ino;
    if (isThere && (isItself || !S_ISREG(old.st_mode) || (old.st_mode & S_IWUSR) == 0)) {
        errno = EACCES;
        return false;
    }
    const CloseFile copy{::open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)};
    if (copy.descriptor < 0) return false;
    if (copyBytes(source.descriptor, copy.descriptor)) {
        // The file of another owner may be written, and yet keep its mode and be refused the times.
        const struct timespec times[] = {status.st_atim, status.st_mtim};
        static_cast<void>(::fchmod(copy.descriptor, status.st_mode & 0777));
        static_cast<void>(::futimens(copy.descriptor, times));
        return true;
    }
    const int error = errno;
    ::unlink(target.c_str());  // half a copy would pass for a newer file
    errno = error;
    return false;
}

bool setFileTime(const wchar_t* path, FileTimeKind kind, std::uint64_t time) {
    if (kind == FileTimeKind::kCreation) {
        errno = ENOTSUP;
        return false;
    }
    constexpr long kNanosecondsPerUnit = 100;
    struct timespec times[] = {{0, UTIME_OMIT}, {0, UTIME_OMIT}};
    times[kind == FileTimeKind::kLastAccess ? 0 : 1] = {
        static_cast<std::int64_t>(time / kUnitsPerSecond) - kSecondsFrom1601,
        static_cast<long>(time % kUnitsPerSecond) * kNanosecondsPerUnit};
    return ::utimensat(AT_FDCWD, systemPath(path).c_str(), times, 0) == 0;
}

void forgetError() { errno = 0; }

bool errorIsKnown() { return errno != 0; }

}  // namespace orv::platform
