// Files of data trees in every form that the library reads and writes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "encodings.h"
#include "orv/data_tree.h"

namespace orvtool {

enum class TreeForm { kItems, kXml };  // bracketed or XML-like; an XML document

struct TreeSource {
    std::string file;
    std::string form;  // "items", "xml"; "" to tell by the content
    char separator = ':';
    bool isScrambled = false;
};

struct TreeFile {
    std::unique_ptr<CNode> root;  // null when nothing could be read
    TreeForm form = TreeForm::kItems;
    TextForm encoding;
    bool isIndented = false;
    std::vector<std::string> errors;  // "FILE:LINE:COLUMN: what"
};

/// Reads a file, with all its errors. Throws Failure only when the file itself cannot be read.
TreeFile readTreeFile(const TreeSource& source);
/// Throws Failure with the first error, unless there is none.
TreeFile readGoodTreeFile(const TreeSource& source);

/// Throws Failure.
void writeTreeText(const CString& text, const std::string& file, const TextForm& encoding, bool scramble);
/// The text of a tree's items; throws Failure, which names the first item that would not read back.
CString itemsText(const CNode& root, bool indented, char separator, const std::string& file);

const char* describe(orv::TreeProblem::Kind kind);

}  // namespace orvtool
