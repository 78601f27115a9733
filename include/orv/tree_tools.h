// Reading data trees with error reporting (TreeItems), and what one asks of whole trees: errors by line and path, what
// would not read back, equality, differences, paths, duplicates.
//
// A path leads from a node, which is not named, to a descendant or one of its leaves: "Building/Floor[2]/Room/@Area".
//
//     Floor        the children of that name; "*" those of any          [2]      the second of those in each node
//     @Area        the leaves of that name (last step only); "@*" any   'a/b'    a name that holds / [ ] @ * or ',
//                                                                                with ' doubled
// No function here recurses, and all are as fast as one walk unless they say otherwise.
#pragma once

#include <memory>
#include <vector>

#include "orv/export.h"
#include "orv/tree_items.h"

/// Reading with the separator ":". What fails gives false and null; unless `silent` the user is told
/// (orv::showMessage). Trees belong to the caller.
namespace TreeItems {

/// A path that ends in "x" or "X" is read as scrambled. `codePage` is that of a file without a mark, see
/// orvStrUtil::readStringBufferFromFile. `isUnicode`, unless null, receives whether the file has a mark.
ORV_API bool ReadFromFile(const CFilePath& path, CNode*& out, bool* isUnicode, unsigned int codePage, bool silent);
/// The same with Windows-1252 for files without a mark.
ORV_API bool ReadFromFile(const CFilePath& path, CNode*& out, bool silent);
ORV_API CNode* ReadFromFile(const CFilePath& path, bool silent);
/// An empty text is false without a message.
ORV_API bool ReadFromString(const CString& text, CNode*& out, bool silent);
ORV_API CNode* ReadFromString(const CString& text, bool silent);

}  // namespace TreeItems

namespace orv {

struct TreeReadError {
    TreeError error;
    int line;      // from 1; CR LF, LF and CR end one
    int column;    // from 1, in characters
    CString path;  // names of the open nodes, "Building/Floor"; of deep ones the last, behind "..."
};

/// Reads a tree without throwing. A wrong end marker is listed and closes the open node of its name, else the innermost
/// one; any other error ends the reading, as the thousandth does: then the tree is null.
ORV_API std::unique_ptr<CNode> readTree(const wchar_t* text, wchar_t separator, std::vector<TreeReadError>& errors);

struct TreeProblem {
    enum class Kind {
        kNodeName,   // its closing bracket or NUL in it; a child's is "/..." or begins with "ENDE_"
        kLeafName,   // NUL, a line end or the separator in it, "[" or white space at its start; any name in XML-like
        kLeafValue,  // NUL, LF or CR LF in it; in XML-like nodes also CR, "<", white space at its start, no text
        kForm,       // a child of another kind than its node; an XML-like node with two leaves, or leaf and child
        kLoneSurrogate,  // lost in a file, though not in a text
        kDepth           // an indented text would be too long for a string
    };
    Kind kind;
    CString path;  // of the node, as in TreeReadError
    CString name;  // of the node or leaf
};

/// What would not read back as it is, in the order of the text; the first thousand.
ORV_API std::vector<TreeProblem> checkTree(const CNode& root, wchar_t separator = L':');

/// Equal names, kinds, values and order everywhere.
ORV_API bool equalTrees(const CNode& a, const CNode& b);

struct TreeDifference {
    enum class Kind { kNodeRemoved, kNodeAdded, kLeafRemoved, kLeafAdded, kValueChanged, kOrderChanged, kNameChanged };
    Kind kind;
    CString path;    // from the root, where it was, or for what was added where it is
    CString before;  // raw values, or the root's names
    CString after;
};

/// What makes `b` of `a`. Children and leaves correspond that are the n-th of their name; kOrderChanged names a node
/// whose corresponding items stand in another order. Ends after `most` differences. Takes n log n in a node's items.
ORV_API std::vector<TreeDifference> differences(const CNode& a, const CNode& b, std::size_t most = 1000);

/// The items that a path leads to, in the order of the text; a path that is none leads nowhere.
ORV_API std::vector<CTreeItem*> selectItems(CNode& from, const CString& path);
/// The first node, or leaf, that a path leads to; null where the first item is none.
ORV_API CNode* selectNode(CNode& from, const CString& path);
ORV_API CLeaf* selectLeaf(CNode& from, const CString& path);
/// Whether a text is a path at all.
ORV_API bool isItemPath(const CString& path);
/// The path that leads from `from` to an item of its branch and to no other; "" for `from` itself.
ORV_API CString pathOf(const CNode& from, const CTreeItem& item);

struct DuplicateName {
    CString path;  // of the node
    CString name;
    bool isLeaf;
    int count;
};

/// Names that several leaves, or several children, of one node have.
ORV_API std::vector<DuplicateName> findDuplicateNames(const CNode& root);

}  // namespace orv
