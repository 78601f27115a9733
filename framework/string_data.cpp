#include "framework/string_data.h"

#include <cstdlib>
#include <new>

namespace orv {

namespace {

struct EmptyText {
    StringData data;
    wchar_t nul;
};

constinit EmptyText emptyText{{StringData::kImmortal, 0, 0}, 0};

static_assert(offsetof(EmptyText, nul) == sizeof(StringData), "characters stand directly behind their header");

// Small texts are made in steps, so that a few more characters often fit without a new block.
int roundedCapacity(int capacity) { return (capacity + 8) / 8 * 8 + 1; }

}  // namespace

const wchar_t* emptyString() noexcept { return &emptyText.nul; }

wchar_t* allocateText(int capacity) {
    if (capacity < 0 || capacity > kMaximumTextLength) throw std::bad_alloc();
    capacity = roundedCapacity(capacity);
    const std::size_t bytes = sizeof(StringData) + (static_cast<std::size_t>(capacity) + 1) * sizeof(wchar_t);
    void* block = std::malloc(bytes);
    if (block == nullptr) throw std::bad_alloc();
    auto* data = new (block) StringData{1, 0, capacity};
    auto* text = reinterpret_cast<wchar_t*>(data + 1);
    text[0] = 0;
    return text;
}

void freeText(wchar_t* text) noexcept { std::free(reinterpret_cast<StringData*>(text) - 1); }

int sumOfLengths(int a, int b) {
    if (a > kMaximumTextLength - b) throw std::bad_alloc();
    return a + b;
}

}  // namespace orv
