// The language of entry fields: values, errors with their place, names, warnings, bounds.
#include "orv/expressions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "orv/wide.h"
#include "support/text.h"

namespace {

using orv::Evaluation;
using orv::ExpressionDialect;
using orv::WideView;

constexpr double kPi = 3.141592653589793;

class Names : public orv::ExpressionNames {
  public:
    std::map<CString, CString> macros{{L"A", L"2*PI"},      {L"B", L"A/2"}, {L"Bad", L"4/0"}, {L"Empty", L" "},
                                      {L"Self", L"1+Self"}, {L"X", L"Y"},   {L"Y", L"X"},     {L"Wärme_1", L"1,5"}};
    bool macroText(WideView name, CString& text) override {
        const auto found = macros.find(CString(name.data()));
        if (found != macros.end()) text = found->second;
        return found != macros.end();
    }
    bool hasArray(WideView name) override { return name == L"list"; }
    bool arrayElement(WideView /*name*/, int index, CString& text) override {
        if (index == 1) text = L"A+1";
        return index == 1;
    }
    bool variable(WideView name, double& value) override {
        value = 42;
        return name == L"v";
    }
};

struct Row {
    const wchar_t* text;
    double value;
};

TEST(Expressions, HaveTheseValues) {
    const Row rows[] = {
        {L"3,5*2", 7},
        {L"3.5*2", 7},
        {L"1+2*3-4/2", 5},
        {L"8/4/2", 1},
        {L"2-3-4", -5},
        {L"2^3", 8},
        {L"(2^3)^2", 64},
        {L"-2^2", 4},
        {L"2^-1", 0.5},
        {L"--3", 3},
        {L"+-+3", -3},
        {L"2*-3", -6},
        {L"6|9", 15},
        {L"1+2|4", 7},
        {L"2,9|0", 2},
        {L" 1 \t+\r 2 ", 3},
        {L"5,", 5},
        {L"5.", 5},
        {L",5", 0.5},
        {L".5", 0.5},
        {L"1E3", 1000},
        {L"1,5e-3", 0.0015},
        {L"2E+2", 200},
        {L"0x10", 16},
        {L"0X99", 153},
        {L"0x10,", 16},
        {L"1234567890123456789", 1234567890123456789.0},
        {L"0,1", 0.1},
        {L"123456789,123456789", 123456789.123456789},
        {L"PI", kPi},
        {L"pi*2", 2 * kPi},
        {L"SIN(0)+cos(0)+Tan(0)", 1},
        {L"SIN(PI/2)", 1},
        {L"%(7;3)", 1},
        {L"%(7, 3)", 1},
        {L"%(7)3)", 1},  // any one token separates
        {L"%(-7,9;3)", -1},
        {L"%(-2147483648;-1)", 0},
        {L"%((7,5);2)", 1},
        {L"%(7+1,5 ;3)", 2},
        {L"%(%(7;4);2)", 1},
        // Deliberate
        {L"2+", 3},
        {L"2*", 2},
        {L"2^", 2},
        {L"-", -1},
        {L"2 SIN(0)", 0},
        {L"5*3 SIN(PI/2)", 1},
        {L"2 SIN 0", 0},
        {L"2 SIN(PI/2)*3", 3},
        // Names
        {L"A/2", kPi},
        {L"B", kPi},
        {L"v+1", 43},
        {L"Wärme_1*2", 3},
    };
    Names names;
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        const Evaluation found = orv::evaluate(row.text, &names);
        EXPECT_TRUE(found.ok);
        EXPECT_EQ(orv::kNoError, found.error);
        EXPECT_DOUBLE_EQ(row.value, found.value);
        // Without names of a host, in Fortran's words.
        EXPECT_DOUBLE_EQ(row.value, orv::evaluate(row.text, &names, ExpressionDialect::kFortran).value);
    }
}

