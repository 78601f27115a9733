#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

#include "localization/translate.h"
#include "orv/display_values.h"
#include "units/catalogue.h"

namespace orv {

namespace {

constexpr double kMostTicks = 9007199254740992.0;  // 2^53: whole numbers up to here are exact

/// A text that is being put together.
class Shown {
  public:
    explicit Shown(wchar_t decimalSign) : decimalSign_(decimalSign) {}

    void put(wchar_t ch) { *end_++ = ch; }
    /// Nothing that rounds to zero has a sign.
    void putDecimal(double value, int decimals) {
        char digits[kMostDigits];
        const double written = std::isnan(value) ? std::fabs(value) : value;
        const char* const end =
            std::to_chars(digits, digits + sizeof digits, written, std::chars_format::fixed, decimals).ptr;
        const bool hasSign = digits[0] == '-';
        const bool isZero =
            hasSign && std::all_of<const char*>(digits + 1, end, [](char ch) { return ch == '0' || ch == '.'; });
        for (const char* from = digits + (isZero ? 1 : 0); from != end; ++from)
            put(*from == '.' ? decimalSign_ : static_cast<wchar_t>(*from));
    }
    void putWhole(double value) {
        char digits[kMostDigits];
        const char* const end =
            value < kMostTicks ? std::to_chars(digits, digits + sizeof digits, static_cast<long long>(value)).ptr
                               : std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr;
        for (const char* from = digits; from != end; ++from)
            put(static_cast<wchar_t>(*from));
    }
    /// "3 1/2" of 7 halves.
    void putFraction(double ticks, int denominator) {
        const double whole = std::floor(ticks / denominator);
        const int rest = static_cast<int>(ticks - whole * denominator);
        putWhole(whole);
        if (rest == 0) return;
        const int divisor = std::gcd(rest, denominator);
        put(L' ');
        putWhole(rest / divisor);
        put(L'/');
        putWhole(denominator / divisor);
    }
    void dropTrailingZeros() {
        if (std::find(text_, end_, decimalSign_) == end_) return;
        while (end_[-1] == L'0')
            --end_;
        if (end_[-1] == decimalSign_) --end_;
    }
    CString text() const { return {text_, static_cast<int>(end_ - text_)}; }

  private:
    static constexpr int kMostDigits = 400;  // 309 digits, sign, point and eight decimals
    wchar_t decimalSign_;
    wchar_t text_[kMostDigits];
    wchar_t* end_ = text_;
};

void putSignedFraction(Shown& out, double value, int denominator) {
    const double ticks = std::round(std::fabs(value) * denominator);
    if (!(ticks < kMostTicks)) return out.putDecimal(value, 0);
    if (value < 0 && ticks != 0) out.put(L'-');
    out.putFraction(ticks, denominator);
}

/// Feet and inches in ticks of a `perInch`-th of an inch, which are shown in decimals, or as a fraction if those are
/// negative. False for more than ticks can count.
bool putFeetAndInches(Shown& out, double inches, int perInch, int decimals) {
    const double ticks = std::round(std::fabs(inches) * perInch);
    if (!(ticks < kMostTicks)) return false;
    const double perFoot = 12.0 * perInch, feet = std::floor(ticks / perFoot);
    if (inches < 0 && ticks != 0) out.put(L'-');
    out.putWhole(feet);
    out.put(L'\'');
    out.put(L'-');
    const double rest = ticks - feet * perFoot;
    if (decimals < 0) {
        out.putFraction(rest, perInch);
    } else {
        out.putDecimal(rest / perInch, decimals);
    }
    out.put(L'"');
    return true;
}

int powerOfTen(int exponent) {
    int power = 1;
    while (exponent-- > 0)
        power *= 10;
    return power;
}

}  // namespace

CString formatBaseValue(double value, enUnit unit, enUnitFormat format, enUnitPrec precision, wchar_t decimalSign) {
    if (format == eUnitFormatYesNo) return translate(value != 0 ? L"@yes or no@Ja" : L"@yes or no@Nein");
    if (format == eUnitFormatTrueFalse)
        return translate(value != 0 ? L"@true or false@Wahr" : L"@true or false@Falsch");
    const double shown = convertFromBaseUnit(value, unit);
    const int decimals = std::clamp<int>(precision, 0, 8), power = std::clamp<int>(precision, 0, 7);
    Shown out(decimalSign);
    const bool isImperial = format == eUnitFormatEngineering || format == eUnitFormatArchitectural;
    if (isImperial && groupOf(unit) == eUnitGroupLaenge) {
        const double inches = convertFromBaseUnit(value, eUnitInch);
        const bool isPut = format == eUnitFormatEngineering
                               ? putFeetAndInches(out, inches, powerOfTen(decimals), decimals)
                               : putFeetAndInches(out, inches, 2 << power, -1);
        if (!isPut) out.putDecimal(shown, 0);
    } else if (format == eUnitFormatFraction || format == eUnitFormatArchitectural) {
        putSignedFraction(out, shown, 2 << power);
    } else {
        out.putDecimal(shown, decimals);
        if (format == eUnitFormatTruncated) out.dropTrailingZeros();
    }
    return out.text();
}

CString formatBaseValue(double value, const orvUnitSetting& setting, bool withLabel, wchar_t decimalSign) {
    CString text = formatBaseValue(value, setting.unit, setting.format, setting.precision, decimalSign);
    if (!withLabel || text.Right(1) == L"\"") return text;
    return text + orvUnits::getUnitLabel(setting.unit, true, true);
}

}  // namespace orv
