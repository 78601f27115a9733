// What is typed where a value of a unit is expected.
#include <cmath>

#include "framework/characters.h"
#include "framework/plain_number.h"
#include "localization/translate.h"
#include "orv/display_values.h"
#include "text/views.h"
#include "units/label_index.h"
#include "units/typed_numbers.h"

namespace orv {
namespace {

/// A part of a text, by its place.
struct Part {
    std::size_t begin, end;
};

Part trimmed(WideView text, Part part) {
    while (part.begin < part.end && isSpace(text[part.begin]))
        ++part.begin;
    while (part.begin < part.end && isSpace(text[part.end - 1]))
        --part.end;
    return part;
}

enUnit baseUnitOf(enUnit unit) { return static_cast<enUnit>(groupOf(unit) + 1); }

bool isWordPart(wchar_t ch) { return isAlphanumeric(ch) || ch == L'_'; }

class Input {
  public:
    Input(WideView text, enUnit unit, ExpressionNames* names)
        : text_(text), whole_(trimmed(text, {0, text.size()})), names_(names) {
        result_.unit = unit;
    }

    ParsedBaseValue read() {
        if (!readPlain()) {
            const UnitRow* row = findUnit(result_.unit);
            if (row == nullptr || row->toBase.kind == ToBase::Kind::kUnknown || result_.unit == eUnitText) {
                fail(InputError::kUnknownUnit, whole_);
            } else if (whole_.begin == whole_.end) {
                fail(InputError::kEmpty, whole_);
            } else if (result_.unit == eUnitBoolean) {
                readBoolean();
            } else {
                readNumberAndLabel();
            }
        }
        return result_;
    }

  private:
    WideView viewOfPart(Part part) const { return text_.substr(part.begin, part.end - part.begin); }

    void fail(InputError error, Part part) {
        result_.ok = false;
        result_.value = 0;
        result_.error = error;
        result_.position = static_cast<int>(part.begin);
        result_.length = static_cast<int>(part.end - part.begin);
    }
    /// A number in `from`, which is of the group of the expected unit, and nothing in it is wrong.
    void succeed(double number, enUnit from) {
        double base = 0;
        const UnitConversion done = tryConvert(number, from, baseUnitOf(from), base);
        if (from != result_.unit && done == UnitConversion::kNoCommonQuantity) {
            fail(InputError::kOtherQuantity, label_);
        } else if (!std::isfinite(base)) {
            fail(InputError::kNotFinite, whole_);
        } else {
            result_.ok = true;
            result_.value = base;
            result_.unit = from;
        }
    }

    /// What most input is: a plain number, and nothing or the expected unit's label behind it.
    bool readPlain() {
        const UnitRow* row = findUnit(result_.unit);
        if (row == nullptr || whole_.begin == whole_.end) return false;
        if (row->toBase.kind != ToBase::Kind::kFactors && row->toBase.kind != ToBase::Kind::kBase) return false;
        const PlainNumber number = readPlainNumber(text_.data() + whole_.begin, text_.data() + whole_.end);
        const std::size_t behind = whole_.begin + number.length;
        if (number.length == 0 || result_.unit == eUnitText) return false;
        if (behind != whole_.end) {
            const Part label = trimmed(text_, {behind, whole_.end});
            if (label.begin == behind && isAsciiDigit(text_[behind])) return false;
            if (!sameText(viewOf(LabelIndex::current().labelOf(*row)), viewOfPart(label))) return false;
        }
        const double base = row->toBase.apply(number.value);  // of 15 digits: finite
        result_.ok = true;
        result_.value = base;
        if (number.mayMeanThousands) result_.warnings |= kCommaReadAsPoint;
        return true;
    }

    void readBoolean() {
        const CString typed = textOf(viewOfPart(whole_));
        constexpr struct {
            const wchar_t *key, *german;
            bool value;
        } kWords[] = {{L"@yes or no@Ja", L"Ja", true},
                      {L"@yes or no@Nein", L"Nein", false},
                      {L"@true or false@Wahr", L"Wahr", true},
                      {L"@true or false@Falsch", L"Falsch", false}};
        for (const auto& word : kWords) {  // the current language first: its words may be German ones of other meaning
            if (typed.CompareNoCase(translate(word.key)) == 0) return succeed(word.value ? 1 : 0, eUnitBoolean);
        }
        for (const auto& word : kWords) {
            if (typed.CompareNoCase(word.german) == 0) return succeed(word.value ? 1 : 0, eUnitBoolean);
        }
        const Evaluation number = evaluate(viewOfPart(whole_), names_);
        result_.warnings = number.warnings;
        if (!number.ok || std::isnan(number.value)) return fail(InputError::kNoBoolean, whole_);
        succeed(number.value != 0 ? 1 : 0, eUnitBoolean);
    }

