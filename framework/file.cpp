#include "orv/framework/file.h"

#include "platform/files.h"

using orv::platform::File;

namespace {

/// The platform's file for one operation on a handle that CFile goes on owning.
class Borrowed {
  public:
    explicit Borrowed(std::intptr_t handle) : file_(File::adopt(handle)) {}
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;
    ~Borrowed() { file_.release(); }
    File* operator->() { return &file_; }

  private:
    File file_;
};

File::Access accessOf(unsigned flags) {
    if ((flags & CFile::modeReadWrite) != 0) return File::Access::kReadWrite;
    return (flags & CFile::modeWrite) != 0 ? File::Access::kWrite : File::Access::kRead;
}

File::Creation creationOf(unsigned flags) {
    if ((flags & CFile::modeCreate) == 0) return File::Creation::kOpenExisting;
    return (flags & CFile::modeNoTruncate) != 0 ? File::Creation::kOpenOrCreate : File::Creation::kCreateAndTruncate;
}

File::Share shareOf(unsigned flags) {
    constexpr unsigned kShareBits = 0x0070;
    switch (flags & kShareBits) {
        case CFile::shareDenyWrite:
            return File::Share::kReadOnly;
        case CFile::shareDenyRead:
            return File::Share::kWriteOnly;
        case CFile::shareDenyNone:
            return File::Share::kAll;
        default:
            return File::Share::kNone;  // no word about sharing means exclusive
    }
}

}  // namespace

CFile::~CFile() {
    if (IsOpen()) File::adopt(handle_);
}

bool CFile::Open(const wchar_t* path, unsigned openFlags) {
    Close();
    File file;
    if (!file.open(path, accessOf(openFlags), creationOf(openFlags), shareOf(openFlags))) return false;
    path_ = path;
    handle_ = file.release();
    return true;
}

void CFile::Close() noexcept {
    if (!IsOpen()) return;
    File::adopt(handle_).close();
    handle_ = kNoHandle;
    path_.Empty();
}

unsigned CFile::Read(void* buffer, unsigned count) {
    const std::ptrdiff_t got = Borrowed(handle_)->read(buffer, count);
    return got > 0 ? static_cast<unsigned>(got) : 0;
}

bool CFile::Write(const void* buffer, unsigned count) { return Borrowed(handle_)->write(buffer, count); }

bool CFile::Flush() { return Borrowed(handle_)->flush(); }

std::int64_t CFile::Seek(std::int64_t offset, unsigned from) { return Borrowed(handle_)->seek(offset, from); }

std::uint64_t CFile::GetPosition() const {
    const std::int64_t position = Borrowed(handle_)->seek(0, current);
    return position > 0 ? static_cast<std::uint64_t>(position) : 0;
}

std::uint64_t CFile::GetLength() const {
    const std::int64_t size = Borrowed(handle_)->size();
    return size > 0 ? static_cast<std::uint64_t>(size) : 0;
}
