// Settings of units: what is usual where, and the record in which a choice is stored.
#include <algorithm>
#include <iterator>

#include "orv/display_values.h"
#include "orv/numbers.h"
#include "orv/records.h"
#include "text/views.h"
#include "units/catalogue.h"
#include "units/name_index.h"

namespace orv {
namespace {

struct UsualUnits {
    enUnit metric, unitedStates, unitedKingdom;
};

// A group that is missing is shown in its base unit everywhere.
constexpr UsualUnits kUsual[] = {
    {eUnitMeter, eUnitInch, eUnitMillimeter},  // the inch's standard format is feet and inches
    {eUnitMeter2, eUnitFeet2, eUnitMeter2},
    {eUnitMeter3, eUnitFeet3, eUnitMeter3},
    {eUnitKilogramm, eUnitPound, eUnitKilogramm},
    {eUnitAbsGradCelsius, eUnitAbsFahrenheit, eUnitAbsGradCelsius},
    {eUnitDiffKelvin, eUnitDiffFahrenheit, eUnitDiffKelvin},
    {eUnitW, eUnitBTUpH, eUnitKW},
    {eUnitWpM2, eUnitBTUpFT2xH, eUnitWpM2},
    {eUnitWpMxK, eUnitBTUpFTxHxF, eUnitWpMxK},
    {eUnitWpM2xK, eUnitBTUpFT2xHxF, eUnitWpM2xK},
    {eUnitM2xKpW, eUnitFT2xHxFpBTU, eUnitM2xKpW},
    {eUnitKJpKGxK, eUnitBTUpLBxF, eUnitKJpKGxK},
    {eUnitWpM3, eUnitBTUpFT3xH, eUnitWpM3},
    {eUnitM3pH, eUnitGALUSpMIN, eUnitLpS},
    {eUnitKGpH, eUnitLBpH, eUnitKGpS},
    {eUnitPascal, eUnitPsi, eUnitKPascal},
    {eUnitKGpM3, eUnitLBpFT3, eUnitKGpM3},
    {eUnitMpS, eUnitFTpS, eUnitMpS},
    {eUnitkWh, eUnitBTU, eUnitkWh},
    {eUnitDN, eUnitNPS, eUnitDN},
    {eUnitM3pHAt1bar, eUnitUSgpmAt1psi, eUnitM3pHAt1bar},
    {eUnitFloat, eUnitFloat, eUnitFloat},
};

enUnit usualUnit(int group, UnitPractice practice) {
    const auto* usual = std::find_if(std::begin(kUsual), std::end(kUsual),
                                     [group](const UsualUnits& row) { return groupOf(row.metric) == group; });
    if (usual == std::end(kUsual)) return static_cast<enUnit>(group + 1);
    switch (practice) {
        case UnitPractice::kUnitedStates:
            return usual->unitedStates;
        case UnitPractice::kUnitedKingdom:
            return usual->unitedKingdom;
        default:
            return usual->metric;
    }
}

enUnit unitOfField(const CString& field) {
    const enUnit named = unitByName(viewOf(field));
    if (named != eUnitUndefined) return named;
    const UnitRow* row = findUnit(parseInteger(viewOf(field)).value);
    return row == nullptr ? eUnitUndefined : row->value;
}

}  // namespace

orvUnitSetting standardUnitSetting(enUnit unit, UnitPractice practice) {
    orvUnitSetting setting;
    if (findUnit(unit) == nullptr) return setting;
    const auto group = static_cast<enUnit>(groupOf(unit));
    setting.unit = usualUnit(group, practice);
    setting.name = orvUnits::getUnitEnumName(findUnit(group) != nullptr ? group : setting.unit);
    orvUnits::getUnitStandardFormat(setting.format, setting.precision, setting.unit);
    return setting;
}

CString unitSettingRecord(const orvUnitSetting& setting) {
    CString record;
    COrvSubStr fields;
    fields.AddInit(L':');
    fields.Add(setting.name);
    fields.Add(orvUnits::getUnitEnumName(setting.unit));
    fields.Add(static_cast<int>(setting.format));
    fields.Add(static_cast<int>(setting.precision));
    fields.AddEnd(record);
    return record;
}

bool readUnitSettingRecord(const CString& record, orvUnitSetting& setting) {
    COrvSubStr fields;
    CString name, unit;
    int format = -1, precision = -1;
    if (!fields.GetInit(record, L':')) return false;
    fields.Get(name, true);
    fields.Get(unit, true);
    fields.Get(format, false);
    fields.Get(precision, false);
    const enUnit known = unitOfField(unit);
    const bool isGood = known % 1000 != 0 && format >= eUnitFormatDecimal && format <= eUnitFormatTrueFalse &&
                        precision >= eUnitPrec0 && precision <= eUnitPrec8;
    if (!isGood) return false;
    setting = {name, known, static_cast<enUnitFormat>(format), static_cast<enUnitPrec>(precision)};
    return true;
}

}  // namespace orv
