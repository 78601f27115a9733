#include "text/text_writer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "framework/memory_blocks.h"
#include "framework/utf8.h"
#include "platform/code_pages.h"
#include "text/code_page_numbers.h"
#include "text/text_encodings.h"

namespace orv {
namespace {

using platform::File;
using Kind = TextForm::Kind;

/// Encoded bytes on their way into a file; a short text needs no block of memory.
class EncodedFile {
  public:
    EncodedFile(const TextForm& form, bool isScrambled, std::size_t characters)
        : form_(form), isScrambled_(isScrambled) {
        if (characters > charactersIn(small_.size())) LargeBlock(kWindow).swap(block_);
    }

    File& file() { return file_; }
    void omitMark() { form_.hasMark = false; }

    /// Converts what can fail, before any file is touched. False when the system cannot.
    bool prepare(WideView text) {
        return form_.kind != Kind::kSystemPage || platform::encode(form_.page, text, converted_);
    }

    /// Writes the mark, when there is one, and the text.
    bool put(WideView text) {
        if (form_.kind == Kind::kSystemPage) return writeBytes(converted_.data(), converted_.size());
        std::size_t size = putMark();
        while (!text.empty()) {
            // The buffer is sure to hold three bytes a character, but most texts need little more than one: fill it up.
            const WideView part = nextPart(text, charactersIn(capacity() - size));
            text.remove_prefix(part.size());
            size += encode(part, buffer() + size);
            if (!text.empty() && charactersIn(capacity() - size) < kFewCharacters) {
                // Whole pages only, so that the system never has to complete one.
                const std::size_t whole = size / kPage * kPage;
                if (!writeBytes(buffer(), whole)) return false;
                std::memmove(buffer(), buffer() + whole, size - whole);
                size -= whole;
            }
        }
        return writeBytes(buffer(), size);
    }

  private:
    static constexpr std::size_t kWindow = 256 * 1024;
    static constexpr std::size_t kLongestMark = 3;
    static constexpr std::size_t kFewCharacters = 4096;
    static constexpr std::size_t kPage = 4096;

    static constexpr std::size_t charactersIn(std::size_t bytes) {
        constexpr std::size_t kReserved = kLongestMark + kUtf8Slack;
        return bytes > kReserved ? (bytes - kReserved) / 3 : 0;
    }
    char* buffer() { return block_.data() != nullptr ? block_.data() : small_.data(); }
    std::size_t capacity() const { return block_.data() != nullptr ? kWindow : small_.size(); }

    /// So many characters, or one less where that would part a surrogate pair.
    static WideView nextPart(WideView text, std::size_t room) {
        if (text.size() <= room) return text;
        const bool partsPair = (text[room - 1] & 0xFC00) == 0xD800;
        return text.substr(0, partsPair ? room - 1 : room);
    }

    std::size_t putMark() {
        if (!form_.hasMark) return 0;
        const std::string_view mark = form_.kind == Kind::kUtf16 ? "\xFF\xFE" : "\xEF\xBB\xBF";
        std::memcpy(buffer(), mark.data(), mark.size());
        return mark.size();
    }

    std::size_t encode(WideView text, char* out) const {
        switch (form_.kind) {
            case Kind::kUtf8:
                return encodeUtf8(text, out);
            case Kind::kWindows1252:
                return encodeWindows1252(text, out);
            case Kind::kUtf16:
                if (!text.empty()) std::memcpy(out, text.data(), text.size() * sizeof(wchar_t));
                return text.size() * sizeof(wchar_t);
            default:
                return 0;
        }
    }

    bool writeBytes(char* bytes, std::size_t count) {
        if (isScrambled_) scramble(bytes, count);
        return count == 0 || file_.write(bytes, count);
    }

    TextForm form_;
    bool isScrambled_;
    File file_;
    LargeBlock block_;
    std::string converted_;
    std::array<char, 16 * 1024> small_;  // not initialised: encoding overwrites it
};

}  // namespace

TextForm unicodeForm(unsigned codePage) {
    if (codePage == kPageUtf8Mark) return {Kind::kUtf8, true};
    if (codePage == kPageUtf8) return {Kind::kUtf8, false};
    if (codePage == kPageUtf16) return {Kind::kUtf16, true};
    // ODDITY(unicode-other-page): a Unicode file in any other page is written empty.
    // Pinned by TextFiles.UnicodeInAnotherPageWritesAnEmptyFile.
    return {Kind::kNothing};
}

TextForm convertedForm(unsigned codePage) {
    if (codePage == kPageUtf16) return {Kind::kRefused};
    if (codePage == kPageUtf8 || codePage == kPageUtf8Mark) return {Kind::kUtf8};
    if (codePage == kPageWindows1252) return {Kind::kWindows1252};
    const unsigned page = codePage == kPageOem ? platform::oemCodePage() : codePage;
    if (page == kSystemPageUtf8) return {Kind::kUtf8};
    if (page == kSystemPageWindows1252) return {Kind::kWindows1252};
    if (!platform::knowsCodePage(page)) return {Kind::kRefused};
    return {Kind::kSystemPage, false, page};
}

TextForm listForm(unsigned codePage) {
    const TextForm unicode = unicodeForm(codePage);
    return unicode.kind != Kind::kNothing ? unicode : convertedForm(codePage);
}

bool writeText(const wchar_t* path, WideView text, const TextForm& form, bool isScrambled) {
    if (form.kind == Kind::kRefused) return false;
    EncodedFile out(form, isScrambled, text.size());
    return out.prepare(text) &&
           out.file().open(path, File::Access::kWrite, File::Creation::kCreateAndTruncate, File::Share::kReadOnly) &&
           (form.kind == Kind::kNothing || out.put(text));
}

bool appendText(const wchar_t* path, WideView text, const TextForm& form) {
    if (form.kind == Kind::kRefused || form.kind == Kind::kNothing) return false;
    EncodedFile out(form, false, text.size());
    if (!out.prepare(text)) return false;
    if (out.file().open(path, File::Access::kWrite, File::Creation::kOpenExisting, File::Share::kReadOnly)) {
        out.omitMark();
    } else if (!out.file().open(path, File::Access::kWrite, File::Creation::kOpenOrCreate, File::Share::kReadOnly)) {
        return false;
    }
    constexpr unsigned kFromEnd = 2;
    return out.file().seek(0, kFromEnd) >= 0 && out.put(text);
}

}  // namespace orv
