// Walking over branches and unlinking items, for the tree's own sources.
#pragma once

#include <type_traits>

#include "framework/string_data.h"
#include "orv/tree_items.h"

namespace orv {

/// The most characters that a string can have.
inline constexpr std::size_t kLongestText = static_cast<std::size_t>(kMaximumTextLength);

/// What a leaf's line has besides its name and value: separator, CR, LF.
inline constexpr std::size_t kLeafCharacters = 3;

inline WideView viewOf(const CString& text) { return {text.GetString(), static_cast<std::size_t>(text.GetLength())}; }

/// For a node that is about to change. Around one that is not packed no other is.
inline void TreeAccess::unpack(CNode* node) {
    for (; node != nullptr && isPacked(*node); node = node->parent_)
        node->packedEnd_ = nullptr;
}

template <class Item>
void TreeAccess::unlink(Item& item) {
    CNode& node = *item.parent_;
    unpack(&node);
    ItemChain& chain = chainOf(node, item);
    POSITION& cursor = cursorOf(node, item);
    if (cursor == CNode::position(&item)) cursor = CNode::position(item.next_);
    (item.previous_ == nullptr ? chain.first : item.previous_->next_) = item.next_;
    (item.next_ == nullptr ? chain.last : item.next_->previous_) = item.previous_;
    --chain.count;
    item.parent_ = nullptr;
    item.previous_ = item.next_ = nullptr;
}

/// Calls enter(node) before, leave(node) after each node's children, from `root` on, without recursion. Where enter()
/// tells whether, the children are left out if it says no.
template <class Node, class Enter, class Leave>
void walkBranch(Node& root, Enter enter, Leave leave) {
    Node* node = &root;
    for (;;) {
        bool goesOn = true;
        if constexpr (std::is_void_v<decltype(enter(*node))>) {
            enter(*node);
        } else {
            goesOn = enter(*node);
        }
        if (Node* child = TreeAccess::firstChild(*node); goesOn && child != nullptr) {
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
