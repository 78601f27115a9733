// What is shown is read back, what people type is understood, what is wrong is named.
#include "orv/display_values.h"

#include <cmath>
#include <limits>

#include "orv/translation.h"
#include "support/text.h"

namespace {

using orv::InputError;
using orv::parseBaseValue;
using orv::ParsedBaseValue;

constexpr double kInch = 0.0254;

TEST(DisplayValues, PeopleTypeThis) {
    // clang-format off
    const struct { const wchar_t* text; enUnit unit; double value; enUnit named; } rows[] = {
        {L"12,7 mm", eUnitMeter, 12.7 / 1000, eUnitMillimeter},  {L" 12.7 ", eUnitMillimeter, 12.7 / 1000, eUnitMillimeter},
        {L"2*3/4 in", eUnitMeter, 1.5 * kInch, eUnitInch},       {L"5m", eUnitMillimeter, 5, eUnitMeter},
        {L"(2+3)M", eUnitMillimeter, 5, eUnitMeter},             {L"3 ft2", eUnitMeter2, 3 * (1 / 3.280839895 * (1 / 3.280839895)), eUnitFeet2},
        {L"1 1/2", eUnitInch, 1.5 * kInch, eUnitInch},           {L"-1 1/2 in", eUnitMeter, -1.5 * kInch, eUnitInch},
        {L"1/2", eUnitMeter, 0.5, eUnitMeter},                   {L"1/0,5", eUnitMeter, 2, eUnitMeter},
        {L"3'-4 1/2\"", eUnitMeter, 40.5 * kInch, eUnitInch},    {L"3' 4", eUnitMeter, 40 * kInch, eUnitInch},
        {L"- 0'-6\"", eUnitMeter, -6 * kInch, eUnitInch},        {L"3.5'", eUnitMeter, 42 * kInch, eUnitInch},
        {L"7/8\"", eUnitFeet, 0.875 * kInch, eUnitInch},         {L"4,5\x2033", eUnitFeet, 4.5 * kInch, eUnitInch},
        {L"3\x2032 1/4", eUnitFeet, 36.25 * kInch, eUnitInch},   {L"5 mm3", eUnitMeter3, 5e-9, eUnitMillimeter3},
        {L"0.25 1", eUnitProzent, 25, eUnitEins},                {L"20\xB0" L"C", eUnitAbsKelvin, 293.15, eUnitAbsGradCelsius},
        {L"20 K", eUnitDiffGradCelsius, 20, eUnitDiffKelvin},    {L"3 J", eUnitkJ, 3, eUnitJ},
        {L"3 J", eUnitJoule, 3, eUnitJoule},                     {L"ja", eUnitBoolean, 1, eUnitBoolean},
        {L"FALSCH", eUnitBoolean, 0, eUnitBoolean},              {L"2-2", eUnitBoolean, 0, eUnitBoolean},
        {L"16", eUnitPN, 16, eUnitPN},                           {L"PI", eUnitFloat, 3.14159265358979323846, eUnitFloat},
        {L"123456789012345678901234567890123", eUnitMeter, 123456789012345678901234567890123.0, eUnitMeter},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        const ParsedBaseValue parsed = parseBaseValue(row.text, row.unit);
        EXPECT_TRUE(parsed.ok);
        EXPECT_DOUBLE_EQ(row.value, parsed.value);
        EXPECT_EQ(row.named, parsed.unit);
    }
    EXPECT_EQ(orv::kCommaReadAsPoint, parseBaseValue(L"1,234 mm", eUnitMillimeter).warnings);
    EXPECT_EQ(orv::kMissingOperand, parseBaseValue(L"2* m", eUnitMeter).warnings);
}

TEST(DisplayValues, WhatIsWrongIsNamed) {
    // clang-format off
    const struct { const wchar_t* text; enUnit unit; InputError error; int position, length, expressionError; } rows[] = {
        {L"", eUnitMeter, InputError::kEmpty, 0, 0, -1},            {L" mm", eUnitMeter, InputError::kEmpty, 1, 0, -1},
        {L"5 kg", eUnitMeter, InputError::kOtherQuantity, 2, 2, -1}, {L"5km", eUnitMeter, InputError::kUnknownUnit, 1, 2, -1},
        {L"5 V", eUnitAmpere, InputError::kOtherQuantity, 2, 1, -1}, {L"2*(3", eUnitMeter, InputError::kSyntax, 4, 0, 2},
        {L" 4/0 mm", eUnitMeter, InputError::kSyntax, 1, 3, 3},     {L"3'-x", eUnitMeter, InputError::kSyntax, 3, 1, 0},
        {L"3' 4\" ft", eUnitMeter, InputError::kSyntax, 6, 2, 0},   {L"3'-1/0\"", eUnitMeter, InputError::kSyntax, 0, 7, 3},
        {L"3'", eUnitSecond, InputError::kSyntax, 1, 1, 1},         {L"vielleicht", eUnitBoolean, InputError::kNoBoolean, 0, 10, -1},
        {L"9^999", eUnitMeter, InputError::kNotFinite, 0, 5, -1},   {L"inf", eUnitMeter, InputError::kSyntax, 0, 3, 0},
        {L"5", eUnitText, InputError::kUnknownUnit, 0, 1, -1},      {L"5", eUnitGroupLaenge, InputError::kUnknownUnit, 0, 1, -1},
        {L"5 5 m", eUnitMeter, InputError::kSyntax, 2, 1, 0},       {L"1.234,5", eUnitMeter, InputError::kSyntax, 0, 7, 0},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(utf8(row.text));
        const ParsedBaseValue parsed = parseBaseValue(row.text, row.unit);
        EXPECT_FALSE(parsed.ok);
        EXPECT_EQ(0, parsed.value);
        EXPECT_EQ(row.error, parsed.error);
        EXPECT_EQ(row.position, parsed.position);
        EXPECT_EQ(row.length, parsed.length);
        EXPECT_EQ(row.expressionError, parsed.expressionError);
    }
}

// Every unit, every format it is offered in, both decimal signs: what is shown, with its label, shows the same again.
TEST(DisplayValues, WhatIsShownIsReadBack) {
    constexpr double kValues[] = {0, 1, -1.2345, 1e-9, 123456.789, 11.999 * kInch, 1e22, 0.1 + 0.2};
    int shown = 0;
    for (int value = eUnitMeter; value <= eUnitBoolean; ++value) {
        orvUnitSetting setting;
        setting.unit = static_cast<enUnit>(value);
        if (value % 1000 == 0 || value == eUnitText || orvUnits::getUnitEnumName(setting.unit).IsEmpty()) continue;
        CArray<enUnitFormat> formats;
        orvUnits::getUnitFormatArray(formats, setting.unit);
        for (int i = 0; i < formats.GetSize() * 2; ++i) {
            setting.format = formats[i / 2];
            setting.precision = static_cast<enUnitPrec>(value % 8);
            for (const double base : kValues) {
                const wchar_t sign = i % 2 == 0 ? L'.' : L',';
                const CString text = orv::formatBaseValue(base, setting, true, sign);
                const ParsedBaseValue parsed = parseBaseValue(text.GetString(), setting.unit);
                ASSERT_TRUE(parsed.ok) << utf8(text) << " " << value;
                ASSERT_EQ(text, orv::formatBaseValue(parsed.value, setting, true, sign)) << utf8(text) << " " << value;
                ++shown;
            }
        }
    }
    EXPECT_GT(shown, 5000);
}

TEST(DisplayValues, LabelsFollowTheLanguage) {
    EXPECT_EQ(eUnitMmWassersaeule, orvUnits::getEnumValueByUnitLabelCaseInsensitive(L"mmws"));
    orv::setRegionToken(L"CHE");  // whatever may change translations makes the labels be looked up anew
    EXPECT_EQ(eUnitMmWassersaeule, orvUnits::getEnumValueByUnitLabelCaseInsensitive(L"mmWS"));
    orv::setRegionToken(L"");
    EXPECT_TEXT(L"mmWS", orvUnits::getUnitLabel(eUnitMmWassersaeule));
}

TEST(UnitSettings, StandardsAndRecords) {
    using orv::UnitPractice;
    const orvUnitSetting us = orv::standardUnitSetting(eUnitGroupLaenge, UnitPractice::kUnitedStates);
    EXPECT_TEXT(L"eUnitGroupLaenge:eUnitInch:3:2", orv::unitSettingRecord(us));
    EXPECT_TEXT(L"3'-3 3/8\"", orv::formatBaseValue(1, us, true));
    EXPECT_EQ(eUnitLpS, orv::standardUnitSetting(eUnitGALUSpH, UnitPractice::kUnitedKingdom).unit);
    EXPECT_EQ(eUnitMMpM, orv::standardUnitSetting(eUnitCMpM, UnitPractice::kMetric).unit);
    EXPECT_TEXT(L"eUnitPN:eUnitPN:0:0",
                orv::unitSettingRecord(orv::standardUnitSetting(eUnitPN, UnitPractice::kMetric)));
    EXPECT_EQ(eUnitUndefined, orv::standardUnitSetting(static_cast<enUnit>(999), UnitPractice::kMetric).unit);

    orvUnitSetting read;
    ASSERT_TRUE(
        orv::readUnitSettingRecord(L"A\xAE"
                                   L"B:EUNITFEET:1:7:more",
                                   read));
    EXPECT_TEXT(L"A:B", read.name);
    EXPECT_EQ(eUnitFeet, read.unit);
    EXPECT_EQ(eUnitFormatFraction, read.format);
    EXPECT_EQ(eUnitPrec7, read.precision);
    EXPECT_TRUE(orv::readUnitSettingRecord(L"x:1004:0:0", read));
    EXPECT_EQ(eUnitMillimeter, read.unit);
    for (const wchar_t* wrong : {L"", L"x", L"x:eUnitFoot:0:0", L"x:eUnitGroupLaenge:0:0", L"x:1004:7:0", L"x:1004:0:9",
                                 L"x:1004::0", L"x:1004:0", L"x:-1:0:0"}) {
        EXPECT_FALSE(orv::readUnitSettingRecord(wrong, read)) << utf8(wrong);
        EXPECT_EQ(eUnitMillimeter, read.unit);
    }
}

// Names are found by hashing: every one of them, in any case, and nothing that merely looks like one.
TEST(UnitCatalogue, EveryNameAndLabelIsFound) {
    int names = 0;
    for (int value = 1; value <= eUnitBoolean; ++value) {
        const auto unit = static_cast<enUnit>(value);
        CString name = orvUnits::getUnitEnumName(unit);
        if (name.IsEmpty()) continue;
        ++names;
        EXPECT_EQ(unit, orvUnits::getEnumValueByNameCaseInsensitive(name));
        EXPECT_EQ(unit, orvUnits::getEnumValueByString(name.MakeUpper()));
        EXPECT_EQ(unit, orvUnits::getEnumValueByNameCaseInsensitive(name.MakeLower()));
        const wchar_t last = name[name.GetLength() - 1];
        for (const int other : {last ^ 0x20, last | 0x100, last ^ 0x1, 0x20, 0x7F}) {
            name.SetAt(name.GetLength() - 1, static_cast<wchar_t>(other));
            const enUnit found = orvUnits::getEnumValueByNameCaseInsensitive(name);
            EXPECT_TRUE(found == eUnitUndefined || orvUnits::getUnitEnumName(found).CompareNoCase(name) == 0);
        }
        const CString label = orvUnits::getUnitLabel(unit);
        if (label.IsEmpty()) continue;
        const enUnit labelled = orvUnits::getEnumValueByUnitLabelCaseInsensitive(label);
        EXPECT_TEXT(label, orvUnits::getUnitLabel(labelled));
        EXPECT_LE(labelled, unit);
    }
    EXPECT_GT(names, 200);
    EXPECT_EQ(eUnitUndefined, orvUnits::getEnumValueByNameCaseInsensitive(CString(L'e', 100000)));
    EXPECT_EQ(eUnitUndefined, orvUnits::getEnumValueByNameCaseInsensitive(L"eUn"));
}

}  // namespace
