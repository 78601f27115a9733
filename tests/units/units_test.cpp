// The catalogue, conversion and the texts of values.
#include "orv/display_values.h"

#include <cmath>
#include <limits>

#include "support/text.h"

namespace {

using namespace orvUnits;

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(UnitCatalogue, NamesLabelsAndStandardFormats) {
    // clang-format off
    const struct { int unit; const wchar_t *enumName, *name, *label; int format, precision; } rows[] = {
        {1000, L"eUnitGroupLaenge", L"Länge", L"", 0, 2},          {1001, L"eUnitMeter", L"Meter", L"m", 0, 2},
        {1007, L"eUnitInch", L"Zoll", L"in", 3, 2},                {7004, L"eUnitKCALpH", L"Kilokalorie pro Stunde", L"kcal/h", 0, 2},
        {9001, L"eUnitWpMxK", L"Watt pro mK", L"W/(mK)", 0, 2},    {15019, L"eUnitDeciM3pS", L"dm3 pro Sekunde", L"dm3/s", 0, 2},
        {17000, L"eUnitGroupVolumenStromSpezifisch", L"Spezifischer Volumenstrom", L"", 0, 2},
        {82000, L"", L"", L"", 0, 2},                              {82001, L"eUnitPN", L"Nenndruck", L"PN", 0, 0},
        {1000004, L"eUnitBoolean", L"Ja/Nein", L"", 5, 0},         {101001, L"", L"", L"", 0, 2},
        {1020, L"", L"", L"", 0, 2},                               {-1, L"", L"", L"", 0, 2},
        {101000, L"", L"", L"", 0, 2},                             {2147483647, L"", L"", L"", 0, 2},
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto unit = static_cast<enUnit>(row.unit);
        SCOPED_TRACE(row.unit);
        EXPECT_TEXT(row.enumName, getUnitEnumName(unit));
        EXPECT_TEXT(row.name, getUnitName(unit, true));
        EXPECT_TEXT(row.label, getUnitLabel(unit, true, false));
        enUnitFormat format;
        enUnitPrec precision;
        getUnitStandardFormat(format, precision, unit);
        EXPECT_EQ(row.format, format);
        EXPECT_EQ(row.precision, precision);
    }
    EXPECT_TEXT(L"@Einheit Watt pro m2K@W/(m2K)", getUnitLabel(eUnitWpM2xK, false, false));
    EXPECT_TEXT(L"@Einheitengruppe@Volumenspezifische Leitung",
                getUnitName(eUnitGroupVolumenSpezifischeLeistung, false));
    EXPECT_TEXT(L" ms", getUnitLabel(eUnitMillisecond, true, true));
    EXPECT_TEXT(L"", getUnitLabel(eUnitText, true, true));
    EXPECT_TEXT(L"", getUnitLabel(nullptr, true));
}

TEST(UnitCatalogue, LookUps) {
    EXPECT_EQ(1001, getEnumValueByNameCaseInsensitive(L"EUNITMETER"));
    EXPECT_EQ(0, getEnumValueByNameCaseInsensitive(L"eUnitMete"));
    EXPECT_EQ(0, getEnumValueByNameCaseInsensitive(nullptr));
    EXPECT_EQ(eUnitWpM, getEnumValueByString(L"w/M"));
    EXPECT_EQ(eUnitMW, getEnumValueByUnitLabelCaseInsensitive(L"MW"));
    EXPECT_EQ(eUnitDiffGradCelsius - 1000, getEnumValueByUnitLabelCaseInsensitive(L"°c"));  // the lowest of equals
    EXPECT_EQ(0, getEnumValueByUnitLabelCaseInsensitive(L""));
    CArray<enUnit> units;
    getUnitGroupArray(units, eUnitGroupLaenge);
    ASSERT_EQ(7, units.GetSize());
    EXPECT_EQ(eUnitInch, units[6]);
    getUnitGroupArray(units, eUnitUndefined);
    EXPECT_EQ(0, units.GetSize());
    for (const int unit : {0, -5, 1000001, 1000004})
        EXPECT_FALSE(isNumberUnit(static_cast<enUnit>(unit))) << unit;
    EXPECT_TRUE(isNumberUnit(eUnitFloat));
    EXPECT_TEXT(L"", getUnitFormatName(static_cast<enUnitFormat>(7)));
    EXPECT_TEXT(L"0'-0 1/256\"", getUnitPrecName(eUnitFormatArchitectural, eUnitPrec7));
    EXPECT_TEXT(L"", getUnitPrecName(eUnitFormatFraction, eUnitPrec8));
}

TEST(UnitConversion, TabledOperationsToTheLastBit) {
    // clang-format off
    const double foot = 1.0 / 3.280839895, x = 7.3;
    const struct { enUnit unit; double expected; } rows[] = {
        {eUnitMeter, x}, {eUnitDecimeter, x * 0.1}, {eUnitYard, x / 1.093613298}, {eUnitInch, x * 0.0254},
        {eUnitCentimeter2, x / 100 / 100}, {eUnitFeet2, x * (foot * foot)}, {eUnitFeet3, x * (foot * foot * foot)},
        {eUnitGalUS, x / 1000 * 3.785}, {eUnitPound, x * 453.59237 / 1000}, {eUnitOunce, x * 28.349523 / 1000},
        {eUnitDiffFahrenheit, x / 1.8}, {eUnitLpMin, x * 60 / 1000}, {eUnitGALUSpMIN, x * 60 / 264.172052358},
        {eUnitLBpS, x * 3600 / 2.204622622}, {eUnitTpMIN, x * 60 * 1000}, {eUnitM3pHM2, x * 1000 / 0.36},
        {eUnitBar, x * 1000 * 100}, {eUnitTorr, x / 0.0075006182704}, {eUnitPsi, x / 0.00014503773773},
        {eUnitLBpFT3, x * (3.280839895 * 3.280839895 * 3.280839895) / 2.204622622},
        {eUnitBogenmass, x * 180 / 3.141592653589793}, {eUnitUSgpmAt1psi, x * 0.857}, {eUnitDbA, x}, {eUnitVolt, x},
        {eUnitAbsGradCelsius, x + 273.15}, {eUnitAbsFahrenheit, (x + 459.67) / 1.8},
        {eUnitGroupDruck, 0}, {static_cast<enUnit>(1099), 0}, {eUnitUndefined, 0},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, convertToBaseUnit(x, row.unit)) << utf8(getUnitEnumName(row.unit));
    EXPECT_TRUE(std::signbit(convertToBaseUnit(-0.0, eUnitMillimeter)));
}

// Independent values by today's definitions, for the units whose factors are derived.
TEST(UnitConversion, DerivedFactors) {
    // clang-format off
    const struct { enUnit unit; double exact; } rows[] = {
        {eUnitKCALpH, 1.163}, {eUnitCALpS, 4.1868}, {eUnitBTUpS, 1055.05585262}, {eUnitBTUpFT2xH, 3.15459074506},
        {eUnitKCALpFT2xH, 12.51842782}, {eUnitCALpCMxSxC, 418.68}, {eUnitBTUpFTxHxF, 1.730734666},
        {eUnitBTUpFT2xHxF, 5.678263341}, {eUnitFT2xHxFpBTU, 0.1761101838}, {eUnitM2xHxCpKCAL, 0.8598452279},
        {eUnitWHpKGxK, 3.6}, {eUnitBTUpLBxF, 4.1868}, {eUnitWpFT3, 35.31466672}, {eUnitBTUpFT3xH, 10.34970717},
        {eUnitFT3pS, 101.9406477}, {eUnitkWh, 3.6e6}, {eUnitBTU, 1055.05585262}, {eUnitftlb, 1.355817948},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_NEAR(1, convertToBaseUnit(1, row.unit) / row.exact, 2e-9) << utf8(getUnitEnumName(row.unit));
}

TEST(UnitConversion, EveryUnitGoesThereAndBack) {
    int count = 0;
    for (int value = 1000; value <= 1000004; ++value) {
        const auto unit = static_cast<enUnit>(value);
        double base = 0, back = 0;
        if (value % 1000 == 0 || orv::tryConvert(37.25, unit, static_cast<enUnit>(value / 1000 * 1000 + 1), base) ==
                                     orv::UnitConversion::kUnknownUnit)
            continue;
        ++count;
        back = orv::convertFromBaseUnit(base, unit);
        EXPECT_NEAR(37.25, back, 37.25 * 1e-14) << value;
    }
    EXPECT_EQ(185, count);
}

TEST(UnitConversion, Oddities) {
    EXPECT_EQ(0.0, convertToBaseUnit(5.0, eUnitMillimeter3));
    EXPECT_EQ(0.0, unitTrans(5.0, eUnitMillimeter3, eUnitMeter3));
    EXPECT_EQ(5.0, unitTrans(5.0, eUnitMillimeter3, eUnitMillimeter3));
    double out = 1;
    EXPECT_EQ(orv::UnitConversion::kDone, orv::tryConvert(5, eUnitMillimeter3, eUnitMeter3, out));
    EXPECT_EQ(5e-9, out);
    EXPECT_EQ(kLargest, unitTrans(1.0, eUnitMeter, eUnitSecond));
    EXPECT_EQ(orv::UnitConversion::kDifferentGroups, orv::tryConvert(1, eUnitMeter, eUnitSecond, out));
    EXPECT_EQ(orv::UnitConversion::kNoCommonQuantity, orv::tryConvert(3, eUnitAmpere, eUnitVolt, out));
    EXPECT_EQ(3, out);
    EXPECT_EQ(orv::UnitConversion::kUnknownUnit, orv::tryConvert(1, eUnitMeter, eUnitGroupLaenge, out));
}

TEST(UnitFormatting, Rows) {
    // clang-format off
    const double inch = 0.0254, inf = std::numeric_limits<double>::infinity();
    const struct { double value; enUnit unit; int format, precision; const wchar_t* expected; } rows[] = {
        {1.0, eUnitCentimeter, 0, 2, L"100.00"},      {-0.0004, eUnitMeter, 0, 2, L"0.00"},
        {-1.25, eUnitMeter, 0, 1, L"-1.2"},           {0.0, eUnitMeter, 0, 99, L"0.00000000"},
        {1.5, eUnitMeter, 4, 8, L"1.5"},              {100.0, eUnitMeter, 4, 0, L"100"},
        {1.5, eUnitMeter, 1, 0, L"1 1/2"},            {0.25, eUnitMeter, 1, 7, L"0 1/4"},
        {-1.999, eUnitMeter, 1, 1, L"-2"},            {-0.01, eUnitMeter, 1, 0, L"0"},
        {40.5 * inch, eUnitInch, 3, 0, L"3'-4 1/2\""}, {-40.5 * inch, eUnitFeet, 3, 2, L"-3'-4 1/2\""},
        {11.99 * inch, eUnitInch, 3, 2, L"1'-0\""},   {35.96 * inch, eUnitInch, 2, 1, L"3'-0.0\""},
        {35.999 * inch, eUnitInch, 2, 2, L"3'-0.00\""}, {12.25 * inch, eUnitInch, 2, 2, L"1'-0.25\""},
        {-0.001 * inch, eUnitInch, 3, 0, L"0'-0\""},  {1.0, eUnitWpM2, 3, 0, L"1"},
        {1e30, eUnitMeter, 1, 0, L"1000000000000000019884624838656"},
        {0.0, eUnitBoolean, 5, 0, L"Nein"},           {1.0, eUnitBoolean, 6, 0, L"Wahr"},
        {inf, eUnitMeter, 3, 0, L"inf"},              {-inf, eUnitMeter, 4, 2, L"-inf"},
        {std::nan(""), eUnitInch, 3, 2, L"nan"},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_TEXT(row.expected, orv::formatBaseValue(row.value, row.unit, static_cast<enUnitFormat>(row.format),
                                                       static_cast<enUnitPrec>(row.precision)));
    EXPECT_TEXT(L"1'-0,25\"", orv::formatBaseValue(12.25 * inch, eUnitInch, eUnitFormatEngineering, eUnitPrec2, L','));
}

// A wrong digit shows: every factor lies within the rounding of its constant from the unit's definition.
TEST(UnitConversion, FactorsDeviateByTheirRoundingAlone) {
    struct Coarse {
        enUnit unit;
        double most;
    };
    constexpr Coarse kCoarse[] = {
        {eUnitGalUS, 1.2e-4}, {eUnitGalImp, 2.1e-5}, {eUnitTorr, 2e-7}, {eUnitUSgpmAt1psi, 0.0093}};
    constexpr double kMost = 5e-9;  // ten digits
    int compared = 0;
    for (int value = eUnitMeter; value <= eUnitUSgpmAt1psi; ++value) {
        const auto unit = static_cast<enUnit>(value);
        const double exact = orv::unitFactorByDefinition(unit);
        if (exact == 0) continue;
        double most = kMost;
        for (const Coarse& row : kCoarse) {
            if (row.unit == unit) most = row.most;
        }
        EXPECT_NEAR(orv::unitFactor(unit) / exact, 1, most) << value;
        ++compared;
    }
    EXPECT_GT(compared, 140);
    EXPECT_EQ(0, orv::unitFactor(eUnitVolt));
    EXPECT_EQ(0, orv::unitFactorByDefinition(eUnitUndefined));
}

}  // namespace
