// Editing, finding and walking in one node.
#include "data/tree_links.h"
#include "framework/vector.h"

namespace {

using orv::TreeAccess;

template <class Item>
Item* itemAt(POSITION at) {
    return static_cast<Item*>(reinterpret_cast<CTreeItem*>(at));
}

template <class Item>
POSITION positionOf(Item* item) {
    return reinterpret_cast<POSITION>(static_cast<CTreeItem*>(item));
}

bool mayStandIn(const CNode& node, const CNode& item) {
    return &item != &node && (item.NrOfChildren() == 0 || !CNode::IsChildOf(&node, &item));
}
bool mayStandIn(const CNode&, const CLeaf&) { return true; }

template <class Item>
Item* insert(CNode& node, Item* item, Item* after) {
    if (item == nullptr || !mayStandIn(node, *item)) return nullptr;
    if (item == after && item->GetParent() == &node) return item;
    if (item->GetParent() != nullptr) TreeAccess::unlink(*item);
    if (after != nullptr && after->GetParent() != &node) after = nullptr;
    TreeAccess::link(node, TreeAccess::chainOf(node, *item), *item, after);
    return item;
}

template <class Item>
Item* add(CNode& node, Item* item) {
    if (item == nullptr || !mayStandIn(node, *item)) return nullptr;
    if (item->GetParent() != nullptr) TreeAccess::unlink(*item);
    TreeAccess::append(node, *item);
    return item;
}

template <class Item>
bool remove(const CNode& node, Item* item, bool keep) {
    if (item == nullptr || item->GetParent() != &node) return false;
    TreeAccess::unlink(*item);
    if (!keep) delete item;
    return true;
}

template <class Item>
void move(CNode& node, Item& item, CTreeItem* after) {
    TreeAccess::link(node, TreeAccess::chainOf(node, item), item, after);
}

template <class Item>
void exchange(CNode& node, Item* a, Item* b) {
    if (a == b || (a != nullptr && a->GetParent() != &node) || (b != nullptr && b->GetParent() != &node)) return;
    if (a == nullptr) {
        TreeAccess::unlink(*b);
        move(node, *b, nullptr);
        return;
    }
    orv::ItemChain& chain = TreeAccess::chainOf(node, *a);
    if (b == nullptr) {
        TreeAccess::unlink(*a);
        move(node, *a, chain.last);
        return;
    }
    Item* beforeA = TreeAccess::previous(*a);
    Item* beforeB = TreeAccess::previous(*b);
    TreeAccess::unlink(*a);
    if (beforeB == a) {
        move(node, *a, b);
        return;
    }
    TreeAccess::unlink(*b);
    if (beforeA == b) {
        move(node, *a, beforeB);
        move(node, *b, a);
        return;
    }
    // ODDITY(tree-exchange-tail): what should take the place of the first item goes to the tail.
    // Pinned by TreeEditing.Exchange.
    move(node, *a, beforeB != nullptr ? beforeB : chain.last);
    move(node, *b, beforeA != nullptr ? beforeA : chain.last);
}

template <class Item>
Item* itemByIndex(Item* first, int index) {
    if (index < 0) return nullptr;
    Item* item = first;
    while (item != nullptr && index-- > 0)
        item = TreeAccess::next(*item);
    return item;
}

bool isNamed(const CTreeItem& item, orv::WideView name, bool ignoreCase) {
    const orv::WideView own = orv::viewOf(item.GetName());
    if (own.size() != name.size()) return false;
    // A name that was looked for ends in NUL.
    return ignoreCase ? item.GetName().CompareNoCase(name.data()) == 0
                      : orv::equalUnits(own.data(), name.data(), name.size());
}

template <class Item>
Item* find(const CNode& node, Item* first, const wchar_t* name, const Item* after, bool ignoreCase) {
    if (after != nullptr) {
        if (after->GetParent() != &node) return nullptr;
        first = TreeAccess::next(*after);
    }
    const orv::WideView wanted = name == nullptr ? orv::WideView(L"") : orv::WideView(name, orv::wideLength(name));
    while (first != nullptr && !isNamed(*first, wanted, ignoreCase))
        first = TreeAccess::next(*first);
    return first;
}

/// What `at` names, which then names what stands beside that.
template <class Item>
Item* step(POSITION& at, Item* (*beside)(const Item&)) {
    auto* item = itemAt<Item>(at);
    if (item != nullptr) at = positionOf(beside(*item));
    return item;
}

}  // namespace

CNode* CNode::AddChild(CNode* node) { return add(*this, node); }
CNode* CNode::AddChild(const CString& name) { return add(*this, new CNode(name)); }
CNode* CNode::AddChildUnique(const CString& name) {
    CNode* child = FindChild(name);
    return child != nullptr ? child : AddChild(name);
}
CLeaf* CNode::AddLeaf(CLeaf* leaf) { return add(*this, leaf); }
CLeaf* CNode::AddLeaf(const CString& name, const wchar_t* value, bool raw) {
    return InsertLeaf(name, value, static_cast<CLeaf*>(leaves_.last), raw);
}
CLeaf* CNode::AddLeaf(const CString& name, int value, bool /*raw*/) {
    CLeaf* leaf = add(*this, new CLeaf(name));
    leaf->SetOnlyValue(value);
    return leaf;
}
CLeaf* CNode::AddLeaf(const CString& name, double value, bool /*raw*/) {
    CLeaf* leaf = add(*this, new CLeaf(name));
    leaf->SetOnlyValue(value);
    return leaf;
}

