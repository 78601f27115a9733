// Memory handed out in small pieces and given back page by page: what is made together mostly dies together.
//
// A page lives until its last piece has been released, so one that survives keeps a page, at most 1 MiB. Allocating is
// for one thread at a time, releasing for many.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace orv {

/// Stands at the start of a page.
struct MemoryPage {
    std::atomic<std::int32_t> pieces;
    std::uint32_t bytes;

    /// The page of a piece at that distance from its start.
    static MemoryPage* of(void* piece, std::uint32_t offset) {
        return reinterpret_cast<MemoryPage*>(static_cast<char*>(piece) - offset);
    }
};

/// Ends so many pieces of a page.
void releasePieces(MemoryPage* page, std::int32_t count) noexcept;

/// Fills one page after the other.
class MemoryPages {
  public:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t kLargestPiece = 1024;

    MemoryPages() = default;
    MemoryPages(const MemoryPages&) = delete;
    MemoryPages& operator=(const MemoryPages&) = delete;
    ~MemoryPages() { close(); }

    /// Memory of at most kLargestPiece bytes for so many pieces, which end one by one; `offset` becomes its distance
    /// from its page. Throws std::bad_alloc.
    void* allocate(std::size_t bytes, std::uint32_t& offset, std::int32_t pieces = 1) {
        bytes = (bytes + kAlignment - 1) / kAlignment * kAlignment;
        if (static_cast<std::size_t>(end_ - at_) < bytes) open();
        char* const piece = at_;
        at_ += bytes;
        count_ += pieces;
        offset = static_cast<std::uint32_t>(piece - reinterpret_cast<char*>(page_));
        return piece;
    }

  private:
    void open();
    void close() noexcept;

    MemoryPage* page_ = nullptr;
    char* at_ = nullptr;
    char* end_ = nullptr;
    std::int32_t count_ = 0;   // pieces of this page so far
    std::size_t next_ = 2048;  // bytes of the next page
};

}  // namespace orv
