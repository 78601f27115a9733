// How items hang together: linking, copying and destroying whole branches.
#include <utility>

#include "data/batches.h"
#include "data/tree_memory.h"

namespace orv {

void TreeAccess::link(CNode& node, ItemChain& chain, CTreeItem& item, CTreeItem* after) {
    unpack(&node);
    CTreeItem* before = after == nullptr ? chain.first : after->next_;
    item.parent_ = &node;
    item.previous_ = after;
    item.next_ = before;
    (after == nullptr ? chain.first : after->next_) = &item;
    (before == nullptr ? chain.last : before->previous_) = &item;
    ++chain.count;
}

void TreeAccess::setParent(const ItemChain& chain, CNode& parent) {
    for (CTreeItem* item = chain.first; item != nullptr; item = item->next_)
        item->parent_ = &parent;
}

void TreeAccess::swapContents(CNode& node, CNode& other) {
    unpack(node.parent_);
    unpack(other.parent_);
    std::swap(node.packedEnd_, other.packedEnd_);
    std::swap(node.name_, other.name_);
    std::swap(node.children_, other.children_);
    std::swap(node.leaves_, other.leaves_);
    std::swap(node.isSimpleXml_, other.isSimpleXml_);
    for (CNode* changed : {&node, &other}) {
        setParent(changed->children_, *changed);
        setParent(changed->leaves_, *changed);
        changed->childCursor_ = changed->leafCursor_ = nullptr;
    }
}

void TreeAccess::copyContents(CNode& to, const CNode& from) {
    MemoryPages pages;
    SharedTexts texts;
    CNode* copy = &to;
    walkBranch(
        from,
        [&](const CNode& node) {
            if (&node != &from) copy = newChild(pages, *copy, texts.share(node.name_));
            copy->isSimpleXml_ = node.isSimpleXml_;
            for (const CLeaf& leaf : leavesOf(node)) {
                askAhead(&leaf);
                newLeaf(pages, *copy, texts.share(leaf.name_), texts.share(leaf.value_));
            }
        },
        [&](const CNode& node) {
            if (&node != &from) copy = copy->parent_;
        });
}

}  // namespace orv

CTreeItem::~CTreeItem() = default;

void CTreeItem::SetName(const CString& name) {
    willChange();
    name_ = name;
}

void CTreeItem::willChange() const { orv::TreeAccess::unpack(parent_); }

CLeaf::~CLeaf() {
    if (GetParent() != nullptr) orv::TreeAccess::unlink(*this);
}

CLeaf& CLeaf::operator=(const CLeaf& other) {
    SetName(other.GetName());
    writableValue() = other.value_;
    return *this;
}

CNode::CNode(const CNode& other) : CTreeItem(other) {
    try {
        orv::TreeAccess::copyContents(*this, other);
    } catch (...) {  // no destructor will run
        orv::TreeAccess::destroyContents(*this);
        throw;
    }
}

CNode::~CNode() {
    if (GetParent() != nullptr) orv::TreeAccess::unlink(*this);
    orv::TreeAccess::destroyContents(*this);
}

CNode& CNode::operator=(const CNode& other) {
    if (this == &other) return *this;
    CNode copy(other);
    orv::TreeAccess::swapContents(*this, copy);
    return *this;
}

void CNode::DeleteAllChildren(bool keep) {
    if (keep) {
        while (CNode* child = orv::TreeAccess::firstChild(*this))
            orv::TreeAccess::unlink(*child);
    } else {
        orv::TreeAccess::destroyChildren(*this);
    }
    childCursor_ = nullptr;
}

void CNode::DeleteAllLeaves(bool keep) {
    if (keep) {
        while (CLeaf* leaf = orv::TreeAccess::firstLeaf(*this))
            orv::TreeAccess::unlink(*leaf);
    } else {
        orv::TreeAccess::destroyLeaves(*this);
    }
    leafCursor_ = nullptr;
}
