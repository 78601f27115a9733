// The fields of leaves.
#include <cmath>
#include <limits>

#include "orv/records.h"
#include "trees.h"

namespace {

CString shown(const CStringArray& array) {
    CString text;
    for (std::intptr_t i = 0; i < array.GetSize(); ++i)
        text += array[i] + L"|";
    return text;
}

TEST(LeafValues, AllFieldsInEveryWay) {
    struct Row {
        const wchar_t* record;
        wchar_t separator;
        const wchar_t* fields;
    };
    const Row rows[] = {{L"", L':', L""},
                        {L"a", L':', L"a|"},
                        {L"a:", L':', L"a||"},
                        {L":", L':', L"||"},
                        {L"a::b\x00AE"
                         L"c&r&n",
                         L':', L"a||b:c\r\n|"},
                        {L"a:b\nc:d", L':', L"a|b|"},
                        {L"a:\r\nb", L':', L"a||"},
                        {L"\nb", L':', L"|"},
                        {L"\x2248"
                         L"a:\x2248",
                         L':', L"a||"},
                        {L"a;b:c", L';', L"a|b:c|"},
                        {L"a&rrb", L'r', L"a\r|b|"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.record));
        const CLeaf leaf(L"n", row.record);
        CStringArray array;
        leaf.GetStrValueArray(array, row.separator);
        EXPECT_TEXT(row.fields, shown(array));

        CStringArray walked;
        CString field;
        EXPECT_EQ(*row.record != 0, leaf.InitGetValues(row.separator));
        for (bool more = leaf.GetFirstValue(field); more; more = leaf.GetNextValue(field))
            walked.Add(field);
        EXPECT_TEXT(row.fields, shown(walked));
        EXPECT_TEXT(L"", field);

        for (int i = 0; i <= array.GetSize() + 1; ++i) {
            const bool isThere = i <= array.GetSize() && !array.IsEmpty();
            const CString expected = isThere ? array[i == 0 ? 0 : i - 1] : CString(L"none");
            EXPECT_TEXT(expected, leaf.GetStrLeafValuePtr(i, row.separator, L"none")) << i;
            EXPECT_EQ(i > 0 && isThere && !expected.IsEmpty(), leaf.GetValue(i, field, row.separator)) << i;
        }
    }
}

TEST(LeafValues, NumbersAndTheirDefaults) {
    const CLeaf leaf(L"n", L"12:1,5::x:99999999999");
    const int integers[] = {12, 1, 7, 0, 2147483647, 7};
    const double doubles[] = {12, 1.5, 7, 0, 99999999999.0, 7};
    for (int i = 1; i <= 6; ++i) {
        EXPECT_EQ(integers[i - 1], leaf.GetIntLeafValue(i, L':', 7)) << i;
        EXPECT_EQ(doubles[i - 1], leaf.GetDblLeafValue(i, L':', 7)) << i;
    }
    CArray<double, double> all;
    leaf.GetDblValueArray(all);
    ASSERT_EQ(5, all.GetSize());
    EXPECT_EQ(1.5, all[1]);
    const double values[] = {
        0.1, -1e-300, 1.7976931348623157e308, 1e21, 0, 123456.789012345678, std::numeric_limits<double>::infinity()};
    for (const double value : values) {
        CLeaf one;
        one.SetOnlyValue(value);
        EXPECT_EQ(value, one.GetOnlyValueD());
        one.SetDblLeafValue(2, value);
        EXPECT_EQ(value, one.GetDblLeafValue(2));
    }
    CLeaf none;
    none.SetOnlyValue(std::nan(""));
    EXPECT_EQ(7, none.GetOnlyValueD(L':', 7));
}

