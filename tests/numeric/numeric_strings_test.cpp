// Numeric strings: texts, formats, ranges, macros and messages of the process.
#include "orv/numeric_strings.h"

#include <gtest/gtest.h>

#include <vector>

#include "orv/messages.h"
#include "support/text.h"

namespace {

std::vector<CString> messages;

class NumericStrings : public testing::Test {
  protected:
    NumericStrings() {
        messages.clear();
        orv::setMessagePresenter(
            [](orv::MessageKind, const wchar_t*, const wchar_t* text) { messages.emplace_back(text); });
    }
    ~NumericStrings() override {
        orv::setMessagePresenter(nullptr);
        CNumString::deleteContents();
        CFortranString::deleteContents();
        CNumString::AnzahlFehler();
        CFortranString::AnzahlFehler();
        CNumString().SetCurZeile(0);
        EXPECT_EQ(0, CNumString::IsQuiet());
        EXPECT_EQ(0, CFortranString::IsQuiet());
    }
};

CNumString number(const wchar_t* text) {
    CNumString made;
    made = text;
    return made;
}

TEST_F(NumericStrings, TextsAndFormats) {
    CNumString text;
    text = 3.14159;
    EXPECT_TEXT(L"3.14", text.GetText());
    text = 7;
    EXPECT_TEXT(L"7", text.GetText());
    text = 2.5F;
    EXPECT_TEXT(L"2.50", text.GetText());
    text = L" \t1+1 ";
    EXPECT_TEXT(L"1+1", text.GetText());
    CNumString format(CString(L"%.3f m"));
    EXPECT_TEXT(L"", format.GetText());
    format = 1.5;
    EXPECT_TEXT(L"1.500 m", format.GetText());
    CNumString withText(CString(L" 4*2 "));
    EXPECT_TEXT(L"4*2", withText.GetText());
    EXPECT_TEXT(L"", withText.GetFormat());
    EXPECT_EQ(8, withText.Value());
    withText = 0.126;
    EXPECT_TEXT(L"0.13", withText.GetText());
    for (const wchar_t* bad : {L"%.d", L"%.2f %.2f", L"%.*f", L"%.s", L"x%.", L"%%.2f"}) {
        CNumString odd((CString(bad)));
        odd = 1.0;
        EXPECT_TEXT(L"1.00", odd.GetText()) << utf8(bad);
    }
    EXPECT_EQ(-2, number(L"-2,9").Int());
    EXPECT_EQ(2147483647, number(L"1E20").Int());
    EXPECT_EQ(3.5F, number(L"3,5").Float());
}

TEST_F(NumericStrings, FailuresAreReportedOnce) {
    CNumString text = number(L"4/0+(");
    text.SetCurZeile(12);
    EXPECT_EQ(0, text.Value());
    ASSERT_EQ(1U, messages.size());
    EXPECT_TEXT(L"Division durch 0\r\nin Zeile: 12\r\n4/0+(", messages[0]);
    EXPECT_EQ(1, CNumString::AnzahlFehler());
    EXPECT_EQ(0, CNumString::AnzahlFehler());
    EXPECT_EQ(0, number(L"").Value());
    EXPECT_EQ(0, CNumString::AnzahlFehler());
    CNumString::Quiet(1);
    EXPECT_EQ(1, CNumString::IsQuiet());
    EXPECT_EQ(0, number(L"2 $").Int());
    EXPECT_EQ(0, number(L"(1").Float());
    CNumString::Quiet(0);
    EXPECT_EQ(2, CNumString::AnzahlFehler());
    EXPECT_EQ(1U, messages.size());
    CNumString::DefineMacro(L"M", L"2 3");
    EXPECT_EQ(0, number(L"1+M").Value());
    ASSERT_EQ(2U, messages.size());
    EXPECT_TEXT(L"Syntaxfehler\r\nin Zeile: 12\r\n2 3", messages[1]);
    EXPECT_EQ(1, CNumString::AnzahlFehler());
}

TEST_F(NumericStrings, ValidationMayRewrite) {
    CNumString text = number(L"1/3");
    EXPECT_EQ(1, text.ValidateFloat());
    EXPECT_TEXT(L"1/3", text.GetText());
    text.SetReformat(1);
    EXPECT_EQ(1, text.ValidateFloat());
    EXPECT_TEXT(L"0.33", text.GetText());
    text = L"7/2";
    EXPECT_EQ(1, text.ValidateInt());
    EXPECT_TEXT(L"4", text.GetText());
    text = L"7/";
    text = L"";
    EXPECT_EQ(1, text.ValidateInt());
    EXPECT_EQ(1, text.ValidateFloat());
    text = L"7)";
    EXPECT_EQ(0, text.ValidateFloat());
    EXPECT_EQ(0, text.ValidateInt());
    EXPECT_TEXT(L"7)", text.GetText());
    EXPECT_EQ(2, CNumString::AnzahlFehler());
}

TEST_F(NumericStrings, RangesAreChecked) {
    EXPECT_EQ(1, number(L"2,5").ValidateInt(1, 10));
    EXPECT_EQ(1, number(L"10").ValidateFloat(1, 10));
    EXPECT_EQ(0, number(L"10,5").ValidateInt(1, 10));
    EXPECT_EQ(0, number(L"").ValidateInt(1, 10));
    EXPECT_EQ(0, number(L"0").ValidateFloat(1.5F, 10));
    EXPECT_EQ(0, number(L"(-1)^0,5").ValidateFloat(-10, 10)) << "what is no number";
    EXPECT_EQ(0, number(L"1)").ValidateInt(1, 10));
    ASSERT_EQ(5U, messages.size());
    EXPECT_TEXT(L"Bitte Zahl in Bereich <1...10> eingeben.", messages[0]);
    EXPECT_TEXT(L"Bitte Zahl in Bereich < 1.50...10.00> eingeben.", messages[2]);
    CNumString text = number(L"2,4");
    text.SetReformat(1);
    EXPECT_EQ(1, text.ValidateInt(1, 10));
    EXPECT_TEXT(L"2.40", text.GetText());
}

int callback(const wchar_t* name, CString& result) {
    if (CString(name) != L"F") return 0;
    result.Format(L"%d*2", number(L"A+1").Int());
    return 1;
}

TEST_F(NumericStrings, MacrosBelongToTheProcess) {
    CNumString::DefineMacro(L"A", L"20");
    CNumString::DefineMacro(L"F", callback);
    CNumString::DefineMacro(L"A2", callback);
    CNumString::DefineMacro(L"A2", L"7");
    EXPECT_EQ(42, number(L"F").Value());
    EXPECT_EQ(7, number(L"A2").Value()) << "unknown to the callback";
    EXPECT_TRUE(CNumString::knownMacro(L"A"));
    EXPECT_FALSE(CNumString::knownMacro(L"a"));
    EXPECT_FALSE(CNumString::knownMacro(L"F"));
    EXPECT_FALSE(CFortranString::knownMacro(L"A"));
    CNumString::unDefineMacro(L"A2");
    CNumString::unDefineMacro(L"F");
    CNumString::DefineMacro(L"A", L"1");
    EXPECT_EQ(4, number(L"F").Value());
    CNumString::deleteContents();
    EXPECT_EQ(0, number(L"F").Value());
    EXPECT_EQ(1, CNumString::AnzahlFehler());
}

int callsOfNested = 0;

int nestedCallback(const wchar_t* name, CString& result) {
    ++callsOfNested;
    result.Format(L"%d", number(name).Int() + 1);
    return 1;
}

TEST_F(NumericStrings, CallbacksThatLeadToThemselvesComeToAnEnd) {
    CNumString::DefineMacro(L"F", nestedCallback);
    CNumString::DefineMacro(L"F", L"5");
    number(L"F").Value();
    EXPECT_EQ(1, CNumString::AnzahlFehler()) << "the innermost";
    EXPECT_GE(callsOfNested, 200);
    EXPECT_LE(callsOfNested, orv::kDeepestExpression + 1);
    CNumString::DefineMacro(L"F", [](const wchar_t* name, CString& result) {
        number(CString(name) + L"+" + name).Value();  // twice as often on each level
        result = L"1";
        return 1;
    });
    number(L"F").Value();
    EXPECT_LE(1, CNumString::AnzahlFehler());
}

class WithVariables : public CNumString {
  public:
    using CNumString::operator=;
    void ErrorPrint(const wchar_t* /*message*/) override { ++printed; }
    int examineVariables(double& value, const wchar_t* name) override {
        value = 5;
        return CString(name) == L"x" ? 1 : 0;
    }
    int printed = 0;
};

TEST_F(NumericStrings, ErrorPrintDecides) {
    WithVariables text;
    text = L"x*2";
    EXPECT_EQ(10, text.Value());
    text = L"x*y";
    EXPECT_EQ(0, text.ValidateFloat()) << "nothing was counted, but y is left";
    EXPECT_EQ(1, text.printed);
    for (const auto& [expression, isHidden] : {std::pair(L"(x", 1), std::pair(L"4/0", 1), std::pair(L"2 3", 0),
                                               std::pair(L"#", 0), std::pair(L"a234567890123456789012345678901", 0)}) {
        text = expression;
        text.SetReformat(1);
        EXPECT_EQ(isHidden, text.ValidateFloat()) << utf8(expression);
        if (isHidden == 0) {
            EXPECT_TEXT(expression, text.GetText());
        }
    }
    text = L"1E400";
    EXPECT_EQ(1, text.ValidateFloat());
    EXPECT_TEXT(L"1E400", text.GetText());
    CNumString::DefineMacro(L"M", L"x");
    text = L"M";
    EXPECT_EQ(0, text.Value()) << "a macro's text is a numeric string of its own";
    EXPECT_EQ(1, CNumString::AnzahlFehler());
}

TEST_F(NumericStrings, FortranHasTexts) {
    CFortranString text;
    const auto valueOf = [&](const wchar_t* expression) {
        text = expression;
        return text.StringValue();
    };
    CStringArray list;
    list.Add(L"10");
    list.Add(L"S+1");
    CFortranString::DefineArrayMacro(L"list", &list);
    CFortranString::DefineMacro(L"S", L"2,5");
    CFortranString::DefineMacro(L"Q", L"\"ein Text\"");
    EXPECT_TEXT(L"ä", valueOf(L"CHAR(228)"));
    EXPECT_TEXT(L"B", valueOf(L"char(64+ICHAR(S)-48)"));
    EXPECT_TEXT(L"2,5", valueOf(L"S"));
    EXPECT_TEXT(L"ein Text", valueOf(L"Q"));
    EXPECT_TEXT(L"3.50", valueOf(L"list[1]"));
    EXPECT_TEXT(L"", valueOf(L"list[2]"));
    EXPECT_TEXT(L"", valueOf(L"CHAR(0)"));
    EXPECT_TEXT(L"", valueOf(L"CHAR(4/0)"));
    EXPECT_EQ(3, CFortranString::AnzahlFehler());
    EXPECT_TEXT(L"2,5", CFortranString::getMacroValue(L"S"));
    EXPECT_TEXT(L"", CFortranString::getMacroValue(L"list"));
    EXPECT_TEXT(L"S+1", CFortranString::getArrayMacroValue(L"list", 1));
    EXPECT_TEXT(L"", CFortranString::getArrayMacroValue(L"list", 2));
}

TEST_F(NumericStrings, ThousandsAndFields) {
    struct Row {
        const wchar_t *text, *expected;
    };
    const Row rows[] = {
        {L"1234567.5", L"1.234.567,5"},
        {L"123", L"123"},
        {L"-123.456", L"-123,456"},
        {L"-123456", L"-123.456"},
        {L"1000.", L"1.000,"},
        {L".5", L",5"},
        {L"3,5", L"3,5"},
        {L"1.2.3", L"1.2.3"},
        {L"1E5", L"1E5"},
        {L"", L""},
        {L"-", L"-"},
    };
    for (const Row& row : rows)
        EXPECT_TEXT(row.expected, number(row.text).strValTpunkt()) << utf8(row.text);
    const CNumString fields = number(L"a;;b");
    EXPECT_TEXT(L"a", fields.SubStr(0, L';'));
    EXPECT_TEXT(L"", fields.SubStr(1, L';'));
    EXPECT_TEXT(L"b", fields.SubStr(2, L';'));
    EXPECT_TEXT(L"", fields.SubStr(3, L';'));
    EXPECT_TEXT(L"", fields.SubStr(-1, L';'));
}

}  // namespace
