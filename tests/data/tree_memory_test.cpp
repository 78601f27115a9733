// What was read lies in pages and may end in runs; edits and texts that outlive it must not show that.
#include <random>
#include <vector>

#include "trees.h"

namespace {

constexpr wchar_t kText[] =
    L"[P]\r\n\tName:Köln\r\n\tLong:1:2:3:4:5\r\n"
    L"\t[A]\r\n\t\tName:one\r\n\t\t[B]\r\n\t\t\tName:two\r\n\t\t\tEmpty:\r\n\t\t[ENDE_B]\r\n\t[ENDE_A]\r\n"
    L"\t[A]\r\n\t\tName:three\r\n\t\t[C]\r\n\t\t[ENDE_C]\r\n\t\tLate:after a child\r\n\t[ENDE_A]\r\n"
    L"\t[D]\r\n\t\t[A]\r\n\t\t\t[A]\r\n\t\t\t\tName:deep\r\n\t\t\t[ENDE_A]\r\n\t\t[ENDE_A]\r\n\t[ENDE_D]\r\n"
    L"\t[A]\r\n\t\tName:last\r\n\t[ENDE_A]\r\n[ENDE_P]\r\n";

template <class Use>
void eachLeaf(const CNode& node, Use use) {
    for (const CLeaf& leaf : orv::leavesOf(node))
        use(leaf);
    for (const CNode& child : orv::childrenOf(node))
        eachLeaf(child, use);
}

/// The same tree of items and texts that are each on the heap.
void copyByHand(const CNode& from, CNode& to) {
    const auto own = [](const CString& text) { return CString(text.GetString(), text.GetLength()); };
    to.SetName(own(from.GetName()));
    to.setSimpleXML(from.isSimpleXML());
    for (const CLeaf& leaf : orv::leavesOf(from))
        to.AddLeaf(new CLeaf(own(leaf.GetName()), own(leaf.GetRawData())));
    for (const CNode& child : orv::childrenOf(from))
        copyByHand(child, *to.AddChild(new CNode));
}

void collect(CNode& node, std::vector<CNode*>& nodes) {
    nodes.push_back(&node);
    for (CNode& child : orv::childrenOf(node))
        collect(child, nodes);
}

/// One edit of a tree; the same numbers choose the same edit.
class Edit {
  public:
    explicit Edit(std::mt19937& random) {
        for (auto& one : numbers_)
            one = random();
    }
    void apply(CNode& root, std::vector<CString>& kept) const {
        std::vector<CNode*> nodes;
        collect(root, nodes);
        CNode& node = *nodes[numbers_[0] % nodes.size()];
        CNode& other = *nodes[numbers_[1] % nodes.size()];
        CLeaf* leaf = node.GetLeaf(node.NrOfLeaves() == 0 ? 0 : static_cast<int>(numbers_[2] % 7) % node.NrOfLeaves());
        switch (numbers_[3] % 16) {
            case 0:
                if (leaf != nullptr) leaf->SetRawData(L"changed");
                return;
            case 1:
                if (leaf != nullptr) leaf->SetStrLeafValue(2, L"field");
                return;
            case 2:
                (leaf != nullptr ? static_cast<CTreeItem&>(*leaf) : node).SetName(L"renamed");
                return;
            case 3:
                if (leaf != nullptr) kept.push_back(leaf->GetRawData());
                kept.push_back(node.GetName());
                return;
            case 4:
                if (leaf != nullptr) other.AddLeaf(leaf);
                return;
            case 5:
                if (&node != &root) other.AddChild(&node);
                return;
            case 6:
                node.DeleteLeaf(leaf);
                return;
            case 7:
                if (&node != &root) node.GetParent()->DeleteChild(&node);
                return;
            case 8:
                node.setSimpleXML(!node.isSimpleXML());
                return;
            case 9:
                node.AddLeaf(L"new", L"1:2");
                return;
            case 10: {
                const wchar_t* text = L"[R]\r\nName:read into it\r\n[S]\r\nx:y\r\n[ENDE_S]\r\n[ENDE_R]";
                other.ReadFromMem(text, L':');
                return;
            }
            case 11: {
                const CNode copy(other);
                if (&other != &root) node = copy;
                return;
            }
            case 12:
                node.DeleteAllLeaves();
                return;
            case 13:
                if (numbers_[1] % 4 == 0) node.DeleteAllChildren();
                return;
            case 14:
                node.ExchangeChildren(node.GetChild(0), node.GetChild(1));
                return;
            default:
                if (leaf != nullptr) *leaf = CLeaf(L"assigned", L"value");
        }
    }

