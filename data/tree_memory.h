// Nodes and leaves in pages of memory, as readers and copies make them.
#pragma once

#include <array>
#include <new>

#include "data/tree_links.h"
#include "framework/text_pages.h"

namespace orv {

/// Stands before every item that has its memory from CTreeItem: how far its page is, 0 for one on the heap, and what it
/// takes there.
struct ItemPlace {
    std::uint32_t offset;
    std::uint32_t bytes;

    static ItemPlace* of(void* item) { return static_cast<ItemPlace*>(item) - 1; }
    MemoryPage* page() { return MemoryPage::of(this, offset); }
};

template <class Item>
inline constexpr std::size_t kPlacedBytes = MemoryPages::rounded(sizeof(ItemPlace) + sizeof(Item));

/// Memory for an item in a page, with `more` bytes behind it.
template <class Item>
void* placeItem(MemoryPages& pages, std::uint32_t& offset, std::size_t more = 0) {
    void* const piece = pages.allocate(kPlacedBytes<Item> + more, offset);
    return new (piece) ItemPlace{offset, static_cast<std::uint32_t>(kPlacedBytes<Item>)} + 1;
}

/// References to the texts of a tree for its copy. Those to one text are counted together, and only then in one locked
/// operation: the tree is not used meanwhile, and holds its own.
class SharedTexts {
  public:
    SharedTexts() = default;
    SharedTexts(const SharedTexts&) = delete;
    SharedTexts& operator=(const SharedTexts&) = delete;
    ~SharedTexts() {
        for (const Shared& one : shared_)
            flush(one);
    }

    /// A text with one more reference, which its string takes over.
    wchar_t* share(const CString& text) {
        wchar_t* const characters = StringAccess::charactersOf(text);
        std::atomic<std::int32_t>& references = StringAccess::dataOf(characters)->references;
        const std::int32_t count = references.load(std::memory_order_relaxed);
        if (count == StringData::kAlone) {
            shareFromPage(*StringAccess::dataOf(characters));
        } else if (count == 1) {
            references.store(2, std::memory_order_relaxed);
        } else if (count > 1) {
            Shared& slot = shared_[reinterpret_cast<std::uintptr_t>(characters) / 8 % shared_.size()];
            if (slot.text != characters) {
                flush(slot);
                slot = {characters, 0};
            }
            ++slot.count;
        } else if (count == StringData::kLocked) {
            CString copy(text);
            return StringAccess::release(copy);
        }
        return characters;
    }

  private:
    struct Shared {
        wchar_t* text = nullptr;
        std::int32_t count = 0;
    };
    static void flush(const Shared& one) {
        if (one.count != 0) StringAccess::dataOf(one.text)->references.fetch_add(one.count, std::memory_order_relaxed);
    }

    std::array<Shared, 64> shared_;
};

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
inline CLeaf* TreeAccess::newLeaf(MemoryPages& pages, CNode& node, wchar_t* name, WideView value,
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
