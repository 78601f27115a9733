#include "units/catalogue.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace orv {

namespace {

// The suite's rounded constants. Whatever is not a plain power of ten or a count of seconds is made of them.
constexpr double kFeetPerMeter = 3.280839895;
constexpr double kYardsPerMeter = 1.093613298;
constexpr double kInch = 0.0254;  // metres, exact by definition
constexpr double kFoot = 1.0 / kFeetPerMeter;
constexpr double kYard = 1.0 / kYardsPerMeter;
constexpr double kGramsPerPound = 453.59237;
constexpr double kPoundsPerKilogram = 2.204622622;
constexpr double kUsGallonsPerM3 = 264.172052358;
constexpr double kUkGallonsPerM3 = 219.969248299;
constexpr double kGravity = 9.80665;                         // m/s2, standard gravity: 1 lbf = 0.45359237 kg * it
constexpr double kJoulesPerKcal = 4186.799993470267;         // the exact international one is 4186.8
constexpr double kWattsPerBtuPerHour = 0.29307107017221723;  // 1055.05585262 J / 3600 s
// 0 degrees C are 273.15 K; 0 degrees F are 459.67 degrees R, of which 1.8 make a kelvin: both by definition.

constexpr double square(double x) { return x * x; }
constexpr double cube(double x) { return x * x * x; }

constexpr ToBase unknown() { return {.kind = ToBase::Kind::kUnknown}; }
constexpr ToBase base() { return {.kind = ToBase::Kind::kBase}; }
constexpr ToBase apart() { return {.kind = ToBase::Kind::kApart}; }
constexpr ToBase same() { return {}; }
constexpr ToBase times(double by) { return ToBase{}.times(by); }
constexpr ToBase over(double by) { return ToBase{}.over(by); }
constexpr ToBase plus(double offset) { return {.offset = offset}; }

// Per square foot is kFeetPerMeter squared per square metre; per degree F is 1.8 per kelvin; kJ/(kg K) from Btu/(lb F)
// is watts per Btu/h * 3.6 kJ/Wh * pounds per kilogram * 1.8; resistances are the reciprocals of the coefficients.
// clang-format off
constexpr UnitRow kRows[] = {
    {eUnitGroupLaenge, L"eUnitGroupLaenge", L"@Einheitengruppe@Länge", L"", 0, 2, unknown(), 0},
    {eUnitMeter, L"eUnitMeter", L"@Einheit@Meter", L"@Einheit Meter@m", 0, 2, base(), 1},
    {eUnitDecimeter, L"eUnitDecimeter", L"@Einheit@Dezimeter", L"@Einheit Dezimeter@dm", 0, 1, times(0.1), 0.1},
    {eUnitCentimeter, L"eUnitCentimeter", L"@Einheit@Zentimeter", L"@Einheit Zentimeter@cm", 0, 1, over(100), 0.01},
    {eUnitMillimeter, L"eUnitMillimeter", L"@Einheit@Millimeter", L"@Einheit Millimeter@mm", 0, 0, over(1000), 0.001},
    {eUnitYard, L"eUnitYard", L"@Einheit@Yard", L"@Einheit Yard@yd", 1, 2, over(kYardsPerMeter), 0.9144},
    {eUnitFeet, L"eUnitFeet", L"@Einheit@Fuß", L"@Einheit Fuß@ft", 1, 2, over(kFeetPerMeter), 0.3048},
    {eUnitInch, L"eUnitInch", L"@Einheit@Zoll", L"@Einheit Zoll@in", 3, 2, times(kInch), 0.0254},
    {eUnitGroupFlaeche, L"eUnitGroupFlaeche", L"@Einheitengruppe@Fläche", L"", 0, 2, unknown(), 0},
    {eUnitMeter2, L"eUnitMeter2", L"@Einheit@Quadratmeter", L"@Einheit Quadratmeter@m2", 0, 2, base(), 1},
    {eUnitDecimeter2, L"eUnitDecimeter2", L"@Einheit@Quadratdezimeter", L"@Einheit Quadratdezimeter@dm2", 0, 1, over(100), 0.01},
    {eUnitCentimeter2, L"eUnitCentimeter2", L"@Einheit@Quadratzentimeter", L"@Einheit Quadratzentimeter@cm2", 0, 1, over(100).over(100), 0.0001},
    {eUnitMillimeter2, L"eUnitMillimeter2", L"@Einheit@Quadratmillimeter", L"@Einheit Quadratmillimeter@mm2", 0, 0, over(1000000), 1e-06},
    {eUnitYard2, L"eUnitYard2", L"@Einheit@Quadratyard", L"@Einheit Quadratyard@yd2", 1, 2, times(square(kYard)), 0.83612736},
    {eUnitFeet2, L"eUnitFeet2", L"@Einheit@Quadratfuß", L"@Einheit Quadratfuß@ft2", 1, 2, times(square(kFoot)), 0.09290304},
    {eUnitInch2, L"eUnitInch2", L"@Einheit@Quadratzoll", L"@Einheit Quadratzoll@in2", 3, 2, times(square(kInch)), 0.00064516},
    {eUnitGroupVolumen, L"eUnitGroupVolumen", L"@Einheitengruppe@Volumen", L"", 0, 2, unknown(), 0},
    {eUnitMeter3, L"eUnitMeter3", L"@Einheit@Kubikmeter", L"@Einheit Kubikmeter@m3", 0, 2, base(), 1},
    {eUnitDecimeter3, L"eUnitDecimeter3", L"@Einheit@Kubikdezimeter", L"@Einheit Kubikdezimeter@dm3", 0, 1, over(1000), 0.001},
    {eUnitLiter, L"eUnitLiter", L"@Einheit@Liter", L"@Einheit Liter@l", 0, 1, over(1000), 0.001},
    {eUnitCentimeter3, L"eUnitCentimeter3", L"@Einheit@Kubikzentimeter", L"@Einheit Kubikzentimeter@cm3", 0, 1, over(1000000), 1e-06},
    {eUnitMillimeter3, L"eUnitMillimeter3", L"@Einheit@Kubikmillimeter", L"@Einheit Kubikmillimeter@mm3", 0, 0, over(1000000000), 1e-09},
    {eUnitYard3, L"eUnitYard3", L"@Einheit@Kubikyard", L"@Einheit Kubikyard@yd3", 1, 2, times(cube(kYard)), 0.764554857984},
    {eUnitFeet3, L"eUnitFeet3", L"@Einheit@Kubikfuß", L"@Einheit Kubikfuß@ft3", 1, 2, times(cube(kFoot)), 0.028316846592000004},
    {eUnitInch3, L"eUnitInch3", L"@Einheit@Kubikzoll", L"@Einheit Kubikzoll@in3", 3, 2, times(cube(kInch)), 1.6387064e-05},
    {eUnitGalUS, L"eUnitGalUS", L"@Einheit@Gallone (US)", L"@Einheit Gallone (US)@gal (US)", 0, 2, over(1000).times(3.785), 0.003785411784},
    {eUnitGalImp, L"eUnitGalImp", L"@Einheit@Gallone (Imp.)", L"@Einheit Gallone (Imp.)@gal (Imp)", 0, 2, over(1000).times(4.546), 0.00454609},
    {eUnitGroupGewicht, L"eUnitGroupGewicht", L"@Einheitengruppe@Gewicht", L"", 0, 2, unknown(), 0},
    {eUnitKilogramm, L"eUnitKilogramm", L"@Einheit@Kilogramm", L"@Einheit Kilogramm@kg", 0, 2, base(), 1},
    {eUnitGramm, L"eUnitGramm", L"@Einheit@Gramm", L"@Einheit Gramm@g", 0, 0, over(1000), 0.001},
    {eUnitTonne, L"eUnitTonne", L"@Einheit@Tonne", L"@Einheit Tonne@t", 0, 2, times(1000), 1000},
    {eUnitPound, L"eUnitPound", L"@Einheit@Pfund", L"@Einheit Pfund@lb", 0, 2, times(kGramsPerPound).over(1000), 0.45359237},
    {eUnitOunce, L"eUnitOunce", L"@Einheit@Unze", L"@Einheit Unze@oz", 0, 2, times(28.349523).over(1000), 0.028349523125},
    {eUnitGroupTemperatur, L"eUnitGroupTemperatur", L"@Einheitengruppe@Temperatur", L"", 0, 2, unknown(), 0},
    {eUnitAbsKelvin, L"eUnitAbsKelvin", L"@Einheit@Kelvin", L"@Einheit Kelvin@K", 0, 1, base(), 1},
    {eUnitAbsGradCelsius, L"eUnitAbsGradCelsius", L"@Einheit@Grad Celsius", L"@Einheit Grad Celsius@°C", 0, 1, plus(273.15), 1},
    {eUnitAbsFahrenheit, L"eUnitAbsFahrenheit", L"@Einheit@Grad Fahrenheit", L"@Einheit Grad Fahrenheit@°F", 0, 1, plus(459.67).over(1.8), 0.5555555555555556},
    {eUnitAbsGradRankine, L"eUnitAbsGradRankine", L"@Einheit@Grad Rankine", L"@Einheit Grad Rankine@°R", 0, 1, over(1.8), 0.5555555555555556},
    {eUnitGroupTemperaturDifferenz, L"eUnitGroupTemperaturDifferenz", L"@Einheitengruppe@Temperaturdifferenz", L"", 0, 2, unknown(), 0},
    {eUnitDiffKelvin, L"eUnitDiffKelvin", L"@Einheit@Kelvin Differenz", L"@Einheit Kelvin Differenz@K", 0, 1, base(), 1},
    {eUnitDiffGradCelsius, L"eUnitDiffGradCelsius", L"@Einheit@Grad Celsius Differenz", L"@Einheit Grad Celsius Differenz@°C", 0, 1, same(), 1},
    {eUnitDiffFahrenheit, L"eUnitDiffFahrenheit", L"@Einheit@Grad Fahrenheit Differenz", L"@Einheit Grad Fahrenheit Differenz@°F", 0, 1, over(1.8), 0.5555555555555556},
    {eUnitDiffGradRankine, L"eUnitDiffGradRankine", L"@Einheit@Grad Rankine Differenz", L"@Einheit Grad Rankine Differenz@°R", 0, 1, over(1.8), 0.5555555555555556},
    {eUnitGroupLeistung, L"eUnitGroupLeistung", L"@Einheitengruppe@Leistung", L"", 0, 2, unknown(), 0},
    {eUnitW, L"eUnitW", L"@Einheit@Watt", L"@Einheit Watt@W", 0, 1, base(), 1},
    {eUnitKW, L"eUnitKW", L"@Einheit@Kilowatt", L"@Einheit Kilowatt@kW", 0, 2, times(1000), 1000},
    {eUnitMW, L"eUnitMW", L"@Einheit@Megawatt", L"@Einheit Megawatt@MW", 0, 2, times(1000000), 1000000.0},
    {eUnitKCALpH, L"eUnitKCALpH", L"@Einheit@Kilokalorie pro Stunde", L"@Einheit Kilokalorie pro Stunde@kcal/h", 0, 2, times(kJoulesPerKcal).over(3600), 1.163},
    {eUnitCALpS, L"eUnitCALpS", L"@Einheit@Kalorie pro Sekunde", L"@Einheit Kalorie pro Sekunde@cal/s", 0, 2, times(kJoulesPerKcal).over(1000), 4.1868},
    {eUnitBTUpH, L"eUnitBTUpH", L"@Einheit@Btu pro Stunde", L"@Einheit Btu pro Stunde@Btu/h", 0, 2, times(kWattsPerBtuPerHour), 0.2930710701722222},
    {eUnitBTUpS, L"eUnitBTUpS", L"@Einheit@Btu pro Sekunde", L"@Einheit Btu pro Sekunde@Btu/s", 0, 2, times(kWattsPerBtuPerHour).times(3600), 1055.05585262},
    {eUnitGroupWaermeStromDichte, L"eUnitGroupWaermeStromDichte", L"@Einheitengruppe@Wärmestromdichte", L"", 0, 2, unknown(), 0},
    {eUnitWpM2, L"eUnitWpM2", L"@Einheit@Watt pro m2", L"@Einheit Watt pro m2@W/m2", 0, 2, base(), 1},
    {eUnitKWpM2, L"eUnitKWpM2", L"@Einheit@Kilowatt pro m2", L"@Einheit Kilowatt pro m2@kW/m2", 0, 2, times(1000), 1000},
    {eUnitWpCM2, L"eUnitWpCM2", L"@Einheit@Watt pro cm2", L"@Einheit Watt pro cm2@W/cm2", 0, 2, times(10000), 10000.0},
    {eUnitKCALpM2xH, L"eUnitKCALpM2xH", L"@Einheit@Kilokalorie pro m2 und Stunde", L"@Einheit Kilokalorie pro m2 und Stunde@kcal/(m2h)", 0, 2, times(kJoulesPerKcal).over(3600), 1.163},
    {eUnitKCALpFT2xH, L"eUnitKCALpFT2xH", L"@Einheit@Kilokalorie pro ft2 und Stunde", L"@Einheit Kilokalorie pro ft2 und Stunde@kcal/(ft2h)", 0, 2, times(kJoulesPerKcal).over(3600).times(square(kFeetPerMeter)), 12.518427814633407},
    {eUnitBTUpFT2xH, L"eUnitBTUpFT2xH", L"@Einheit@Btu pro ft2 und Stunde", L"@Einheit Btu pro ft2 und Stunde@Btu/(ft2h)", 0, 2, times(kWattsPerBtuPerHour).times(square(kFeetPerMeter)), 3.1545907450630484},
    {eUnitBTUpFT2xS, L"eUnitBTUpFT2xS", L"@Einheit@Btu pro ft2 und Sekunde", L"@Einheit Btu pro ft2 und Sekunde@Btu/(ft2s)", 0, 2, times(kWattsPerBtuPerHour * 3600).times(square(kFeetPerMeter)), 11356.526682226975},
    {eUnitGroupWaermeLeitFaehigkeit, L"eUnitGroupWaermeLeitFaehigkeit", L"@Einheitengruppe@Wärmeleitfähigkeit", L"", 0, 2, unknown(), 0},
    {eUnitWpMxK, L"eUnitWpMxK", L"@Einheit@Watt pro mK", L"@Einheit Watt pro mK@W/(mK)", 0, 2, base(), 1},
    {eUnitCALpCMxSxC, L"eUnitCALpCMxSxC", L"@Einheit@Kalorie pro cm s °C", L"@Einheit Kalorie pro cm s °C@cal/(cm s °C)", 0, 2, times(kJoulesPerKcal).over(10), 418.68},
    {eUnitKCALpMxHxC, L"eUnitKCALpMxHxC", L"@Einheit@Kilokalorie pro m h °C", L"@Einheit Kilokalorie pro m h °C@kcal/(m h °C)", 0, 2, times(kJoulesPerKcal).over(3600), 1.163},
    {eUnitKCALpFTxHxC, L"eUnitKCALpFTxHxC", L"@Einheit@Kilokalorie pro ft h °C", L"@Einheit Kilokalorie pro ft h °C@kcal/(ft h °C)", 0, 2, times(kJoulesPerKcal).over(3600).times(kFeetPerMeter), 3.815616797900262},
    {eUnitBTUpFTxHxF, L"eUnitBTUpFTxHxF", L"@Einheit@Btu pro ft h °F", L"@Einheit Btu pro ft h °F@Btu/(ft h °F)", 0, 2, times(kWattsPerBtuPerHour).times(kFeetPerMeter * 1.8), 1.730734666371391},
    {eUnitBTUpFTxSxF, L"eUnitBTUpFTxSxF", L"@Einheit@Btu pro ft s °F", L"@Einheit Btu pro ft s °F@Btu/(ft s °F)", 0, 2, times(kWattsPerBtuPerHour * 3600).times(kFeetPerMeter * 1.8), 6230.644798937008},
    {eUnitGroupWaermeDurchgangsKoeffizient, L"eUnitGroupWaermeDurchgangsKoeffizient", L"@Einheitengruppe@Wärmedurchgangskoeffizient", L"", 0, 2, unknown(), 0},
    {eUnitWpM2xK, L"eUnitWpM2xK", L"@Einheit@Watt pro m2K", L"@Einheit Watt pro m2K@W/(m2K)", 0, 2, base(), 1},
    {eUnitKCALpM2xHxC, L"eUnitKCALpM2xHxC", L"@Einheit@Kilokalorie pro m2 h °C", L"@Einheit Kilokalorie pro m2 h °C@kcal/(m2 h °C)", 0, 2, times(kJoulesPerKcal).over(3600), 1.163},
    {eUnitKCALpFT2xHxC, L"eUnitKCALpFT2xHxC", L"@Einheit@Kilokalorie pro ft2 h °C", L"@Einheit Kilokalorie pro ft2 h °C@kcal/(ft2 h °C)", 0, 2, times(kJoulesPerKcal).over(3600).times(square(kFeetPerMeter)), 12.518427814633407},
    {eUnitBTUpFT2xHxF, L"eUnitBTUpFT2xHxF", L"@Einheit@Btu pro ft2 h °F", L"@Einheit Btu pro ft2 h °F@Btu/(ft2 h °F)", 0, 2, times(kWattsPerBtuPerHour).times(square(kFeetPerMeter) * 1.8), 5.678263341113487},
    {eUnitBTUpFT2xSxF, L"eUnitBTUpFT2xSxF", L"@Einheit@Btu pro ft2 s °F", L"@Einheit Btu pro ft2 s °F@Btu/(ft2 s °F)", 0, 2, times(kWattsPerBtuPerHour * 3600).times(square(kFeetPerMeter) * 1.8), 20441.748028008555},
    {eUnitGroupWaermeWiderstandsKoeffizient, L"eUnitGroupWaermeWiderstandsKoeffizient", L"@Einheitengruppe@Wärmewiderstandskoeffizient", L"", 0, 2, unknown(), 0},
    {eUnitM2xKpW, L"eUnitM2xKpW", L"@Einheit@m2K pro Watt", L"@Einheit m2K pro Watt@m2K/W", 0, 2, base(), 1},
    {eUnitM2xHxCpKCAL, L"eUnitM2xHxCpKCAL", L"@Einheit@m2 h °C pro Kilokalorie", L"@Einheit m2 h °C pro Kilokalorie@m2 h °C/kcal", 0, 2, times(3600).over(kJoulesPerKcal), 0.8598452278589853},
    {eUnitFT2xHxCpKCAL, L"eUnitFT2xHxCpKCAL", L"@Einheit@ft2 h °C pro Kilokalorie", L"@Einheit ft2 h °C pro Kilokalorie@ft2 h °C/kcal", 0, 2, times(3600).over(kJoulesPerKcal * square(kFeetPerMeter)), 0.07988223559759243},
    {eUnitFT2xHxFpBTU, L"eUnitFT2xHxFpBTU", L"@Einheit@ft2 h °F pro Btu", L"@Einheit ft2 h °F pro Btu@ft2 h °F/Btu", 0, 2, over(kWattsPerBtuPerHour * square(kFeetPerMeter) * 1.8), 0.17611018368230585},
    {eUnitFT2xSxFpBTU, L"eUnitFT2xSxFpBTU", L"@Einheit@ft2 s °F pro Btu", L"@Einheit ft2 s °F pro Btu@ft2 s °F/Btu", 0, 2, over(kWattsPerBtuPerHour * 3600 * square(kFeetPerMeter) * 1.8), 4.891949546730718e-05},
    {eUnitGroupZeit, L"eUnitGroupZeit", L"@Einheitengruppe@Zeit", L"", 0, 2, unknown(), 0},
    {eUnitSecond, L"eUnitSecond", L"@Einheit@Sekunde", L"@Einheit Sekunde@s", 0, 2, base(), 1},
    {eUnitMinute, L"eUnitMinute", L"@Einheit@Minute", L"@Einheit Minute@min", 0, 2, times(60), 60},
    {eUnitHour, L"eUnitHour", L"@Einheit@Stunde", L"@Einheit Stunde@h", 0, 2, times(3600), 3600},
    {eUnitMillisecond, L"eUnitMillisecond", L"@Einheit@Millisekunde", L"@Einheit Millisekunde@ms", 0, 2, over(1000), 0.001},
    {eUnitGroupKapazitaet, L"eUnitGroupKapazitaet", L"@Einheitengruppe@Kapazität", L"", 0, 2, unknown(), 0},
    {eUnitKJpKGxK, L"eUnitKJpKGxK", L"@Einheit@Kilojoule pro kgK", L"@Einheit Kilojoule pro kgK@kJ/(kgK)", 0, 2, base(), 1},
    {eUnitKJpKGxC, L"eUnitKJpKGxC", L"@Einheit@Kilojoule pro kg °C", L"@Einheit Kilojoule pro kg °C@kJ/(kg °C)", 0, 2, same(), 1},
    {eUnitWHpKGxK, L"eUnitWHpKGxK", L"@Einheit@Wattstunde pro kgK", L"@Einheit Wattstunde pro kgK@Wh/(kgK)", 0, 2, times(3.6), 3.6},
    {eUnitWHpKGxC, L"eUnitWHpKGxC", L"@Einheit@Wattstunde pro kg °C", L"@Einheit Wattstunde pro kg °C@Wh/(kg °C)", 0, 2, times(3.6), 3.6},
    {eUnitBTUpLBxF, L"eUnitBTUpLBxF", L"@Einheit@Btu pro lb °F", L"@Einheit Btu pro lb °F@Btu/(lb °F)", 0, 2, times(kWattsPerBtuPerHour * 3.6).times(kPoundsPerKilogram * 1.8), 4.1868},
    {eUnitBTUpLBxR, L"eUnitBTUpLBxR", L"@Einheit@Btu pro lb °R", L"@Einheit Btu pro lb °R@Btu/(lb °R)", 0, 2, times(kWattsPerBtuPerHour * 3.6).times(kPoundsPerKilogram * 1.8), 4.1868},
    {eUnitGroupVolumenSpezifischeLeistung, L"eUnitGroupVolumenSpezifischeLeistung", L"@Einheitengruppe@Volumenspezifische Leitung", L"", 0, 2, unknown(), 0},
    {eUnitWpM3, L"eUnitWpM3", L"@Einheit@Watt pro m3", L"@Einheit Watt pro m3@W/m3", 0, 2, base(), 1},
    {eUnitWpFT3, L"eUnitWpFT3", L"@Einheit@Watt pro ft3", L"@Einheit Watt pro ft3@W/ft3", 0, 2, times(cube(kFeetPerMeter)), 35.314666721488585},
    {eUnitKJpM3xS, L"eUnitKJpM3xS", L"@Einheit@Kilojoule pro m3 und Sekunde", L"@Einheit Kilojoule pro m3 und Sekunde@kJ/(m3s)", 0, 2, times(1000), 1000},
    {eUnitKJpFT3xS, L"eUnitKJpFT3xS", L"@Einheit@Kilojoule pro ft3 und Sekunde", L"@Einheit Kilojoule pro ft3 und Sekunde@kJ/(ft3s)", 0, 2, times(1000).times(cube(kFeetPerMeter)), 35314.66672148858},
    {eUnitBTUpM3xH, L"eUnitBTUpM3xH", L"@Einheit@Btu pro m3 und Stunde", L"@Einheit Btu pro m3 und Stunde@Btu/(m3h)", 0, 2, times(kWattsPerBtuPerHour), 0.2930710701722222},
    {eUnitBTUpFT3xH, L"eUnitBTUpFT3xH", L"@Einheit@Btu pro ft3 und Stunde", L"@Einheit Btu pro ft3 und Stunde@Btu/(ft3h)", 0, 2, times(kWattsPerBtuPerHour).times(cube(kFeetPerMeter)), 10.349707168842022},
    {eUnitGroupVolumenStrom, L"eUnitGroupVolumenStrom", L"@Einheitengruppe@Volumenstrom", L"", 0, 2, unknown(), 0},
    {eUnitM3pH, L"eUnitM3pH", L"@Einheit@m3 pro Stunde", L"@Einheit m3 pro Stunde@m3/h", 0, 2, base(), 1},
    {eUnitM3pS, L"eUnitM3pS", L"@Einheit@m3 pro Sekunde", L"@Einheit m3 pro Sekunde@m3/s", 0, 2, times(3600), 3600},
    {eUnitLpS, L"eUnitLpS", L"@Einheit@Liter pro Sekunde", L"@Einheit Liter pro Sekunde@l/s", 0, 2, times(3600).over(1000), 3.6},
    {eUnitLpMin, L"eUnitLpMin", L"@Einheit@Liter pro Minute", L"@Einheit Liter pro Minute@l/min", 0, 2, times(60).over(1000), 0.06},
    {eUnitLpH, L"eUnitLpH", L"@Einheit@Liter pro Stunde", L"@Einheit Liter pro Stunde@l/h", 0, 2, over(1000), 0.001},
    {eUnitFT3pH, L"eUnitFT3pH", L"@Einheit@ft3 pro Stunde", L"@Einheit ft3 pro Stunde@ft3/h", 0, 2, times(cube(kFoot)), 0.028316846592000004},
    {eUnitFT3pS, L"eUnitFT3pS", L"@Einheit@ft3 pro Sekunde", L"@Einheit ft3 pro Sekunde@ft3/s", 0, 2, times(cube(kFoot)).times(3600), 101.94064773120002},
    {eUnitYD3pH, L"eUnitYD3pH", L"@Einheit@yd3 pro Stunde", L"@Einheit yd3 pro Stunde@yd3/h", 0, 2, times(cube(kYard)), 0.764554857984},
    {eUnitYD3pS, L"eUnitYD3pS", L"@Einheit@yd3 pro Sekunde", L"@Einheit yd3 pro Sekunde@yd3/s", 0, 2, times(cube(kYard)).times(3600), 2752.3974887424},
    {eUnitGALUSpH, L"eUnitGALUSpH", L"@Einheit@Gallone (US) pro Stunde", L"@Einheit Gallone (US) pro Stunde@gal/h (US)", 0, 2, over(kUsGallonsPerM3), 0.003785411784},
    {eUnitGALUSpMIN, L"eUnitGALUSpMIN", L"@Einheit@Gallone (US) pro Minute", L"@Einheit Gallone (US) pro Minute@gal/min (US)", 0, 2, times(60).over(kUsGallonsPerM3), 0.22712470704},
    {eUnitGALUSpS, L"eUnitGALUSpS", L"@Einheit@Gallone (US) pro Sekunde", L"@Einheit Gallone (US) pro Sekunde@gal/s (US)", 0, 2, times(3600).over(kUsGallonsPerM3), 13.6274824224},
    {eUnitGALUKpH, L"eUnitGALUKpH", L"@Einheit@Gallone (UK) pro Stunde", L"@Einheit Gallone (UK) pro Stunde@gal/h (UK)", 0, 2, over(kUkGallonsPerM3), 0.00454609},
    {eUnitGALUKpMIN, L"eUnitGALUKpMIN", L"@Einheit@Gallone (UK) pro Minute", L"@Einheit Gallone (UK) pro Minute@gal/min (UK)", 0, 2, times(60).over(kUkGallonsPerM3), 0.2727654},
    {eUnitGALUKpS, L"eUnitGALUKpS", L"@Einheit@Gallone (UK) pro Sekunde", L"@Einheit Gallone (UK) pro Sekunde@gal/s (UK)", 0, 2, times(3600).over(kUkGallonsPerM3), 16.365924},
    {eUnitM3pMin, L"eUnitM3pMin", L"@Einheit@m3 pro Minute", L"@Einheit m3 pro Minute@m3/min", 0, 2, times(60), 60},
    {eUnitDeciM3pH, L"eUnitDeciM3pH", L"@Einheit@dm3 pro Stunde", L"@Einheit dm3 pro Stunde@dm3/h", 0, 2, over(1000), 0.001},
    {eUnitDeciM3pMin, L"eUnitDeciM3pMin", L"@Einheit@dm3 pro Minute", L"@Einheit dm3 pro Minute@dm3/min", 0, 2, times(60).over(1000), 0.06},
    {eUnitDeciM3pS, L"eUnitDeciM3pS", L"@Einheit@dm3 pro Sekunde", L"@Einheit dm3 pro Sekunde@dm3/s", 0, 2, times(3600).over(1000), 3.6},
    {eUnitGroupMassenStrom, L"eUnitGroupMassenStrom", L"@Einheitengruppe@Massenstrom", L"", 0, 2, unknown(), 0},
    {eUnitKGpH, L"eUnitKGpH", L"@Einheit@Kilogramm pro Stunde", L"@Einheit Kilogramm pro Stunde@kg/h", 0, 1, base(), 1},
    {eUnitKGpMIN, L"eUnitKGpMIN", L"@Einheit@Kilogramm pro Minute", L"@Einheit Kilogramm pro Minute@kg/min", 0, 2, times(60), 60},
    {eUnitKGpS, L"eUnitKGpS", L"@Einheit@Kilogramm pro Sekunde", L"@Einheit Kilogramm pro Sekunde@kg/s", 0, 2, times(3600), 3600},
    {eUnitLBpH, L"eUnitLBpH", L"@Einheit@Pfund pro Stunde", L"@Einheit Pfund pro Stunde@lb/h", 0, 2, over(kPoundsPerKilogram), 0.45359237},
    {eUnitLBpMIN, L"eUnitLBpMIN", L"@Einheit@Pfund pro Minute", L"@Einheit Pfund pro Minute@lb/min", 0, 2, times(60).over(kPoundsPerKilogram), 27.2155422},
    {eUnitLBpS, L"eUnitLBpS", L"@Einheit@Pfund pro Sekunde", L"@Einheit Pfund pro Sekunde@lb/s", 0, 2, times(3600).over(kPoundsPerKilogram), 1632.932532},
    {eUnitTpH, L"eUnitTpH", L"@Einheit@Tonne pro Stunde", L"@Einheit Tonne pro Stunde@t/h", 0, 2, times(1000), 1000},
    {eUnitTpMIN, L"eUnitTpMIN", L"@Einheit@Tonne pro Minute", L"@Einheit Tonne pro Minute@t/min", 0, 2, times(60).times(1000), 60000.0},
    {eUnitTpS, L"eUnitTpS", L"@Einheit@Tonne pro Sekunde", L"@Einheit Tonne pro Sekunde@t/s", 0, 2, times(3600).times(1000), 3600000.0},
    {eUnitGroupVolumenStromSpezifisch, L"eUnitGroupVolumenStromSpezifisch", L"@Einheitengruppe@Spezifischer Volumenstrom", L"", 0, 2, unknown(), 0},
    {eUnitLpSHa, L"eUnitLpSHa", L"@Einheit@Liter pro Sekunde und Hektar", L"@Einheit Liter pro Sekunde und Hektar@l/(s·ha)", 0, 2, base(), 1},
    {eUnitM3pHM2, L"eUnitM3pHM2", L"@Einheit@m3 pro Stunde und m2", L"@Einheit m3 pro Stunde und m2@m3/(h·m2)", 0, 2, times(1000).over(0.36), 2777.777777777778},
    {eUnitGroupRWert, L"eUnitGroupRWert", L"@Einheitengruppe@R-Wert", L"", 0, 2, unknown(), 0},
    {eUnitPaM, L"eUnitPaM", L"@Einheit@Pascal pro Meter", L"@Einheit Pascal pro Meter@Pa/m", 0, 2, base(), 1},
    {eUnitHPapM, L"eUnitHPapM", L"@Einheit@Hektopascal pro Meter", L"@Einheit Hektopascal pro Meter@hPa/m", 0, 2, times(100), 100},
    {eUnitMbarpM, L"eUnitMbarpM", L"@Einheit@Millibar pro Meter", L"@Einheit Millibar pro Meter@mbar/m", 0, 2, times(100), 100},
    {eUnitGroupDruck, L"eUnitGroupDruck", L"@Einheitengruppe@Druck", L"", 0, 2, unknown(), 0},
    {eUnitPascal, L"eUnitPascal", L"@Einheit@Pascal", L"@Einheit Pascal@Pa", 0, 0, base(), 1},
    {eUnitHPascal, L"eUnitHPascal", L"@Einheit@Hektopascal", L"@Einheit Hektopascal@hPa", 0, 1, times(100), 100},
    {eUnitMBar, L"eUnitMBar", L"@Einheit@Millibar", L"@Einheit Millibar@mbar", 0, 1, times(100), 100},
    {eUnitKPascal, L"eUnitKPascal", L"@Einheit@Kilopascal", L"@Einheit Kilopascal@kPa", 0, 2, times(1000), 1000},
    {eUnitNpM2, L"eUnitNpM2", L"@Einheit@Newton pro m2", L"@Einheit Newton pro m2@N/m2", 0, 2, same(), 1},
    {eUnitBar, L"eUnitBar", L"@Einheit@Bar", L"@Einheit Bar@bar", 0, 2, times(1000).times(100), 100000.0},
    {eUnitTorr, L"eUnitTorr", L"@Einheit@Torr", L"@Einheit Torr@Torr", 0, 2, over(0.0075006182704), 133.32236842105263},
    {eUnitPsi, L"eUnitPsi", L"@Einheit@Pfund pro Quadratzoll", L"@Einheit Pfund pro Quadratzoll@psi", 0, 2, over(0.00014503773773), 6894.757293168361},
    {eUnitMPascal, L"eUnitMPascal", L"@Einheit@Megapascal", L"@Einheit Megapascal@MPa", 0, 2, times(1000000), 1000000.0},
    {eUnitMmWassersaeule, L"eUnitMmWassersaeule", L"@Einheit@Millimeter Wassersäule", L"@Einheit Millimeter Wassersäule@mmWS", 0, 2, times(9.80665), 9.80665},
    {eUnitMWassersaeule, L"eUnitMWassersaeule", L"@Einheit@Meter Wassersäule", L"@Einheit Meter Wassersäule@mWS", 0, 2, times(9806.65), 9806.65},
    {eUnitGroupDichte, L"eUnitGroupDichte", L"@Einheitengruppe@Dichte", L"", 0, 2, unknown(), 0},
    {eUnitKGpM3, L"eUnitKGpM3", L"@Einheit@Kilogramm pro m3", L"@Einheit Kilogramm pro m3@kg/m3", 0, 2, base(), 1},
    {eUnitKGpCM3, L"eUnitKGpCM3", L"@Einheit@Kilogramm pro cm3", L"@Einheit Kilogramm pro cm3@kg/cm3", 0, 2, times(1000000), 1000000.0},
    {eUnitKGpL, L"eUnitKGpL", L"@Einheit@Kilogramm pro Liter", L"@Einheit Kilogramm pro Liter@kg/l", 0, 2, times(1000), 1000},
    {eUnitLBpFT3, L"eUnitLBpFT3", L"@Einheit@Pfund pro ft3", L"@Einheit Pfund pro ft3@lb/ft3", 0, 2, times(cube(kFeetPerMeter)).over(kPoundsPerKilogram), 16.018463373960138},
    {eUnitLBpYD3, L"eUnitLBpYD3", L"@Einheit@Pfund pro yd3", L"@Einheit Pfund pro yd3@lb/yd3", 0, 2, times(cube(kYardsPerMeter)).over(kPoundsPerKilogram), 0.5932764212577829},
    {eUnitGroupGeschwindigkeit, L"eUnitGroupGeschwindigkeit", L"@Einheitengruppe@Geschwindigkeit", L"", 0, 2, unknown(), 0},
    {eUnitMpS, L"eUnitMpS", L"@Einheit@Meter pro Sekunde", L"@Einheit Meter pro Sekunde@m/s", 0, 2, base(), 1},
    {eUnitMpH, L"eUnitMpH", L"@Einheit@Meter pro Stunde", L"@Einheit Meter pro Stunde@m/h", 0, 1, over(3600), 0.0002777777777777778},
    {eUnitFTpS, L"eUnitFTpS", L"@Einheit@Fuß pro Sekunde", L"@Einheit Fuß pro Sekunde@ft/s", 0, 2, over(kFeetPerMeter), 0.3048},
    {eUnitYDpS, L"eUnitYDpS", L"@Einheit@Yard pro Sekunde", L"@Einheit Yard pro Sekunde@yd/s", 0, 2, over(kYardsPerMeter), 0.9144},
    {eUnitGroupProzent, L"eUnitGroupProzent", L"@Einheitengruppe@Prozent", L"", 0, 2, unknown(), 0},
    {eUnitProzent, L"eUnitProzent", L"@Einheit@Prozent", L"@Einheit Prozent@%", 0, 1, base(), 1},
    {eUnitPromille, L"eUnitPromille", L"@Einheit@Promille", L"@Einheit Promille@‰", 0, 1, over(10), 0.1},
    {eUnitEins, L"eUnitEins", L"@Einheit@Eins", L"@Einheit Eins@1", 0, 2, times(100), 100},
    {eUnitGroupWinkel, L"eUnitGroupWinkel", L"@Einheitengruppe@Winkel", L"", 0, 2, unknown(), 0},
    {eUnitAltGrad, L"eUnitAltGrad", L"@Einheit@Altgrad", L"@Einheit Altgrad@°", 0, 1, base(), 1},
    {eUnitNeuGrad, L"eUnitNeuGrad", L"@Einheit@Neugrad", L"@Einheit Neugrad@gon", 0, 2, times(0.9), 0.9},
    {eUnitBogenmass, L"eUnitBogenmass", L"@Einheit@Bogenmaß", L"@Einheit Bogenmaß@rad", 0, 2, times(180).over(3.141592653589793), 57.29577951308232},
    {eUnitGroupGefaelle, L"eUnitGroupGefaelle", L"@Einheitengruppe@Gefälle", L"", 0, 2, unknown(), 0},
    {eUnitMMpM, L"eUnitMMpM", L"@Einheit@Millimeter pro Meter", L"@Einheit Millimeter pro Meter@mm/m", 0, 0, base(), 1},
    {eUnitCMpM, L"eUnitCMpM", L"@Einheit@Zentimeter pro Meter", L"@Einheit Zentimeter pro Meter@cm/m", 0, 1, times(10), 10},
    {eUnitMpM, L"eUnitMpM", L"@Einheit@Meter pro Meter", L"@Einheit Meter pro Meter@m/m", 0, 2, times(1000), 1000},
    {eUnitGroupSchall, L"eUnitGroupSchall", L"@Einheitengruppe@Schall", L"", 0, 2, unknown(), 0},
    {eUnitDb, L"eUnitDb", L"@Einheit@Dezibel", L"@Einheit Dezibel@dB", 0, 2, base(), 1},
    {eUnitDbA, L"eUnitDbA", L"@Einheit@Dezibel A", L"@Einheit Dezibel A@dB(A)", 0, 2, same(), 1},
    {eUnitGroupElektro, L"eUnitGroupElektro", L"@Einheitengruppe@Elektro", L"", 0, 2, unknown(), 0},
    {eUnitAmpere, L"eUnitAmpere", L"@Einheit@Ampere", L"@Einheit Ampere@A", 0, 0, base(), 0},
    {eUnitVolt, L"eUnitVolt", L"@Einheit@Volt", L"@Einheit Volt@V", 0, 2, apart(), 0},
    {eUnitOhm, L"eUnitOhm", L"@Einheit@Ohm", L"@Einheit Ohm@Ohm", 0, 2, apart(), 0},
    {eUnitCoulomb, L"eUnitCoulomb", L"@Einheit@Coulomb", L"@Einheit Coulomb@C", 0, 2, apart(), 0},
    {eUnitHenry, L"eUnitHenry", L"@Einheit@Henry", L"@Einheit Henry@H", 0, 2, apart(), 0},
    {eUnitSiemens, L"eUnitSiemens", L"@Einheit@Siemens", L"@Einheit Siemens@S", 0, 2, apart(), 0},
    {eUnitApM, L"eUnitApM", L"@Einheit@Ampere pro Meter", L"@Einheit Ampere pro Meter@A/m", 0, 2, apart(), 0},
    {eUnitHertz, L"eUnitHertz", L"@Einheit@Hertz", L"@Einheit Hertz@Hz", 0, 2, apart(), 0},
    {eUnitTesla, L"eUnitTesla", L"@Einheit@Tesla", L"@Einheit Tesla@T", 0, 2, apart(), 0},
    {eUnitJoule, L"eUnitJoule", L"@Einheit@Joule elektrisch", L"@Einheit Joule elektrisch@J", 0, 2, apart(), 0},
    {eUnitFarad, L"eUnitFarad", L"@Einheit@Farad", L"@Einheit Farad@F", 0, 2, apart(), 0},
    {eUnitGroupeEnergy, L"eUnitGroupeEnergy", L"@Einheitengruppe@Energie", L"", 0, 2, unknown(), 0},
    {eUnitJ, L"eUnitJ", L"@Einheit@Joule", L"@Einheit Joule@J", 0, 1, base(), 1},
    {eUnitkJ, L"eUnitkJ", L"@Einheit@Kilojoule", L"@Einheit Kilojoule@kJ", 0, 1, times(1000), 1000},
    {eUnitMJ, L"eUnitMJ", L"@Einheit@Megajoule", L"@Einheit Megajoule@MJ", 0, 1, times(1000000), 1000000.0},
    {eUnitNm, L"eUnitNm", L"@Einheit@Newtonmeter", L"@Einheit Newtonmeter@Nm", 0, 1, same(), 1},
    {eUnitWs, L"eUnitWs", L"@Einheit@Wattsekunde", L"@Einheit Wattsekunde@Ws", 0, 1, same(), 1},
    {eUnitWh, L"eUnitWh", L"@Einheit@Wattstunde", L"@Einheit Wattstunde@Wh", 0, 1, times(3600), 3600},
    {eUnitkWh, L"eUnitkWh", L"@Einheit@Kilowattstunde", L"@Einheit Kilowattstunde@kWh", 0, 1, times(3600000), 3600000.0},
    {eUnitCal, L"eUnitCal", L"@Einheit@Kalorie", L"@Einheit Kalorie@cal", 0, 1, times(kJoulesPerKcal).over(1000), 4.1868},
    {eUnitkCal, L"eUnitkCal", L"@Einheit@Kilokalorie", L"@Einheit Kilokalorie@kcal", 0, 1, times(kJoulesPerKcal), 4186.8},
    {eUnitBTU, L"eUnitBTU", L"@Einheit@British thermal unit", L"@Einheit British thermal unit@Btu", 0, 1, times(kWattsPerBtuPerHour).times(3600), 1055.05585262},
    {eUnitftlb, L"eUnitftlb", L"@Einheit@Foot-pound", L"@Einheit Foot-pound@ft·lb", 0, 1, times(kGramsPerPound / 1000 * kGravity).over(kFeetPerMeter), 1.3558179483314003},
    {eUnitGroupWaermeverlust, L"eUnitGroupWaermeverlust", L"@Einheitengruppe@Wärmeverlust", L"", 0, 2, unknown(), 0},
    {eUnitWpM, L"eUnitWpM", L"@Einheit@Watt pro Meter", L"@Einheit Watt pro Meter@W/m", 0, 2, base(), 1},
    {eUnitkWpM, L"eUnitkWpM", L"@Einheit@Kilowatt pro Meter", L"@Einheit Kilowatt pro Meter@kW/m", 0, 2, times(1000), 1000},
    {eUnitGroupPipeSpecific, L"eUnitGroupPipeSpecific", L"@Einheitengruppe@Rohrleitungs-spezifisch", L"", 0, 2, unknown(), 0},
    {eUnitMMpMpK, L"eUnitMMpMpK", L"@Einheit@Millimeter pro Meter und Kelvin", L"@Einheit Millimeter pro Meter und Kelvin@mm/(mK)", 0, 2, base(), 0},
    {eUnitKGpM, L"eUnitKGpM", L"@Einheit@Kilogramm pro Meter", L"@Einheit Kilogramm pro Meter@kg/m", 0, 2, apart(), 0},
    {eUnitKNpM2, L"eUnitKNpM2", L"@Einheit@Kilonewton pro m2", L"@Einheit Kilonewton pro m2@kN/m2", 0, 2, apart(), 0},
    {eUnitLpM, L"eUnitLpM", L"@Einheit@Liter pro Meter", L"@Einheit Liter pro Meter@l/m", 0, 2, apart(), 0},
    {eUnitGroupPipeDimensions, L"eUnitGroupPipeDimensions", L"@Einheitengruppe@Rohrdimension", L"", 0, 2, unknown(), 0},
    {eUnitDN, L"eUnitDN", L"@Einheit@Nennweite", L"@Einheit Nennweite@DN", 0, 0, base(), 0},
    {eUnitNPS, L"eUnitNPS", L"@Einheit@Nennweite (NPS)", L"@Einheit Nennweite (NPS)@NPS", 1, 0, apart(), 0},
    {eUnitPN, L"eUnitPN", L"@Einheit@Nenndruck", L"@Einheit Nenndruck@PN", 0, 0, base(), 0},
    {eUnitGroupOther, L"eUnitGroupOther", L"@Einheitengruppe@Andere", L"", 0, 2, unknown(), 0},
    {eUnitKWHpD, L"eUnitKWHpD", L"@Einheit@Kilowattstunde pro Tag", L"@Einheit Kilowattstunde pro Tag@kWh/d", 0, 2, base(), 1},
    {eUnitGroupKvsCv, L"eUnitGroupKvsCv", L"@Einheitengruppe@Kv/Cv-Wert", L"", 0, 2, unknown(), 0},
    {eUnitM3pHAt1bar, L"eUnitM3pHAt1bar", L"@Einheit@m3 pro Stunde bei 1 bar", L"@Einheit m3 pro Stunde bei 1 bar@m3/h (1 bar)", 0, 2, base(), 1},
    {eUnitUSgpmAt1psi, L"eUnitUSgpmAt1psi", L"@Einheit@US-Gallonen pro Minute bei 1 psi", L"@Einheit US-Gallonen pro Minute bei 1 psi@gpm (1 psi)", 0, 2, times(0.857), 0.8649776554423017},
    {eUnitGroupDimensionslos, L"eUnitGroupDimensionslos", L"@Einheitengruppe@Ohne Einheit", L"", 0, 2, unknown(), 0},
    {eUnitText, L"eUnitText", L"@Einheit@Text", L"", 0, 0, base(), 0},
    {eUnitInteger, L"eUnitInteger", L"@Einheit@Ganzzahl", L"", 0, 0, apart(), 0},
    {eUnitFloat, L"eUnitFloat", L"@Einheit@Fließkommazahl", L"", 0, 2, apart(), 0},
    {eUnitBoolean, L"eUnitBoolean", L"@Einheit@Ja/Nein", L"", 5, 0, apart(), 0},
};
// clang-format on

constexpr bool isNumberedAsAgreed() {
    for (std::size_t i = 1; i < std::size(kRows); ++i) {
        const int before = kRows[i - 1].value, value = kRows[i].value;
        if (value <= before) return false;
        const bool opens = value % 1000 == 0 || value == eUnitPN;
        if (!opens && value != before + 1) return false;
        const bool isBase = value % 1000 == 1;
        if (isBase != (kRows[i].toBase.kind == ToBase::Kind::kBase)) return false;
    }
    return kRows[0].value % 1000 == 0;
}
static_assert(isNumberedAsAgreed(), "groups are multiples of 1000, units follow without gaps, the first is the base");

static_assert(std::size(kRows) < 256);

}  // namespace

namespace detail {

constexpr UnitIndex unitIndex = [] {
    UnitIndex index{};
    for (std::size_t i = 0; i < std::size(kRows); ++i)
        index[groupIndex(static_cast<unsigned>(kRows[i].value) / 1000)][static_cast<unsigned>(kRows[i].value) % 1000] =
            static_cast<unsigned char>(i + 1);
    return index;
}();
constexpr const UnitRow* unitRows = kRows;

}  // namespace detail

std::span<const UnitRow> unitCatalogue() { return kRows; }

}  // namespace orv