TEST(Expressions, FortranHasTheseFunctions) {
    const Row rows[] = {
        {L"MIN(1,2)", 1},          {L"max(1,2)", 2},
        {L"MIN(1.5,(2,5))", 1.5},  {L"MAX(1,MIN(5,3))", 3},
        {L"MOD(7.5,2)", 1.5},      {L"MOD(-7,3)", -1},
        {L"SQRT(16)", 4},          {L"LOG10(1000)", 3},
        {L"LOG(EXP(1))", 1},       {L"ABS(-2,5)", 2.5},
        {L"ACOS(1)", 0},           {L"ASIN(1)", kPi / 2},
        {L"ATAN(1)", kPi / 4},     {L"COSH(0)", 1},
        {L"SINH(0)", 0},           {L"INT(-2,7)", -2},
        {L"NINT(2,5)", 3},         {L"NINT(-2,5)", -2},
        {L"ICHAR(A)", L'2'},       {L"ICHAR( Wärme_1 )", L'1'},
        {L"list(1)", 2 * kPi + 1}, {L"list[2-1]*2", 4 * kPi + 2},
        {L"MIN(list(1),3)", 3},    {L"MIN(1,2),5", 0},
    };
    Names names;
    for (const Row& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        const Evaluation found = orv::evaluate(row.text, &names, ExpressionDialect::kFortran);
        EXPECT_EQ(row.value != 0 || found.error == orv::kNoError, found.ok);
        EXPECT_DOUBLE_EQ(row.value, found.value);
    }
}

TEST(Expressions, FailLikeThis) {
    struct Failure {
        const wchar_t* text;
        int error, position, length;
    };
    const Failure rows[] = {
        {L"", orv::kNoError, 0, 0},
        {L" \t", orv::kNoError, 0, 0},
        {L"4/0", orv::kDivisionByZero, 2, 1},
        {L"1/(2-2) +x", orv::kDivisionByZero, 2, 5},
        {L"%(1;0)", orv::kDivisionByZero, 4, 1},
        {L"2^3^2", orv::kSyntaxError, 3, 1},
        {L"2 3", orv::kSyntaxError, 2, 1},
        {L"1.2.3", orv::kSyntaxError, 0, 5},
        {L"1.234,5", orv::kSyntaxError, 0, 7},
        {L"1E", orv::kSyntaxError, 0, 2},
        {L"1E(", orv::kSyntaxError, 0, 3},
        {L"0x1F", orv::kSyntaxError, 3, 1},
        {L"0x", orv::kSyntaxError, 0, 2},
        {L"(1", orv::kBracketNotClosed, 2, 0},
        {L"(1;", orv::kBracketNotClosed, 2, 1},
        {L"1)", orv::kSyntaxError, 1, 1},
        {L"*2", orv::kSyntaxError, 0, 1},
        {L"1+;", orv::kSyntaxError, 2, 1},
        {L"1\n", orv::kSyntaxError, 1, 1},
        {L"SIN 0", orv::kSyntaxError, 4, 1},
        {L"COS(1", orv::kBracketNotClosed, 5, 0},
        {L"2 COS(1)", orv::kSyntaxError, 2, 3},
        {L"unknown", orv::kSyntaxError, 0, 7},
        {L"a", orv::kSyntaxError, 0, 1},  // names are exact
        {L"2 # 3", orv::kInvalidCharacter, 2, 1},
        {L"2$", orv::kInvalidCharacter, 1, 1},
        {L"[1]", orv::kInvalidCharacter, 0, 1},
        {L"%(7,3)", orv::kBracketNotClosed, 6, 0},
        {L"%7", orv::kSyntaxError, 1, 1},
        {L"123456789012345678901234567890", orv::kSyntaxError, 0, 30},
        {L"abcdefghijklmnopqrstuvwxyzabcd", orv::kSyntaxError, 0, 30},
        {L"MIN(1;2)", orv::kSyntaxError, 0, 3},
        {L"Empty", orv::kSyntaxError, 0, 5},
    };
    Names names;
    for (const Failure& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        const Evaluation found = orv::evaluate(row.text, &names);
        EXPECT_FALSE(found.ok);
        EXPECT_EQ(0, found.value);
        EXPECT_EQ(row.error, found.error);
        EXPECT_EQ(row.position, found.position);
        EXPECT_EQ(row.length, found.length);
        EXPECT_FALSE(found.isInMacro);
        EXPECT_TEXT(row.error == orv::kNoError ? L"" : row.text, found.text);
    }
    for (const wchar_t* text :
         {L"MIN(1;2)", L"MIN(1)", L"SQRT(-1)", L"LOG(0)", L"ACOS(1,1)", L"MOD(1,0)", L"CHAR(65)", L"list(7)", L"list",
          L"list(-1)", L"ICHAR(none)", L"MAX 1", L"MIN(1,2", L"SIN(1E400)", L"MOD(1E400,2)"}) {
        EXPECT_FALSE(orv::evaluate(text, &names, ExpressionDialect::kFortran).ok) << utf8(text);
    }
    EXPECT_EQ(orv::kBracketNotClosed, orv::evaluate(L"list(1]", &names, ExpressionDialect::kFortran).error);
    const Evaluation macro = orv::evaluate(L"1+Bad", &names);
    EXPECT_TRUE(macro.isInMacro);
    EXPECT_EQ(orv::kDivisionByZero, macro.error);
    EXPECT_TEXT(L"4/0", macro.text);
}

