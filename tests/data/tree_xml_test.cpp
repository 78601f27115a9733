// XML documents, JSON, and the helpers of the XML library.
#include <pugixml.hpp>

#include "orv/tree_xml.h"
#include "support/bytes.h"
#include "support/temp_folder.h"
#include "trees.h"

namespace {

CString declared(const wchar_t* root) { return CString(L"<?xml version=\"1.0\" encoding=\"utf-8\"?>") + root; }

TEST(TreeXml, WritesForOthers) {
    CNode node(L"Gebäude");
    node.AddLeaf(L"Name",
                 L"a\x00AE"
                 L"b<&\"'ä",
                 true);
    node.AddLeaf(L"x", L"1", true);
    node.AddLeaf(L"x", L"2", true);
    node.AddChild(L"B.1")->AddChild(L"_C")->AddLeaf(L"v", L"1:2", true);
    node.AddChild(L"D");
    CString out;
    EXPECT_TRUE(TreeItems::WriteToXml(&node, out));
    // The system's service may set lines, indent and write numbers for letters.
    EXPECT_EQ(0, out.Find(declared(L"<Gebäude Name=\"a:b&lt;&amp;&quot;'")));
    orv::XmlReadError error;
    const Tree back = orv::readXml(out, error);
    ASSERT_TRUE(back);
    EXPECT_TEXT(
        L"[Gebäude]\r\nName:a:b<&\"'ä\r\nx:2\r\n[B.1]\r\n[_C]\r\nv:1:2\r\n[ENDE__C]\r\n[ENDE_B.1]\r\n[D]\r\n"
        L"[ENDE_D]\r\n[ENDE_Gebäude]\r\n",
        written(*back));

    EXPECT_FALSE(TreeItems::WriteToXml(nullptr, out));
    const wchar_t* const bad[] = {L"", L"1a", L"a b", L"a:b", L"a\x0001", L"<", L"\xD800"};
    for (const wchar_t* name : bad) {
        CNode badNode(name);
        EXPECT_FALSE(TreeItems::WriteToXml(&badNode, out)) << utf8(name);
        CNode badLeaf(L"a");
        badLeaf.AddLeaf(name, L"v");
        EXPECT_FALSE(TreeItems::WriteToXml(&badLeaf, out)) << utf8(name);
        EXPECT_TEXT(L"", out);
    }
}

TEST(TreeXml, ThePairLosesNothing) {
    const CString parts[] = {L"a",      L"",        L"1",      L"a b",  L"a:b",          L"orv:leaf", L"xmlns", L"\xE4",
                             L"<&>\"'", L"\r\n\t ", L"\x00AE", L"name", L"\xD83D\xDE00", L"]]>",      L" a "};
    for (const CString& nodeName : parts) {
        for (const CString& leafName : parts) {
            CNode root(L"R");
            CNode& node = nodeName.IsEmpty() ? root : *root.AddChild(nodeName);
            node.setSimpleXML(nodeName.GetLength() > 1);
            for (const CString& value : parts)
                node.AddLeaf(new CLeaf(value.GetLength() > 2 ? CString(L"b") : leafName, value));
            node.AddLeaf(L"z", L"v");
            node.AddChild(L"C")->AddLeaf(leafName, L"v");
            for (const bool indented : {false, true}) {
                CString text;
                ASSERT_TRUE(orv::writeXml(node, text, indented));
                orv::XmlReadError error;
                const Tree back = orv::readXml(text, error);
                ASSERT_TRUE(back) << utf8(text);
                EXPECT_TRUE(orv::equalTrees(node, *back)) << utf8(text);
            }
        }
    }
    CString text;
    EXPECT_FALSE(orv::writeXml(CNode(), text));
    CNode control(L"a");
    control.AddLeaf(L"b", L"\x0001");
    EXPECT_FALSE(orv::writeXml(control, text));
    control.GetLeaf(0)->SetOnlyValue(L"\xD800");
    EXPECT_FALSE(orv::writeXml(control, text));
    control.GetLeaf(0)->SetOnlyValue(L"1");
    EXPECT_TRUE(orv::writeXml(control, text));
    EXPECT_TEXT(declared(L"<a b=\"1\"/>"), text);
}

TEST(TreeXml, ReadsForeignDocuments) {
    orv::XmlReadError error;
    const Tree tree = orv::readXml(
        L"\xFEFF<?xml version='1.0' encoding='utf-16'?>\n<!-- c --><p:R xmlns:p='u' x='1'>t:\n<B>12.5</B><?pi?>"
        L"<![CDATA[<c>]]><orv:leaf name='l' value='m'/></p:R>",
        error);
    ASSERT_TRUE(tree) << utf8(error.text);
    EXPECT_TEXT(L"[p:R]\r\nxmlns:p:u\r\nx:1\r\n:t\xAE&n\r\n:<c>\r\nl:m\r\n[B]\r\n:12.5\r\n[ENDE_B]\r\n[ENDE_p:R]\r\n",
                written(*tree));
    EXPECT_TEXT(L"", error.text);
    struct Row {
        const wchar_t* text;
        int line;
        int column;
    };
    const Row rows[] = {{L"", 1, 1}, {L"x", 1, 2}, {L"<a>\n<ä></b>\n</a>", 2, 6}};
    for (const Row& row : rows) {
        EXPECT_FALSE(orv::readXml(row.text, error));
        EXPECT_FALSE(error.text.IsEmpty());
        EXPECT_EQ(row.line, error.line) << utf8(row.text);
        EXPECT_EQ(row.column, error.column) << utf8(row.text);
    }
    CString text;
    for (const wchar_t* at = L"<a b='c'><d/></a>"; *at != 0; text += *at++)
        EXPECT_FALSE(orv::readXml(text, error)) << utf8(text);
}

TEST(TreeXml, Json) {
    const Tree tree = read(L"[A\"]\nx:1\n:\x0001\\ä\n[B]\n<C>[/]\n[/]\n[/]");
    tree->GetChild(0)->setSimpleXML(true);
    EXPECT_TEXT(
        L"{\"name\":\"A\\\"\",\"leaves\":[{\"name\":\"x\",\"value\":\"1\"},{\"name\":\"\",\"value\":\"\\u0001\\\\ä\"}],"
        L"\"children\":[{\"name\":\"B\",\"form\":\"simple\",\"leaves\":[{\"name\":\"<C>[/]\",\"value\":\"\"}]}]}",
        orv::toJson(*tree));
    CString pretty = orv::toJson(*tree, true);
    EXPECT_TRUE(pretty.Find(L"\n    \"leaves\": [\n") > 0);
}

TEST(TreeXml, AHundredThousandNestedElements) {
    CNode root(L"A");
    CNode* at = &root;
    for (int i = 0; i < 100'000; ++i)
        at = at->AddChild(L"A");
    orv::XmlReadError error;
    CString text;
    ASSERT_TRUE(orv::writeXml(root, text, true));
    EXPECT_TRUE(orv::equalTrees(root, *orv::readXml(text, error)));
    EXPECT_FALSE(orv::toJson(root, true).IsEmpty());
    pugi::xml_document document;
    EXPECT_TRUE(CPugiXmlUtils::readInViaXmlString(text, document));
    CPugiXmlUtils::deleteAllChildren(document);
    EXPECT_FALSE(document.first_child());
}

TEST(PugiXml, Reads) {
    const TempFolder folder;
    pugi::xml_document document;
    EXPECT_FALSE(CPugiXmlUtils::readInViaXmlString(CString(), document));
    EXPECT_TRUE(CPugiXmlUtils::readInViaXmlString(L"<ä b='ü'/><", document));
    EXPECT_STREQ("\xC3\xBC", document.child("\xC3\xA4").attribute("b").value());
    EXPECT_TRUE(CPugiXmlUtils::readInViaXmlString(L"no XML", document));
    EXPECT_FALSE(document.first_child());
    EXPECT_FALSE(CPugiXmlUtils::readInViaFile(folder / "none", document));
    folder.put("ä.xml", bytes("FF FE '<' 00 'a' 00 '>' 00 '<' 00 'b' 00 '/' 00 '>' 00 '<' 00 '/' 00 'a' 00 '>' 00"));
    EXPECT_TRUE(CPugiXmlUtils::readInViaFile(folder / "ä.xml", document));
    EXPECT_TRUE(document.child("a").child("b"));
    CPugiXmlUtils::deleteAllChildren(document.child("a"));
    EXPECT_FALSE(document.child("a").first_child());
    CPugiXmlUtils::deleteAllChildren(document.child("none"));
    EXPECT_TRUE(document.child("a"));
}

}  // namespace
