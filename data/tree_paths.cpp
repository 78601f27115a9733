// Paths that lead to items: "Building/Floor[2]/Room/@Area".
#include <algorithm>
#include <utility>

#include "data/tree_links.h"
#include "orv/numbers.h"
#include "orv/tree_tools.h"

namespace orv {
namespace {

constexpr WideView kSigns = L"/[]@*'";

struct Step {
    WideString name;
    bool isAny = false;
    bool isLeaf = false;
    int number = 0;  // 0: all of that name
};

/// Reads one step and moves `path` behind it and its "/"; false for what is none.
bool takeStep(WideView& path, Step& step) {
    if (path.starts_with(L'@')) {
        step.isLeaf = true;
        path.remove_prefix(1);
    }
    if (path.starts_with(L'\'')) {
        for (std::size_t at = 1;; ++at) {
            if (at >= path.size()) return false;
            if (path[at] == L'\'' && (at + 1 == path.size() || path[at + 1] != L'\'')) {
                path.remove_prefix(at + 1);
                break;
            }
            if (path[at] == L'\'') ++at;
            step.name += path[at];
        }
    } else if (path.starts_with(L'*')) {
        step.isAny = true;
        path.remove_prefix(1);
    } else {
        const std::size_t end = std::min(path.find_first_of(kSigns), path.size());
        if (end == 0) return false;
        step.name = path.substr(0, end);
        path.remove_prefix(end);
    }
    if (path.starts_with(L'[')) {
        const ParsedInteger number = parseInteger(path.substr(1));
        if (number.value < 1 || path.size() <= number.length + 1 || path[number.length + 1] != L']') return false;
        step.number = number.value;
        path.remove_prefix(number.length + 2);
    }
    if (path.empty()) return true;
    if (path[0] != L'/' || path.size() == 1 || step.isLeaf) return false;
    path.remove_prefix(1);
    return true;
}

bool stepsOf(const CString& path, std::vector<Step>& steps) {
    for (WideView rest = viewOf(path); !rest.empty();) {
        steps.emplace_back();
        if (!takeStep(rest, steps.back())) return false;
    }
    return true;
}

template <class Range>
void take(Range items, const Step& step, std::vector<CTreeItem*>& out) {
    int number = 0;
    for (auto& item : items) {
        if (!step.isAny && viewOf(item.GetName()) != step.name) continue;
        if (++number == step.number || step.number == 0) out.push_back(&item);
    }
}

CString quoted(const CString& name) {
    if (!name.IsEmpty() && viewOf(name).find_first_of(kSigns) == WideView::npos) return name;
    CString inside(name);
    inside.Replace(L"'", L"''");
    return L"'" + inside + L"'";
}

/// A name, with its number where others beside it have the same.
template <class Item>
CString stepTo(const Item& item) {
    int before = 0;
    int behind = 0;
    for (const Item* at = TreeAccess::previous(item); at != nullptr; at = TreeAccess::previous(*at))
        before += at->GetName() == item.GetName() ? 1 : 0;
    for (const Item* at = TreeAccess::next(item); at != nullptr && behind == 0; at = TreeAccess::next(*at))
        behind += at->GetName() == item.GetName() ? 1 : 0;
    CString step = quoted(item.GetName());
    if (before + behind > 0) step.AppendFormat(L"[%d]", before + 1);
    return step;
}

}  // namespace

bool isItemPath(const CString& path) {
    std::vector<Step> steps;
    return stepsOf(path, steps);
}

std::vector<CTreeItem*> selectItems(CNode& from, const CString& path) {
    std::vector<Step> steps;
    if (!stepsOf(path, steps)) return {};
    std::vector<CTreeItem*> items{&from};
    for (const Step& step : steps) {
        std::vector<CTreeItem*> next;
        for (CTreeItem* item : items) {
            auto& node = static_cast<CNode&>(*item);  // leaves come last
            if (step.isLeaf) {
                take(leavesOf(node), step, next);
            } else {
                take(childrenOf(node), step, next);
            }
        }
        items = std::move(next);
    }
    return items;
}

CNode* selectNode(CNode& from, const CString& path) {
    const auto items = selectItems(from, path);
    return items.empty() ? nullptr : dynamic_cast<CNode*>(items[0]);
}

CLeaf* selectLeaf(CNode& from, const CString& path) {
    const auto items = selectItems(from, path);
    return items.empty() ? nullptr : dynamic_cast<CLeaf*>(items[0]);
}

CString pathOf(const CNode& from, const CTreeItem& item) {
    if (&item == &from) return {};
    std::vector<CString> steps;
    if (const auto* leaf = dynamic_cast<const CLeaf*>(&item)) {
        steps.push_back(L"@" + stepTo(*leaf));
    } else {
        steps.push_back(stepTo(static_cast<const CNode&>(item)));
    }
    for (const CNode* node = item.GetParent(); node != nullptr && node != &from; node = node->GetParent())
        steps.push_back(stepTo(*node));
    WideString path;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        if (!path.empty()) path += L'/';
        path += viewOf(*step);
    }
    return {path.data(), static_cast<int>(path.size())};
}

}  // namespace orv
