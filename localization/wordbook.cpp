#include "localization/wordbook.h"

#include "localization/wordbook_lines.h"
#include "orv/string_utilities.h"

namespace orv {

Wordbook::Wordbook(const CFilePath& path) : path_(path), language_(path.GetFileExt()) { language_.MakeUpper(); }

void Wordbook::unload() {
    isLoaded_ = false;
    text_.Empty();
    entries_.clear();
    index_.clear();
}

const CString* Wordbook::find(WideView text, std::uint32_t hash) {
    if (!isLoaded_ && !load()) return nullptr;
    const std::uint32_t at = index_.find(hash, [&](std::uint32_t i) { return sameText(sourceOf(entries_[i]), text); });
    if (at == HashIndex::kNone) return nullptr;
    Entry& entry = entries_[at];
    if (entry.result.IsEmpty()) {
        entry.result.SetString(text_.GetString() + entry.translationAt, static_cast<int>(entry.translationLength));
    }
    return &entry.result;
}

bool Wordbook::load() {
    CString content;
    if (!orvStrUtil::readStringBufferFromFile(content, path_, kWordbookPage, false)) return false;
    unload();
    text_ = std::move(content);
    const auto length = static_cast<std::size_t>(text_.GetLength());
    wchar_t* const begin = text_.GetBuffer();  // the place of its NUL is the one character more
    const auto placeOf = [&](WideView part) { return static_cast<std::uint32_t>(part.data() - begin); };
    const auto lengthOf = [](WideView part) { return static_cast<std::uint32_t>(part.size()); };
    constexpr std::size_t kUsualLine = 50;
    entries_.reserve(length / kUsualLine);
    WordbookLines lines(begin, begin + length);
    for (WordbookEntry line; lines.next(line);) {
        entries_.push_back(
            {placeOf(line.source), lengthOf(line.source), placeOf(line.translation), lengthOf(line.translation), {}});
    }
    indexEntries();
    isLoaded_ = true;
    return true;
}

// A slot is asked for some entries ahead: most are far from each other in memory.
void Wordbook::indexEntries() {
    constexpr std::size_t kAhead = 16;
    index_.reserve(entries_.size());
    std::uint32_t hashes[kAhead];
    for (std::size_t i = 0; i < entries_.size() + kAhead; ++i) {
        if (i >= kAhead) {
            const std::size_t at = i - kAhead;
            const WideView source = sourceOf(entries_[at]);
            const std::uint32_t hash = hashes[at % kAhead];
            const std::uint32_t known =
                index_.find(hash, [&](std::uint32_t e) { return sameText(sourceOf(entries_[e]), source); });
            if (known == HashIndex::kNone) {
                index_.add(hash, static_cast<std::uint32_t>(at));
            } else {
                entries_[known].translationAt = entries_[at].translationAt;  // the last line counts
                entries_[known].translationLength = entries_[at].translationLength;
            }
        }
        if (i < entries_.size()) {
            hashes[i % kAhead] = hashText(sourceOf(entries_[i]));
            index_.prefetch(hashes[i % kAhead]);
        }
    }
}

}  // namespace orv
