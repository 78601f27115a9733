// Open files. Paths are wide texts; natively they are encoded as UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orv/wide.h"

namespace orv::platform {

/// An open file, closed when it goes. Every operation on one that is not open fails.
class File {
  public:
    enum class Access { kRead, kWrite, kReadWrite };
    enum class Creation { kOpenExisting, kCreateAndTruncate, kOpenOrCreate };
    /// What others may do meanwhile; binds on Windows.
    enum class Share { kAll, kReadOnly, kWriteOnly, kNone };

    File() = default;
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    ~File();

    /// Opens once; false when the system refuses.
    bool open(const wchar_t* path, Access access, Creation creation, Share share);
    /// Opens for reading with nothing forbidden to others. While another process holds the file against us (a sharing
    /// violation), tries again every 100 ms, without end; every other failure is false at once.
    bool openForReading(const wchar_t* path);
    bool isOpen() const noexcept { return handle_ != kNone; }
    void close() noexcept;

    /// Reads until `count` bytes or the end of the file; the number read, or -1 on failure.
    std::ptrdiff_t read(void* buffer, std::size_t count);
    bool write(const void* bytes, std::size_t count);
    bool flush();
    /// From the start, the current place or the end (0, 1, 2); the new position or -1.
    std::int64_t seek(std::int64_t offset, unsigned from);
    /// Size in bytes or -1.
    std::int64_t size() const;

    /// For an owner that stores the handle itself: gives it away, or takes it.
    std::intptr_t release() noexcept;
    static File adopt(std::intptr_t handle) noexcept;

  private:
    static constexpr std::intptr_t kNone = -1;

    std::intptr_t handle_ = kNone;
};

}  // namespace orv::platform