  private:
    std::mt19937::result_type numbers_[4];
};

TEST(TreeMemory, EditsDoTheSameToWhatWasReadAsToItemsOnTheHeap) {
    std::mt19937 random(7);
    for (int round = 0; round < 400; ++round) {
        std::vector<CString> kept, keptByHand;
        Tree tree = read(kText), byHand = std::make_unique<CNode>();
        copyByHand(*tree, *byHand);
        for (int i = 0; i < round % 25; ++i) {
            const Edit edit(random);
            edit.apply(*tree, kept);
            edit.apply(*byHand, keptByHand);
            ASSERT_TEXT(written(*byHand, 0), written(*tree, 0));
            ASSERT_EQ(byHand->GetSizeOfBranch(-1), tree->GetSizeOfBranch(-1));
        }
        tree = nullptr;
        ASSERT_EQ(keptByHand.size(), kept.size());
        for (std::size_t i = 0; i < kept.size(); ++i)
            EXPECT_TEXT(keptByHand[i], kept[i]);
    }
}

TEST(TreeMemory, NamesOfEveryKind) {
    // Too long for a page: on the heap, and to be freed with their nodes.
    const CString longName(L'x', 5000);
    const CString text =
        L"[P]\n[" + longName + L"]\nk:1\n[ENDE_" + longName + L"]\n[A]\n" + longName + L":1\n[ENDE_A]\n[ENDE_P]\n";
    for (int i = 0; i < 3; ++i) {
        const Tree tree = read(text);
        if (i != 0) tree->DeleteChild(tree->GetChild(i - 1));
        EXPECT_TEXT(i == 1 ? L"A" : longName.GetString(), tree->GetChild(0)->GetName());
    }
    // A node's name may hold a CR; at the same place a leaf's name ends there.
    const Tree tree = read(L"[R]\nk:1\n[AB\rCD]\n[/]\nk:1\nAB\rCD:1\n[/]\n");
    ASSERT_EQ(4, tree->NrOfLeaves());
    EXPECT_TEXT(L"AB", tree->GetLeaf(2)->GetName());
    EXPECT_TEXT(L"CD", tree->GetLeaf(3)->GetName());
    EXPECT_TEXT(L"1", tree->GetLeaf(3)->GetRawData());
}

TEST(TreeMemory, TextsOutliveTheirTree) {
    // Over many pages, with values and names that are too long for them or too many to be shared.
    CString text = L"[P]\r\n";
    std::vector<CString> values;
    for (int i = 0; i < 6000; ++i) {
        CString name, value;
        name.Format(L"name %d", i);
        value.Format(L"value %d", i);
        if (i % 500 == 0) name = CString(L'n', 100), value = CString(L'v', 5000);
        values.push_back(value);
        text += L"[N]\r\n" + name + L":" + value + L"\r\n[ENDE_N]\r\n";
    }
    Tree tree = read(text + L"[ENDE_P]");
    EXPECT_TEXT(L"name 5999", tree->GetChild(5999)->GetLeaf(0)->GetName());
    std::vector<CString> kept;
    {
        const CNode copy(*tree);  // shares the texts
    }
    eachLeaf(*tree, [&](const CLeaf& leaf) { kept.push_back(leaf.GetRawData()); });
    for (int i = 0; i < 3000; ++i)
        tree->DeleteChild(tree->GetChild(1));
    tree = nullptr;
    ASSERT_EQ(values.size(), kept.size());
    for (std::size_t i = 0; i < kept.size(); ++i)
        ASSERT_TEXT(values[i], kept[i]);
    kept[7].TrimLeft(L"va");  // in place, if it were no text of a page
    EXPECT_TEXT(L"lue 7", kept[7]);
    kept[8].ReleaseBuffer();
    EXPECT_TEXT(L"value 8", kept[8]);
}

}  // namespace
