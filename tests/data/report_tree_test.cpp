#include "trees.h"

namespace {

CString shown(const CDataTree& tree) {
    CString text;
    const auto& data = tree.GetDataArray();
    for (std::intptr_t i = 0; i < data.GetSize(); ++i)
        text += data[i].name + L"=" + data[i].value + (data[i].third.IsEmpty() ? L"" : L"/" + data[i].third) + L";";
    for (POSITION at = tree.children.GetHeadPosition(); at != nullptr;)
        text += L"(" + shown(*tree.children.GetNext(at)) + L")";
    return text;
}

TEST(ReportTree, ValuesAreReplacedIgnoringCase) {
    CDataTree tree;
    EXPECT_EQ(0, tree.AddValue(L"Länge", L"1", L"m"));
    EXPECT_EQ(1, tree.AddValue(L"LÄNGE", L"2", L"cm"));
    EXPECT_EQ(0, tree.AddValue(L"n", 5));
    EXPECT_EQ(1, tree.AddValue(L"N", 5, L"%03d"));
    EXPECT_EQ(0, tree.AddValue(L"d", 0.5, nullptr));
    EXPECT_TEXT(L"Länge=2/m;n=005;d=0.500000;", shown(tree));
    const wchar_t* const bad[] = {L"%s", L"%d %d", L"none", L"%", L"%*d", L"%n"};
    for (const wchar_t* format : bad) {
        EXPECT_EQ(1, tree.AddValue(L"n", 7, format));
        EXPECT_EQ(1, tree.AddValue(L"d", 0.5, format));
        EXPECT_TEXT(L"Länge=2/m;n=7;d=0.500000;", shown(tree)) << utf8(format);
    }
    tree.AddValue(L"l", 0.5, L"%.2lf");
    EXPECT_TEXT(L"0.50", tree.GetDataArray()[tree.GetDataArray().GetSize() - 1].value);
    tree.AddValue(L"l", 7, L"%03ld");
    EXPECT_TEXT(L"007", tree.GetDataArray()[tree.GetDataArray().GetSize() - 1].value);
    tree.AddValue(L"d", 0.5, L"%.1f %%");
    EXPECT_TEXT(L"Länge=2/m;n=7;d=0.5 %;l=007;", shown(tree));
}

TEST(ReportTree, SharedDataTakeTheValues) {
    CDataTree owner;
    CDataTree tree;
    tree.AddValue(L"own", L"1");
    tree.sharedData = &owner.data;
    tree.furtherWord = 42;
    EXPECT_EQ(0, tree.AddValue(L"own", L"2"));
    EXPECT_TEXT(L"own=2;", shown(owner));
    const CDataTree copy(tree);
    EXPECT_EQ(&owner.data, copy.sharedData);
    EXPECT_EQ(42, copy.furtherWord);
    EXPECT_TEXT(L"1", copy.data[0].value);
    tree.cleanUp();
    EXPECT_TRUE(tree.data.IsEmpty());
    EXPECT_TEXT(L"own=2;", shown(tree));
}

TEST(ReportTree, ManyLeavesAreLoadedLikeFew) {
    CNode node;
    CNode* child = node.AddChild(L"Child");
    CDataTree expected;
    for (int i = 0; i < 200; ++i) {
        CString name, value;
        name.Format(i % 2 == 0 ? L"Größe %d" : L"GRÖSSE %d", i % 70);
        if (i % 3 == 0) name.MakeUpper();
        value.Format(L"v%d", i);
        child->AddLeaf(name, value);
        expected.AddValue(name, value);
    }
    CDataTree loaded;
    loaded.LoadFromNode(&node);
    ASSERT_EQ(1, loaded.children.GetCount());
    EXPECT_TEXT(shown(expected), shown(*loaded.children.GetHead()));
}

TEST(ReportTree, LoadsAndCopies) {
    const Tree node = read(
        L"[R]\nx:0\n[Child]\na:1:2\nA:3\xAE"
        L"4\n[Other]\nb:5\n[/]\n[Child]\n[Deep]\nc:6\n[/]\n[/]\n[/]\n[child]\nd:7\n[/]\n[Child][/]\n[/]");
    CDataTree tree;
    EXPECT_TRUE(tree.LoadFromNode(node.get()));
    EXPECT_TRUE(tree.LoadFromNode(nullptr));
    const CString expected = L"(a=3:4;(b=5;)((c=6;)))()";
    EXPECT_TEXT(expected, shown(tree));
    CDataTree copy;
    copy.AddValue(L"old", L"");
    copy.AddChild();
    copy = tree;
    EXPECT_TEXT(expected, shown(copy));
    copy = *copy.children.GetHead();  // from its own branch
    EXPECT_TEXT(L"a=3:4;(b=5;)((c=6;))", shown(copy));
    const CDataTree& same = copy;
    copy = same;
    EXPECT_EQ(2, copy.children.GetCount());
}

}  // namespace
