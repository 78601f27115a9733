#include "text/record_buffers.h"

#include <array>
#include <memory>
#include <new>

namespace orv {

namespace {

constexpr std::size_t kLevels = 11;  // the largest holds 2^30 characters, more than a text can have

wchar_t first[kRecordBufferLength + kRecordBufferSlack];

std::array<std::unique_ptr<wchar_t[]>, kLevels>& larger() {
    static std::array<std::unique_ptr<wchar_t[]>, kLevels> buffers;
    return buffers;
}

std::size_t levelOf(const wchar_t* start) noexcept {
    std::size_t level = 0;
    if (start != first) {
        for (level = 1; larger()[level].get() != start;)
            ++level;
    }
    return level;
}

}  // namespace

wchar_t* firstRecordBuffer() noexcept { return first; }

wchar_t* endOfRecordBuffer(const wchar_t* start) noexcept {
    const std::size_t length = kRecordBufferLength << levelOf(start);
    return const_cast<wchar_t*>(start) + length;
}

wchar_t* nextRecordBuffer(const wchar_t* start) {
    const std::size_t level = levelOf(start) + 1;
    if (level >= kLevels) throw std::bad_alloc();
    auto& buffer = larger()[level];
    if (buffer == nullptr) buffer.reset(new wchar_t[(kRecordBufferLength << level) + kRecordBufferSlack]);
    return buffer.get();
}

}  // namespace orv