TEST(LeafValues, SettingKeepsTheOtherFields) {
    struct Row {
        const wchar_t* record;
        int index;
        const wchar_t* value;
        const wchar_t* expected;
    };
    const Row rows[] = {{L"a:b", 0, L"z", L"z:b"},
                        {L"a:b", -3, L"z", L"z:b"},
                        {L"a:b", 4, L"z", L"a:b::z"},
                        {L"", 2, L"p:q",
                         L":p\x00AE"
                         L"q"},
                        {L"\x2248"
                         L"a:\x2248"
                         L"b",
                         2, L"z",
                         L"\x2248"
                         L"a:z"},
                        {L"a\x00AE&r:b", 2, L"z", L"a\x00AE&r:z"},
                        {L"a:b\nrest", 1, L"z", L"z:b\nrest"}};
    for (const bool raw : {false, true}) {
        COrvSubStr::setSubstrReadRawTrData(raw);
        for (const Row& row : rows) {
            SCOPED_TRACE(utf8(row.record));
            CLeaf leaf(L"n", row.record);
            leaf.SetStrLeafValue(row.index, row.value);
            EXPECT_TEXT(row.expected, leaf.GetRawData());
            CString mark;
            COrvSubStr reader;
            reader.GetInit(L"\x2248", L':');
            reader.Get(mark);
            EXPECT_EQ(raw, !mark.IsEmpty());  // as it was
        }
    }
    COrvSubStr::setSubstrReadRawTrData(false);
    CLeaf leaf(L"n", L"a:b");
    leaf.SetStrLeafValue(2, leaf.GetRawData());
    EXPECT_TEXT(
        L"a:a\x00AE"
        L"b",
        leaf.GetRawData());
    leaf.SetStrLeafValue(1, leaf.GetStrLeafValuePtr(2));
    EXPECT_TEXT(L"a:b", leaf.GetStrLeafValuePtr(1));
}

TEST(LeafValues, WritingInOrder) {
    CLeaf leaf;
    leaf.InitSetValues(L';');
    leaf.SetFirstValue(L"a");
    leaf.SetNextValue(L"b:c");
    leaf.ExitSetValues();
    EXPECT_TEXT(
        L"a;b\x00AE"
        L"c",
        leaf.GetRawData());
    leaf.InitSetValues(L':');
    leaf.SetNextValue(L"gone");
    leaf.SetFirstValue(L"1");
    leaf.SetLastValue(L"2");
    EXPECT_TEXT(L"1:2", leaf.GetRawData());
    leaf.ExitSetValues();
    EXPECT_TEXT(L"1:2", leaf.GetRawData());
}

TEST(LeafValues, OneField) {
    const CLeaf stored(L"n",
                       L"a:b\x00AE"
                       L"c&n");
    EXPECT_TEXT(L"a:b:c\n", stored.GetOnlyValue());
    CLeaf leaf;
    leaf.SetOnlyValue(L"a:b\r\n");
    EXPECT_TEXT(
        L"a\x00AE"
        L"b&r&n",
        leaf.GetRawData());
    EXPECT_TEXT(L"a:b\r\n", leaf.GetOnlyValue());
    leaf.SetOnlyValue(-3);
    EXPECT_EQ(-3, leaf.GetOnlyValueI());
    leaf.SetRawData(nullptr);
    EXPECT_EQ(5, leaf.GetOnlyValueI(L':', 5));
}

TEST(LeafValues, ByPath) {
    CNode node(L"N");
    node.SetDblLeafValue(L"Pipe", L"Size", 2, 0.025);
    node.SetIntLeafValue(L"Pipe", L"Size", 1, 3);
    node.SetStrLeafValue(nullptr, L"Name", 1, L"Süd");
    EXPECT_TEXT(L"[N]\r\nName:Süd\r\n[Pipe]\r\nSize:3:0.025\r\n[ENDE_Pipe]\r\n[ENDE_N]\r\n", written(node));
    EXPECT_EQ(3, node.GetIntLeafValue(L"Pipe", L"Size"));
    EXPECT_EQ(0.025, node.GetDblLeafValue(L"Pipe", L"Size", 2));
    EXPECT_EQ(-1, node.GetDblLeafValue(L"pipe", L"Size", 2, L':', -1));
    EXPECT_EQ(-1, node.GetIntLeafValue(L"Pipe", L"size", 2, L':', -1));
    EXPECT_TEXT(L"Süd", node.GetStrLeafValuePtr(L"", L"Name"));
    EXPECT_EQ(nullptr, node.GetStrLeafValuePtr(L"", L"None", 1, L':', nullptr));
    EXPECT_EQ(9, node.GetIntValue(L"None", 9));
    EXPECT_EQ(3, node.GetChild(0)->GetIntValue(L"Size"));
    EXPECT_EQ(3, node.GetChild(0)->GetDblValue(L"Size"));
    CArray<int, int> sizes;
    sizes.Add(1);
    EXPECT_TRUE(node.GetChild(0)->GetIntValueArray(L"Size", sizes));
    EXPECT_EQ(2, sizes.GetSize());
    EXPECT_FALSE(node.GetIntValueArray(L"Size", sizes));
    EXPECT_EQ(0, sizes.GetSize());
}

}  // namespace
