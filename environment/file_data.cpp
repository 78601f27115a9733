// Sizes, times and copies of single files.
#include "environment/path_text.h"
#include "orv/files.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace {

using orv::FileTimeHalves;
using orv::FindRecord;
namespace platform = orv::platform;

constexpr std::int64_t kUnitsPerSecond = 10'000'000;
constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;
constexpr std::int64_t kLastSecond = INT64_MAX / kUnitsPerSecond - kSecondsFrom1601To1970;

std::uint64_t joined(std::uint32_t high, std::uint32_t low) { return static_cast<std::uint64_t>(high) << 32 | low; }

std::int64_t secondsOf(const FileTimeHalves& time) {
    return static_cast<std::int64_t>(joined(time.high, time.low) / kUnitsPerSecond) - kSecondsFrom1601To1970;
}

}  // namespace

bool GetFileData(const CFilePath& file, FindRecord& record) {
    FindRecord found;
    if (!platform::readRecord(file, found)) return false;
    record = found;
    return true;
}

bool GetFileSize(const CFilePath& file, unsigned& size) {
    FindRecord record;
    if (!platform::readRecord(file, record)) return false;
    size = record.sizeLow;
    return true;
}

bool GetFileSize(const CFilePath& file, std::int64_t& size) {
    FindRecord record;
    if (!platform::readRecord(file, record)) return false;
    size = static_cast<std::int64_t>(joined(record.sizeHigh, record.sizeLow));
    return true;
}

bool GetFileTime(const CFilePath& file, EFileTime which, CTime& time) {
    FindRecord record;
    if (!platform::readRecord(file, record)) return false;
    switch (which) {
        case eFileTimeCreation:
            time = CTime(secondsOf(record.creation));
            break;
        case eFileTimeLastAccess:
            time = CTime(secondsOf(record.lastAccess));
            break;
        case eFileTimeLastWrite:
            time = CTime(secondsOf(record.lastWrite));
            break;
        default:
            break;
    }
    return true;
}

bool SetFileTime(const CFilePath& file, EFileTime which, const CTime& time) {
    const std::int64_t seconds = time.GetTime();
    if (seconds < -kSecondsFrom1601To1970 || seconds > kLastSecond) return false;
    const auto units = static_cast<std::uint64_t>(seconds + kSecondsFrom1601To1970) * kUnitsPerSecond;
    switch (which) {
        case eFileTimeCreation:
            return platform::setFileTime(file, platform::FileTimeKind::kCreation, units);
        case eFileTimeLastAccess:
            return platform::setFileTime(file, platform::FileTimeKind::kLastAccess, units);
        case eFileTimeLastWrite:
            return platform::setFileTime(file, platform::FileTimeKind::kLastWrite, units);
        default:
            return false;
    }
}

bool RemoveReadOnlyFlag(const CFilePath& file) { return platform::clearReadOnly(file); }

int CompareFileTime(const CFilePath& a, const CFilePath& b) {
    constexpr int kMissing = -2;
    CTime first;
    CTime second;
    if (!GetFileTime(a, eFileTimeLastWrite, first) || !GetFileTime(b, eFileTimeLastWrite, second)) return kMissing;
    return first < second ? -1 : first > second ? 1 : 0;
}

int FileUtils::CompareFileTime(const CFilePath& a, const CFilePath& b) { return ::CompareFileTime(a, b); }

bool FileUtils::CopyFileWithTimeCompare(const CFilePath& from, const CFilePath& to) {
    if (::CompareFileTime(to, from) >= 0) return true;
    return platform::copyFile(from, to) && ::CompareFileTime(from, to) >= 0;
}

bool FileUtils::CopyFileWithRetries(const CFilePath& from, const CFilePath& to, unsigned waitMs, int attempts) {
    for (int made = 0; attempts < 0 || made < attempts; made += attempts < 0 ? 0 : 1) {
        platform::forgetError();
        if (CopyFileWithTimeCompare(from, to)) return true;
        if (platform::errorIsKnown()) platform::sleepMilliseconds(waitMs);
    }
    return false;
}

bool CDirPath::IsWritable() const {
    const CFilePath probe = AppendFile(L"_test_.000");
    using File = platform::File;
    File file;
    file.open(probe, File::Access::kWrite, File::Creation::kCreateAndTruncate, File::Share::kNone);
    file.close();
    return platform::removeFile(probe);
}
