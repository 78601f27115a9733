// Units of measure: the catalogue and conversion. How values are shown and typed: orv/display_values.h.
//
//   a group is a multiple of 1000; its units follow as +1, +2, ...; +1 is the base unit in which values are held
//   eUnitPN stands alone: its group would be 82000, which has no name
//
// Factors are the suite's rounded constants, applied in a fixed order, so that stored values stay what they were.
#pragma once

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/framework/string.h"

enum enUnit : int {
    eUnitUndefined = 0,

    eUnitGroupLaenge = 1000,
    eUnitMeter = 1001,
    eUnitDecimeter = 1002,
    eUnitCentimeter = 1003,
    eUnitMillimeter = 1004,
    eUnitYard = 1005,
    eUnitFeet = 1006,
    eUnitInch = 1007,

    eUnitGroupFlaeche = 2000,
    eUnitMeter2 = 2001,
    eUnitDecimeter2 = 2002,
    eUnitCentimeter2 = 2003,
    eUnitMillimeter2 = 2004,
    eUnitYard2 = 2005,
    eUnitFeet2 = 2006,
    eUnitInch2 = 2007,

    eUnitGroupVolumen = 3000,
    eUnitMeter3 = 3001,
    eUnitDecimeter3 = 3002,
    eUnitLiter = 3003,
    eUnitCentimeter3 = 3004,
    eUnitMillimeter3 = 3005,
    eUnitYard3 = 3006,
    eUnitFeet3 = 3007,
    eUnitInch3 = 3008,
    eUnitGalUS = 3009,
    eUnitGalImp = 3010,

    eUnitGroupGewicht = 4000,
    eUnitKilogramm = 4001,
    eUnitGramm = 4002,
    eUnitTonne = 4003,
    eUnitPound = 4004,
    eUnitOunce = 4005,

    eUnitGroupTemperatur = 5000,
    eUnitAbsKelvin = 5001,
    eUnitAbsGradCelsius = 5002,
    eUnitAbsFahrenheit = 5003,
    eUnitAbsGradRankine = 5004,

    eUnitGroupTemperaturDifferenz = 6000,
    eUnitDiffKelvin = 6001,
    eUnitDiffGradCelsius = 6002,
    eUnitDiffFahrenheit = 6003,
    eUnitDiffGradRankine = 6004,

    eUnitGroupLeistung = 7000,
    eUnitW = 7001,
    eUnitKW = 7002,
    eUnitMW = 7003,
    eUnitKCALpH = 7004,
    eUnitCALpS = 7005,
    eUnitBTUpH = 7006,
    eUnitBTUpS = 7007,

    eUnitGroupWaermeStromDichte = 8000,
    eUnitWpM2 = 8001,
    eUnitKWpM2 = 8002,
    eUnitWpCM2 = 8003,
    eUnitKCALpM2xH = 8004,
    eUnitKCALpFT2xH = 8005,
    eUnitBTUpFT2xH = 8006,
    eUnitBTUpFT2xS = 8007,

    eUnitGroupWaermeLeitFaehigkeit = 9000,
    eUnitWpMxK = 9001,
    eUnitCALpCMxSxC = 9002,
    eUnitKCALpMxHxC = 9003,
    eUnitKCALpFTxHxC = 9004,
    eUnitBTUpFTxHxF = 9005,
    eUnitBTUpFTxSxF = 9006,

    eUnitGroupWaermeDurchgangsKoeffizient = 10000,
    eUnitWpM2xK = 10001,
    eUnitKCALpM2xHxC = 10002,
    eUnitKCALpFT2xHxC = 10003,
    eUnitBTUpFT2xHxF = 10004,
    eUnitBTUpFT2xSxF = 10005,

    eUnitGroupWaermeWiderstandsKoeffizient = 11000,
    eUnitM2xKpW = 11001,
    eUnitM2xHxCpKCAL = 11002,
    eUnitFT2xHxCpKCAL = 11003,
    eUnitFT2xHxFpBTU = 11004,
    eUnitFT2xSxFpBTU = 11005,

    eUnitGroupZeit = 12000,
    eUnitSecond = 12001,
    eUnitMinute = 12002,
    eUnitHour = 12003,
    eUnitMillisecond = 12004,

    eUnitGroupKapazitaet = 13000,
    eUnitKJpKGxK = 13001,
    eUnitKJpKGxC = 13002,
    eUnitWHpKGxK = 13003,
    eUnitWHpKGxC = 13004,
    eUnitBTUpLBxF = 13005,
    eUnitBTUpLBxR = 13006,

    eUnitGroupVolumenSpezifischeLeistung = 14000,
    eUnitWpM3 = 14001,
    eUnitWpFT3 = 14002,
    eUnitKJpM3xS = 14003,
    eUnitKJpFT3xS = 14004,
    eUnitBTUpM3xH = 14005,
    eUnitBTUpFT3xH = 14006,

