// One translation file and what it holds.
#pragma once

#include <cstdint>
#include <vector>

#include "localization/hash_index.h"
#include "orv/paths.h"

namespace orv {

struct WordbookEntry;

class Wordbook {
  public:
    /// The language is the file's extension.
    explicit Wordbook(const CFilePath& path);

    const CFilePath& path() const { return path_; }
    const CString& language() const { return language_; }

    /// The translation of a text, null when there is none; loads the file if it is not loaded. Valid until unload().
    const CString* find(WideView text, std::uint32_t hash);
    /// The file is read again when it is next asked.
    void unload();

  private:
    /// Places in text_: a 100,000-line file becomes one buffer and no text of its own.
    struct Entry {
        std::uint32_t sourceAt, sourceLength;
        std::uint32_t translationAt, translationLength;
    };

    bool load();
    void add(const WordbookEntry& line);
    WideView sourceOf(const Entry& entry) const { return {text_.data() + entry.sourceAt, entry.sourceLength}; }

    CFilePath path_;
    CString language_;
    bool isLoaded_ = false;
    WideString text_;
    std::vector<Entry> entries_;
    std::vector<CString> results_;  // made when first asked for
    HashIndex index_;
};

}  // namespace orv
