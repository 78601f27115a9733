// Data trees for the eye: an outline, and what they consist of.
#pragma once

#include <string>

#include "orv/data_tree.h"

namespace orvtool {

/// Calls enter(node, depth) for every node of a tree in the order of its text. Takes no stack in proportion to depth.
template <class Enter>
void forEachNode(const CNode& root, Enter enter) {
    const CNode* at = &root;
    for (int depth = 0;;) {
        enter(*at, depth);
        POSITION child = at->GetFirstChildPos();
        if (child != nullptr) {
            at = at->GetNextChild(child);
            ++depth;
            continue;
        }
        for (;; at = at->GetParent(), --depth) {
            if (at == &root) return;
            POSITION next = at->GetParent()->GetChildPosNextTo(at);
            if (next == nullptr) continue;
            at = at->GetParent()->GetNextChild(next);
            break;
        }
    }
}

/// A line for each node and each leaf, with the fields of a value unpacked: "Typ = 22 | 600 | 1000".
std::string outline(const CNode& root);
/// A raw value with its fields unpacked.
std::string unpacked(const CLeaf& leaf);
/// Nodes, leaves, depth, characters, and the most frequent names.
std::string statistics(const CNode& root);

}  // namespace orvtool
