#include "data/node_state.h"

#include <utility>

namespace orv {
namespace {

constinit wchar_t separator = L':';

}  // namespace

wchar_t nodeSeparator() noexcept { return separator; }

wchar_t exchangeNodeSeparator(wchar_t newSeparator) { return std::exchange(separator, newSeparator); }

CString nodePath(const std::vector<CProNodeBase*>& open) {
    constexpr std::size_t kMostNames = 32;
    const std::size_t first = open.size() > kMostNames ? open.size() - kMostNames : 0;
    CString path;
    if (first > 0) path = L"...";
    for (std::size_t i = first; i < open.size(); ++i) {
        if (i > 0) path += L'/';
        path += open[i]->name;
    }
    return path;
}

}  // namespace orv
