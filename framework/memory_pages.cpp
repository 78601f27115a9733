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
    const std::size_t size = page->size;
    if (size >= kLargeBlock) {
        freeLarge(page, size);
    } else {
        std::free(page);
    }
}

/// Calls take(page, bytes) for the part of a run in each of its pages.
template <class Take>
void eachPart(MemoryPage* page, const char* begin, const char* end, Take take) {
    for (;;) {
        const char* const used = page->at(page->used);
        const bool isLast = end >= begin && end <= used;
        MemoryPage* const next = page->next;
        take(page, static_cast<std::size_t>((isLast ? end : used) - begin));
        if (isLast) return;
        page = next;
        begin = page->at(MemoryPages::kHeader);
    }
}

}  // namespace

void releaseBytes(MemoryPage* page, std::size_t bytes) noexcept {
    const auto count = static_cast<std::int32_t>(bytes);
    if (page->live.fetch_sub(count, std::memory_order_acq_rel) == count) freePage(page);
}

bool releaseRun(MemoryPage* page, const char* begin, const char* end) noexcept {
    bool isShared = false;
    eachPart(page, begin, end, [&](const MemoryPage* part, std::size_t /*bytes*/) {
        isShared = isShared || part->isShared.load(std::memory_order_relaxed);
    });
    if (!isShared) eachPart(page, begin, end, releaseBytes);
    return !isShared;
}

void MemoryPages::open(std::size_t bytes) {
    std::size_t size = std::max(next_, kHeader + bytes + kSlack);
    void* const memory = size >= kLargeBlock ? allocateLarge(size) : std::malloc(size);
    if (memory == nullptr) throw std::bad_alloc();
    auto* const page = new (memory) MemoryPage{kBeingFilled, false, static_cast<std::uint32_t>(size), 0, nullptr};
    if (page_ != nullptr) page_->next = page;
    close();
    page_ = page;
    at_ = page->at(kHeader);
    end_ = page->at(size - kSlack);
    next_ = std::min(next_ * 4, kLargestPage);
}

void MemoryPages::close() noexcept {
    if (page_ == nullptr) return;
    page_->used = static_cast<std::uint32_t>(at_ - page_->at(0));
    releaseBytes(page_, static_cast<std::size_t>(kBeingFilled) - (page_->used - kHeader));
    page_ = nullptr;
}

}  // namespace orv
