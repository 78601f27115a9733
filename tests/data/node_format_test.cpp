#include "orv/node_format.h"

#include <memory>

#include "orv/messages.h"
#include "support/bytes.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

CString shown;

class Boxes {
  public:
    Boxes() {
        shown.Empty();
        orv::setMessagePresenter([](orv::MessageKind, const wchar_t*, const wchar_t* text) { shown += text; });
    }
    ~Boxes() { orv::setMessagePresenter(nullptr); }
};

using Tree = std::unique_ptr<CProNodeBase>;

Tree read(const wchar_t* text) { return Tree(CProNodeBase::ReadFromString(text, 0, false)); }

CString written(const CProNodeBase& node, bool indented) {
    wchar_t* out = nullptr;
    EXPECT_TRUE(node.WriteToString(out, false, indented));
    CString text(out);
    EXPECT_EQ(node.getSize(indented ? 0 : -1), static_cast<std::size_t>(text.GetLength()));
    delete[] out;
    return text;
}

constexpr const wchar_t* kHall =
    L"[PROJ]\r\n\tName:Hall 2: b\r\n\t[ADR]\r\n\t\tStreet:Main Road 5\r\n\t[ENDE_ADR]\r\n[ENDE_PROJ]\r\n";

CString order(const CProNodeBase& node) {
    CString names;
    for (int i = 0; i < node.NrOfChildren(); ++i)
        names += node.findChild(i)->name;
    return names;
}

}  // namespace

TEST(Nodes, Reads) {
    const Boxes boxes;
    struct Row {
        const wchar_t* text;
        const wchar_t* unindented;
    };
    const Row rows[] = {
        {kHall, L"[PROJ]\r\nName:Hall 2: b\r\n[ADR]\r\nStreet:Main Road 5\r\n[ENDE_ADR]\r\n[ENDE_PROJ]\r\n"},
        {L"before [A]\nx\n y : z \n[ENDE_A]", L"[A]\r\n:\r\n y : z \r\n[ENDE_A]\r\n"},
        {L"[A B]\n[ENDE_A]", L"[A]\r\n:\r\n[ENDE_A]\r\n"},
        {L"[A]\rn:v\r\tm:\r\r[ENDE_A]", L"[A]\r\nn:v\r\nm:\r\n[ENDE_A]\r\n"},
        {L"[A]n:v:w\n\r\x01\x02m::\n\n\n x\r[ENDE_A]", L"[A]\r\nn:v:w\r\nm::\r\n:\r\n[ENDE_A]\r\n"},
        {L"[A][B]\ta:b [ENDE_B]\n[ENDE_B][ENDE_A]", L"[A]\r\n[B]\r\na:b [ENDE_B]\r\n[ENDE_B]\r\n[ENDE_A]\r\n"},
    };
    for (const Row& row : rows) {
        const Tree tree = read(row.text);
        ASSERT_TRUE(tree) << utf8(row.text);
        EXPECT_TEXT(row.unindented, written(*tree, false));
        EXPECT_TRUE(orv::equalNodes(*tree, *read(written(*tree, true))));
    }
    EXPECT_TEXT(kHall, written(*read(kHall), true));
    const CString whole = kHall;
    for (int length = 0; length < whole.GetLength() - 2; ++length) {
        shown.Empty();
        read(whole.Left(length));
        EXPECT_FALSE(shown.IsEmpty()) << length;  // a cut end marker is a wrong one
    }
}

