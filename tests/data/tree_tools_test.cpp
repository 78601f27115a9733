// Errors by place, what does not read back, differences, paths, duplicates.
#include "trees.h"

namespace {

TEST(TreeTools, ErrorsTellTheirPlaces) {
    struct Row {
        const wchar_t* text;
        const wchar_t* errors;  // line, column and path of each
        bool hasTree;
    };
    const Row rows[] = {
        {L"[A]\r\n\t[B]\r\n\t[ENDE_C]\r\n[ENDE_A]", L"3,2 A/B;", true},
        {L"[A]\n[B]\n[C]\n[ENDE_A]", L"4,1 A/B/C;", true},
        {L"[A]\r[B]\r[ENDE_X]\r[ENDE_B]\r[ENDE_A]", L"3,1 A/B;4,1 A;", true},
        {L"[A]\nx", L"2,2 A;", false},
        {L"[A]\n[ENDE_B]\n[C", L"2,1 A;", true},
        {L" x", L"1,2 ;", false},
        {L"<A>\n<B>\n</A>", L"3,1 A/B;", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        std::vector<orv::TreeReadError> errors;
        const Tree tree = orv::readTree(row.text, L':', errors);
        CString shown;
        for (const auto& error : errors)
            shown.AppendFormat(L"%d,%d %s;", error.line, error.column, error.path);
        EXPECT_TEXT(row.errors, shown);
        EXPECT_EQ(row.hasTree, tree != nullptr);
    }
}

TEST(TreeTools, AWrongEndFarFromItsNodeClosesTheInnermost) {
    for (const int depth : {3, 999, 1000, 1001, 1500}) {
        CString text, closing;
        for (int i = 0; i < depth; ++i) {
            text += L"[A]\n";
            closing += L"[ENDE_A]\n";
        }
        std::vector<orv::TreeReadError> errors;
        const Tree tree = orv::readTree(text + L"[B]\n[ENDE_X]\nlate:1\n" + closing, L':', errors);
        ASSERT_TRUE(tree) << depth;
        EXPECT_EQ(1U, errors.size());
        const CNode* innermost = tree.get();
        for (int i = 1; i < depth; ++i)
            innermost = innermost->GetChild(0);
        EXPECT_EQ(1, innermost->NrOfLeaves()) << depth;
    }
}

/// What the check must foretell: whether a tree comes back from its text.
bool readsBack(const CNode& node) {
    CString text;
    CString thrown;
    node.WriteToString(text, false, true, false, 0);
    const Tree again = readOrTell(text, thrown);
    return again != nullptr && orv::equalTrees(node, *again);
}

TEST(TreeTools, CheckForetellsWhatReadsBack) {
    const CString parts[] = {L"",
                             L"a",
                             L"[",
                             L"]",
                             L"<",
                             L">",
                             L":",
                             L" ",
                             L"a b",
                             L"\n",
                             L"\r",
                             L"\r\n",
                             L"a\rb",
                             L"a\nb",
                             L"a:b",
                             L"a[",
                             L"/",
                             L"/a",
                             L"a/",
                             L"ENDE_",
                             L"ENDE_a",
                             L"\x3000x",
                             L"\xE4",
                             CString(L"a\0b", 3),
                             CString(L"\0", 1)};
    int good = 0;
    const auto expectForetold = [&](const CNode& node) {
        EXPECT_EQ(readsBack(node), orv::checkTree(node).empty()) << utf8(written(node));
        good += readsBack(node) ? 1 : 0;
    };
    for (const bool isXml : {false, true}) {
        for (const CString& name : parts) {
            CNode root(name);
            root.setSimpleXML(isXml);
            expectForetold(root);
            CNode parent(L"p");
            parent.setSimpleXML(isXml);
            *parent.AddChild(L"") = root;
            expectForetold(parent);
            parent.setSimpleXML(!isXml);
            expectForetold(parent);
            for (const CString& value : parts) {
                CNode holder(L"h");
                holder.setSimpleXML(isXml);
                holder.AddLeaf(new CLeaf(name, value));
                expectForetold(holder);
                holder.AddLeaf(new CLeaf(value, name));
                expectForetold(holder);
                holder.DeleteLeaf(holder.GetLeaf(1));
                holder.AddChild(L"c")->setSimpleXML(isXml);
                expectForetold(holder);
            }
        }
    }
    EXPECT_GT(good, 300);
}

TEST(TreeTools, Differences) {
    struct Row {
        const wchar_t* a;
        const wchar_t* b;
        const wchar_t* found;
    };
    const Row rows[] = {
        {L"[A]x:1\n[B][/][/]", L"[A]x:1\n[B][/][/]", L""},
        {L"[A][/]", L"[B][/]", L"6  A>B;"},
        {L"[A]x:1\nx:2\n[/]", L"[A]x:1\nx:3\ny:4\n[/]", L"4 @x[2] 2>3;3 @y >4;"},
        {L"[A][B][/][C][/][/]", L"[A][C][/][B][/][/]", L"5  >;"},
        {L"[A][B]x:1\n[/][B]x:2\n[/][C][/][/]", L"[A][B]x:1\n[/][B]x:5\n[/][B][/][/]",
         L"0 C >;1 B[3] >;4 B[2]/@x 2>5;"},
        {L"[A]x:1\n[/]", L"[A][/]", L"2 @x 1>;"},
    };
    for (const Row& row : rows) {
        CString shown;
        for (const auto& one : orv::differences(*read(row.a), *read(row.b)))
            shown.AppendFormat(L"%d %s %s>%s;", static_cast<int>(one.kind), one.path, one.before, one.after);
        EXPECT_TEXT(row.found, shown);
        EXPECT_EQ(*row.found == 0, orv::equalTrees(*read(row.a), *read(row.b)));
    }
    EXPECT_EQ(1U, orv::differences(*read(rows[4].a), *read(rows[4].b), 1).size());
}

TEST(TreeTools, Paths) {
    const Tree tree =
        read(L"[P]\nv:0\n[F]\n[R]\nv:1\n[/]\n[R]\nv:2\nv:3\n[/]\n[/]\n[F]\n[R]\nv:4\n[/]\n[/]\n[a/'b]\n@:5\n[/]\n[/]");
    const wchar_t* rows[][2] = {{L"@v", L"0"},         {L"F/R/@v", L"1234"},  {L"F[1]/R[2]/@v[2]", L"3"},
                                {L"F[2]/*/@*", L"4"},  {L"F/R[2]/@v", L"23"}, {L"'a/''b'/@'@'", L"5"},
                                {L"*/R[1]/@v", L"14"}, {L"F[3]/R/@v", L""},   {L"F[0]/R/@v", L""},
                                {L"F//@v", L""},       {L"@v/R", L""},        {L"F/R/", L""},
                                {L"F[/R", L""},        {L"'F/@v", L""},       {L"/F", L""}};
    for (const auto& row : rows) {
        CString values;
        for (CTreeItem* item : orv::selectItems(*tree, row[0]))
            values += dynamic_cast<CLeaf&>(*item).GetRawData();
        EXPECT_TEXT(row[1], values) << utf8(row[0]);
    }
    EXPECT_EQ(tree.get(), orv::selectNode(*tree, L""));
    EXPECT_EQ(nullptr, orv::selectLeaf(*tree, L"F"));
    std::vector<CTreeItem*> all = orv::selectItems(*tree, L"*/*");
    for (CTreeItem* item : orv::selectItems(*tree, L"*/*/@*"))
        all.push_back(item);
    for (CTreeItem* item : orv::selectItems(*tree, L"*/@*"))
        all.push_back(item);
    EXPECT_EQ(8U, all.size());
    for (CTreeItem* item : all) {
        const CString path = orv::pathOf(*tree, *item);
        EXPECT_EQ(std::vector<CTreeItem*>{item}, orv::selectItems(*tree, path)) << utf8(path);
    }
    CString duplicates;
    for (const auto& one : orv::findDuplicateNames(*tree))
        duplicates.AppendFormat(L"%s %s %d %d;", one.path, one.name, one.isLeaf ? 1 : 0, one.count);
    EXPECT_TEXT(L" F 0 2;F[1] R 0 2;F[1]/R[2] v 1 2;", duplicates);
}

}  // namespace