CNode* CNode::InsertChild(CNode* node, CNode* after) { return insert(*this, node, after); }
CNode* CNode::InsertChild(const CString& name, CNode* after) { return insert(*this, new CNode(name), after); }
CLeaf* CNode::InsertLeaf(CLeaf* leaf, CLeaf* after) { return insert(*this, leaf, after); }
CLeaf* CNode::InsertLeaf(const CString& name, const wchar_t* value, CLeaf* after, bool raw) {
    CLeaf* leaf = insert(*this, new CLeaf(name), after);
    if (raw) {
        leaf->SetRawData(value);
    } else {
        leaf->SetOnlyValue(value);
    }
    return leaf;
}

bool CNode::DeleteChild(CNode* node, bool keep) { return remove(*this, node, keep); }
bool CNode::DeleteLeaf(CLeaf* leaf, bool keep) { return remove(*this, leaf, keep); }
void CNode::ExchangeChildren(CNode* a, CNode* b) { exchange(*this, a, b); }
void CNode::ExchangeLeaves(CLeaf* a, CLeaf* b) { exchange(*this, a, b); }

CNode* CNode::GetChild(int index) const { return itemByIndex(TreeAccess::firstChild(*this), index); }
CNode* CNode::GetChild(const wchar_t* name, bool ignoreCase) const { return FindChild(name, nullptr, ignoreCase); }
CNode* CNode::GetChild(const wchar_t* name, bool ignoreCase, bool create) {
    CNode* child = FindChild(name, nullptr, ignoreCase);
    return child == nullptr && create ? AddChild(CString(name)) : child;
}
CLeaf* CNode::GetLeaf(int index) const { return itemByIndex(TreeAccess::firstLeaf(*this), index); }
CLeaf* CNode::GetLeaf(const wchar_t* name, bool ignoreCase) const { return FindLeaf(name, nullptr, ignoreCase); }
CNode* CNode::FindChild(const wchar_t* name, const CNode* after, bool ignoreCase) const {
    return find(*this, TreeAccess::firstChild(*this), name, after, ignoreCase);
}
CLeaf* CNode::FindLeaf(const wchar_t* name, const CLeaf* after, bool ignoreCase) const {
    return find(*this, TreeAccess::firstLeaf(*this), name, after, ignoreCase);
}
CNode* CNode::FindChildByAttributeValue(const wchar_t* childName, const wchar_t* leafName, const wchar_t* leafValue,
                                        const CNode* start) const {
    const CString wanted(leafValue);
    for (CNode* child = FindChild(childName, start); child != nullptr; child = FindChild(childName, child)) {
        for (CLeaf* leaf = child->FindLeaf(leafName); leaf != nullptr; leaf = child->FindLeaf(leafName, leaf)) {
            if (leaf->GetRawData() == wanted || leaf->GetOnlyValue() == wanted) return child;
        }
    }
    return nullptr;
}

bool CNode::IsChildOf(const CNode* node, const CNode* ancestor) {
    if (node == nullptr || ancestor == nullptr) return false;
    for (const CNode* up = node->GetParent(); up != nullptr; up = up->GetParent()) {
        if (up == ancestor) return true;
    }
    return false;
}

POSITION CNode::GetChildPos(const CNode* node) const {
    return node != nullptr && node->GetParent() == this ? positionOf(const_cast<CNode*>(node)) : nullptr;
}
POSITION CNode::GetChildPosNextTo(const CNode* node) const {
    return GetChildPos(node) == nullptr ? nullptr : positionOf(TreeAccess::next(*node));
}
POSITION CNode::GetChildPosPrevTo(const CNode* node) const {
    return GetChildPos(node) == nullptr ? nullptr : positionOf(TreeAccess::previous(*node));
}
CNode* CNode::GetFirstChild(POSITION& at) const {
    at = GetFirstChildPos();
    return GetNextChild(at);
}
CNode* CNode::GetLastChild(POSITION& at) const {
    at = GetLastChildPos();
    return GetPrevChild(at);
}
CNode* CNode::GetNextChild(POSITION& at) const { return step<CNode>(at, TreeAccess::next<CNode>); }
CNode* CNode::GetPrevChild(POSITION& at) const { return step<CNode>(at, TreeAccess::previous<CNode>); }

POSITION CNode::GetLeafPos(const CLeaf* leaf) const {
    return leaf != nullptr && leaf->GetParent() == this ? positionOf(const_cast<CLeaf*>(leaf)) : nullptr;
}
CLeaf* CNode::GetFirstLeaf(POSITION& at) const {
    at = GetFirstLeafPos();
    return GetNextLeaf(at);
}
CLeaf* CNode::GetLastLeaf(POSITION& at) const {
    at = GetLastLeafPos();
    return GetPrevLeaf(at);
}
CLeaf* CNode::GetNextLeaf(POSITION& at) const { return step<CLeaf>(at, TreeAccess::next<CLeaf>); }
CLeaf* CNode::GetPrevLeaf(POSITION& at) const { return step<CLeaf>(at, TreeAccess::previous<CLeaf>); }