    eUnitGroupVolumenStrom = 15000,
    eUnitM3pH = 15001,
    eUnitM3pS = 15002,
    eUnitLpS = 15003,
    eUnitLpMin = 15004,
    eUnitLpH = 15005,
    eUnitFT3pH = 15006,
    eUnitFT3pS = 15007,
    eUnitYD3pH = 15008,
    eUnitYD3pS = 15009,
    eUnitGALUSpH = 15010,
    eUnitGALUSpMIN = 15011,
    eUnitGALUSpS = 15012,
    eUnitGALUKpH = 15013,
    eUnitGALUKpMIN = 15014,
    eUnitGALUKpS = 15015,
    eUnitM3pMin = 15016,
    eUnitDeciM3pH = 15017,
    eUnitDeciM3pMin = 15018,
    eUnitDeciM3pS = 15019,

    eUnitGroupMassenStrom = 16000,
    eUnitKGpH = 16001,
    eUnitKGpMIN = 16002,
    eUnitKGpS = 16003,
    eUnitLBpH = 16004,
    eUnitLBpMIN = 16005,
    eUnitLBpS = 16006,
    eUnitTpH = 16007,
    eUnitTpMIN = 16008,
    eUnitTpS = 16009,

    eUnitGroupVolumenStromSpezifisch = 17000,
    eUnitLpSHa = 17001,
    eUnitM3pHM2 = 17002,

    eUnitGroupRWert = 18000,
    eUnitPaM = 18001,
    eUnitHPapM = 18002,
    eUnitMbarpM = 18003,

    eUnitGroupDruck = 19000,
    eUnitPascal = 19001,
    eUnitHPascal = 19002,
    eUnitMBar = 19003,
    eUnitKPascal = 19004,
    eUnitNpM2 = 19005,
    eUnitBar = 19006,
    eUnitTorr = 19007,
    eUnitPsi = 19008,
    eUnitMPascal = 19009,
    eUnitMmWassersaeule = 19010,
    eUnitMWassersaeule = 19011,

    eUnitGroupDichte = 20000,
    eUnitKGpM3 = 20001,
    eUnitKGpCM3 = 20002,
    eUnitKGpL = 20003,
    eUnitLBpFT3 = 20004,
    eUnitLBpYD3 = 20005,

    eUnitGroupGeschwindigkeit = 21000,
    eUnitMpS = 21001,
    eUnitMpH = 21002,
    eUnitFTpS = 21003,
    eUnitYDpS = 21004,

    eUnitGroupProzent = 22000,
    eUnitProzent = 22001,
    eUnitPromille = 22002,
    eUnitEins = 22003,

    eUnitGroupWinkel = 23000,
    eUnitAltGrad = 23001,
    eUnitNeuGrad = 23002,
    eUnitBogenmass = 23003,

    eUnitGroupGefaelle = 24000,
    eUnitMMpM = 24001,
    eUnitCMpM = 24002,
    eUnitMpM = 24003,

    eUnitGroupSchall = 25000,
    eUnitDb = 25001,
    eUnitDbA = 25002,

    eUnitGroupElektro = 26000,
    eUnitAmpere = 26001,
    eUnitVolt = 26002,
    eUnitOhm = 26003,
    eUnitCoulomb = 26004,
    eUnitHenry = 26005,
    eUnitSiemens = 26006,
    eUnitApM = 26007,
    eUnitHertz = 26008,
    eUnitTesla = 26009,
    eUnitJoule = 26010,
    eUnitFarad = 26011,

    eUnitGroupeEnergy = 27000,
    eUnitJ = 27001,
    eUnitkJ = 27002,
    eUnitMJ = 27003,
    eUnitNm = 27004,
    eUnitWs = 27005,
    eUnitWh = 27006,
    eUnitkWh = 27007,
    eUnitCal = 27008,
    eUnitkCal = 27009,
    eUnitBTU = 27010,
    eUnitftlb = 27011,

    eUnitGroupWaermeverlust = 28000,
    eUnitWpM = 28001,
    eUnitkWpM = 28002,

    eUnitGroupPipeSpecific = 80000,
    eUnitMMpMpK = 80001,
    eUnitKGpM = 80002,
    eUnitKNpM2 = 80003,
    eUnitLpM = 80004,

    eUnitGroupPipeDimensions = 81000,
    eUnitDN = 81001,
    eUnitNPS = 81002,

    eUnitPN = 82001,

    eUnitGroupOther = 90000,
    eUnitKWHpD = 90001,

    eUnitGroupKvsCv = 100000,
    eUnitM3pHAt1bar = 100001,
    eUnitUSgpmAt1psi = 100002,

