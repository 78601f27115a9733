#include "orv/parameter_nodes.h"

#include "trees.h"

namespace {

CString shown(CNode* node) {
    const Tree owner(node);
    CString text;
    for (const CLeaf& leaf : orv::leavesOf(*node))
        text += leaf.GetName() + L"=" + leaf.GetRawData() + L" ";
    return node->GetName() + L": " + text;
}

TEST(ParameterNodes, Created) {
    EXPECT_TEXT(
        L"N: oldStyleKeys=k:l value=a\xAE"
        L"b unit=1000001 formattedValue=a\xAE"
        L"b readonly=1 group=-1 ",
        shown(orvAttrHelper::createNode(L"N:k:l", L"a:b", true, -1)));
    EXPECT_TEXT(L"N: value=-5 unit=1000002 formattedValue=-5 readonly=0 group=7 ",
                shown(orvAttrHelper::createNode(L"N", -5, false, 7)));
    CString expected;
    expected.Format(L"N: value=2.5000000000 unit=%d formattedValue=250.0 unitLabel=%s readonly=0 group=3 ",
                    static_cast<int>(eUnitCentimeter), orvUnits::getUnitLabel(eUnitCentimeter));
    EXPECT_TEXT(expected, shown(orvAttrHelper::createNode(L"N", 2.5, eUnitCentimeter, 1, false, 3)));
    const CString standard = shown(orvAttrHelper::createNode(L"N", 2.5, eUnitMeter, -1, false, 3));
    EXPECT_TRUE(standard.Find(L"formattedValue=2.50 ") > 0) << utf8(standard);
}

TEST(ParameterNodes, CompressedAndBack) {
    CNode root(L"R");
    root.AddChild(orvAttrHelper::createNode(L"a", 2.5, eUnitMeter, -1, false, -1));
    root.AddChild(orvAttrHelper::createNode(L"b", 2.5, eUnitMeter, 4, true, 5));
    root.AddChild(orvAttrHelper::createNode(L"c:k", L"t", false, -1))->AddLeaf(L"guid", L"g");
    root.AddChild(orvAttrHelper::createNode(L"d", L"t", false, -1))->GetLeaf(L"unit")->SetName(L"Unit");
    const CNode before(root);
    EXPECT_EQ(&root, orvAttrHelper::compressRootNode(&root));
    EXPECT_EQ(2, root.GetChild(0)->NrOfLeaves());
    EXPECT_EQ(6, root.GetChild(1)->NrOfLeaves());  // its precision would be lost
    EXPECT_TEXT(L"|oldStyleKeysvalueunitguid", order(*root.GetChild(2)));
    EXPECT_EQ(&root, orvAttrHelper::deCompressRootNode(&root));
    EXPECT_TRUE(orv::equalTrees(before, root));
}

TEST(ParameterNodes, ShrunkAndMerged) {
    const Tree old = read(L"[R]\n[a]\nguid:1\nvalue:1\ntype:x\ngroup:2\n[/]\n[b]\nvalue:2\n[/]\n[/]");
    const Tree fresh = read(L"[R]\n[b]\nvalue:9\nnew:1\n[x][/]\n[/]\n[c]\nvalue:3\n[/]\n[/]");
    EXPECT_EQ(old.get(), orvAttrHelper::shrinkNodeForAutoCAD(old.get()));
    orvAttrHelper::mergeNewNodesWithExistingNodes(fresh.get(), old.get());
    EXPECT_TEXT(
        L"[R]\r\n[a]\r\nvalue:1\r\n[ENDE_a]\r\n[b]\r\nvalue:9\r\nnew:1\r\n[x]\r\n[ENDE_x]\r\n[ENDE_b]\r\n[c]\r\n"
        L"value:3\r\n[ENDE_c]\r\n[ENDE_R]\r\n",
        written(*old));
    EXPECT_EQ(nullptr, orvAttrHelper::shrinkNodeForAutoCAD(nullptr));
    EXPECT_EQ(nullptr, orvAttrHelper::compressRootNode(nullptr));
}

TEST(ParameterNodes, MergedWithWhatStandsInThem) {
    CNode existing(L"E");
    CNode* const added = existing.AddChild(L"A");
    added->AddChild(L"A")->AddChild(L"K")->AddLeaf(L"k", L"1");
    orvAttrHelper::mergeNewNodesWithExistingNodes(added, &existing);
    EXPECT_TEXT(L"[E]\r\n[A]\r\n[K]\r\nk:1\r\n[ENDE_K]\r\n[ENDE_A]\r\n[ENDE_E]\r\n", written(existing));
}

}  // namespace
