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

    void piece(MemoryPage* page) {
        if (page != page_) {
            releaseNow();
            page_ = page;
        }
        ++count_;
    }
    /// A value has one reference, mostly.
    void value(wchar_t* text) {
        StringData& data = *StringAccess::dataOf(text);
        const std::int32_t references = data.references.load(std::memory_order_acquire);
        if (references == StringData::kImmortal) return;
        if (references > 1) {
            name(text);
        } else if (data.capacity < 0) {
            piece(pageOf(data));
        } else {
            const CString last(StringAccess::adopt(text));
        }
    }
    /// A name has thousands.
    void name(wchar_t* text) {
        if (StringAccess::dataOf(text)->references.load(std::memory_order_relaxed) <= 0) {  // immortal, or locked
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
        if (count_ != 0) releasePieces(page_, count_);
        count_ = 0;
    }
    void flush(const Shared& one) {
        if (one.count == 0) return;
        StringData& data = *StringAccess::dataOf(one.text);
        if (data.references.fetch_sub(one.count, std::memory_order_acq_rel) == one.count) {
            if (data.capacity < 0) {
                piece(pageOf(data));
            } else {
                freeText(one.text);
            }
        }
    }

    MemoryPage* page_ = nullptr;
    std::int32_t count_ = 0;
    std::array<Shared, 64> shared_;
};

}  // namespace

/// Items in pages are plain ones, and end without their destructors; any other is deleted for itself.
class TreeAccess::Destroyer {
  public:
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
        ending_.piece(ItemPlace::of(&item)->page());
    }

    Ending ending_;
};

void TreeAccess::destroyChildren(CNode& node) {
    if (node.children_.first != nullptr) Destroyer().childrenOf(node);
}

void TreeAccess::destroyLeaves(CNode& node) {
    if (node.leaves_.first != nullptr) Destroyer().leavesOf(node);
}

void TreeAccess::destroyContents(CNode& node) {
    if (node.children_.first == nullptr && node.leaves_.first == nullptr) return;
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
        orv::releasePieces(place->page(), 1);
    } else {
        std::free(static_cast<char*>(item) - orv::kBeforeHeapItem);
    }
}