    eUnitGroupDimensionslos = 1000000,
    eUnitText = 1000001,
    eUnitInteger = 1000002,
    eUnitFloat = 1000003,
    eUnitBoolean = 1000004,
};

/// How a number is written; the values are stored in settings.
enum enUnitFormat : int {
    eUnitFormatDecimal = 0,
    eUnitFormatFraction = 1,       // 1 1/2
    eUnitFormatEngineering = 2,    // 3'-4.50"
    eUnitFormatArchitectural = 3,  // 3'-4 1/2"
    eUnitFormatTruncated = 4,      // decimal, trailing zeros removed
    eUnitFormatYesNo = 5,
    eUnitFormatTrueFalse = 6,
};

/// An index from 0: decimals (0 to 8), or the denominators 2 to 256 (0 to 7) of fractions.
enum enUnitPrec : int {
    eUnitPrec0,
    eUnitPrec1,
    eUnitPrec2,
    eUnitPrec3,
    eUnitPrec4,
    eUnitPrec5,
    eUnitPrec6,
    eUnitPrec7,
    eUnitPrec8
};

/// The user's choice for one kind of value.
struct orvUnitSetting {
    CString name;
    enUnit unit = eUnitUndefined;
    enUnitFormat format = eUnitFormatDecimal;
    enUnitPrec precision = eUnitPrec2;
};

namespace orv {

enum class UnitConversion {
    kDone,
    kNoCommonQuantity,  // both units are known, but nothing converts them (ampere and volt): the value is unchanged
    kDifferentGroups,
    kUnknownUnit,
};

}  // namespace orv

namespace orvUnits {

/// "eUnitMeter"; "" for a value that has no name.
ORV_API CString getUnitEnumName(enUnit unit);
/// The inverse, with ASCII letters in any case; eUnitUndefined for a name that is not known. No look-up allocates.
ORV_API enUnit getEnumValueByNameCaseInsensitive(const wchar_t* name);
/// A name in any case, else a translated label.
ORV_API enUnit getEnumValueByString(const wchar_t* text);
/// Exact case first, then any case; among equal labels the lowest value. The first look-up after a change of the
/// language translates all labels.
ORV_API enUnit getEnumValueByUnitLabelCaseInsensitive(const wchar_t* label);

/// The name, or with false its translation key.
ORV_API CString getUnitName(enUnit unit, bool translated = true);
/// The symbol, or its key; a leading blank is put only before a label that is not empty.
ORV_API CString getUnitLabel(enUnit unit, bool translated = true, bool leadingBlank = false);
/// Null gives "".
ORV_API CString getUnitLabel(const orvUnitSetting* setting, bool leadingBlank = false);

/// "" for values beyond the enumeration.
ORV_API CString getUnitFormatName(enUnitFormat format);
/// A sample such as "0.00" or "0 1/4"; "" where a format has none.
ORV_API CString getUnitPrecName(enUnitFormat format, enUnitPrec precision);
/// A value that the catalogue does not hold, and a group, gives decimal with two places.
ORV_API void getUnitStandardFormat(enUnitFormat& format, enUnitPrec& precision, enUnit unit);

/// The units of the group of a value, in catalogue order; the array is emptied first.
ORV_API void getUnitGroupArray(CArray<enUnit>& out, enUnit unit);
ORV_API void getUnitGroupArray(CArray<enUnit>& out, const orvUnitSetting& setting);
/// Numbers: decimal, fraction, truncated, for feet and inches both imperial forms too; booleans: yes/no, true/false;
/// text: decimal. The standard format is always among them.
ORV_API void getUnitFormatArray(CArray<enUnitFormat>& out, enUnit unit);

/// Greater than 0 and neither text nor boolean.
ORV_API bool isNumberUnit(enUnit unit);

/// The value in the base unit of the unit's group. Units that share no quantity with it (volt, DN) come back unchanged,
/// values that are no unit give 0. Cubic millimetres give 0 too: see orv::tryConvert.
ORV_API double convertToBaseUnit(const double& value, enUnit unit);
/// Through the base unit, so that cubic millimetres give 0; the largest finite double between groups.
ORV_API double unitTrans(const double& value, enUnit from, enUnit to);

}  // namespace orvUnits

namespace orv {

/// The inverse of convertToBaseUnit, for cubic millimetres too; 0 for values that are no unit.
ORV_API double convertFromBaseUnit(double value, enUnit unit);
/// What takes a value in `unit` to the base unit, for units without an offset a mere factor: as the library applies it,
/// and by today's definition of the unit. 0 where nothing converts.
ORV_API double unitFactor(enUnit unit);
ORV_API double unitFactorByDefinition(enUnit unit);
/// Converts and says what happened; `out` is set for kDone and kNoCommonQuantity only.
ORV_API UnitConversion tryConvert(double value, enUnit from, enUnit to, double& out);

}  // namespace orv
