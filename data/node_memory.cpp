#include "data/node_memory.h"

#include "data/batches.h"

namespace orv {
namespace {

/// Children are destroyed without a stack: while a node is being emptied the last place of its list names its parent.
/// The first entry has been taken out before, so that this takes no memory.
class Destroyer {
  public:
    void contentsOf(CProNodeBase& root) {
        CProNodeBase* node = &root;
        CProNodeBase* next = root.children.IsEmpty() ? nullptr : enter(root, nullptr);
        for (;;) {
            if (next != nullptr) {
                if (next->children.IsEmpty()) {
                    end(next);
                    next = nullptr;
                } else {
                    CProNodeBase* const first = enter(*next, node);
                    node = next;
                    next = first;
                    continue;
                }
            }
            if (node->children.GetCount() > 1) {
                next = node->children.RemoveHead();
            } else if (node == &root) {
                break;
            } else {
                CProNodeBase* parent = node->children.RemoveHead();
                end(node);
                node = parent;
            }
        }
        root.children.RemoveAll();
        attributesOf(root);
    }

  private:
    static CProNodeBase* enter(CProNodeBase& node, CProNodeBase* parent) {
        if (node.children.GetCount() == 1) {  // a list that gets empty gives back its memory
            CProNodeBase* const only = node.children.GetHead();
            node.children.SetAt(node.children.GetHeadPosition(), parent);
            return only;
        }
        CProNodeBase* const first = node.children.RemoveHead();
        node.children.AddTail(parent);
        return first;
    }
    void end(CProNodeBase* node) {
        attributesOf(*node);
        delete node;
    }
    void attributesOf(CProNodeBase& node) {
        for (POSITION at = node.attributes.GetHeadPosition(); at != nullptr;) {
            CProAttBase* const attribute = node.attributes.GetNext(at);
            if (attribute == nullptr) continue;
            askAhead(attribute);
            ItemPlace* const place = ItemPlace::of(attribute);
            if (place->offset == 0) {
                delete attribute;
                continue;
            }
            ending_.value(StringAccess::release(attribute->value));
            ending_.name(StringAccess::release(attribute->name));
            ending_.piece(place->page(), place->bytes);
        }
        node.attributes.RemoveAll();
    }

    Ending ending_;
};

}  // namespace

CProNodeBase& addNewChild(MemoryPages& pages, CProNodeBase& node, wchar_t* name) {
    std::uint32_t offset = 0;
    std::unique_ptr<CProNodeBase> made(::new (placeItem<CProNodeBase>(pages, offset)) CProNodeBase);
    made->name = CString(StringAccess::adopt(name));
    node.children.AddTail(made.get());
    return *made.release();
}

void destroyContents(CProNodeBase& node) {
    if (!node.children.IsEmpty() || !node.attributes.IsEmpty()) Destroyer().contentsOf(node);
}

}  // namespace orv

void* CProAttBase::operator new(std::size_t size) { return orv::newHeapItem(size); }

void CProAttBase::operator delete(void* attribute) noexcept { orv::deleteItem(attribute); }

void* CProNodeBase::operator new(std::size_t size) { return orv::newHeapItem(size); }

void CProNodeBase::operator delete(void* node) noexcept { orv::deleteItem(node); }
