#include <memory>

#include "framework/utf8.h"
#include "orv/text_files.h"
#include "text/text_encodings.h"
#include "text/text_reader.h"
#include "text/within_memory.h"

namespace orv {
namespace {

/// Counts what it is given and keeps none of it.
class CountingSink final : public TextSink {
  public:
    void expect(std::uint64_t /*characters*/) override {}

    wchar_t* room(std::size_t characters) override {
        if (capacity_ < characters + kUtf8Slack) {
            capacity_ = characters + kUtf8Slack;
            window_ = std::make_unique_for_overwrite<wchar_t[]>(capacity_);
        }
        return window_.get();
    }

    void written(std::size_t characters) override {
        for (std::size_t i = 0; i < characters; ++i)
            count(window_[i]);
    }

    void restart() override {
        counts_ = {};
        last_ = 0;
    }

    struct Counts {
        std::uint64_t characters = 0;
        std::uint64_t crLfEnds = 0;
        std::uint64_t lfEnds = 0;
        std::uint64_t crEnds = 0;
        std::uint64_t undefined = 0;  // C1 controls that stand for bytes without a character
        std::uint64_t firstUndefined = 0;
        std::uint64_t loneSurrogates = 0;
        std::uint64_t firstLoneSurrogate = 0;
    };
    /// Positions are characters from the start of the text.
    Counts finish() {
        if (last_ == L'\r') ++counts_.crEnds;
        if (isHigh(last_)) addLoneSurrogate(counts_.characters - 1);
        last_ = 0;
        return counts_;
    }

  private:
    static bool isHigh(wchar_t c) { return (c & 0xFC00) == 0xD800; }
    static bool isLow(wchar_t c) { return (c & 0xFC00) == 0xDC00; }

    void addLoneSurrogate(std::uint64_t at) {
        if (counts_.loneSurrogates++ == 0) counts_.firstLoneSurrogate = at;
    }

    void count(wchar_t c) {
        if (c == L'\n') {
            ++(last_ == L'\r' ? counts_.crLfEnds : counts_.lfEnds);
        } else if (last_ == L'\r') {
            ++counts_.crEnds;
        }
        if (isHigh(last_) && !isLow(c)) addLoneSurrogate(counts_.characters - 1);
        if (isLow(c) && !isHigh(last_)) addLoneSurrogate(counts_.characters);
        if (isUndefinedInWindows1252(c) && counts_.undefined++ == 0) counts_.firstUndefined = counts_.characters;
        ++counts_.characters;
        last_ = c;
    }

    std::unique_ptr<wchar_t[]> window_;
    std::size_t capacity_ = 0;
    wchar_t last_ = 0;
    Counts counts_;
};

void addUndecodable(TextFileInfo& info, std::uint64_t count, std::uint64_t first) {
    if (count == 0) return;
    if (info.undecodable == 0 || first < info.firstUndecodable) info.firstUndecodable = first;
    info.undecodable += count;
}

}  // namespace

bool inspectTextFile(const wchar_t* path, bool scrambled, TextFileInfo& out) {
    return withinMemory([&] {
        TextSource source;
        CountingSink sink;
        DecodedFile decoded;
        if (!source.open(path, scrambled) || !decodeText(source, {Unmarked::Kind::kDetect}, sink, decoded)) {
            return false;
        }
        const CountingSink::Counts counts = sink.finish();
        out = {decoded.encoding, decoded.hasMark, source.offset(),  counts.characters, counts.crLfEnds,
               counts.lfEnds,    counts.crEnds,   decoded.badParts, decoded.firstBadAt};
        if (decoded.encoding == TextEncoding::kWindows1252) {
            addUndecodable(out, counts.undefined, decoded.textOffset + counts.firstUndefined);
        } else if (decoded.encoding != TextEncoding::kUtf8) {
            addUndecodable(out, counts.loneSurrogates, decoded.textOffset + 2 * counts.firstLoneSurrogate);
        }
        return true;
    });
}

}  // namespace orv
