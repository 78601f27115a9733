// One translation file and what it holds.
#pragma once

#include <cstdint>
#include <vector>

#include "framework/hash_index.h"
#include "orv/paths.h"

namespace orv {

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
        CString result;  // the translation, made when it is first asked for
    };

    bool load();
    void indexEntries();
    WideView sourceOf(const Entry& entry) const { return {text_.GetString() + entry.sourceAt, entry.sourceLength}; }

    CFilePath path_;
    CString language_;
    bool isLoaded_ = false;
    CString text_;
    std::vector<Entry> entries_;
    HashIndex index_;
};

}  // namespace orv
