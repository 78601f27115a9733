// Memory handed out in small pieces and given back page by page: what is made together mostly dies together.
//
// A page lives until all its pieces have been released, one by one or a run of them at once; so one that survives keeps
// a page, mostly of 1 MiB. Allocating is for one thread at a time, releasing for many.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace orv {

/// Stands at the start of a page.
struct MemoryPage {
    std::atomic<std::int32_t> live;  // bytes of pieces that have not been released
    std::atomic<bool> isShared;      // some piece may be used by others than those that it was made for
    std::uint32_t size;
    std::uint32_t used;  // where its pieces end; set when it is full
    MemoryPage* next;    // what was filled after it; may be gone, if nothing of it is known to live

    /// The page of a piece at that distance from its start.
    static MemoryPage* of(void* piece, std::uint32_t offset) {
        return reinterpret_cast<MemoryPage*>(static_cast<char*>(piece) - offset);
    }
    char* at(std::size_t offset) { return reinterpret_cast<char*>(this) + offset; }
};

/// Fills one page after the other.
class MemoryPages {
  public:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t kLargestPiece = 8 * 1024;
    /// So many bytes behind a piece may be written until the next one is made.
    static constexpr std::size_t kSlack = 64;
    static constexpr std::size_t kHeader = (sizeof(MemoryPage) + kAlignment - 1) / kAlignment * kAlignment;

    MemoryPages() = default;
    MemoryPages(const MemoryPages&) = delete;
    MemoryPages& operator=(const MemoryPages&) = delete;
    ~MemoryPages() { close(); }

    /// What a piece takes.
    static constexpr std::size_t rounded(std::size_t bytes) {
        return (bytes + kAlignment - 1) / kAlignment * kAlignment;
    }

    /// A piece of at most kLargestPiece bytes; `offset` becomes its distance from its page. Throws std::bad_alloc.
    void* allocate(std::size_t bytes, std::uint32_t& offset) {
        bytes = rounded(bytes);
        if (static_cast<std::size_t>(end_ - at_) < bytes) open(bytes);
        char* const piece = at_;
        at_ += bytes;
        offset = static_cast<std::uint32_t>(piece - reinterpret_cast<char*>(page_));
        return piece;
    }
    /// Where the last piece ends.
    const char* at() const { return at_; }

  private:
    void open(std::size_t bytes);
    void close() noexcept;

    MemoryPage* page_ = nullptr;
    char* at_ = nullptr;
    char* end_ = nullptr;
    std::size_t next_ = 2048;  // bytes of the next page
};

/// Releases pieces of a page that take so many bytes.
void releaseBytes(MemoryPage* page, std::size_t bytes) noexcept;
/// Releases all that was made from `begin`, a piece of `page`, to `end`, over as many pages as that takes; nothing of
/// it has been released yet. Or does nothing and returns false: others may use some of it.
bool releaseRun(MemoryPage* page, const char* begin, const char* end) noexcept;

}  // namespace orv
