#include "text/text_source.h"

#include <cstring>

#include "text/text_encodings.h"

namespace orv {
namespace {

/// EF BB BF as it looks when it was not scrambled but is unscrambled with the rest.
constexpr std::string_view kPlainMarkUnscrambled = "\xEC\xB8\xBC";

}  // namespace

bool TextSource::open(const wchar_t* path, bool isScrambled) {
    isScrambled_ = isScrambled;
    return file_.openForReading(path) && loadFirst();
}

/// Reads behind end_ until the buffer is full or the file ends.
bool TextSource::fill(std::size_t capacity) {
    const std::size_t wanted = capacity - end_;
    const std::ptrdiff_t got = file_.read(buffer() + end_, wanted);
    if (got < 0) return false;
    if (isScrambled_) unscramble(buffer() + end_, static_cast<std::size_t>(got));
    end_ += static_cast<std::size_t>(got);
    isLast_ = static_cast<std::size_t>(got) < wanted;
    return true;
}

bool TextSource::loadFirst() {
    windowOffset_ = 0;
    begin_ = end_ = 0;
    if (!fill(block_.data() != nullptr ? kWindow : kSmall)) return false;
    if (!isLast_ && block_.data() == nullptr) {
        LargeBlock window(kWindow);
        std::memcpy(window.data(), small_.data(), end_);
        block_.swap(window);
        if (!fill(kWindow)) return false;
    }
    begin_ = plainMarkLength();
    return true;
}

/// The length of the plain mark in front of scrambled bytes; the window at the file's start is loaded.
std::size_t TextSource::plainMarkLength() const {
    const std::string_view start(buffer(), end_);
    return isScrambled_ && start.starts_with(kPlainMarkUnscrambled) ? kPlainMarkUnscrambled.size() : 0;
}

bool TextSource::load() {
    const std::size_t left = end_ - begin_;
    std::memmove(buffer(), buffer() + begin_, left);
    windowOffset_ += begin_;
    begin_ = 0;
    end_ = left;
    return fill(block_.data() != nullptr ? kWindow : kSmall);
}

bool TextSource::rewind() {
    if (windowOffset_ == 0) {
        begin_ = plainMarkLength();
        return true;
    }
    return file_.seek(0, 0) == 0 && loadFirst();
}

std::uint64_t TextSource::expectedBytes() const {
    if (isLast_) return end_ - begin_;
    const std::int64_t size = file_.size();
    const std::uint64_t rest =
        size > 0 && static_cast<std::uint64_t>(size) > offset() ? static_cast<std::uint64_t>(size) - offset() : 0;
    return rest > end_ - begin_ ? rest : end_ - begin_;
}

}  // namespace orv
