// The lines of a wordbook's text.
#pragma once

#include "orv/wide.h"

namespace orv {

/// A line with a separator. The characters are the text's own, changed where they stand.
struct WordbookEntry {
    WideView source;       // unescaped
    WideView written;      // the translation, unescaped, as the line has it
    WideView translation;  // what the source is translated by: without context, its last character harmonised
    std::size_t line;      // from 1
};

/// Goes through a text, which it changes. Behind the text there must be one more character to write to.
class WordbookLines {
  public:
    WordbookLines(wchar_t* begin, wchar_t* end) : at_(begin), end_(end) {}

    /// The next line that has a separator and a translation or, unless `skipEmpty`, none; false when there is none.
    bool next(WordbookEntry& entry, bool skipEmpty = true);

  private:
    void read(wchar_t* separator, wchar_t* lineEnd, bool hasBackslash, WordbookEntry& entry) const;

    wchar_t* at_;
    wchar_t* end_;
    std::size_t line_ = 0;
};

/// The page of a wordbook that has no mark.
inline constexpr unsigned kWordbookPage = 1252;

}  // namespace orv