TEST(Nodes, ErrorsTellLines) {
    const Boxes boxes;
    struct Row {
        const wchar_t* text;
        const wchar_t* message;
    };
    const Row rows[] = {{L"a\r\nb\n\nc", L"Line: 2\nError: No Beginning Node found"},
                        {L"\n\r[A", L"Line: 1\nError: Node without Ending-bracket found"},
                        {L"[A]\r\r", L"Line: 1\nError: Unexpected EOF"},
                        {L"[A]\n[B]\n[ENDE_C]\n[ENDE_A]", L"Line: 2\nError: Wrong Ending-Node found."}};
    for (const Row& row : rows) {
        shown.Empty();
        read(row.text);
        EXPECT_TEXT(row.message, shown);
    }
    std::vector<orv::NodeReadError> errors;
    EXPECT_TRUE(orv::readNodes(rows[3].text, errors));
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_TEXT(L"A/B", errors[0].path);
}

TEST(Nodes, Exchange) {
    const wchar_t* rows[][4] = {{L"xayb", L"a", L"b", L"xbya"}, {L"axb", L"a", L"b", L"xab"},
                                {L"abx", L"a", L"b", L"bax"},   {L"abx", L"b", L"a", L"bax"},
                                {L"xby", L"", L"b", L"bxy"},    {L"ax", L"a", L"", L"xa"}};
    for (const auto& row : rows) {
        CProNodeBase root;
        for (const wchar_t* at = row[0]; *at != 0; ++at)
            root.AddChild(CString(*at));
        root.ExchangeChilds(root.findChild(row[1]), root.findChild(row[2]));
        EXPECT_TEXT(row[3], order(root));
    }
}

TEST(Nodes, AddInsertFindAndTakeOut) {
    CProNodeBase root(L"R");
    EXPECT_EQ(nullptr, root.AddChild(static_cast<CProNodeBase*>(nullptr)));
    CProNodeBase* a = root.AddChild(L"a");
    CProNodeBase* second = root.AddChild(L"a");
    CProNodeBase stranger;
    root.InsertChild(L"h", &stranger);
    root.InsertChild(L"i", a);
    EXPECT_TEXT(L"haia", order(root));
    CProNodeBase* cursor = nullptr;
    EXPECT_EQ(a, root.findChild(L"a", cursor));
    EXPECT_EQ(second, root.findChild(L"a", cursor));
    EXPECT_EQ(nullptr, root.findChild(L"a", cursor));
    EXPECT_EQ(nullptr, root.findChild(L"A"));
    EXPECT_EQ(nullptr, root.findChild(4));
    EXPECT_FALSE(root.DeleteChild(&stranger, false));
    EXPECT_TRUE(root.DeleteChild(a, true));
    EXPECT_TRUE(root.DeleteChild(second, false));
    EXPECT_TEXT(L"hi", order(root));
    CProAttBase* x = a->AddAttr(L"x", L"1");
    CProAttBase* other = a->AddAttr(L"x", L"2");
    a->InsertAttr(L"y", L"3", x);
    EXPECT_EQ(other, a->findAttr(L"x", x));
    EXPECT_EQ(other, a->findAttr(2));
    EXPECT_TRUE(a->DeleteAttr(x, true));
    EXPECT_EQ(2, a->NrOfAttrs());
    delete x;
    delete a;
}

TEST(Nodes, WhatWasReadMayBeTakenApart) {
    const CString longValue(L'v', 20000);
    CString text = L"[P]\r\n";
    for (int i = 0; i < 5000; ++i) {
        CString part;
        part.Format(L"[N%d]\r\nname %d:value %d\r\nx:", i, i, i);
        text += part + (i % 1000 == 0 ? longValue : CString(L"y"));
        part.Format(L"\r\n[ENDE_N%d]\r\n", i);
        text += part;
    }
    Tree tree = read(text + L"[ENDE_P]");
    ASSERT_TRUE(tree);
    auto copy = std::make_unique<CProNodeBase>(*tree);
    CProNodeBase* const last = copy->findChild(4999);
    copy->DeleteChild(last, true);
    CProAttBase* const first = tree->findChild(0)->findAttr(0);
    tree->findChild(0)->DeleteAttr(first, true);
    last->AddAttr(first);
    const CString value = tree->findChild(1000)->findAttr(1)->value;
    tree->findChild(7)->attributes.GetHead()->value.SetAt(0, L'V');
    tree = nullptr;
    EXPECT_TEXT(longValue, value);
    EXPECT_TEXT(L"value 7", copy->findChild(7)->findAttr(L"name 7")->value);
    copy = nullptr;
    EXPECT_TEXT(L"[N4999]\r\nname 4999:value 4999\r\nx:y\r\nname 0:value 0\r\n[ENDE_N4999]\r\n", written(*last, false));
    delete last;
}

