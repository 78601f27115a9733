#include "text/text_sinks.h"

#include <algorithm>
#include <new>

#include "framework/string_data.h"

namespace orv {
namespace {

// A text this small is not worth a second copy, however much room it has left.
constexpr int kSmallText = 4096;

/// Room for `length` characters and as many again as are asked for; a file that grows while it is read is rare.
std::size_t capacityFor(std::size_t length, std::uint64_t more) {
    const std::uint64_t wanted = length + more + kUtf8Slack;
    if (wanted > static_cast<std::uint64_t>(kMaximumTextLength)) throw std::bad_alloc();
    return static_cast<std::size_t>(wanted);
}

}  // namespace

void StringSink::grow(std::uint64_t characters) {
    const std::size_t wanted = capacityFor(length_, characters);
    if (wanted <= capacity_) return;
    if (length_ != 0) text_.ReleaseBufferSetLength(static_cast<int>(length_));
    characters_ = text_.GetBuffer(static_cast<int>(wanted));
    capacity_ = static_cast<std::size_t>(text_.GetAllocLength());
}

wchar_t* StringSink::room(std::size_t characters) {
    grow(characters);
    return characters_ + length_;
}

CString StringSink::take() {
    const int length = static_cast<int>(length_);
    if (length == 0) return {};
    text_.ReleaseBufferSetLength(length);
    if (text_.GetAllocLength() > kSmallText && length < text_.GetAllocLength() / 2) text_.FreeExtra();
    return std::move(text_);
}

void ArraySink::grow(std::uint64_t characters) {
    const std::size_t wanted = capacityFor(length_, characters);
    if (wanted <= capacity_) return;
    const std::size_t capacity = std::max(wanted, length_ + length_ / 2);
    auto larger = std::make_unique_for_overwrite<wchar_t[]>(capacity + 1);
    WideTraits::copy(larger.get(), characters_.get(), length_);
    characters_ = std::move(larger);
    capacity_ = capacity;
}

wchar_t* ArraySink::room(std::size_t characters) {
    grow(characters);
    return characters_.get() + length_;
}

std::unique_ptr<wchar_t[]> ArraySink::take() {
    grow(0);
    characters_[length_] = 0;
    return std::move(characters_);
}

}  // namespace orv
