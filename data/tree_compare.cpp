// Equality, differences and duplicates.
#include <algorithm>
#include <map>

#include "data/tree_links.h"
#include "orv/tree_tools.h"

namespace orv {
namespace {

bool sameLeaves(const CNode& a, const CNode& b) {
    if (a.NrOfLeaves() != b.NrOfLeaves()) return false;
    const CLeaf* other = TreeAccess::firstLeaf(b);
    for (const CLeaf& leaf : leavesOf(a)) {
        if (viewOf(leaf.GetName()) != viewOf(other->GetName()) ||
            viewOf(leaf.GetRawData()) != viewOf(other->GetRawData())) {
            return false;
        }
        other = TreeAccess::next(*other);
    }
    return true;
}

template <class Item>
struct Match {
    const Item* a;
    const Item* b;  // null for what is only in one of them
};

/// The items of one kind of two nodes, each with the one that is the same-numbered of its name.
template <class Item, class Range>
std::vector<Match<Item>> matchesOf(Range a, Range b, bool& isReordered) {
    struct Queue {
        std::vector<const Item*> items;
        std::size_t taken = 0;
        std::size_t seen = 0;
    };
    std::map<WideView, Queue> inB;
    std::map<const Item*, std::size_t> places;
    for (const Item& item : b) {
        inB[viewOf(item.GetName())].items.push_back(&item);
        places.emplace(&item, places.size());
    }
    std::vector<Match<Item>> matches;
    std::size_t last = 0;
    for (const Item& item : a) {
        const auto found = inB.find(viewOf(item.GetName()));
        const bool hasMatch = found != inB.end() && found->second.taken < found->second.items.size();
        matches.push_back({&item, hasMatch ? found->second.items[found->second.taken++] : nullptr});
        if (!hasMatch) continue;
        const std::size_t place = places[matches.back().b];
        isReordered = isReordered || place < last;
        last = place;
    }
    for (const Item& item : b) {
        Queue& queue = inB[viewOf(item.GetName())];
        if (queue.seen++ >= queue.taken) matches.push_back({nullptr, &item});
    }
    return matches;
}

class Comparer {
  public:
    Comparer(const CNode& a, const CNode& b, std::size_t most) : a_(a), b_(b), most_(most) {}

    std::vector<TreeDifference> run() {
        if (a_.GetName() != b_.GetName()) add(Kind::kNameChanged, CString(), a_.GetName(), b_.GetName());
        std::vector<Match<CNode>> pending{{&a_, &b_}};
        while (!pending.empty() && found_.size() < most_) {
            const Match<CNode> pair = pending.back();
            pending.pop_back();
            bool isReordered = false;
            for (const auto& [before, after] : matchesOf<CLeaf>(leavesOf(*pair.a), leavesOf(*pair.b), isReordered))
                compareLeaves(before, after);
            const auto children = matchesOf<CNode>(childrenOf(*pair.a), childrenOf(*pair.b), isReordered);
            if (isReordered) add(Kind::kOrderChanged, pathOf(a_, *pair.a), CString(), CString());
            for (const auto& [before, after] : children) {
                if (after == nullptr) add(Kind::kNodeRemoved, pathOf(a_, *before), CString(), CString());
                if (before == nullptr) add(Kind::kNodeAdded, pathOf(b_, *after), CString(), CString());
            }
            for (auto match = children.rbegin(); match != children.rend(); ++match) {
                if (match->a != nullptr && match->b != nullptr) pending.push_back(*match);
            }
        }
        return std::move(found_);
    }

  private:
    using Kind = TreeDifference::Kind;

    void compareLeaves(const CLeaf* before, const CLeaf* after) {
        if (found_.size() >= most_) return;
        if (after == nullptr) {
            add(Kind::kLeafRemoved, pathOf(a_, *before), before->GetRawData(), CString());
        } else if (before == nullptr) {
            add(Kind::kLeafAdded, pathOf(b_, *after), CString(), after->GetRawData());
        } else if (viewOf(before->GetRawData()) != viewOf(after->GetRawData())) {
            add(Kind::kValueChanged, pathOf(a_, *before), before->GetRawData(), after->GetRawData());
        }
    }
    void add(Kind kind, const CString& path, const CString& before, const CString& after) {
        if (found_.size() < most_) found_.push_back({kind, path, before, after});
    }

    const CNode& a_;
    const CNode& b_;
    std::size_t most_;
    std::vector<TreeDifference> found_;
};

template <class Range>
void addDuplicates(const CNode& root, const CNode& node, Range items, bool isLeaf, std::vector<DuplicateName>& out) {
    std::map<WideView, int> counts;
    for (const auto& item : items)
        ++counts[viewOf(item.GetName())];
    for (const auto& [name, count] : counts) {
        if (count < 2) continue;
        out.push_back({pathOf(root, node), CString(name.data(), static_cast<int>(name.size())), isLeaf, count});
    }
}

}  // namespace

bool equalTrees(const CNode& a, const CNode& b) {
    std::vector<Match<CNode>> pending{{&a, &b}};
    while (!pending.empty()) {
        const Match<CNode> pair = pending.back();
        pending.pop_back();
        if (viewOf(pair.a->GetName()) != viewOf(pair.b->GetName()) || !sameLeaves(*pair.a, *pair.b) ||
            pair.a->isSimpleXML() != pair.b->isSimpleXML() || pair.a->NrOfChildren() != pair.b->NrOfChildren()) {
            return false;
        }
        const CNode* other = TreeAccess::firstChild(*pair.b);
        for (const CNode& child : childrenOf(*pair.a)) {
            pending.push_back({&child, other});
            other = TreeAccess::next(*other);
        }
    }
    return true;
}

std::vector<TreeDifference> differences(const CNode& a, const CNode& b, std::size_t most) {
    return Comparer(a, b, most).run();
}

std::vector<DuplicateName> findDuplicateNames(const CNode& root) {
    std::vector<DuplicateName> found;
    walkBranch(
        root,
        [&](const CNode& node) {
            if (node.NrOfLeaves() > 1) addDuplicates(root, node, leavesOf(node), true, found);
            if (node.NrOfChildren() > 1) addDuplicates(root, node, childrenOf(node), false, found);
        },
        [](const CNode&) {});
    return found;
}

}  // namespace orv