    void readNumberAndLabel() {
        const LabelIndex& labels = LabelIndex::current();
        enUnit named = eUnitUndefined;
        label_ = {whole_.end, whole_.end};
        // From the left, so that the longest label counts; one behind a blank, a number or a bracket.
        std::size_t at = whole_.begin;
        if (whole_.end - whole_.begin > labels.longest()) at = std::max(at, whole_.end - labels.longest());
        for (; at < whole_.end && named == eUnitUndefined; ++at) {
            const wchar_t before = at == whole_.begin ? L' ' : text_[at - 1], first = text_[at];
            const bool isInWord = isWordPart(before) && isWordPart(first) && (isDigit(first) || !isDigit(before));
            if (isSpace(first) || isInWord) continue;
            named = labels.find(text_.substr(at, whole_.end - at), groupOf(result_.unit));
            if (named != eUnitUndefined) label_.begin = at;
        }
        const Part number = trimmed(text_, {whole_.begin, label_.begin});
        if (number.begin != number.end) return readNumber(number, named == eUnitUndefined ? result_.unit : named);
        const Evaluation name = evaluate(viewOfPart(whole_), names_);  // a macro that is called like a unit
        if (!name.ok) return fail(InputError::kEmpty, number);
        result_.warnings = name.warnings;
        succeed(name.value, result_.unit);
    }

    void readNumber(Part part, enUnit from) {
        const WideView number = viewOfPart(part);
        if (groupOf(from) == eUnitGroupLaenge && hasImperialSigns(number)) {
            if (label_.begin != label_.end) return failSyntax(kSyntaxError, label_);  // a unit was named already
            return take(readFeetAndInches(number), part, eUnitInch);
        }
        const TypedNumber plain = readDecimalOrMixed(number);
        if (plain.kind == TypedNumber::Kind::kDividedByZero) return take(plain, part, from);
        const Evaluation found = evaluate(number, names_);
        if (found.ok) {
            result_.warnings = found.warnings;
            return succeed(found.value, from);
        }
        if (plain.kind == TypedNumber::Kind::kNumber) return take(plain, part, from);
        explain(found, part);
    }

    void take(const TypedNumber& number, Part part, enUnit from) {
        const Part wrong = {part.begin + number.position, part.end};
        switch (number.kind) {
            case TypedNumber::Kind::kNumber:
                return succeed(number.value, from);
            case TypedNumber::Kind::kDividedByZero:
                return failSyntax(kDivisionByZero, part);
            default:
                return failSyntax(kSyntaxError, wrong);
        }
    }

    void failSyntax(int expressionError, Part part) {
        fail(InputError::kSyntax, part);
        result_.expressionError = expressionError;
    }

    /// What is wrong in an expression may be a unit that is not expected.
    void explain(const Evaluation& found, Part part) {
        if (found.isInMacro) return failSyntax(found.error, part);
        const std::size_t at = part.begin + static_cast<std::size_t>(found.position);
        const Part rest = {at, part.end};
        const Part before = trimmed(text_, {part.begin, at});
        const bool isNumberBefore = before.begin != before.end && evaluate(viewOfPart(before), names_).ok;
        const enUnit named = LabelIndex::current().find(viewOfPart(rest));
        if (isNumberBefore && named != eUnitUndefined) return fail(InputError::kOtherQuantity, rest);
        if (isNumberBefore && at < part.end && isLetter(text_[at])) return fail(InputError::kUnknownUnit, rest);
        failSyntax(found.error, {at, at + static_cast<std::size_t>(found.length)});
    }

    const WideView text_;
    const Part whole_;
    Part label_{};  // empty when there is none
    ExpressionNames* const names_;
    ParsedBaseValue result_;
};

}  // namespace

ParsedBaseValue parseBaseValue(WideView text, enUnit unit, ExpressionNames* names) {
    return Input(text, unit, names).read();
}

}  // namespace orv
