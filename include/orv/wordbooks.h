// Wordbooks as files, for tools that examine and write them. What a line means is told in translation.h.
#pragma once

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/framework/string.h"
#include "orv/paths.h"

namespace orv {

/// One line of a wordbook that has a separator.
struct WordbookLine {
    int number = 0;       // in the file, from 1
    CString source;       // with its context
    CString written;      // the translation as the line has it; "": the line counts for nothing
    CString translation;  // what is shown: without context, its last character harmonised with the source's
};

/// Fills the array anew. False when the file cannot be read.
ORV_API bool readWordbook(const CFilePath& path, CArray<WordbookLine, const WordbookLine&>& lines);

/// The line for an entry. False, with `line` unchanged, for one that no line can hold so that it reads back the same:
/// an empty translation, one whose last character would be harmonised away, a source that holds the separator, a
/// backslash in front of a letter that would be taken for an escape.
ORV_API bool makeWordbookLine(const CString& source, const CString& translation, CString& line);

}  // namespace orv
