// Data trees: no text does harm; what was read and may be written reads back the same, as text and as XML; sizes are
// what is written; equality and differences agree.
#include <cstdlib>
#include <memory>
#include <vector>

#include "orv/data_tree.h"
#include "orv/tree_xml.h"
#include "tree_texts.h"

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

orv::WideString written(const CNode& node, int level, wchar_t separator) {
    // Exactly as many characters as the node says, so that one more would be seen.
    const std::size_t size = node.GetSizeOfBranch(level);
    const std::unique_ptr<wchar_t[]> buffer(new wchar_t[size + 1]);
    wchar_t* at = buffer.get();
    check(node.WriteToMem(at, level, separator) == size && at == buffer.get() + size && *at == 0);
    return {buffer.get(), size};
}

void checkXml(const CNode& root) {
    CString xml;
    if (!orv::writeXml(root, xml)) return;
    orv::XmlReadError error;
    const std::unique_ptr<CNode> back = orv::readXml(xml, error);
    check(back != nullptr && orv::equalTrees(root, *back));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const orv::WideString text = treeText(data, size);
    const wchar_t separator = size > 0 && data[0] >= 0xF0 ? L'=' : L':';
    std::vector<orv::TreeReadError> errors;
    const std::unique_ptr<CNode> root = orv::readTree(text.c_str(), separator, errors);
    check(root != nullptr || !errors.empty());
    if (separator == L':' && !text.empty() && text[0] != 0) {
        const std::unique_ptr<CNode> same(TreeItems::ReadFromString(text.c_str(), true));
        check((same != nullptr) == errors.empty());
        if (same != nullptr) check(orv::equalTrees(*root, *same));
    }
    if (root == nullptr) return 0;
    const CNode copy(*root);
    check(orv::equalTrees(*root, copy) && orv::differences(*root, copy).empty());
    checkXml(*root);
    orv::toJson(*root, true);
    const bool isGood = orv::checkTree(*root, separator).empty();
    for (const int level : {-1, 0, 2}) {
        const orv::WideString again = written(*root, level, separator);
        const std::unique_ptr<CNode> back = orv::readTree(again.c_str(), separator, errors);
        if (!isGood) continue;
        check(back != nullptr && errors.empty() && orv::equalTrees(*root, *back));
        check(written(*back, level, separator) == again);
    }
    // A change is seen, and undone by what differences say of it.
    CNode changed(*root);
    changed.AddLeaf(L"new", L"leaf");
    check(!orv::equalTrees(*root, changed) && orv::differences(*root, changed).size() == 1);
    for (CTreeItem* item : orv::selectItems(changed, L"*/@*")) {
        const CString path = orv::pathOf(changed, *item);
        check(orv::selectLeaf(changed, path) == item);
    }
    return 0;
}
