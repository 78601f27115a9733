// Editing, finding and walking.
#include "trees.h"

namespace {

Tree nodeOf(const wchar_t* children, const wchar_t* leaves = L"") {
    auto node = std::make_unique<CNode>(L"N");
    for (; *children != 0; ++children)
        node->AddChild(CString(*children));
    for (; *leaves != 0; ++leaves)
        node->AddLeaf(CString(*leaves), L"");
    return node;
}

TEST(TreeEditing, Exchange) {
    const wchar_t* rows[][4] = {{L"xayb", L"a", L"b", L"xbya"}, {L"axb", L"a", L"b", L"xab"},
                                {L"axb", L"b", L"a", L"xab"},   {L"abx", L"a", L"b", L"bax"},
                                {L"abx", L"b", L"a", L"bax"},   {L"xab", L"a", L"b", L"xba"},
                                {L"xby", L"", L"b", L"bxy"},    {L"axb", L"a", L"", L"xba"},
                                {L"ab", L"a", L"a", L"ab"},     {L"ab", L"", L"", L"ab"}};
    for (const auto& row : rows) {
        const Tree node = nodeOf(row[0], row[0]);
        node->ExchangeChildren(node->GetChild(row[1]), node->GetChild(row[2]));
        node->ExchangeLeaves(node->GetLeaf(row[1]), node->GetLeaf(row[2]));
        EXPECT_TEXT(CString(row[3]) + L"|" + row[3], order(*node));
        CNode stranger;
        node->ExchangeChildren(&stranger, node->GetChild(0));
        EXPECT_TEXT(CString(row[3]) + L"|" + row[3], order(*node));
    }
}

TEST(TreeEditing, AddsInsertsAndTakesOut) {
    const Tree node = nodeOf(L"ab", L"cd");
    EXPECT_EQ(nullptr, node->AddChild(static_cast<CNode*>(nullptr)));
    EXPECT_EQ(nullptr, node->AddLeaf(nullptr));
    EXPECT_EQ(nullptr, node->InsertChild(static_cast<CNode*>(nullptr), nullptr));
    EXPECT_EQ(nullptr, node->AddChild(node.get()));
    EXPECT_EQ(nullptr, node->GetChild(0)->AddChild(node.get()));  // a circle
    CNode stranger;
    node->InsertChild(L"x", node->GetChild(0));
    node->InsertChild(L"y", nullptr);
    node->InsertChild(L"z", &stranger);
    node->InsertLeaf(L"e", L"1:2", node->GetLeaf(0));
    EXPECT_TEXT(L"zyaxb|ced", order(*node));
    EXPECT_TEXT(
        L"1\x00AE"
        L"2",
        node->GetLeaf(1)->GetRawData());
    EXPECT_TEXT(L"1:2", node->AddLeaf(L"f", L"1:2", true)->GetRawData());
    EXPECT_TEXT(L"0.1", node->AddLeaf(L"g", 0.1)->GetRawData());
    EXPECT_TEXT(L"-5", node->AddLeaf(L"h", -5)->GetRawData());
    EXPECT_EQ(node->GetChild(2), node->AddChildUnique(L"a"));
    EXPECT_EQ(node->GetChild(4), node->AddChildUnique(L"b"));
    EXPECT_TEXT(L"A", node->AddChildUnique(L"A")->GetName());

    CNode* a = node->GetChild(L"a");
    EXPECT_FALSE(node->DeleteChild(&stranger));
    EXPECT_FALSE(node->DeleteChild(nullptr));
    EXPECT_TRUE(node->DeleteChild(a, true));
    EXPECT_EQ(nullptr, a->GetParent());
    stranger.AddChild(a);
    node->AddChild(a);  // moves
    EXPECT_EQ(0, stranger.NrOfChildren());
    node->AddChild(node->GetChild(0));  // to the end
    EXPECT_TEXT(L"yxbAaz|cedfgh", order(*node));
    delete a;  // takes itself out
    EXPECT_TRUE(node->DeleteLeaf(node->GetLeaf(L"e")));
    EXPECT_TEXT(L"yxbAz|cdfgh", order(*node));
    CNode* y = node->GetChild(0);
    CLeaf* c = node->GetLeaf(0);
    for (CNode& child : orv::childrenOf(*node)) {
        if (&child != y) node->DeleteChild(&child);
    }
    for (CLeaf& leaf : orv::leavesOf(*node)) {
        if (&leaf != c) node->DeleteLeaf(&leaf);
    }
    node->DeleteAllChildren(true);
    node->DeleteAllLeaves(true);
    EXPECT_TEXT(L"|", order(*node));
    EXPECT_TEXT(L"y", y->GetName());
    EXPECT_TEXT(L"c", c->GetName());
    delete y;
    delete c;
}

TEST(TreeEditing, KeptItemsOfAWholeNodeLive) {
    auto node = nodeOf(L"ab");
    CNode* kept[] = {node->GetChild(0), node->GetChild(1)};
    node->DeleteAllChildren(true);
    node.reset();
    for (CNode* child : kept) {
        EXPECT_EQ(nullptr, child->GetParent());
        delete child;
    }
}

TEST(TreeEditing, AssignmentReplacesAndTakesPartsOfItself) {
    const Tree tree = read(L"[A]\nx:1\n[B]\ny:2\n[C][/]\n[/]\n[/]");
    const Tree other = nodeOf(L"pq", L"r");
    CNode* place = other->GetChild(0);
    *place = *tree;
    EXPECT_EQ(other.get(), place->GetParent());
    EXPECT_TRUE(orv::equalTrees(*tree, *place));
    *tree = *tree->GetChild(0);
    EXPECT_TEXT(L"[B]\r\ny:2\r\n[C]\r\n[ENDE_C]\r\n[ENDE_B]\r\n", written(*tree));
    const CNode before(*tree);
    *tree->GetChild(0) = *tree;
    EXPECT_TRUE(orv::equalTrees(before, *tree->GetChild(0)));
    EXPECT_EQ(tree.get(), tree->GetChild(0)->GetParent());
    EXPECT_EQ(tree->GetChild(0), tree->GetChild(0)->GetChild(0)->GetParent());
    const CNode& same = *tree;
    *tree = same;
    EXPECT_EQ(1, tree->NrOfChildren());
    CLeaf leaf(L"n", L"v");
    *tree->GetLeaf(0) = leaf;
    EXPECT_TEXT(L"v", tree->GetStrLeafValuePtr(L"", L"n"));
}

TEST(TreeFinding, ByNameAndIndex) {
    const Tree node = nodeOf(L"aAbaÄ", L"xyX");
    EXPECT_EQ(node->GetChild(0), node->FindChild(L"a"));
    EXPECT_EQ(node->GetChild(3), node->FindChild(L"a", node->GetChild(0)));
    EXPECT_EQ(node->GetChild(1), node->FindChild(L"a", node->GetChild(0), true));
    EXPECT_EQ(nullptr, node->FindChild(L"a", node->GetChild(3)));
    const CNode stranger;
    EXPECT_EQ(nullptr, node->FindChild(L"a", &stranger));
    EXPECT_EQ(node->GetLeaf(2), node->FindLeaf(L"x", node->GetLeaf(0), true));
    EXPECT_EQ(nullptr, node->GetChild(-1));
    EXPECT_EQ(nullptr, node->GetChild(5));
    EXPECT_EQ(node->GetChild(4), node->GetChild(L"ä", true));
    EXPECT_EQ(nullptr, node->GetChild(L"ä"));
    EXPECT_EQ(nullptr, node->GetChild(L"ä", false, false));
    EXPECT_TEXT(L"ä", node->GetChild(L"ä", false, true)->GetName());
    EXPECT_EQ(6, node->NrOfChildren());
    node->GetChild(0)->AddLeaf(L"Id", L"1:2");
    node->GetChild(3)->AddLeaf(L"Id", L"1:2", true);
    EXPECT_EQ(node->GetChild(0), node->FindChildByAttributeValue(L"a", L"Id", L"1:2"));
    EXPECT_EQ(node->GetChild(3), node->FindChildByAttributeValue(L"a", L"Id", L"1:2", node->GetChild(0)));
    EXPECT_EQ(nullptr, node->FindChildByAttributeValue(L"a", L"id", L"1:2"));
    const CNode* deep = node->GetChild(1)->AddChild(L"deep");
    EXPECT_TRUE(CNode::IsChildOf(deep, node.get()));
    EXPECT_FALSE(CNode::IsChildOf(node.get(), deep));
    EXPECT_FALSE(CNode::IsChildOf(deep, deep));
    EXPECT_FALSE(CNode::IsChildOf(nullptr, deep));
}

TEST(TreeWalking, PositionsAndCursors) {
    const Tree node = nodeOf(L"abc", L"xyz");
    CString walked;
    for (POSITION at = node->GetFirstChildPos(); at != nullptr;)
        walked += node->GetNextChild(at)->GetName();
    for (POSITION at = node->GetLastChildPos(); at != nullptr;)
        walked += node->GetPrevChild(at)->GetName();
    POSITION at = nullptr;
    for (CNode* child = node->GetLastChild(at); child != nullptr; child = node->GetPrevChild(at))
        walked += child->GetName();
    for (CLeaf* leaf = node->GetFirstLeaf(at); leaf != nullptr; leaf = node->GetNextLeaf(at))
        walked += leaf->GetName();
    for (CLeaf* leaf = node->GetLastLeaf(); leaf != nullptr; leaf = node->GetPrevLeaf())
        walked += leaf->GetName();
    EXPECT_TEXT(L"abccbacbaxyzzyx", walked);
    EXPECT_EQ(node->GetChildPos(node->GetChild(2)), node->GetChildPosNextTo(node->GetChild(1)));
    EXPECT_EQ(node->GetFirstChildPos(), node->GetChildPosPrevTo(node->GetChild(1)));
    EXPECT_EQ(nullptr, node->GetChildPosNextTo(node->GetChild(2)));
    const CNode stranger;
    EXPECT_EQ(nullptr, node->GetChildPos(&stranger));

    EXPECT_EQ(nullptr, node->GetNextChild());
    EXPECT_TEXT(L"a", node->GetFirstChild()->GetName());
    written(*node);
    orv::checkTree(*node);
    EXPECT_TEXT(L"b", node->GetNextChild()->GetName());
    node->DeleteChild(node->GetChild(2));  // where the cursor is
    EXPECT_EQ(nullptr, node->GetNextChild());
    node->GetFirstChild();
    node->DeleteAllChildren();
    EXPECT_EQ(nullptr, node->GetNextChild());
}

}  // namespace
