#include "data/item_memory.h"

#include <cstdlib>

namespace orv {
namespace {

constexpr std::size_t kBeforeHeapItem = 16;  // the place, and the alignment that malloc gives

}  // namespace

void* newHeapItem(std::size_t bytes) {
    auto* const block = static_cast<char*>(std::malloc(bytes + kBeforeHeapItem));
    if (block == nullptr) throw std::bad_alloc();
    char* const item = block + kBeforeHeapItem;
    ::new (ItemPlace::of(item)) ItemPlace{0, 0};
    return item;
}

void deleteItem(void* item) noexcept {
    if (item == nullptr) return;
    ItemPlace* const place = ItemPlace::of(item);
    if (place->offset != 0) {
        releaseBytes(place->page(), place->bytes);
    } else {
        std::free(static_cast<char*>(item) - kBeforeHeapItem);
    }
}

}  // namespace orv
