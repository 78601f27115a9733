// Nodes and leaves in pages of memory, as readers and copies make them.
#pragma once

#include <new>

#include "data/item_memory.h"
#include "data/tree_links.h"
#include "framework/cpu.h"
#include "framework/text_pages.h"

namespace orv {

inline void TreeAccess::appendNew(CNode& node, ItemChain& chain, CTreeItem& item) {
    item.parent_ = &node;
    item.previous_ = chain.last;
    (chain.last == nullptr ? chain.first : chain.last->next_) = &item;
    chain.last = &item;
    ++chain.count;
}

// The items take over one reference of each text.
inline CLeaf* TreeAccess::newLeaf(MemoryPages& pages, CNode& node, wchar_t* name, wchar_t* value) {
    std::uint32_t offset = 0;
    auto* leaf = ::new (placeItem<CLeaf>(pages, offset)) CLeaf(StringAccess::adopt(name), StringAccess::adopt(value));
    appendNew(node, node.leaves_, *leaf);
    return leaf;
}

/// Whether a leaf and its value fit into a page.
inline bool isForPage(WideView value) {
    return kPlacedBytes<CLeaf> + bytesOfText(value.size()) <= MemoryPages::kLargestPiece;
}

/// With a value of its own, which stands behind it; see writeText.
ORV_KERNEL_INLINE CLeaf* TreeAccess::newLeaf(MemoryPages& pages, CNode& node, wchar_t* name, WideView value,
                                             std::size_t readable) {
    if (value.empty() || !isForPage(value)) return newLeaf(pages, node, name, makeText(pages, value));
    std::uint32_t offset = 0;
    void* const place = placeItem<CLeaf>(pages, offset, bytesOfText(value.size()));
    char* const behind = static_cast<char*>(place) - sizeof(ItemPlace) + kPlacedBytes<CLeaf>;
    wchar_t* const text = writeText(behind, offset + static_cast<std::uint32_t>(kPlacedBytes<CLeaf>), value, readable);
    auto* leaf = ::new (place) CLeaf(StringAccess::adopt(name), StringAccess::adopt(text));
    appendNew(node, node.leaves_, *leaf);
    return leaf;
}

inline CNode* TreeAccess::newChild(MemoryPages& pages, CNode& node, wchar_t* name) {
    std::uint32_t offset = 0;
    auto* child = ::new (placeItem<CNode>(pages, offset)) CNode(StringAccess::adopt(name));
    appendNew(node, node.children_, *child);
    return child;
}

/// For a node of whose branch the last piece is the last that was made; the sizes of all its items have been added.
inline void TreeAccess::pack(CNode& node, const MemoryPages& pages) { node.packedEnd_ = pages.at(); }

/// For a node that is going to be packed.
inline void TreeAccess::begin(CNode& node) {
    unpack(&node);
    node.packedSize_ = {};
}

inline void TreeAccess::addLeafSize(CNode& node, std::size_t nameAndValue) {
    node.packedSize_.characters += kLeafCharacters + nameAndValue;  // the lines are counted anyway
}

inline void TreeAccess::addChildSize(CNode& node, TextSize child) {
    node.packedSize_.characters += child.characters;
    node.packedSize_.lines += child.lines;
    node.packedSize_.tabs += child.tabs + child.lines;
}

inline void TreeAccess::setName(CTreeItem& item, wchar_t* name) { item.name_ = CString(StringAccess::adopt(name)); }

}  // namespace orv
