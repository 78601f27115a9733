// Trees in tests.
#pragma once

#include <memory>

#include "orv/data_tree.h"
#include "support/text.h"

using Tree = std::unique_ptr<CNode>;

/// Null, with the message in `thrown`, for a text that is no tree.
inline Tree readOrTell(const wchar_t* text, CString& thrown, wchar_t separator = L':') {
    auto tree = std::make_unique<CNode>();
    thrown.Empty();
    try {
        tree->ReadFromMem(text, separator);
    } catch (CExcRead* error) {
        thrown = error->getText();
        error->Delete();
        return nullptr;
    }
    return tree;
}

inline Tree read(const wchar_t* text) {
    CString thrown;
    Tree tree = readOrTell(text, thrown);
    EXPECT_TEXT(L"", thrown);
    return tree;
}

/// The text, whose length is checked against the size that was foretold.
inline CString written(const CTreeItem& item, int level = -1, wchar_t separator = L':') {
    const std::size_t size = item.GetSizeOfBranch(level);
    std::vector<wchar_t> room(size + 2, L'#');
    wchar_t* at = room.data();
    EXPECT_EQ(size, item.WriteToMem(at, level, separator));
    EXPECT_EQ(at, room.data() + size);
    EXPECT_EQ(L'\0', room[size]);
    EXPECT_EQ(L'#', room[size + 1]);
    return {room.data(), static_cast<int>(size)};
}

/// Names of children and leaves in order, "ab|cd".
inline CString order(const CNode& node) {
    CString names;
    for (const CNode& child : orv::childrenOf(node))
        names += child.GetName();
    names += L"|";
    for (const CLeaf& leaf : orv::leavesOf(node))
        names += leaf.GetName();
    return names;
}
