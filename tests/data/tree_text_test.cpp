// The text of trees: writing, sizes, reading, files.
#include "orv/messages.h"
#include "support/bytes.h"
#include "support/temp_folder.h"
#include "trees.h"

namespace {

constexpr const wchar_t* kHouse =
    L"[House]\r\n\tName:Haus: Süd\r\n\t[Room]\r\n\t\tArea:12.5\r\n\t[ENDE_Room]\r\n\t[Roof]\r\n\t[ENDE_Roof]\r\n"
    L"[ENDE_House]\r\n";

TEST(TreeText, Writes) {
    CNode node(L"A");
    node.AddChild(L"B")->AddLeaf(L"n", L"v");
    node.AddLeaf(L"x", L"1:2", true);
    struct Row {
        int level;
        bool isXml;
        bool isChildXml;
        const wchar_t* text;
    };
    const Row rows[] = {
        {-5, false, false, L"[A]\r\nx:1:2\r\n[B]\r\nn:v\r\n[ENDE_B]\r\n[ENDE_A]\r\n"},
        {-1, false, true, L"[A]\r\nx:1:2\r\n<B>v</B>\r\n[ENDE_A]\r\n"},
        {0, false, true, L"[A]\r\n\tx:1:2\r\n\t<B>v</B>\r\n[ENDE_A]\r\n"},
        {1, true, false, L"\t<A>\r\n\t\tx:1:2\r\n\t\t[B]\r\n\t\t\tn:v\r\n\t\t[ENDE_B]\r\n\t</A>\r\n"},
        {2, true, true, L"\t\t<A>\r\n\t\t\tx:1:2\r\n\t\t\t<B>v</B>\r\n\t\t</A>\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        node.setSimpleXML(row.isXml);
        node.GetChild(0)->setSimpleXML(row.isChildXml);
        EXPECT_TEXT(row.text, written(node, row.level));
        EXPECT_TEXT(L"B|x", order(node));
    }
    EXPECT_TEXT(L"\t\tx=1:2\r\n", written(*node.GetLeaf(0), 2, L'='));
    CString text;
    EXPECT_TRUE(read(kHouse)->WriteToString(text, false, true, false, 0));
    EXPECT_TEXT(kHouse, text);
}

TEST(TreeText, Reads) {
    struct Row {
        const wchar_t* text;
        wchar_t separator;
        std::size_t left;  // characters that are not read
        const wchar_t* unindented;
    };
    const Row rows[] = {
        {kHouse, L':', 0,
         L"[House]\r\nName:Haus: "
         L"Süd\r\n[Room]\r\nArea:12.5\r\n[ENDE_Room]\r\n[Roof]\r\n[ENDE_Roof]\r\n[ENDE_House]\r\n"},
        {L" \v\f\x3000[A]x:1\n[B C][/]\r\n\ny\n :z\n[/]\nrest", L':', 4,
         L"[A]\r\nx:1\r\n:z\r\n[B C]\r\n[ENDE_B C]\r\n[ENDE_A]\r\n"},
        {L"[A]\nx:1\ry:2\r\r\n[ENDE_A]\r\r\n", L':', 3, L"[A]\r\nx:1\ry:2\r\r\n[ENDE_A]\r\n"},
        {L"[A]\na<b\n<c>:2\n[ENDE_A]", L':', 0, L"[A]\r\n<c>:2\r\n[ENDE_A]\r\n"},
        {L"[A]\nn=a:b=c\n[ENDE_A]", L'=', 0, L"[A]\r\nn:a:b=c\r\n[ENDE_A]\r\n"},
        {L"[A]\n<\n[ENDE_A]", L'<', 0, L"[A]\r\n:\r\n[ENDE_A]\r\n"},
        {L"<A> v w </A>\r\n", L':', 0, L"<A>v w </A>\r\n"},
        {L"<A>\n<B>1</B><C></C></A>", L':', 0, L"<A>\r\n<B>1</B>\r\n<C>\r\n</C>\r\n</A>\r\n"},
        {L"<A>[x]\n</A>", L':', 0, L"<A>[x]</A>\r\n"},
        {L"[/][/]", L':', 0, L"[/]\r\n[ENDE_/]\r\n"},
        {L"[][ENDE_]", L':', 0, L"[]\r\n[ENDE_]\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        CNode node;
        const wchar_t* at = row.text;
        const std::size_t length = orv::WideView(row.text).size();
        EXPECT_EQ(length - row.left, node.ReadFromMem(at, row.separator));
        EXPECT_EQ(row.left, orv::WideView(at).size());
        // The leaf "y" and the like have no separator: their names alone are there.
        CNode shown(node);
        for (CLeaf& leaf : orv::leavesOf(shown)) {
            if (leaf.GetRawData().IsEmpty() && !leaf.GetName().IsEmpty()) shown.DeleteLeaf(&leaf);
        }
        EXPECT_TEXT(row.unindented, written(shown));
        if (orv::checkTree(node).empty()) {
            EXPECT_TRUE(orv::equalTrees(node, *read(written(node, 3))));
        }
    }
    const Tree names = read(rows[1].text);
    ASSERT_EQ(3, names->NrOfLeaves());
    EXPECT_TEXT(L"y", names->GetLeaf(1)->GetName());
    EXPECT_TEXT(L"", names->GetLeaf(2)->GetName());
}

TEST(TreeText, LeavesReadThemselves) {
    struct Row {
        const wchar_t* text;
        wchar_t separator;
        const wchar_t* name;
        const wchar_t* value;
        std::size_t read;
    };
    const Row rows[] = {{L"  a : b\r\nc", L':', L"a ", L" b", 9},
                        {L"a:b", L':', L"a", L"b", 3},
                        {L"a\nb", L':', L"a", L"", 2},
                        {L"a\rb", L':', L"a", L"", 2},
                        {L"v</x", L'<', L"old", L"v", 1},
                        {L"v\r\n<", L'<', L"old", L"v", 3}};
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        CLeaf leaf(L"old", L"old");
        const wchar_t* at = row.text;
        EXPECT_EQ(row.read, leaf.ReadFromMem(at, row.separator));
        EXPECT_TEXT(row.name, leaf.GetName());
        EXPECT_TEXT(row.value, leaf.GetRawData());
    }
}

TEST(TreeText, ErrorsHaveTheirMessages) {
    const wchar_t* rows[][2] = {
        {L"", L"Start bracket [ not found!"},
        {L" x[A]", L"Start bracket [ not found!"},
        {L"[A", L"EOF reached before end bracket ] found!"},
        {L"<A]", L"EOF reached before end bracket ] found!"},
        {L"[A]\n[B\n", L"EOF reached before end bracket ] found!"},
        {L"[A]\n", L"EOF reached before leaf complete!"},
        {L"[A]\nx", L"EOF reached before leaf complete!"},
        {L"[A]\n[B]\n[ENDE_A]\n[ENDE_A]", L"Wrong ending node!"},
        {L"[A]\n[ENDE_AB]", L"Wrong ending node!"},
        {L"[A]\n[ENDE_A", L"Wrong ending node!"},
        {L"<A>\n</a>", L"Wrong ending node!"},
    };
    for (const auto& row : rows) {
        CString thrown;
        EXPECT_FALSE(readOrTell(row[0], thrown)) << utf8(row[0]);
        EXPECT_TEXT(row[1], thrown);
    }
}

TEST(TreeText, EveryPrefixIsAnErrorAndNoMore) {
    const wchar_t* const texts[] = {kHouse, L"<A>\r\n\t<B>v</B>\r\n\t<C>\r\n\t</C>\r\n</A>\r\n", L"[A]\nx:1\n[/]"};
    for (const CString text : texts) {
        const int closing = text.ReverseFind(text[0] == L'<' ? L'>' : L']');
        for (int length = 0; length <= text.GetLength(); ++length) {
            CString thrown;
            const Tree tree = readOrTell(text.Left(length), thrown);
            EXPECT_EQ(length > closing, tree != nullptr) << length;
            std::vector<orv::TreeReadError> errors;
            const Tree again = orv::readTree(text.Left(length), L':', errors);
            EXPECT_EQ(tree == nullptr, !errors.empty()) << length;
        }
    }
}

TEST(TreeText, AMillionNestedNodes) {
    constexpr int kDepth = 1'000'000;
    for (const bool isXml : {false, true}) {
        orv::WideString text;
        for (int i = 0; i < kDepth; ++i)
            text += isXml ? L"<A>" : L"[A]";
        for (int i = 0; i < kDepth; ++i)
            text += isXml ? L"</A>" : L"[ENDE_A]";
        Tree tree = read(text.c_str());
        CString out;
        EXPECT_TRUE(tree->WriteToString(out, false, false, false, 0));
        EXPECT_EQ(static_cast<std::size_t>(out.GetLength()), tree->GetSizeOfBranch(-1));
        EXPECT_FALSE(tree->WriteToString(out, false, true, false, 0));  // 10^12 TABs
        const CNode copy(*tree);
        EXPECT_TRUE(orv::equalTrees(*tree, copy));
        CDataTree report;
        tree->SetName(L"Child");
        CNode top;
        top.AddChild(tree.release());
        EXPECT_TRUE(report.LoadFromNode(&top));
        const CDataTree reportCopy(report);
        EXPECT_EQ(1, reportCopy.children.GetCount());
    }
}

TEST(TreeFiles, Encodings) {
    const TempFolder folder;
    struct Row {
        bool scrambled;
        bool unicode;
        unsigned page;
        const char* bytes;
    };
    const Row rows[] = {
        {false, true, 0, "EF BB BF '[' C3 A4 ']' 0D 0A 'n:v' 0D 0A '[ENDE_' C3 A4 ']' 0D 0A"},
        {false, true, 3333, "'[' C3 A4 ']' 0D 0A 'n:v' 0D 0A '[ENDE_' C3 A4 ']' 0D 0A"},
        {false, false, 3332, "'[' E4 ']' 0D 0A 'n:v' 0D 0A '[ENDE_' E4 ']' 0D 0A"},
        {true, true, 65001, "EF BB BF '[' C3 A4 ']' 0D 0A 'n:v' 0D 0A '[ENDE_' C3 A4 ']' 0D 0A"},
    };
    CNode node(L"ä");
    node.AddLeaf(L"n", L"v");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_TRUE(node.WriteToFile(folder / "f", row.scrambled, false, row.unicode, row.page, L'#'));
        const std::string plain = bytes(row.bytes);
        EXPECT_EQ(hex(row.scrambled ? scrambled(plain) : plain), hex(folder.get("f")));
        bool isUnicode = false;
        bool isIndented = true;
        const Tree tree(CNode::ReadFromFile(folder / "f", row.scrambled, L':', &isUnicode, &isIndented, row.page));
        ASSERT_TRUE(tree);
        EXPECT_TRUE(orv::equalTrees(node, *tree));
        EXPECT_EQ(row.page == 0 || row.page == 65001, isUnicode);
        EXPECT_FALSE(isIndented);
    }
    EXPECT_TRUE(node.WriteToFile(folder / "w", false, true, true, 0xFFFFFFFF));
    EXPECT_EQ('\xFF', folder.get("w")[0]);
    EXPECT_TRUE(orv::equalTrees(node, *Tree(CNode::ReadFromFile(folder / "w", false, L':', nullptr, 0))));
    folder.put("tabs", "[A]\n\t\t[/]");
    bool isIndented = false;
    delete CNode::ReadFromFile(folder / "tabs", false, L':', nullptr, &isIndented, 0);
    EXPECT_TRUE(isIndented);
    EXPECT_EQ(nullptr, CNode::ReadFromFile(folder / "none", false, L':', nullptr, 0));
    folder.put("bad", "[A");
    EXPECT_THROW(CNode::ReadFromFile(folder / "bad", false, L':', nullptr, 0), CExcRead*);
}

CString shown;

TEST(TreeFiles, ByName) {
    const TempFolder folder;
    orv::setMessagePresenter(
        [](orv::MessageKind, const wchar_t*, const wchar_t* text) { shown = CString(text) + L"|"; });
    folder.put("a.pro", "[A][/]");
    folder.put("a.prX", scrambled("[B][/]"));
    folder.put("bad.pro", "[A][ENDE_B]");
    struct Row {
        const char* file;
        const wchar_t* name;  // "" when it cannot be read
        const wchar_t* reason;
    };
    const Row rows[] = {
        {"a.pro", L"A", L""}, {"a.prX", L"B", L""}, {"bad.pro", L"", L"Wrong ending node!|"}, {"none.pro", L"", L"|"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.file);
        shown.Empty();
        CNode* tree = nullptr;
        EXPECT_EQ(*row.name != 0, TreeItems::ReadFromFile(folder / row.file, tree, false));
        EXPECT_TEXT(row.name, tree == nullptr ? CString() : tree->GetName());
        delete tree;
        EXPECT_TRUE(shown.IsEmpty() || shown.Find(folder / row.file) >= 0) << utf8(shown);
        EXPECT_TEXT(row.reason, shown.Right(static_cast<int>(orv::WideView(row.reason).size())));
        EXPECT_EQ(*row.name != 0, shown.IsEmpty());
        shown.Empty();
        delete TreeItems::ReadFromFile(folder / row.file, true);
        EXPECT_TEXT(L"", shown);
    }
    CNode kept;
    CNode* out = &kept;
    EXPECT_FALSE(TreeItems::ReadFromString(CString(), out, false));
    EXPECT_EQ(nullptr, out);
    EXPECT_TEXT(L"", shown);
    EXPECT_FALSE(TreeItems::ReadFromString(L"x", out, false));
    EXPECT_TEXT(L"Start bracket [ not found!|", shown);
    const Tree tree(TreeItems::ReadFromString(L"[A][/]", false));
    EXPECT_TRUE(tree);
    orv::setMessagePresenter(nullptr);
}

}  // namespace
