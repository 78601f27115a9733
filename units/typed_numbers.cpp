#include "units/typed_numbers.h"

#include <algorithm>
#include <string>

#include "framework/characters.h"
#include "orv/numbers.h"

namespace orv {
namespace {

constexpr WideView kFeetSigns = L"'\x2032\x2019";
constexpr WideView kInchSigns = L"\"\x2033\x201D";

/// A text that is read from its start.
class Reader {
  public:
    explicit Reader(WideView text) : text_(text) {}

    std::size_t position() const { return at_; }
    bool isAtEnd() const { return at_ == text_.size(); }
    bool isAtDigit() const { return at_ < text_.size() && isAsciiDigit(text_[at_]); }
    /// Whether there was any.
    bool skipBlanks() {
        const std::size_t from = at_;
        while (at_ < text_.size() && isSpace(text_[at_]))
            ++at_;
        return at_ != from;
    }
    bool takeOne(WideView of) {
        const bool isThere = at_ < text_.size() && of.find(text_[at_]) != WideView::npos;
        at_ += isThere ? 1 : 0;
        return isThere;
    }
    /// A minus counts, a plus may stand.
    bool takeSign() {
        const bool isNegative = takeOne(L"-");
        if (!isNegative) takeOne(L"+");
        skipBlanks();
        return isNegative;
    }
    /// Digits, with `decimals` also a point or comma and more digits. False, and nothing taken, without a digit.
    bool takeNumber(bool decimals, double& value) {
        std::size_t end = at_;
        std::size_t points = 0;
        for (; end < text_.size(); ++end) {
            const bool isPoint = decimals && (text_[end] == L',' || text_[end] == L'.');
            if (!isAsciiDigit(text_[end]) && !(isPoint && points++ == 0)) break;
        }
        WideString number(text_.substr(at_, end - at_));
        std::replace(number.begin(), number.end(), L',', L'.');
        const ParsedDouble parsed = parseDouble(number);
        if (parsed.length == 0) return false;
        value = parsed.value;
        at_ = end;
        return true;
    }
    /// "1/2".
    bool takeFraction(double& numerator, double& denominator) {
        return takeNumber(false, numerator) && takeOne(L"/") && takeNumber(false, denominator);
    }
    void goTo(std::size_t position) { at_ = position; }

  private:
    WideView text_;
    std::size_t at_ = 0;
};

using Kind = TypedNumber::Kind;

/// "4", "4.5", "4 1/2", "1/2". kNone, and nothing taken, without a digit.
Kind readMixed(Reader& in, double& value) {
    const std::size_t start = in.position();
    double numerator = 0, denominator = 1;
    double whole = 0;
    if (!in.takeFraction(numerator, denominator)) {
        in.goTo(start);
        if (!in.takeNumber(true, whole)) return Kind::kNone;
        const std::size_t behind = in.position();
        if (!in.skipBlanks() || !in.takeFraction(numerator, denominator)) {
            in.goTo(behind);
            numerator = 0;
            denominator = 1;
        }
    }
    if (denominator == 0) return Kind::kDividedByZero;
    value = whole + numerator / denominator;
    return Kind::kNumber;
}

}  // namespace

TypedNumber readDecimalOrMixed(WideView text) {
    Reader in(text);
    const bool isNegative = in.takeSign();
    TypedNumber result;
    result.kind = readMixed(in, result.value);
    if (!in.isAtEnd()) result.kind = Kind::kNone;
    if (isNegative) result.value = -result.value;
    return result;
}

bool hasImperialSigns(WideView text) {
    return std::any_of(text.begin(), text.end(), [](wchar_t ch) {
        return kFeetSigns.find(ch) != WideView::npos || kInchSigns.find(ch) != WideView::npos;
    });
}

TypedNumber readFeetAndInches(WideView text) {
    constexpr double kInchesPerFoot = 12;
    Reader in(text);
    const bool isNegative = in.takeSign();
    double first = 0, inches = 0;
    Kind kind = readMixed(in, first);
    if (kind == Kind::kNone) kind = Kind::kWrong;
    if (kind == Kind::kNumber) {
        in.skipBlanks();
        if (in.takeOne(kFeetSigns)) {
            first *= kInchesPerFoot;
            in.skipBlanks();
            if (in.takeOne(L"-")) in.skipBlanks();
            kind = readMixed(in, inches);
            if (kind == Kind::kNone) kind = in.isAtEnd() ? Kind::kNumber : Kind::kWrong;
            in.skipBlanks();
            if (kind == Kind::kNumber) in.takeOne(kInchSigns);
        } else if (!in.takeOne(kInchSigns)) {
            kind = Kind::kWrong;
        }
    }
    if (kind == Kind::kNumber && !in.isAtEnd()) kind = Kind::kWrong;
    const double value = first + inches;
    return {kind, isNegative ? -value : value, in.position()};
}

}  // namespace orv