TEST(Nodes, CheckForetellsWhatReadsBack) {
    const Boxes boxes;
    using Kind = orv::NodeProblem::Kind;
    struct Row {
        const wchar_t *node, *name, *value;
        int kind;  // -1: reads back
    };
    const Row rows[] = {{L"A", L"n", L"v:w [x] ", -1},
                        {L"A", L"", L"", -1},
                        {L"A B", L"n", L"v", static_cast<int>(Kind::kNodeName)},
                        {L"A]", L"n", L"v", static_cast<int>(Kind::kNodeName)},
                        {L"ENDE_A", L"n", L"v", static_cast<int>(Kind::kNodeName)},
                        {L"A", L"n:m", L"v", static_cast<int>(Kind::kAttributeName)},
                        {L"A", L"[n", L"v", static_cast<int>(Kind::kAttributeName)},
                        {L"A", L"n\n", L"v", static_cast<int>(Kind::kAttributeName)},
                        {L"A", L"\x01n", L"v", static_cast<int>(Kind::kAttributeName)},
                        {L"A", L"n", L"v\r", static_cast<int>(Kind::kAttributeValue)}};
    for (const Row& row : rows) {
        CProNodeBase root(L"R");
        root.AddChild(row.node)->AddAttr(row.name, row.value);
        const std::vector<orv::NodeProblem> problems = orv::checkNodes(root);
        ASSERT_EQ(row.kind < 0 ? 0U : 1U, problems.size()) << utf8(row.node) << utf8(row.name);
        if (row.kind >= 0) {
            EXPECT_EQ(row.kind, static_cast<int>(problems[0].kind));
        }
        const Tree again = read(written(root, true));
        EXPECT_EQ(row.kind < 0, again && orv::equalNodes(root, *again)) << utf8(row.node) << utf8(row.name);
    }
    CProNodeBase lone(L"R");
    lone.AddAttr(L"n", CString(L'\xD800'));
    ASSERT_EQ(1U, orv::checkNodes(lone).size());
    EXPECT_EQ(Kind::kLoneSurrogate, orv::checkNodes(lone)[0].kind);
}

TEST(Nodes, Assignment) {
    const Tree tree = read(kHall);
    *tree = *tree->findChild(0);
    EXPECT_TEXT(L"ADR", tree->name);
    EXPECT_EQ(tree->NrOfAttrs(), 2);
    EXPECT_EQ(tree->NrOfChildren(), 1);
}

TEST(Nodes, FileEncodings) {
    const Boxes boxes;
    const TempFolder folder;
    CProNodeBase root(L"\u00E4");
    EXPECT_TRUE(root.WriteToFile(folder / "s", true, false));
    EXPECT_EQ(hex(folder.get("s")), hex(scrambled(bytes("EF BB BF '[' C3 A4 ']' 0D 0A '[ENDE_' C3 A4 ']' 0D 0A 00"))));
    folder.put("1252", bytes("'[' E4 ']' 0A '[ENDE_' E4 ']'"));
    folder.put("plain", bytes("EF BB") + scrambled(bytes("BF '[' C3 A4 ']' 0A '[ENDE_' C3 A4 ']'")));
    folder.put("16", bytes("FF FE '[' 00 E4 00 ']' 00 '[' 00 'E' 00 'N' 00 'D' 00 'E' 00 '_' 00 E4 00 ']' 00"));
    folder.put("16s", scrambled(folder.get("16")));
    const auto reads = [&](const char* name, bool isScrambled) {
        const Tree tree(CProNodeBase::ReadFromFile(folder / name, isScrambled));
        return tree && orv::equalNodes(*tree, root);
    };
    EXPECT_TRUE(reads("s", true));
    EXPECT_FALSE(reads("s", false));
    EXPECT_TRUE(reads("1252", false));
    EXPECT_TRUE(reads("plain", true));
    EXPECT_TRUE(reads("16", false));
    EXPECT_FALSE(reads("16s", true));
}