TEST(Expressions, TellOfSurprises) {
    EXPECT_EQ(0U, orv::evaluate(L"1,5+2*(3)").warnings);
    EXPECT_EQ(orv::kMissingOperand, orv::evaluate(L"2+").warnings);
    EXPECT_EQ(orv::kTermReplaced, orv::evaluate(L"2 SIN(0)").warnings);
    EXPECT_EQ(0U, orv::evaluate(L"2*SIN(0)").warnings);
    EXPECT_EQ(orv::kCommaReadAsPoint, orv::evaluate(L"1,234").warnings);
    EXPECT_EQ(0U, orv::evaluate(L"0,234+1,23+1234,567").warnings);
    Names macros;
    macros.macros[L"T"] = L"1,234";
    EXPECT_EQ(orv::kCommaReadAsPoint, orv::evaluate(L"T*2", &macros).warnings);
    CStringArray names;
    orv::namesInExpression(L"a*SIN(b1)+a/2E+3*Läng_e(;MIN", names);
    ASSERT_EQ(4, names.GetSize());
    EXPECT_TEXT(L"a", names[0]);
    EXPECT_TEXT(L"b1", names[1]);
    EXPECT_TEXT(L"Läng_e", names[2]);
    EXPECT_TEXT(L"MIN", names[3]);
    orv::namesInExpression(L"MIN(1,E5)+%(7,E6)+MAX((1,E7),EXP(z))", names, ExpressionDialect::kFortran);
    ASSERT_EQ(3, names.GetSize());  // 1,E7 is a number in a bracket of its own
    EXPECT_TEXT(L"E5", names[0]);
    EXPECT_TEXT(L"E6", names[1]);
    EXPECT_TEXT(L"z", names[2]);
}

TEST(Expressions, AreBounded) {
    constexpr int kMegabyte = 1 << 20;
    Names names;
    for (const wchar_t ch : {L'(', L'-', L'%', L'2', L'a', L'+', L' '}) {
        const CString text(ch, kMegabyte);
        const Evaluation found = orv::evaluate({text.GetString(), kMegabyte}, &names);
        EXPECT_EQ(ch == L'-' || ch == L'+', found.ok) << static_cast<char>(ch);
    }
    for (const auto& [depth, isGood] : {std::pair(200, true), std::pair(orv::kDeepestExpression + 1, false)}) {
        const CString text = CString(L'(', depth) + L"7" + CString(L')', depth);
        EXPECT_EQ(isGood, orv::evaluate(text.GetString(), &names).ok) << depth;
    }
    for (const wchar_t* text : {L"Self", L"X"}) {
        const Evaluation found = orv::evaluate(text, &names);
        EXPECT_EQ(orv::kSyntaxError, found.error);
    }
    // Each doubles the one before.
    names.macros[L"d0"] = L"1";
    for (int i = 1; i < 60; ++i) {
        CString name, text;
        name.Format(L"d%d", i);
        text.Format(L"d%d+d%d", i - 1, i - 1);
        names.macros[name] = text;
    }
    EXPECT_EQ(1024, orv::evaluate(L"d10", &names).value);
    EXPECT_EQ(orv::kSyntaxError, orv::evaluate(L"d59", &names).error);
}

}  // namespace
