// The bytes of a text file, unscrambled, one window after the other.
//
// A window of a quarter of a megabyte stays in the processor's cache while it is decoded, and no file is ever in memory
// twice.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "framework/memory_blocks.h"
#include "platform/files.h"

namespace orv {

class TextSource {
  public:
    TextSource() = default;
    TextSource(const TextSource&) = delete;
    TextSource& operator=(const TextSource&) = delete;

    /// Opens for reading (waiting while another process holds the file) and loads the first window. A plain EF BB BF in
    /// front of scrambled bytes is skipped.
    bool open(const wchar_t* path, bool isScrambled);

    /// The bytes that are loaded and not yet consumed.
    std::string_view bytes() const { return {buffer() + begin_, end_ - begin_}; }
    void consume(std::size_t count) { begin_ += count; }
    /// Whether nothing lies behind bytes().
    bool isLast() const { return isLast_; }
    /// Keeps the bytes that are left (a few) and loads what follows them. False when the file cannot be read.
    bool load();
    /// Goes back to the first byte that open() left. False for what cannot go back, such as a long pipe.
    bool rewind();

    /// Where bytes() begin in the file.
    std::uint64_t offset() const { return windowOffset_ + begin_; }
    /// How many bytes are still to come, bytes() included; a guess when the file is being written.
    std::uint64_t expectedBytes() const;

  private:
    static constexpr std::size_t kSmall = 16 * 1024;  // most texts: no block is needed
    static constexpr std::size_t kWindow = 256 * 1024;

    char* buffer() { return block_.data() != nullptr ? block_.data() : small_.data(); }
    const char* buffer() const { return const_cast<TextSource*>(this)->buffer(); }
    bool loadFirst();
    std::size_t plainMarkLength() const;
    bool fill(std::size_t capacity);

    platform::File file_;
    bool isScrambled_ = false;
    bool isLast_ = false;
    std::uint64_t windowOffset_ = 0;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    LargeBlock block_;
    std::array<char, kSmall> small_;  // not initialised: reading overwrites it
};

}  // namespace orv