TEST(Nodes, MillionDeep) {
    CProNodeBase root(L"N");
    CProNodeBase* at = &root;
    for (int i = 0; i < 1000000; ++i)
        at = at->AddChild(L"N");
    const Tree again = read(written(root, false));
    EXPECT_TRUE(orv::equalNodes(root, *again));
    const CProNodeBase copy = root;
    EXPECT_TRUE(orv::equalNodes(root, copy));
}

TEST(NodeFields, Packs) {
    CProAttBase attribute;
    CProAttBase::setSubStringReset();
    CProAttBase::setSubString(L"a:b");
    CProAttBase::setSubString(4000000000U);
    CProAttBase::setSubString(L"line1\r\nline2");
    attribute.setSubStringFlush();
    EXPECT_TEXT(L"a\u00AEb:-294967296:line1&r&nline2:", attribute.value);
    const CString packed = attribute.value + L"?:1,5:_TR(x):ff:";
    CProAttBase::getSubStringReset(packed);
    CString text;
    unsigned number = 0;
    double decimal = 7;
    CTime time;
    CProAttBase::getSubString(text);
    EXPECT_TEXT(L"a:b", text);
    CProAttBase::getSubString(number);
    EXPECT_EQ(number, 4000000000U);
    CProAttBase::getSubString(text);
    EXPECT_TEXT(L"line1\r\nline2", text);
    CProAttBase::getSubString(decimal);
    EXPECT_EQ(decimal, 7);
    CProAttBase::getSubString(decimal);
    EXPECT_EQ(decimal, 1.5);
    CProAttBase::getSubString(text);
    EXPECT_TEXT(L"x", text);
    CProAttBase::getSubString(time);
    EXPECT_EQ(time.GetTime(), 255);
}

TEST(NodeFields, ReadIntoEveryType) {
    // "?" leaves the target alone, an empty field does too unless forced.
    CProAttBase::getSubStringReset(L"?:::12x:-3:0:5:2,5:1E3:?:t::");
    int number = 1;
    CProAttBase::getSubString(number, true);
    EXPECT_EQ(1, number);
    CProAttBase::getSubString(number);
    EXPECT_EQ(1, number);
    CProAttBase::getSubString(number, true);
    EXPECT_EQ(0, number);
    CProAttBase::getSubString(number);
    EXPECT_EQ(12, number);
    unsigned long wide = 0;
    CProAttBase::getSubString(wide);
    EXPECT_EQ(4294967293UL, wide);
    bool flag = true;
    CProAttBase::getSubString(flag);
    EXPECT_FALSE(flag);
    CProAttBase::getSubString(flag);
    EXPECT_TRUE(flag);
    float narrow = 0;
    CProAttBase::getSubString(narrow);
    EXPECT_EQ(2.5F, narrow);
    double decimal = 0;
    CProAttBase::getSubString(decimal);
    EXPECT_EQ(1000, decimal);
    CString text = L"kept";
    CProAttBase::getSubString(text, true);
    EXPECT_TEXT(L"kept", text);
    CProAttBase::getSubString(text);
    EXPECT_TEXT(L"t", text);
    CProAttBase::getSubString(text);
    EXPECT_TEXT(L"t", text);
    CProAttBase::getSubString(text, true);
    EXPECT_TEXT(L"", text) << "at the end";
}
