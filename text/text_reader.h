// Decoding of text files: which encoding a file has, and its characters straight into their last place.
#pragma once

#include <cstdint>

#include "orv/text_files.h"
#include "text/text_source.h"

namespace orv {

/// Where decoded characters go.
class TextSink {
  public:
    TextSink() = default;
    TextSink(const TextSink&) = delete;
    TextSink& operator=(const TextSink&) = delete;
    virtual ~TextSink() = default;

    /// A hint: so many characters will come at most.
    virtual void expect(std::uint64_t characters) = 0;
    /// Room for so many characters and kUtf8Slack, behind what was written. Throws std::bad_alloc.
    virtual wchar_t* room(std::size_t characters) = 0;
    virtual void written(std::size_t characters) = 0;
    /// All that was written was a mistake.
    virtual void restart() = 0;
};

/// What a file without a mark is taken for.
struct Unmarked {
    enum class Kind { kDetect, kUtf8, kWindows1252, kSystemPage };

    Kind kind = Kind::kDetect;
    unsigned page = 0;  // for kSystemPage: one that the system knows
};

/// By the code page argument of the readers.
Unmarked unmarkedByCodePage(unsigned codePage);

struct DecodedFile {
    TextEncoding encoding = TextEncoding::kUtf8;  // kWindows1252 also for a system page
    bool hasMark = false;
    std::uint64_t badParts = 0;    // U+FFFD written for bytes that are no UTF-8, or for an odd last byte of UTF-16
    std::uint64_t firstBadAt = 0;  // offset in the file
    std::uint64_t textOffset = 0;  // where the bytes behind the mark begin
};

/// Decodes all of an open source. False when reading fails. Throws std::bad_alloc.
bool decodeText(TextSource& source, const Unmarked& unmarked, TextSink& sink, DecodedFile& result);

/// What a byte-order mark at the start of these bytes says, and how long it is (0: there is none). Two bytes decide.
struct ByteOrderMark {
    TextEncoding encoding = TextEncoding::kUtf8;
    std::size_t length = 0;
};
ByteOrderMark findByteOrderMark(std::string_view bytes);

}  // namespace orv
