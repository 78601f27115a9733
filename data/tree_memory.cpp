#include "data/tree_memory.h"

#include <array>
#include <cstdlib>
#include <typeinfo>

namespace orv {
namespace {

constexpr std::size_t kBeforeHeapItem = 16;  // the place, and the alignment that malloc gives

/// Collects what ends, so that pieces of one page and references to one text go in one operation.
class Ending {
  public:
    Ending() = default;
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;
    ~Ending() {
        for (const Shared& one : shared_)
            flush(one);
        releaseNow();
    }

    void piece(MemoryPage* page, std::size_t bytes) {
        if (page != page_) {
            releaseNow();
            page_ = page;
        }
        bytes_ += bytes;
    }
    /// A value mostly has one reference.
    void value(wchar_t* text) {
        StringData& data = *StringAccess::dataOf(text);
        const std::int32_t references = data.references.load(std::memory_order_acquire);
        if (references == StringData::kImmortal) return;
        if (references > 1) {
            name(text);
        } else if (data.capacity < 0) {
            piece(pageOf(data), bytesInPage(data));
        } else {
            const CString last(StringAccess::adopt(text));
        }
    }
    /// A name lasts, or has thousands of them.
    void name(wchar_t* text) {
        const std::int32_t references = StringAccess::dataOf(text)->references.load(std::memory_order_relaxed);
        if (references == StringData::kImmortal) return;
        if (references < 0) {
            const CString last(StringAccess::adopt(text));
            return;
        }
        Shared& slot = shared_[reinterpret_cast<std::uintptr_t>(text) / 8 % shared_.size()];
        if (slot.text != text) {
            flush(slot);
            slot = {text, 0};
        }
        ++slot.count;
    }

  private:
    struct Shared {
        wchar_t* text = nullptr;
        std::int32_t count = 0;
    };
    void releaseNow() {
        if (bytes_ != 0) releaseBytes(page_, bytes_);
        bytes_ = 0;
    }
    void flush(const Shared& one) {
        if (one.count == 0) return;
        StringData& data = *StringAccess::dataOf(one.text);
        if (data.references.fetch_sub(one.count, std::memory_order_acq_rel) == one.count) {
            if (data.capacity < 0) {
                piece(pageOf(data), bytesInPage(data));
            } else {
                freeText(one.text);
            }
        }
    }

    MemoryPage* page_ = nullptr;
    std::size_t bytes_ = 0;
    std::array<Shared, 64> shared_;
};

}  // namespace

/// Items in pages are plain ones, and end without their destructors; any other is deleted for itself.
class TreeAccess::Destroyer {
  public:
    /// All that a packed node holds, without a look at it; false if it is not packed, or texts of it are used
    /// elsewhere.
    static bool runOf(CNode& node) {
        if (!isPacked(node)) return false;
        CTreeItem* const first = node.leaves_.first != nullptr ? node.leaves_.first : node.children_.first;
        if (first != nullptr) {
            ItemPlace* const place = ItemPlace::of(first);
            if (!releaseRun(place->page(), reinterpret_cast<const char*>(place), node.packedEnd_)) return false;
        }
        node.children_ = node.leaves_ = {};
        node.childCursor_ = node.leafCursor_ = nullptr;
        node.packedEnd_ = nullptr;
        return true;
    }
    void leavesOf(CNode& node) {
        for (CTreeItem* item = node.leaves_.first; item != nullptr;) {
            CTreeItem* const next = item->next_;
            askAhead(*item);
            if (typeid(*item) == typeid(CLeaf) && ItemPlace::of(item)->offset != 0) {
                ending_.value(StringAccess::charactersOf(static_cast<CLeaf*>(item)->value_));
                end(*item);
            } else {
                item->parent_ = nullptr;
                delete item;
            }
            item = next;
        }
        node.leaves_ = {};
        node.leafCursor_ = nullptr;
    }
    /// From the ends of the branches: a node ends when it has no child any more.
    void childrenOf(CNode& root) {
        CNode* at = &root;
        for (;;) {
            if (CNode* child = firstChild(*at)) {
                at = child;
                runOf(*at);
                continue;
            }
            if (at == &root) break;
            leavesOf(*at);
            CNode* const parent = at->parent_;
            parent->children_.first = at->next_;
            if (typeid(*at) == typeid(CNode) && ItemPlace::of(at)->offset != 0) {
                end(*at);
            } else {
                at->children_ = {};
                at->parent_ = nullptr;
                delete at;
            }
            at = parent;
        }
        root.children_ = {};
        root.childCursor_ = nullptr;
    }

  private:
    void end(CTreeItem& item) {
        ending_.name(StringAccess::charactersOf(item.name_));
        ending_.piece(ItemPlace::of(&item)->page(), ItemPlace::of(&item)->bytes);
    }

    Ending ending_;
};

void TreeAccess::destroyChildren(CNode& node) {
    if (node.children_.first == nullptr) return;
    unpack(node.parent_);
    if (node.leaves_.first == nullptr && Destroyer::runOf(node)) return;
    unpack(&node);
    Destroyer().childrenOf(node);
}

void TreeAccess::destroyLeaves(CNode& node) {
    if (node.leaves_.first == nullptr) return;
    unpack(&node);
    Destroyer().leavesOf(node);
}

void TreeAccess::destroyContents(CNode& node) {
    if (node.children_.first == nullptr && node.leaves_.first == nullptr) return;
    if (Destroyer::runOf(node)) return;
    Destroyer destroyer;
    destroyer.childrenOf(node);
    destroyer.leavesOf(node);
}

}  // namespace orv

void* CTreeItem::operator new(std::size_t size) {
    auto* block = static_cast<char*>(std::malloc(size + orv::kBeforeHeapItem));
    if (block == nullptr) throw std::bad_alloc();
    char* const item = block + orv::kBeforeHeapItem;
    ::new (orv::ItemPlace::of(item)) orv::ItemPlace{0, 0};
    return item;
}

void CTreeItem::operator delete(void* item) noexcept {
    if (item == nullptr) return;
    orv::ItemPlace* const place = orv::ItemPlace::of(item);
    if (place->offset != 0) {
        orv::releaseBytes(place->page(), place->bytes);
    } else {
        std::free(static_cast<char*>(item) - orv::kBeforeHeapItem);
    }
}
