// Comparing trees, and what would not read back as it is.
#include <algorithm>
#include <vector>

#include "data/node_state.h"
#include "orv/wide.h"

namespace orv {
namespace {

using Kind = NodeProblem::Kind;

WideView viewOf(const CString& text) { return {text.GetString(), static_cast<std::size_t>(text.GetLength())}; }

bool breaksLine(wchar_t ch) { return ch == 0 || ch == L'\r' || ch == L'\n'; }

bool readsAsName(WideView name, bool isRoot) {
    if (!isRoot && name.starts_with(L"ENDE_")) return false;
    return std::none_of(name.begin(), name.end(), [](wchar_t ch) { return ch < 0x21 || ch == L']'; });
}

bool readsAsAttributeName(WideView name, wchar_t separator) {
    const wchar_t first = name.empty() ? separator : name[0];
    if (first < 0x20 || first == L'[' || breaksLine(separator)) return false;
    return std::none_of(name.begin(), name.end(), [=](wchar_t ch) { return breaksLine(ch) || ch == separator; });
}

bool hasLoneSurrogate(WideView text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((text[i] & 0xF800) != 0xD800) continue;
        const bool isPair = text[i] < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if (!isPair) return true;
        ++i;
    }
    return false;
}

class Checker {
  public:
    std::vector<NodeProblem> run(const CProNodeBase& root) {
        struct Step {
            const CProNodeBase* node;
            POSITION child;
        };
        std::vector<Step> steps;
        const auto enter = [&](const CProNodeBase& node) {
            open_.push_back(const_cast<CProNodeBase*>(&node));
            steps.push_back({&node, node.children.GetHeadPosition()});
            checkNode(node);
        };
        enter(root);
        while (!steps.empty() && problems_.size() < kMostReports) {
            Step& step = steps.back();
            if (step.child == nullptr) {
                steps.pop_back();
                open_.pop_back();
            } else if (const CProNodeBase* child = step.node->children.GetNext(step.child); child != nullptr) {
                enter(*child);
            }
        }
        return std::move(problems_);
    }

  private:
    void checkNode(const CProNodeBase& node) {
        if (!readsAsName(viewOf(node.name), open_.size() == 1)) add(Kind::kNodeName, node.name);
        if (hasLoneSurrogate(viewOf(node.name))) add(Kind::kLoneSurrogate, node.name);
        for (POSITION at = node.attributes.GetHeadPosition(); at != nullptr;) {
            const CProAttBase* attribute = node.attributes.GetNext(at);
            if (attribute == nullptr) continue;
            const WideView name = viewOf(attribute->name);
            const WideView value = viewOf(attribute->value);
            if (!readsAsAttributeName(name, nodeSeparator())) add(Kind::kAttributeName, attribute->name);
            if (std::any_of(value.begin(), value.end(), breaksLine)) add(Kind::kAttributeValue, attribute->name);
            if (hasLoneSurrogate(name) || hasLoneSurrogate(value)) add(Kind::kLoneSurrogate, attribute->name);
        }
    }
    void add(Kind kind, const CString& name) {
        if (problems_.size() < kMostReports) problems_.push_back({kind, nodePath(open_), name});
    }

    std::vector<CProNodeBase*> open_;
    std::vector<NodeProblem> problems_;
};

template <class Entry>
const Entry* nextEntry(const CList<Entry*, Entry*>& list, POSITION& at) {
    while (at != nullptr) {
        if (const Entry* entry = list.GetNext(at); entry != nullptr) return entry;
    }
    return nullptr;
}

bool sameAttributes(const CProNodeBase& a, const CProNodeBase& b) {
    POSITION atA = a.attributes.GetHeadPosition();
    POSITION atB = b.attributes.GetHeadPosition();
    for (;;) {
        const CProAttBase* first = nextEntry(a.attributes, atA);
        const CProAttBase* second = nextEntry(b.attributes, atB);
        if (first == nullptr || second == nullptr) return first == second;
        if (viewOf(first->name) != viewOf(second->name) || viewOf(first->value) != viewOf(second->value)) return false;
    }
}

}  // namespace

std::vector<NodeProblem> checkNodes(const CProNodeBase& root) { return Checker().run(root); }

bool equalNodes(const CProNodeBase& a, const CProNodeBase& b) {
    struct Pair {
        const CProNodeBase* a;
        const CProNodeBase* b;
    };
    std::vector<Pair> pending{{&a, &b}};
    while (!pending.empty()) {
        const Pair pair = pending.back();
        pending.pop_back();
        if (viewOf(pair.a->name) != viewOf(pair.b->name) || !sameAttributes(*pair.a, *pair.b)) return false;
        POSITION atA = pair.a->children.GetHeadPosition();
        POSITION atB = pair.b->children.GetHeadPosition();
        for (;;) {
            const CProNodeBase* first = nextEntry(pair.a->children, atA);
            const CProNodeBase* second = nextEntry(pair.b->children, atB);
            if (first == nullptr && second == nullptr) break;
            if (first == nullptr || second == nullptr) return false;
            pending.push_back({first, second});
        }
    }
    return true;
}

}  // namespace orv
