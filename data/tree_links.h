// Walking over branches and unlinking items, for the tree's own sources.
#pragma once

#include "orv/tree_items.h"

namespace orv {

/// The most characters that a string can have.
inline constexpr std::size_t kLongestText = 0x3FFFFFFF;

inline WideView viewOf(const CString& text) { return {text.GetString(), static_cast<std::size_t>(text.GetLength())}; }

template <class Item>
void TreeAccess::unlink(Item& item) {
    CNode& node = *item.parent_;
    ItemChain& chain = chainOf(node, item);
    POSITION& cursor = cursorOf(node, item);
    if (cursor == CNode::position(&item)) cursor = CNode::position(item.next_);
    (item.previous_ == nullptr ? chain.first : item.previous_->next_) = item.next_;
    (item.next_ == nullptr ? chain.last : item.next_->previous_) = item.previous_;
    --chain.count;
    item.parent_ = nullptr;
    item.previous_ = item.next_ = nullptr;
}

/// What was read or copied lies in memory in the order of the text: asks for what is some leaves further on.
inline void askAhead(const CTreeItem& item) {
    constexpr std::size_t kAhead = 768;
    __builtin_prefetch(reinterpret_cast<const char*>(&item) + kAhead);
}

/// Calls enter(node) before, leave(node) after each node's children, from `root` on, without recursion.
template <class Node, class Enter, class Leave>
void walkBranch(Node& root, Enter enter, Leave leave) {
    Node* node = &root;
    for (;;) {
        enter(*node);
        if (Node* child = TreeAccess::firstChild(*node)) {
            node = child;
            continue;
        }
        leave(*node);
        while (node != &root && TreeAccess::next(*node) == nullptr) {
            node = node->GetParent();
            leave(*node);
        }
        if (node == &root) return;
        node = TreeAccess::next(*node);
    }
}

}  // namespace orv
