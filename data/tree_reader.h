// The one reader of the data tree's text.
#pragma once

#include <cstddef>
#include <functional>

#include "orv/tree_items.h"

namespace orv {

/// The parts of one leaf's line.
struct LeafText {
    const wchar_t* name;
    const wchar_t* nameEnd;
    const wchar_t* value;
    const wchar_t* valueEnd;
};

/// Reads a line from its first character on and moves `at` behind it; false at the end of the text, before a separator
/// or a line end.
bool readLeafText(const wchar_t*& at, wchar_t separator, LeafText& out);

/// Told of an error, with the innermost open node (null before the first); false ends the reading.
using TreeErrorHandler = std::function<bool(TreeError, const wchar_t* at, const CNode* node)>;

/// Reads a node into `root` and moves `at` behind it, or to the error that ended the reading: then false. A wrong end
/// marker closes the open node of its name, else the innermost one, if the handler wants to go on.
bool readTreeText(CNode& root, const wchar_t*& at, wchar_t separator, const TreeErrorHandler& onError);

}  // namespace orv
