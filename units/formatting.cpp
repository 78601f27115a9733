#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

#include "localization/translate.h"
#include "units/catalogue.h"

namespace orv {

namespace {

constexpr double kMostTicks = 9007199254740992.0;  // 2^53: whole numbers up to here are exact

CString withoutTrailingZeros(CString text, wchar_t decimalSign) {
    if (text.Find(decimalSign) < 0) return text;
    text.TrimRight(L'0');
    text.TrimRight(decimalSign);
    return text;
}

CString decimalText(double value, int decimals, wchar_t decimalSign) {
    if (std::isnan(value)) return L"nan";
    char digits[400];  // 309 digits, sign, point and eight decimals
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr;
    const bool isZero = std::none_of(digits, end, [](char ch) { return (ch >= '1' && ch <= '9') || ch == 'i'; });
    const char* first = digits[0] == '-' && isZero ? digits + 1 : digits;
    CString text;
    for (; first != end; ++first)
        text += *first == '.' ? decimalSign : static_cast<wchar_t>(static_cast<unsigned char>(*first));
    return text;
}

CString wholeText(double value) { return decimalText(value, 0, L'.'); }

// "3 1/2" of 7 halves.
CString fractionText(double ticks, int denominator) {
    const double whole = std::floor(ticks / denominator);
    const int rest = static_cast<int>(ticks - whole * denominator);
    if (rest == 0) return wholeText(whole);
    const int divisor = std::gcd(rest, denominator);
    return wholeText(whole) + L" " + wholeText(rest / divisor) + L"/" + wholeText(denominator / divisor);
}

// Inches of `ticks`, each a `perInch`-th of an inch.
CString inchText(double ticks, int perInch, int decimals, wchar_t decimalSign) {
    return decimals < 0 ? fractionText(ticks, perInch) : decimalText(ticks / perInch, decimals, decimalSign);
}

CString signedText(double value, double ticks, const CString& text) {
    return value < 0 && ticks != 0 ? L"-" + text : text;
}

CString fractionOf(double value, int precision, wchar_t decimalSign) {
    const int denominator = 2 << precision;
    const double ticks = std::round(std::fabs(value) * denominator);
    if (!(ticks < kMostTicks)) return decimalText(value, 0, decimalSign);
    return signedText(value, ticks, fractionText(ticks, denominator));
}

CString feetAndInches(double inches, int perInch, int decimals, wchar_t decimalSign) {
    const double ticks = std::round(std::fabs(inches) * perInch);
    if (!(ticks < kMostTicks)) return decimalText(inches, 0, decimalSign);
    const double perFoot = 12.0 * perInch, feet = std::floor(ticks / perFoot);
    return signedText(
        inches, ticks,
        wholeText(feet) + L"'-" + inchText(ticks - feet * perFoot, perInch, decimals, decimalSign) + L"\"");
}

}  // namespace

CString formatBaseValue(double value, enUnit unit, enUnitFormat format, enUnitPrec precision, wchar_t decimalSign) {
    if (format == eUnitFormatYesNo) return translate(value != 0 ? L"@yes or no@Ja" : L"@yes or no@Nein");
    if (format == eUnitFormatTrueFalse)
        return translate(value != 0 ? L"@true or false@Wahr" : L"@true or false@Falsch");
    const bool isLength = groupOf(unit) == eUnitGroupLaenge;
    const double shown = convertFromBaseUnit(value, unit);
    const int decimals = std::clamp<int>(precision, 0, 8), power = std::clamp<int>(precision, 0, 7);
    switch (format) {
        case eUnitFormatFraction:
            return fractionOf(shown, power, decimalSign);
        case eUnitFormatEngineering: {
            if (!isLength) break;
            int perInch = 1;
            for (int i = 0; i < decimals; ++i)
                perInch *= 10;
            return feetAndInches(convertFromBaseUnit(value, eUnitInch), perInch, decimals, decimalSign);
        }
        case eUnitFormatArchitectural:
            if (!isLength) return fractionOf(shown, power, decimalSign);
            return feetAndInches(convertFromBaseUnit(value, eUnitInch), 2 << power, -1, decimalSign);
        case eUnitFormatTruncated:
            return withoutTrailingZeros(decimalText(shown, decimals, decimalSign), decimalSign);
        default:
            break;
    }
    return decimalText(shown, decimals, decimalSign);
}

}  // namespace orv
