#include "orv/report_tree.h"

#include <memory>
#include <utility>
#include <vector>

#include "data/tree_links.h"
#include "framework/characters.h"
#include "framework/hash_index.h"

namespace {

void copyValues(CDataTree& to, const CDataTree& from) {
    to.data.Copy(from.data);
    to.sharedData = from.sharedData;
    to.furtherWord = from.furtherWord;
}

CDataTree* appendChild(CDataTree& tree, std::unique_ptr<CDataTree> child) {
    tree.children.AddTail(child.get());
    return child.release();
}

/// Copies `from` into `to`, which is empty, without recursion.
void copyBranch(CDataTree& to, const CDataTree& from) {
    struct Pair {
        CDataTree* to;
        const CDataTree* from;
    };
    copyValues(to, from);
    std::vector<Pair> open{{&to, &from}};
    while (!open.empty()) {
        const Pair pair = open.back();
        open.pop_back();
        for (POSITION at = pair.from->children.GetHeadPosition(); at != nullptr;) {
            const CDataTree* child = pair.from->children.GetNext(at);
            if (child == nullptr) continue;
            CDataTree* copy = pair.to->AddChild();
            copyValues(*copy, *child);
            open.push_back({copy, child});
        }
    }
}

/// A format that is exactly one printf directive, of these conversions, with literal text around it; "" for any other.
/// The letter "l" says nothing about the numbers here and is left out.
CString oneDirective(const wchar_t* format, orv::WideView conversions) {
    CString checked;
    int count = 0;
    for (const wchar_t* at = format; *at != 0; ++at) {
        checked += *at;
        if (*at != L'%') continue;
        for (++at; *at != 0 && orv::WideView(L"-+ #0123456789.").find(*at) != orv::WideView::npos; ++at)
            checked += *at;
        if (*at == L'l') ++at;
        const bool isPercent = *at == L'%' && at[-1] == L'%';
        if (!isPercent && (*at == 0 || conversions.find(*at) == orv::WideView::npos)) return {};
        checked += *at;
        count += isPercent ? 0 : 1;
    }
    return count == 1 ? checked : CString();
}

template <class Number>
CString formatted(const Number& value, const wchar_t* format, orv::WideView conversions, const wchar_t* usual) {
    const CString checked = format != nullptr ? oneDirective(format, conversions) : CString();
    CString text;
    text.Format(checked.IsEmpty() ? usual : checked.GetString(), value);
    return text;
}

VARIABLE* find(CArray<VARIABLE, const VARIABLE&>& data, const CString& name) {
    VARIABLE* const first = data.GetData();
    for (VARIABLE* at = first; at != first + data.GetSize(); ++at) {
        // Folding is one character to one, so that names of other lengths differ.
        if (at->name.GetLength() == name.GetLength() && at->name.CompareNoCase(name) == 0) return at;
    }
    return nullptr;
}

/// As AddValue for each leaf, to a tree without values; many are found by hashing.
void addLeaves(CDataTree& tree, const CNode& node) {
    constexpr int kFew = 32;
    if (node.NrOfLeaves() <= kFew) {
        for (const CLeaf& leaf : orv::leavesOf(node))
            tree.AddValue(leaf.GetName(), leaf.GetOnlyValue(L':'));
        return;
    }
    orv::HashIndex positions;
    std::vector<orv::WideString> names;  // folded, as the values stand
    for (const CLeaf& leaf : orv::leavesOf(node)) {
        orv::WideString name(leaf.GetName().GetString());
        for (wchar_t& ch : name)
            ch = orv::foldCase(ch);
        const std::uint32_t hash = orv::hashText(name);
        const std::uint32_t found = positions.find(hash, [&](std::uint32_t at) { return names[at] == name; });
        if (found != orv::HashIndex::kNone) {
            tree.data[static_cast<int>(found)].value = leaf.GetOnlyValue(L':');
            continue;
        }
        positions.add(hash, static_cast<std::uint32_t>(names.size()));
        names.push_back(std::move(name));
        tree.data.Add(VARIABLE{CString(leaf.GetName().GetString()), leaf.GetOnlyValue(L':'), CString()});
    }
}

}  // namespace

CDataTree& CDataTree::operator=(const CDataTree& other) {
    if (this == &other) return *this;
    CDataTree copy;
    copyBranch(copy, other);
    cleanUp();
    copyValues(*this, copy);
    while (!copy.children.IsEmpty()) {  // one by one: each has one owner, whatever throws
        children.AddTail(copy.children.GetHead());
        copy.children.RemoveHead();
    }
    return *this;
}

void CDataTree::cleanUp() {
    CDataTree* doomed = nullptr;
    const auto takeChildren = [&doomed](CDataTree& tree) {
        for (POSITION at = tree.children.GetHeadPosition(); at != nullptr;) {
            CDataTree* child = tree.children.GetNext(at);
            if (child == nullptr) continue;
            child->nextDoomed_ = doomed;
            doomed = child;
        }
        tree.children.RemoveAll();
    };
    takeChildren(*this);
    while (doomed != nullptr) {
        CDataTree* tree = doomed;
        doomed = tree->nextDoomed_;
        takeChildren(*tree);
        delete tree;
    }
    data.RemoveAll();
}

CDataTree* CDataTree::AddChild() { return appendChild(*this, std::make_unique<CDataTree>()); }

int CDataTree::AddValue(const wchar_t* name, const wchar_t* value, const wchar_t* third) {
    CArray<VARIABLE, const VARIABLE&>& all = GetDataArray();
    const CString wanted(name);
    if (VARIABLE* found = find(all, wanted)) {
        found->value = value;
        return 1;
    }
    all.Add(VARIABLE{wanted, CString(value), CString(third)});
    return 0;
}
int CDataTree::AddValue(const wchar_t* name, const wchar_t* value) {
    return AddValue(name, value, static_cast<const wchar_t*>(nullptr));
}
int CDataTree::AddValue(const wchar_t* name, const int& value) {
    return AddValue(name, value, static_cast<const wchar_t*>(nullptr));
}
int CDataTree::AddValue(const wchar_t* name, const int& value, const wchar_t* format) {
    return AddValue(name, formatted(value, format, L"diuoxX", L"%d"));
}
int CDataTree::AddValue(const wchar_t* name, const double& value, const wchar_t* format) {
    return AddValue(name, formatted(value, format, L"eEfFgGaA", L"%f"));
}

bool CDataTree::LoadFromNode(const CNode* node) {
    if (node == nullptr) return true;
    for (const CNode& child : orv::childrenOf(*node)) {
        if (child.GetName() != L"Child") continue;
        CDataTree* tree = this;
        std::vector<CDataTree*> open;
        orv::walkBranch(
            child,
            [&](const CNode& one) {
                open.push_back(tree);
                tree = tree->AddChild();
                addLeaves(*tree, one);
            },
            [&](const CNode&) {
                tree = open.back();
                open.pop_back();
            });
    }
    return true;
}
