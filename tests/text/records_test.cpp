// Field records: what is written reads back, and the stated oddities stay.
#include "orv/records.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "orv/string_utilities.h"
#include "orv/vector_level.h"
#include "support/text.h"

namespace {

// Every test leaves the process-wide reading mode and the vector level as they were.
class Records : public testing::Test {
  protected:
    void TearDown() override {
        COrvSubStr::setSubstrReadRawTrData(false);
        orv::limitVectorLevel(orv::VectorLevel::kAvx512);
    }
};

// clang-format off
struct Field { CString text; bool more; };
// clang-format on

// Reads up to `limit` fields.
std::vector<Field> read(const wchar_t* record, const wchar_t* separator, std::size_t limit = 20) {
    COrvSubStr reader;
    reader.GetInit(record, separator);
    std::vector<Field> fields;
    bool more = true;
    while (more && fields.size() < limit) {
        CString text(L"before");
        more = reader.Get(text);
        fields.push_back({text, more});
    }
    return fields;
}

CString joined(const std::vector<Field>& fields) {
    CString all;
    for (const Field& field : fields)
        all += L"<" + field.text + (field.more ? L">+" : L">");
    return all;
}

TEST_F(Records, WritesWithEscapes) {
    // clang-format off
    struct Row { const char* name; std::vector<const wchar_t*> values; const wchar_t *separator, *record; };
    const Row rows[] = {
        {"colon, breaks", {L"a:b", L"1\r\n2", L"&"}, L":", L"a®b:1&r&n2:&"},
        {"one empty value", {L""}, L":", L""},              {"two empty values", {L"", L""}, L":", L":"},
        {"null", {nullptr, L"x"}, L":", L":x"},
        {"colon escaped whatever the separator", {L"a:b", L"c;d"}, L";", L"a®b;c;d"},
        {"separator text", {L"a", L"b"}, L"<->", L"a<->b"}, {"empty separator", {L"a", L"b"}, L"", L"ab"},
        {"nothing", {}, L":", L""},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        COrvSubStr writer;
        writer.AddInit(row.separator);
        for (const wchar_t* value : row.values)
            writer.Add(value);
        CString record(L"before");
        writer.AddEnd(record);
        EXPECT_TEXT(row.record, record);
        writer.AddEnd(record);  // nothing was added since
        EXPECT_TEXT(L"", record);
    }
    COrvSubStr fresh;
    CString record;
    fresh.Add(L"a");
    fresh.AddEnd(record);
    EXPECT_TEXT(L"a:", record) << "without AddInit the last separator stays";
}

TEST_F(Records, WritesNumbers) {
    COrvSubStr writer;
    writer.AddInit(L':');
    writer.Add(-12);
    writer.Add(std::numeric_limits<int>::min());
    writer.Add(3000000000U);
    writer.Add(static_cast<const long&>(7L));
    writer.Add(static_cast<const unsigned long&>(4294967295UL));
    writer.Add(static_cast<const double&>(0.0));
    writer.Add(static_cast<const double&>(-0.0));
    writer.Add(static_cast<const double&>(0.0000001));
    writer.Add(static_cast<const double&>(1234567.0));
    writer.Add(static_cast<const float&>(0.1F));
    writer.Add(static_cast<const double&>(1e300));
    CString record;
    writer.AddEnd(record);
    EXPECT_TEXT(L"-12:-2147483648:-1294967296:7:-1:0:0:1e-07:1.23457e+06:0.1:1e+300", record);
}

TEST_F(Records, ReadsFieldByField) {
    // clang-format off
    struct Row { const char* name; const wchar_t *record, *separator, *fields; };
    const Row rows[] = {
        {"last field comes with false", L"a:b", L":", L"<a>+<b>"},
        {"trailing separator", L"a:", L":", L"<a>+<>"},
        {"escapes", L"a®b&r&n&x&:&", L":", L"<a:b\r\n&x&>+<&>"},
        {"carriage return alone", L"a\rb:c", L":", L"<a\rb>+<c>"},
        {"translation mark, only the first", L"≈≈x:≈:y≈", L":", L"<≈x>+<>+<y≈>"},
        {"escape before the separator r", L"a&rbrc", L"r", L"<a\rb>+<c>"},
        {"separator &", L"a&rb", L"&", L"<a>+<rb>"},
        {"separator text", L"a<->b<->", L"<->", L"<a>+<b>+<>"},
        {"empty separator", L"a:b", L"", L"<a:b>"},
        {"long plain field", L"0123456789012345678901234567890123456789:x", L":",
         L"<0123456789012345678901234567890123456789>+<x>"},
    };
    // clang-format on
    for (const auto level : {orv::VectorLevel::kSse2, orv::VectorLevel::kAvx512}) {
        orv::limitVectorLevel(level);
        for (const Row& row : rows) {
            SCOPED_TRACE(row.name);
            const std::vector<Field> fields = read(row.record, row.separator);
            EXPECT_TEXT(row.fields, joined(fields));
            for (std::size_t n = 1; n <= fields.size() + 1; ++n) {  // and each by its number
                const CString expected = n <= fields.size() ? fields[n - 1].text : CString();
                EXPECT_TEXT(expected, orvStrUtil::GetSubStr(row.record, static_cast<long>(n), row.separator));
                if (row.separator[0] == 0 || row.separator[1] != 0) continue;
                EXPECT_TEXT(expected, orvStrUtil::GetSubStr(row.record, static_cast<long>(n), row.separator[0]));
            }
        }
    }
}

TEST_F(Records, SeparatorTextMatchesInOrder) {
    EXPECT_TEXT(L"<a>+<y>", joined(read(L"axby", L"ab")));
    EXPECT_TEXT(L"<x>+<yab>", joined(read(L"x-=yab", L"-=")));
}

TEST_F(Records, StopsAtALineBreak) {
    for (const wchar_t* record : {L"a\r\nb:c", L"a\nb:c"}) {
        EXPECT_TEXT(L"<a>+<>+<>+", joined(read(record, L":", 3)));
        EXPECT_TEXT(L"", orvStrUtil::GetSubStr(record, 2, L':'));
        EXPECT_TEXT(L"a", orvStrUtil::GetSubStr(record, 1, L':'));
    }
    COrvSubStr reader;
    for (const wchar_t* record : {L"\na", L"\ra", L"", static_cast<const wchar_t*>(nullptr)})
        EXPECT_FALSE(reader.GetInit(record, L':'));
    EXPECT_TRUE(reader.GetInit(L":", L':'));
}

TEST_F(Records, WithoutAFieldClearsOnlyIfAsked) {
    COrvSubStr reader;
    CString text(L"kept");
    EXPECT_FALSE(reader.Get(text, false));
    EXPECT_TEXT(L"kept", text);
    reader.GetInit(L"", L':');
    EXPECT_FALSE(reader.Get(text));
    EXPECT_TEXT(L"", text);
    COrvSubStr::setSubstrReadRawTrData(true);
    EXPECT_TEXT(L"<≈a>", joined(read(L"≈a", L":")));
}

TEST_F(Records, ReadsIntegers) {
    COrvSubStr reader;
    ASSERT_TRUE(reader.GetInit(L" 12abc::x:99999999999:-1:-1294967296:0:7", L':'));
    int number = 5;
    for (const int expected : {12, 12, 0, std::numeric_limits<int>::max()}) {  // an empty field leaves the target alone
        EXPECT_TRUE(reader.Get(number, false));
        EXPECT_EQ(expected, number);
    }
    unsigned int positive = 0;
    EXPECT_TRUE(reader.Get(positive, false) && positive == 4294967295U);
    unsigned long wide = 0;
    EXPECT_TRUE(reader.Get(wide, false) && wide == 3000000000UL) << "what an unsigned value was written as";
    bool flag = true;
    EXPECT_TRUE(reader.Get(flag, false) && !flag);
    EXPECT_TRUE(!reader.Get(flag, false) && flag);
    EXPECT_TRUE(!reader.Get(flag, false) && flag) << "nothing is left to read";
    long last = 3;
    EXPECT_TRUE(!reader.Get(last, true) && last == 0) << "forced at the end of the record";
}

TEST_F(Records, ReadsDecimals) {
    // clang-format off
    struct Row { const wchar_t* field; double asDouble; float asFloat; };
    const Row rows[] = {
        {L"1,5", 1.5, 1.5F},
        {L"0.12345678901234", 0.1234567890, 0.123456789F},
        {L"-0.00000000004", 0.0, 0.0F}, {L"1,5,7", 1.5, 1.5F},          {L"1.5,7", 1.5, 1.5F},
        {L"2e3x", 2000, 2000.0F},       {L"nan", 0, 0},
        {L"1.7976931348623157e+308", std::numeric_limits<double>::max(), std::numeric_limits<float>::infinity()},
    };
    // clang-format on
    const auto readAs = [](const wchar_t* field, auto number) {
        COrvSubStr reader;
        reader.GetInit(field, L':');
        EXPECT_FALSE(reader.Get(number, false));
        return number;
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.asDouble, readAs(row.field, -1.0)) << utf8(row.field);
        EXPECT_EQ(row.asFloat, readAs(row.field, -1.0F)) << utf8(row.field);
    }
    COrvSubStr reader;
    reader.GetInit(L":", L':');
    double number = 3;
    EXPECT_TRUE(reader.Get(number, false) && number == 3);
    EXPECT_TRUE(!reader.Get(number, true) && number == 0);
}

