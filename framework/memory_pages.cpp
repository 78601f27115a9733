#include "framework/memory_pages.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "framework/memory_blocks.h"

namespace orv {
namespace {

constexpr std::size_t kLargestPage = 1024 * 1024;
// While a page is being filled its pieces may already die, and must not take it with them.
constexpr std::int32_t kBeingFilled = 1 << 30;

void freePage(MemoryPage* page) noexcept {
    const std::size_t bytes = page->bytes;
    if (bytes >= kLargeBlock) {
        freeLarge(page, bytes);
    } else {
        std::free(page);
    }
}

}  // namespace

void releasePieces(MemoryPage* page, std::int32_t count) noexcept {
    if (page->pieces.fetch_sub(count, std::memory_order_acq_rel) == count) freePage(page);
}

void MemoryPages::open() {
    close();
    std::size_t bytes = next_;
    void* const memory = bytes >= kLargeBlock ? allocateLarge(bytes) : std::malloc(bytes);
    if (memory == nullptr) throw std::bad_alloc();
    page_ = new (memory) MemoryPage{kBeingFilled, static_cast<std::uint32_t>(bytes)};
    at_ = static_cast<char*>(memory) + (sizeof(MemoryPage) + kAlignment - 1) / kAlignment * kAlignment;
    end_ = static_cast<char*>(memory) + bytes;
    next_ = std::min(next_ * 4, kLargestPage);
}

void MemoryPages::close() noexcept {
    if (page_ != nullptr) releasePieces(page_, kBeingFilled - count_);
    page_ = nullptr;
    at_ = end_ = nullptr;
    count_ = 0;
}

}  // namespace orv
