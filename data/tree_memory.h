// Nodes and leaves in pages of memory, as readers and copies make them.
#pragma once

#include <array>
#include <new>

#include "data/tree_links.h"
#include "framework/text_pages.h"

namespace orv {

/// Stands before every item that has its memory from CTreeItem: how far its page is, 0 for one on the heap.
struct ItemPlace {
    std::uint32_t offset;
    std::uint32_t unused;

    static ItemPlace* of(void* item) { return static_cast<ItemPlace*>(item) - 1; }
    MemoryPage* page() { return MemoryPage::of(this, offset); }
};

/// Memory for an item in a page.
inline void* placeItem(MemoryPages& pages, std::size_t bytes) {
    std::uint32_t offset = 0;
    void* const piece = pages.allocate(sizeof(ItemPlace) + bytes, offset);
    return new (piece) ItemPlace{offset, 0} + 1;
}

/// One more reference to a text that is nobody else's yet.
inline wchar_t* shareOwnText(wchar_t* characters) noexcept {
    std::atomic<std::int32_t>& references = StringAccess::dataOf(characters)->references;
    const std::int32_t count = references.load(std::memory_order_relaxed);
    if (count > 0) references.store(count + 1, std::memory_order_relaxed);
    return characters;
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
        if (count == 1) {  // the tree's alone
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
    auto* leaf = ::new (placeItem(pages, sizeof(CLeaf))) CLeaf(StringAccess::adopt(name), StringAccess::adopt(value));
    appendNew(node, node.leaves_, *leaf);
    return leaf;
}

/// With a value of its own, which stands behind it.
inline CLeaf* TreeAccess::newLeaf(MemoryPages& pages, CNode& node, wchar_t* name, WideView value) {
    constexpr std::size_t kBefore = sizeof(ItemPlace) + sizeof(CLeaf);
    const std::size_t bytes = kBefore + bytesOfText(value.size());
    if (value.empty() || bytes > MemoryPages::kLargestPiece) return newLeaf(pages, node, name, makeText(pages, value));
    std::uint32_t offset = 0;
    auto* const piece = static_cast<char*>(pages.allocate(bytes, offset, 2));
    wchar_t* const text = writeText(piece + kBefore, offset + static_cast<std::uint32_t>(kBefore), value);
    auto* leaf =
        ::new (new (piece) ItemPlace{offset, 0} + 1) CLeaf(StringAccess::adopt(name), StringAccess::adopt(text));
    appendNew(node, node.leaves_, *leaf);
    return leaf;
}

inline CNode* TreeAccess::newChild(MemoryPages& pages, CNode& node, wchar_t* name) {
    auto* child = ::new (placeItem(pages, sizeof(CNode))) CNode(StringAccess::adopt(name));
    appendNew(node, node.children_, *child);
    return child;
}

inline void TreeAccess::setName(CTreeItem& item, wchar_t* name) { item.name_ = CString(StringAccess::adopt(name)); }

}  // namespace orv
