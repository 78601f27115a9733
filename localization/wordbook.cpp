#include "localization/wordbook.h"

#include "localization/wordbook_lines.h"
#include "orv/string_utilities.h"

namespace orv {

Wordbook::Wordbook(const CFilePath& path) : path_(path), language_(path.GetFileExt()) { language_.MakeUpper(); }

void Wordbook::unload() {
    isLoaded_ = false;
    text_.clear();
    entries_.clear();
    results_.clear();
    index_.clear();
}

const CString* Wordbook::find(WideView text, std::uint32_t hash) {
    if (!isLoaded_ && !load()) return nullptr;
    const std::uint32_t at = index_.find(hash, [&](std::uint32_t i) { return sourceOf(entries_[i]) == text; });
    if (at == HashIndex::kNone) return nullptr;
    if (results_[at].IsEmpty()) {
        const Entry& entry = entries_[at];
        results_[at].SetString(text_.data() + entry.translationAt, static_cast<int>(entry.translationLength));
    }
    return &results_[at];
}

bool Wordbook::load() {
    CString content;
    if (!orvStrUtil::readStringBufferFromFile(content, path_, kWordbookPage, false)) return false;
    unload();
    text_.reserve(static_cast<std::size_t>(content.GetLength()) + 1);
    text_.assign(content.GetString(), static_cast<std::size_t>(content.GetLength()));
    text_.push_back(0);  // the one character more
    constexpr std::size_t kUsualLine = 40;
    entries_.reserve(text_.size() / kUsualLine);
    index_.reserve(text_.size() / kUsualLine);
    WordbookLines lines(text_.data(), text_.data() + text_.size() - 1);
    for (WordbookEntry line; lines.next(line);)
        add(line);
    results_.resize(entries_.size());
    isLoaded_ = true;
    return true;
}

void Wordbook::add(const WordbookEntry& line) {
    const auto placeOf = [&](WideView part) { return static_cast<std::uint32_t>(part.data() - text_.data()); };
    const auto lengthOf = [](WideView part) { return static_cast<std::uint32_t>(part.size()); };
    const Entry entry{placeOf(line.source), lengthOf(line.source), placeOf(line.translation),
                      lengthOf(line.translation)};
    const std::uint32_t hash = hashText(line.source);
    const std::uint32_t known =
        index_.find(hash, [&](std::uint32_t i) { return sourceOf(entries_[i]) == line.source; });
    if (known != HashIndex::kNone) {
        entries_[known] = entry;
        return;
    }
    entries_.push_back(entry);
    index_.add(hash, static_cast<std::uint32_t>(entries_.size() - 1));
}

}  // namespace orv
