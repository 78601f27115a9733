#include "framework/string_data.h"

#include <cstdlib>
#include <new>

#include "framework/memory_blocks.h"
#include "framework/text_pages.h"

namespace orv {

namespace {

struct EmptyText {
    StringData data;
    wchar_t nul;
};

constinit EmptyText emptyText{{StringData::kImmortal, 0, 0}, 0};

static_assert(kLargeBlock % sizeof(wchar_t) == 0 && sizeof(StringData) % sizeof(wchar_t) == 0);
static_assert(offsetof(EmptyText, nul) == sizeof(StringData), "characters stand directly behind their header");

// Small texts are made in steps, so that a few more characters often fit without a new block.
int roundedCapacity(int capacity) { return (capacity + 8) / 8 * 8 + 1; }

// Exactly what a block holds: the size that a large block is given back with.
std::size_t bytesFor(int capacity) {
    return sizeof(StringData) + (static_cast<std::size_t>(capacity) + 1) * sizeof(wchar_t);
}

}  // namespace

const wchar_t* emptyString() noexcept { return &emptyText.nul; }

wchar_t* allocateText(int capacity) {
    if (capacity < 0 || capacity > kMaximumTextLength) throw std::bad_alloc();
    std::size_t bytes = bytesFor(roundedCapacity(capacity));
    void* block = nullptr;
    if (bytes >= kLargeBlock) {
        block = allocateLarge(bytes);
    } else {
        block = std::malloc(bytes);
        if (block == nullptr) throw std::bad_alloc();
    }
    const std::size_t room = (bytes - sizeof(StringData)) / sizeof(wchar_t) - 1;
    auto* data = new (block) StringData{1, 0, static_cast<std::int32_t>(room)};
    auto* text = reinterpret_cast<wchar_t*>(data + 1);
    text[0] = 0;
    return text;
}

void freeText(wchar_t* text) noexcept {
    StringData* data = reinterpret_cast<StringData*>(text) - 1;
    if (data->capacity < 0) return releaseFromPage(*data);
    const std::size_t bytes = bytesFor(data->capacity);
    if (bytes >= kLargeBlock) {
        freeLarge(data, bytes);
    } else {
        std::free(data);
    }
}

int sumOfLengths(int a, int b) {
    if (a > kMaximumTextLength - b) throw std::bad_alloc();
    return a + b;
}

}  // namespace orv
