// Memory of the items of trees, which are on the heap one by one or, as readers and copies make them, in pages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

#include "framework/memory_pages.h"

namespace orv {

/// Stands before every item: how far its page is, 0 for one on the heap, and what it takes there.
struct ItemPlace {
    std::uint32_t offset;
    std::uint32_t bytes;

    static ItemPlace* of(void* item) { return static_cast<ItemPlace*>(item) - 1; }
    MemoryPage* page() { return MemoryPage::of(this, offset); }
};

template <class Item>
inline constexpr std::size_t kPlacedBytes = MemoryPages::rounded(sizeof(ItemPlace) + sizeof(Item));

/// Memory for an item in a page, with `more` bytes behind it.
template <class Item>
void* placeItem(MemoryPages& pages, std::uint32_t& offset, std::size_t more = 0) {
    void* const piece = pages.allocate(kPlacedBytes<Item> + more, offset);
    return new (piece) ItemPlace{offset, static_cast<std::uint32_t>(kPlacedBytes<Item>)} + 1;
}

/// What was read or copied lies in memory in the order of the text: asks for what is some items further on.
inline void askAhead(const void* item) {
    constexpr std::size_t kAhead = 6144;
    __builtin_prefetch(static_cast<const char*>(item) + kAhead);
}

/// For the items' operators new and delete. Throws std::bad_alloc.
void* newHeapItem(std::size_t bytes);
void deleteItem(void* item) noexcept;

}  // namespace orv