TEST_F(Records, GetSubStrByNumber) {
    // clang-format off
    struct Row { const wchar_t* record; long n; const wchar_t *separator, *field; };
    const Row rows[] = {
        {L"a:b", 0, L":", L""},  {L"a:b", -1, L":", L""},   {L"", 1, L":", L""}, {nullptr, 2, L":", L""},
        {L"a\nb:c", 2, L":", L""}, {L"a::c", 3, L":", L"c"},
        {L"a:b", 1, L"", L"a:b"}, {L"a:b", 2, L"", L""}, {L"a:b", 1, nullptr, L"a:b"},
        {L"1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16:17:18:19:20", 18, L":", L"18"},
    };
    // clang-format on
    for (const auto level : {orv::VectorLevel::kSse2, orv::VectorLevel::kAvx512}) {
        orv::limitVectorLevel(level);
        for (const Row& row : rows)
            EXPECT_TEXT(row.field, orvStrUtil::GetSubStr(row.record, row.n, row.separator)) << row.n;
    }
}

TEST_F(Records, SetSubStrByNumber) {
    // clang-format off
    struct Row { const wchar_t* record; long n; const wchar_t *value, *changed; };
    const Row rows[] = {
        {L"a:b", 4, L"z", L"a:b::z"},         {L"a:b:c", 2, L"x:y", L"a:x®y:c"},
        {L"a:b", 1, nullptr, L":b"},          {L"a:", 1, L"x", L"x:"},
        {L"", 1, L"x", L"x"},                 {L"", 3, L"x", L"::x"},
        {L"a:b", 0, L"x", L"a:b"},            {L"≈a:b", 2, L"x", L"a:x"},
        {L"a®&n:b", 2, L"x", L"a®&n:x"},      {L"a:b\r\nc:d", 3, L"x", L"a:b:x\r\nc:d"},
        {L"a:\nrest", 2, L"x", L"a:x\nrest"}, {L"\nrest", 2, L"x", L":x\nrest"},
        {L"too many separators for a text", 2'000'000'000, L"x", L"too many separators for a text"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << utf8(row.record) << " field " << row.n);
        CString record(row.record);
        orvStrUtil::SetSubStr(record, row.n, L':', row.value);
        EXPECT_TEXT(row.changed, record);
        record = row.record;
        orvStrUtil::SetSubStr(record, row.n, L":", row.value);
        EXPECT_TEXT(row.changed, record);
    }
}

TEST_F(Records, AnEmptySeparatorLeavesOneField) {
    CString record(L"abc");
    orvStrUtil::SetSubStr(record, 2, L"", L"x");
    orvStrUtil::SetSubStr(record, 2, L'\0', L"x");
    EXPECT_TEXT(L"abc", record);
    orvStrUtil::SetSubStr(record, 1, L"", L"x");
    EXPECT_TEXT(L"x", record);
}

TEST_F(Records, FieldsOfEveryLengthAndPlaceSurvive) {
    for (const auto level : {orv::VectorLevel::kSse2, orv::VectorLevel::kAvx512}) {
        orv::limitVectorLevel(level);
        for (int length = 0; length <= 70; ++length) {
            for (const wchar_t special : {L'x', L':', L'\r', L'\n'}) {
                CString value(L'v', length);
                if (length > 0) value.SetAt(length * 7 % length, special);
                COrvSubStr writer;
                writer.AddInit(L':');
                for (const CString& field : {value, value, CString(L"end")})
                    writer.Add(field);
                CString text;
                writer.AddEnd(text);
                ASSERT_EQ(L"<" + value + L">+<" + value + L">+<end>", joined(read(text, L":"))) << length;
            }
        }
    }
}

TEST_F(Records, LongerThanTheSharedBuffers) {
    const CString value(L'v', 700'001);
    COrvSubStr writer;
    writer.AddInit(L":");
    for (int i = 0; i < 5; ++i)
        writer.Add(value);
    for (int i = 0; i < 3'000'000; ++i)
        writer.Add(L"");
    writer.Add(L"end");
    CString record;
    writer.AddEnd(record);
    ASSERT_EQ(5 * 700'002 + 3'000'003, record.GetLength());
    EXPECT_TRUE(orvStrUtil::GetSubStr(record, 5, L':') == value);
    EXPECT_TEXT(L"end", orvStrUtil::GetSubStr(record, 3'000'006, L':'));
    COrvSubStr other;
    other.AddInit(L':');
    other.Add(L"x");
    other.AddEnd(record);
    EXPECT_TEXT(L"x", record);
    writer.Add(L"short again");
    writer.AddEnd(record);
    EXPECT_TEXT(L"short again", record);
}

TEST_F(Records, SharedObjectForgetsItsTextAfterAFieldByNumber) {
    orvSubStrUtil::GetInit(L"a:b", L':');
    orvStrUtil::GetSubStr(L"x;y", 1, L';');
    CString text(L"kept");
    EXPECT_FALSE(orvSubStrUtil::Get(text, false));
    EXPECT_TEXT(L"kept", text);
    EXPECT_EQ(L';', orvSubStrUtil::getSeparatorChar());
    orvStrUtil::GetSubStr(L"a||b", 1, CString(L"||").GetString());  // a separator that is gone afterwards
    EXPECT_EQ(nullptr, orvSubStrUtil::getSeparatorString());
    orvSubStrUtil::AddInit(L"--");
    EXPECT_TEXT(L"--", orvSubStrUtil::getSeparatorString());
    orvSubStrUtil::Add(1);
    orvSubStrUtil::Add(static_cast<const double&>(2.5));
    orvSubStrUtil::AddEnd(text);
    EXPECT_TEXT(L"1--2.5", text);
}

}  // namespace
