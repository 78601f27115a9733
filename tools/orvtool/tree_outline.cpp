#include "tree_outline.h"

#include <algorithm>
#include <map>
#include <vector>

#include "commands.h"

namespace orvtool {
namespace {

constexpr int kDeepestIndent = 40;  // deeper nodes are not pushed further to the right

std::string oneLine(CString text) {
    text.Replace(L"\r", L"\\r");
    text.Replace(L"\n", L"\\n");
    return utf8(text);
}

std::string indent(int depth) {
    return std::string(static_cast<std::size_t>(std::min(depth, kDeepestIndent)) * 2, ' ');
}

}  // namespace

std::string unpacked(const CLeaf& leaf) {
    CStringArray fields;
    leaf.GetStrValueArray(fields);
    std::string out;
    for (int i = 0; i < fields.GetSize(); ++i)
        out += (i == 0 ? "" : " | ") + oneLine(fields[i]);
    return out;
}

std::string outline(const CNode& root) {
    std::string out;
    forEachNode(root, [&](const CNode& node, int depth) {
        out += indent(depth) + "[" + oneLine(node.GetName()) + "]\n";
        for (const CLeaf& leaf : orv::leavesOf(node))
            out += indent(depth + 1) + oneLine(leaf.GetName()) + " = " + unpacked(leaf) + "\n";
    });
    return out;
}

std::string statistics(const CNode& root) {
    constexpr std::size_t kMostNames = 10;
    std::size_t nodes = 0, leaves = 0, characters = 0;
    int deepest = 0;
    std::map<std::string, std::size_t> names;
    forEachNode(root, [&](const CNode& node, int depth) {
        ++nodes;
        ++names["[" + oneLine(node.GetName()) + "]"];
        deepest = std::max(deepest, depth + 1);
        for (const CLeaf& leaf : orv::leavesOf(node)) {
            ++leaves;
            ++names[oneLine(leaf.GetName())];
            characters += static_cast<std::size_t>(leaf.GetRawData().GetLength());
        }
    });
    std::vector<std::pair<std::string, std::size_t>> frequent(names.begin(), names.end());
    std::stable_sort(frequent.begin(), frequent.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    std::string out = "nodes:      " + std::to_string(nodes) + "\nleaves:     " + std::to_string(leaves) +
                      "\nlevels:     " + std::to_string(deepest) +
                      "\ncharacters: " + std::to_string(root.GetSizeOfBranch(-1)) + " as text, " +
                      std::to_string(characters) + " of them values\nnames:      " + std::to_string(names.size()) +
                      "\n";
    for (std::size_t i = 0; i < frequent.size() && i < kMostNames; ++i)
        out += "  " + std::to_string(frequent[i].second) + "\t" + frequent[i].first + "\n";
    return out;
}

}  // namespace orvtool
