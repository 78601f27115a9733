// Bracketed nodes: no text does harm; what was read and may be written reads back the same; sizes are what is written.
#include <cstdlib>
#include <memory>
#include <vector>

#include "orv/node_format.h"
#include "tree_texts.h"

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

orv::WideString written(const CProNodeBase& node, int level) {
    // Exactly as many characters as the node says, so that one more would be seen.
    const std::size_t size = node.getSize(level);
    const std::unique_ptr<wchar_t[]> buffer(new wchar_t[size + 1]);
    check(node.WriteToMem(buffer.get(), level) == buffer.get() + size);
    check(buffer[size] == 0);
    return {buffer.get(), size};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const orv::WideString text = treeText(data, size);
    std::vector<orv::NodeReadError> errors;
    const std::unique_ptr<CProNodeBase> root = orv::readNodes(text.c_str(), errors);
    check(root != nullptr || !errors.empty());
    if (root == nullptr) return 0;
    for (const int level : {-1, 0, 3})
        written(*root, level);
    const CProNodeBase copy(*root);
    check(orv::equalNodes(*root, copy));
    const bool isGood = orv::checkNodes(*root).empty();
    for (const int level : {-1, 0}) {
        const orv::WideString again = written(*root, level);
        const std::unique_ptr<CProNodeBase> back = orv::readNodes(again.c_str(), errors);
        if (!isGood) continue;
        check(back != nullptr && errors.empty() && orv::equalNodes(*root, *back));
        check(written(*back, level) == again);
    }
    return 0;
}
