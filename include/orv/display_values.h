// Values as people see and type them, and the settings by which they do.
//
//   12.7 mm     formatBaseValue(0.0127, eUnitMillimeter, eUnitFormatDecimal, eUnitPrec1) => "12.7"
//   40.5 in     formatBaseValue(1.0287, eUnitInch, eUnitFormatArchitectural, eUnitPrec2) => 3'-4 1/2"
//
// What is typed may be any text that is shown, and besides:
//
//   12,7    12.7    1 1/2    2*(3+1)    sin(0)       comma and point mean the same; all that orv::evaluate knows
//   12,7 mm    2*3/4 in    5m                        a label of the same group behind the number, in any case
//   3'-4 1/2"    3' 4    -0'-6"    4.5"    7/8"      feet and inches, for lengths; typographic signs too
//   Ja  nein  Wahr  0  1                             booleans, in the current language and in German
#pragma once

#include "orv/expressions.h"
#include "orv/units.h"

namespace orv {

/// The text of a value that is held in the base unit, shown in `unit`, without a label.
///   decimal 2: 1.00 m in cm => "100.00"    architectural 2: 1.0 m => 3'-3 3/8"    yes/no: 0 => "Nein"
/// Rounding to the tick comes first, so that 11.99" becomes 1'-0". Nothing that rounds to zero has a sign. The imperial
/// forms are for lengths: other units are written in decimals (2) or as fractions (3). Values too large for their ticks
/// are written in decimals; an infinity is "inf", what is no number "nan". A precision beyond the samples is clamped.
ORV_API CString formatBaseValue(double value, enUnit unit, enUnitFormat format, enUnitPrec precision,
                                wchar_t decimalSign = L'.');

/// The same by a setting; `withLabel` puts a blank and the unit's label behind, if it has one and the signs of feet and
/// inches do not name the units already.
ORV_API CString formatBaseValue(double value, const orvUnitSetting& setting, bool withLabel = false,
                                wchar_t decimalSign = L'.');

enum class InputError {
    kNone,
    kEmpty,          // nothing, or no number in front of a label
    kSyntax,         // `expressionError` tells more
    kUnknownUnit,    // the expected unit is none that has values, or nothing is named like the text behind the number
    kOtherQuantity,  // the unit behind the number measures something else
    kNoBoolean,      // no word for yes or no, and no number
    kNotFinite,      // more than the largest double
};

struct ParsedBaseValue {
    bool ok = false;
    double value = 0;              // in the base unit; 0 unless ok
    enUnit unit = eUnitUndefined;  // the one that was named, else the expected one
    InputError error = InputError::kNone;
    int expressionError = kNoError;  // with kSyntax
    int position = 0;                // of what is wrong, in `text`
    int length = 0;                  // of what is wrong; 0 at the end of the text
    unsigned warnings = 0;           // ExpressionWarning
};

/// Reads a value that was typed where `unit` is expected. Null names: no names but the keywords of expressions.
///   "12,7 mm" in m => 0.0127     "1 1/2" in ft => 0.4572     "5 kg" in m => kOtherQuantity at 2
/// A label is looked for in the group of `unit` alone, exact case first; the longest text that is one counts. The words
/// for an infinity and for what is no number, which are shown, are not read. Texts (eUnitText) have no value.
ORV_API ParsedBaseValue parseBaseValue(WideView text, enUnit unit, ExpressionNames* names = nullptr);

// ---- Settings ----

/// The units of a trade by country: Central Europe's, those customary in the United States, and the United Kingdom's,
/// which are metric with choices of their own.
enum class UnitPractice { kMetric, kUnitedStates, kUnitedKingdom };

/// How values of a unit's group are shown where the user chose nothing; format and precision are the unit's standard.
/// Its name is that of the group ("eUnitGroupLaenge"), or of the unit that stands alone. eUnitUndefined, with the
/// name "", for values that the catalogue does not hold.
///   lengths: m, feet and inches, mm     volume flows: m3/h, gal/min (US), l/s     heat: kWh, Btu, kWh
ORV_API orvUnitSetting standardUnitSetting(enUnit unit, UnitPractice practice);

/// One field record (separator ":"): name, name of the unit, format, precision.
///   {"Pipes", eUnitInch, eUnitFormatArchitectural, eUnitPrec3} => "Pipes:eUnitInch:3:3"
ORV_API CString unitSettingRecord(const orvUnitSetting& setting);
/// False, and `setting` as it was, unless the record names a unit (in any case, or by its number), a format and a
/// precision that exist. More fields are left alone.
ORV_API bool readUnitSettingRecord(const CString& record, orvUnitSetting& setting);

}  // namespace orv
