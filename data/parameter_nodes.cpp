#include "orv/parameter_nodes.h"

#include <memory>

#include "data/tree_links.h"
#include "orv/display_values.h"
#include "orv/tree_tools.h"

namespace {

CString formatted(double value, enUnit unit, int precision) {
    orvUnitSetting setting;
    setting.name = L"tmpSetting";
    setting.unit = unit;
    orvUnits::getUnitStandardFormat(setting.format, setting.precision, unit);
    if (precision >= 0) setting.precision = static_cast<enUnitPrec>(precision);
    return orv::formatBaseValue(value, setting);
}

bool isMeasure(int unit) { return unit != eUnitText && unit != eUnitInteger; }

CNode* createNode(const CString& name, const CString& value, double number, enUnit unit, int precision, bool readonly,
                  int group) {
    auto node = std::make_unique<CNode>();
    const int colon = name.Find(L':');
    node->SetName(colon < 0 ? name : name.Left(colon));
    if (colon >= 0) node->AddLeaf(L"oldStyleKeys", name.Mid(colon + 1), true);
    node->AddLeaf(L"value", value);
    node->AddLeaf(L"unit", static_cast<int>(unit));
    node->AddLeaf(L"formattedValue", isMeasure(unit) ? formatted(number, unit, precision) : value);
    if (isMeasure(unit)) node->AddLeaf(L"unitLabel", orvUnits::getUnitLabel(unit));
    node->AddLeaf(L"readonly", readonly ? 1 : 0);
    node->AddLeaf(L"group", group);
    return node.release();
}

/// The leaf of that name, or a new one behind `place`.
CLeaf* madeLeaf(CNode& node, const wchar_t* name, const CString& value, CLeaf* place) {
    CLeaf* leaf = node.FindLeaf(name);
    return leaf != nullptr ? leaf : node.InsertLeaf(CString(name), value, place);
}

void complete(CNode& node) {
    CLeaf* value = node.FindLeaf(L"value");
    CLeaf* place = value == nullptr ? nullptr : node.FindLeaf(L"unit", value);
    if (place == nullptr) return;
    const auto unit = static_cast<enUnit>(place->GetOnlyValueI());
    const CString text = isMeasure(unit) ? formatted(value->GetOnlyValueD(), unit, -1) : value->GetOnlyValue();
    place = madeLeaf(node, L"formattedValue", text, place);
    if (isMeasure(unit)) place = madeLeaf(node, L"unitLabel", orvUnits::getUnitLabel(unit), place);
    place = madeLeaf(node, L"readonly", L"0", place);
    madeLeaf(node, L"group", L"-1", place);
}

void removeLeaf(CNode& node, const wchar_t* name, const wchar_t* value = nullptr) {
    CLeaf* leaf = node.FindLeaf(name);
    if (leaf != nullptr && (value == nullptr || leaf->GetRawData() == value)) node.DeleteLeaf(leaf);
}

}  // namespace

namespace orvAttrHelper {

CNode* createNode(const CString& name, const wchar_t* value, bool readonly, int parameterGroup) {
    return ::createNode(name, CString(value), 0, eUnitText, -1, readonly, parameterGroup);
}

CNode* createNode(const CString& name, int value, bool readonly, int parameterGroup) {
    CString text;
    text.Format(L"%i", value);
    return ::createNode(name, text, value, eUnitInteger, -1, readonly, parameterGroup);
}

CNode* createNode(const CString& name, const double& value, enUnit unit, int unitPrecision, bool readonly,
                  int parameterGroup) {
    CString text;
    text.Format(L"%.10f", value);
    return ::createNode(name, text, value, unit, unitPrecision, readonly, parameterGroup);
}

CNode* shrinkNodeForAutoCAD(CNode* node) {
    if (node == nullptr) return nullptr;
    for (CNode& child : orv::childrenOf(*node)) {
        for (CLeaf& leaf : orv::leavesOf(child)) {
            const CString& name = leaf.GetName();
            if (name == L"guid" || name == L"group" || name == L"type") child.DeleteLeaf(&leaf);
        }
    }
    return node;
}

CNode* compressRootNode(CNode* root) {
    if (root == nullptr) return nullptr;
    for (CNode& child : orv::childrenOf(*root)) {
        CNode small(child);
        removeLeaf(small, L"formattedValue");
        removeLeaf(small, L"unitLabel");
        removeLeaf(small, L"readonly", L"0");
        removeLeaf(small, L"group", L"-1");
        CNode again(small);
        complete(again);
        if (orv::equalTrees(again, child)) child = small;
    }
    return root;
}

CNode* deCompressRootNode(CNode* root) {
    if (root == nullptr) return nullptr;
    for (CNode& child : orv::childrenOf(*root))
        complete(child);
    return root;
}

CNode* mergeNewNodesWithExistingNodes(const CNode* newNodes, CNode* existing) {
    if (newNodes == nullptr || existing == nullptr || newNodes == existing) return existing;
    if (CNode::IsChildOf(newNodes, existing) || CNode::IsChildOf(existing, newNodes)) {
        return mergeNewNodesWithExistingNodes(std::make_unique<CNode>(*newNodes).get(), existing);
    }
    for (const CNode& added : orv::childrenOf(*newNodes)) {
        CNode* old = existing->FindChild(added.GetName());
        if (old == nullptr) {
            existing->AddChild(new CNode(added));
            continue;
        }
        for (const CLeaf& leaf : orv::leavesOf(added)) {
            if (CLeaf* place = old->FindLeaf(leaf.GetName())) {
                place->SetRawData(leaf.GetRawData());
            } else {
                old->AddLeaf(new CLeaf(leaf));
            }
        }
        if (added.NrOfChildren() == 0) continue;
        old->DeleteAllChildren();
        for (const CNode& child : orv::childrenOf(added))
            old->AddChild(new CNode(child));
    }
    return existing;
}

}  // namespace orvAttrHelper
