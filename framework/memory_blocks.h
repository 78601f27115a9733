// Large blocks of memory that are kept for reuse when they are freed.
//
// The first touch of a fresh page costs more than anything a reader or writer does with it, so the buffers of files and
// of long texts come from here. What is kept is bounded; the rest goes back to the system. For several threads at once.
#pragma once

#include <cstddef>
#include <utility>

namespace orv {

/// Smaller blocks than this are the ordinary heap's business.
inline constexpr std::size_t kLargeBlock = 128 * 1024;
/// At most so many bytes are kept for reuse, all blocks together.
inline constexpr std::size_t kKeptBlockBytes = 64 * 1024 * 1024;

/// A block of at least `bytes` bytes (rounded up to kLargeBlock), aligned as by malloc; `bytes` becomes its real size.
/// Throws std::bad_alloc. What it holds is undefined.
void* allocateLarge(std::size_t& bytes);
/// Gives back a block with the size that allocateLarge reported. Null is allowed.
void freeLarge(void* block, std::size_t bytes) noexcept;

/// An owned block.
class LargeBlock {
  public:
    LargeBlock() = default;
    explicit LargeBlock(std::size_t bytes) : size_(bytes), data_(static_cast<char*>(allocateLarge(size_))) {}
    LargeBlock(const LargeBlock&) = delete;
    LargeBlock& operator=(const LargeBlock&) = delete;
    ~LargeBlock() { freeLarge(data_, size_); }

    void swap(LargeBlock& other) noexcept {
        std::swap(size_, other.size_);
        std::swap(data_, other.data_);
    }
    char* data() const noexcept { return data_; }
    std::size_t size() const noexcept { return size_; }

  private:
    std::size_t size_ = 0;
    char* data_ = nullptr;
};

}  // namespace orv
