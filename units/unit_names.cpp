#include <iterator>

#include "localization/translate.h"
#include "text/views.h"
#include "units/catalogue.h"
#include "units/label_index.h"
#include "units/name_index.h"

using orv::findUnit;
using orv::translate;
using orv::UnitRow;

namespace {

constexpr const wchar_t* kFormatNames[] = {
    L"@Einheiten-Format@Dezimal",
    L"@Einheiten-Format@Bruch",
    L"@Einheiten-Format@Imperial-Maschinenbau",
    L"@Einheiten-Format@Imperial-Architektur",
    L"@Einheiten-Format (truncated decimal places)@Dezimal (reduzierte Nachkommastellen)",
    L"@yes or no@Ja/Nein",
    L"@true or false@Wahr/Falsch",
};

CString decimals(int count) { return count == 0 ? CString(L"0") : L"0." + CString(L'0', count); }

CString fraction(int precision) {
    CString text;
    text.Format(L"0 1/%d", 2 << precision);
    return text;
}

}  // namespace

CString orvUnits::getUnitEnumName(enUnit unit) {
    if (unit == eUnitUndefined) return L"eUnitUndefined";
    const UnitRow* row = findUnit(unit);
    return row == nullptr ? CString() : CString(row->enumName);
}

enUnit orvUnits::getEnumValueByNameCaseInsensitive(const wchar_t* name) { return orv::unitByName(orv::viewOf(name)); }

enUnit orvUnits::getEnumValueByString(const wchar_t* text) {
    const enUnit named = getEnumValueByNameCaseInsensitive(text);
    return named != eUnitUndefined ? named : getEnumValueByUnitLabelCaseInsensitive(text);
}

enUnit orvUnits::getEnumValueByUnitLabelCaseInsensitive(const wchar_t* label) {
    return orv::LabelIndex::current().find(orv::viewOf(label));
}

CString orvUnits::getUnitName(enUnit unit, bool translated) {
    const UnitRow* row = findUnit(unit);
    if (row == nullptr) return {};
    return translated ? translate(row->nameKey) : CString(row->nameKey);
}

CString orvUnits::getUnitLabel(enUnit unit, bool translated, bool leadingBlank) {
    const UnitRow* row = findUnit(unit);
    if (row == nullptr) return {};
    const CString label = translated ? orv::LabelIndex::current().labelOf(*row) : CString(row->labelKey);
    return leadingBlank && !label.IsEmpty() ? L" " + label : label;
}

CString orvUnits::getUnitLabel(const orvUnitSetting* setting, bool leadingBlank) {
    return setting == nullptr ? CString() : getUnitLabel(setting->unit, true, leadingBlank);
}

CString orvUnits::getUnitFormatName(enUnitFormat format) {
    if (format < 0 || format >= static_cast<int>(std::size(kFormatNames))) return {};
    return translate(kFormatNames[format]);
}

CString orvUnits::getUnitPrecName(enUnitFormat format, enUnitPrec precision) {
    const bool isFraction = format == eUnitFormatFraction || format == eUnitFormatArchitectural;
    if (precision < 0 || precision > (isFraction ? 7 : 8)) return {};
    switch (format) {
        case eUnitFormatDecimal:
        case eUnitFormatTruncated:
            return decimals(precision);
        case eUnitFormatFraction:
            return fraction(precision);
        case eUnitFormatEngineering:
            return L"0'-" + decimals(precision) + L"\"";
        case eUnitFormatArchitectural:
            return L"0'-" + fraction(precision) + L"\"";
        default:
            return {};
    }
}

void orvUnits::getUnitStandardFormat(enUnitFormat& format, enUnitPrec& precision, enUnit unit) {
    const UnitRow* row = findUnit(unit);
    format = row == nullptr ? eUnitFormatDecimal : static_cast<enUnitFormat>(row->format);
    precision = row == nullptr ? eUnitPrec2 : static_cast<enUnitPrec>(row->precision);
}

void orvUnits::getUnitGroupArray(CArray<enUnit>& out, enUnit unit) {
    out.RemoveAll();
    if (unit <= 0) return;
    for (const UnitRow& row : orv::unitCatalogue()) {
        if (row.value % 1000 != 0 && orv::groupOf(row.value) == orv::groupOf(unit)) out.Add(row.value);
    }
}

void orvUnits::getUnitGroupArray(CArray<enUnit>& out, const orvUnitSetting& setting) {
    getUnitGroupArray(out, setting.unit);
}

void orvUnits::getUnitFormatArray(CArray<enUnitFormat>& out, enUnit unit) {
    out.RemoveAll();
    if (unit == eUnitBoolean) {
        out.Add(eUnitFormatYesNo);
        out.Add(eUnitFormatTrueFalse);
        return;
    }
    out.Add(eUnitFormatDecimal);
    if (!isNumberUnit(unit)) return;
    enUnitFormat standard;
    enUnitPrec precision;
    getUnitStandardFormat(standard, precision, unit);
    out.Add(eUnitFormatFraction);
    if (unit == eUnitFeet || unit == eUnitInch) out.Add(eUnitFormatEngineering);
    if (unit == eUnitFeet || unit == eUnitInch || standard == eUnitFormatArchitectural)
        out.Add(eUnitFormatArchitectural);
    out.Add(eUnitFormatTruncated);
}

bool orvUnits::isNumberUnit(enUnit unit) { return unit > 0 && unit != eUnitText && unit != eUnitBoolean; }
