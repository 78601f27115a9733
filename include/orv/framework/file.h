// CFile: the framework's binary file, as far as readers and writers of the library's formats need it.
//
// Failure shows as false or as fewer bytes than asked for; no operation throws. Positions and lengths are bytes.
#pragma once

#include <cstdint>

#include "orv/export.h"
#include "orv/framework/string.h"

class ORV_API CFile {
  public:
    /// What may be joined by "|" in Open. Sharing modes bind on Windows only.
    enum OpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeCreate = 0x1000,      // makes the file; an old one is emptied
        modeNoTruncate = 0x2000,  // with modeCreate: an old one keeps its content
        typeBinary = 0x8000
    };
    enum SeekPosition : unsigned { begin = 0, current = 1, end = 2 };

    CFile() = default;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    /// Closes the file.
    virtual ~CFile();

    /// Closes what was open and opens `path`; false when the system refuses.
    virtual bool Open(const wchar_t* path, unsigned openFlags);
    bool IsOpen() const noexcept { return handle_ != kNoHandle; }
    virtual void Close() noexcept;
    CString GetFilePath() const { return path_; }

    /// Reads up to `count` bytes; the number read is smaller at the end of the file or on failure.
    virtual unsigned Read(void* buffer, unsigned count);
    /// True when all `count` bytes were written.
    virtual bool Write(const void* buffer, unsigned count);
    virtual bool Flush();
    /// Moves to `offset` from `from`; returns the new position, or -1 when there is no such place.
    virtual std::int64_t Seek(std::int64_t offset, unsigned from);
    void SeekToBegin() { Seek(0, begin); }
    std::int64_t SeekToEnd() { return Seek(0, end); }
    virtual std::uint64_t GetPosition() const;
    virtual std::uint64_t GetLength() const;

  private:
    static constexpr std::intptr_t kNoHandle = -1;

    std::intptr_t handle_ = kNoHandle;
    CString path_;
};
