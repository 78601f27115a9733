#include <algorithm>
#include <new>
#include <vector>

#include "data/item_memory.h"
#include "data/node_state.h"
#include "framework/vector.h"
#include "orv/wide.h"
#include "text/views.h"

namespace {

using orv::viewOf;
using orv::WideView;

constexpr WideView kEndPrefix = L"[ENDE_";
constexpr WideView kClose = L"]\r\n";
constexpr WideView kLineEnd = L"\r\n";

/// Visits a tree in the order of its text, without recursion: open(node, level) before the children, close behind them.
template <class Open, class Close>
void walk(const CProNodeBase& root, int level, Open open, Close close) {
    struct Step {
        const CProNodeBase* node;
        POSITION child;
    };
    const bool isIndented = level >= 0;
    int at = isIndented ? level : -1;
    std::vector<Step> path;
    open(root, at);
    path.push_back({&root, root.children.GetHeadPosition()});
    while (!path.empty()) {
        Step& step = path.back();
        if (step.child == nullptr) {
            close(*step.node, at);
            if (isIndented) --at;
            path.pop_back();
            continue;
        }
        const CProNodeBase* child = step.node->children.GetNext(step.child);
        if (child == nullptr) continue;
        if (isIndented) ++at;
        open(*child, at);
        path.push_back({child, child->children.GetHeadPosition()});
    }
}

class Writer {
  public:
    explicit Writer(wchar_t* out) : out_(out) {}

    void tabs(int count) {
        for (int i = 0; i < count; ++i)
            *out_++ = L'\t';
    }
    void put(WideView text) {
        orv::copyUnits(out_, text.data(), text.size());
        out_ += text.size();
    }
    void put(wchar_t ch) { *out_++ = ch; }
    wchar_t* end() {
        *out_ = 0;
        return out_;
    }

  private:
    wchar_t* out_;
};

}  // namespace

std::size_t CProNodeBase::getSize(int level) const {
    std::size_t size = 0;
    walk(
        *this, level,
        [&](const CProNodeBase& node, int at) {
            const auto tabs = static_cast<std::size_t>(std::max(at, 0));
            const auto lineTabs = static_cast<std::size_t>(at + 1);
            size += 13 + 2 * viewOf(node.name).size() + 2 * tabs;
            for (POSITION next = node.attributes.GetHeadPosition(); next != nullptr;) {
                const CProAttBase* attribute = node.attributes.GetNext(next);
                if (attribute == nullptr) continue;
                orv::askAhead(attribute);
                size += viewOf(attribute->name).size() + viewOf(attribute->value).size() + 3 + lineTabs;
            }
        },
        [](const CProNodeBase&, int) {});
    return size;
}

wchar_t* CProNodeBase::WriteToMem(wchar_t* buffer, int level) const {
    Writer out(buffer);
    const wchar_t separator = orv::nodeSeparator();
    walk(
        *this, level,
        [&](const CProNodeBase& node, int at) {
            out.tabs(at);
            out.put(L'[');
            out.put(viewOf(node.name));
            out.put(kClose);
            for (POSITION next = node.attributes.GetHeadPosition(); next != nullptr;) {
                const CProAttBase* attribute = node.attributes.GetNext(next);
                if (attribute == nullptr) continue;
                orv::askAhead(attribute);
                out.tabs(at + 1);
                out.put(viewOf(attribute->name));
                out.put(separator);
                out.put(viewOf(attribute->value));
                out.put(kLineEnd);
            }
        },
        [&](const CProNodeBase& node, int at) {
            out.tabs(at);
            out.put(kEndPrefix);
            out.put(viewOf(node.name));
            out.put(kClose);
        });
    return out.end();
}

bool CProNodeBase::WriteToString(wchar_t*& out, bool /*scrambled*/, bool indented) const {
    const int level = indented ? 0 : -1;
    out = nullptr;
    try {
        auto text = std::unique_ptr<wchar_t[]>(new wchar_t[getSize(level) + 1]);
        WriteToMem(text.get(), level);
        out = text.release();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}
