#include "data/tree_memory.h"

#include <typeinfo>

#include "data/batches.h"

namespace orv {
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
            askAhead(item);
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

void* CTreeItem::operator new(std::size_t size) { return orv::newHeapItem(size); }

void CTreeItem::operator delete(void* item) noexcept { orv::deleteItem(item); }
