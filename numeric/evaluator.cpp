#include "numeric/evaluator.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <numbers>

#include "framework/plain_number.h"
#include "numeric/character_kinds.h"
#include "text/views.h"

namespace orv {
namespace {

constexpr int kMostMacros = 100'000;  // macros that double each other must come to an end

int truncated(double value) {
    if (std::isnan(value)) return 0;
    return value >= INT_MAX ? INT_MAX : value <= INT_MIN ? INT_MIN : static_cast<int>(value);
}

WideView trimmed(WideView text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace

/// One level of brackets or of macros, as far as levels go.
class Evaluator::Nested {
  public:
    explicit Nested(Evaluator& owner) : limits_(owner.limits_) {
        if (++limits_.depth > kDeepestExpression) owner.fail(kSyntaxError);
    }
    ~Nested() { --limits_.depth; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

  private:
    EvaluationLimits& limits_;
};

// ---- Tokens ----

void Evaluator::read(CommaMeans comma) {
    while (at_ < end_ && kindOf(*at_) == CharacterKind::kSpace)
        ++at_;
    token_.at = at_;
    token_.end = at_;
    if (at_ == end_) {
        token_.kind = Kind::kEnd;
        return;
    }
    const wchar_t ch = *at_;
    token_.sign = ch;
    switch (kindOf(ch)) {
        case CharacterKind::kDigit:
            return readNumber(comma);
        case CharacterKind::kLetter:
            return readName();
        case CharacterKind::kPoint:
            if (end_ - at_ > 1 && isAsciiDigit(at_[1]) && (ch == L'.' || comma != CommaMeans::kSeparator)) {
                return readNumber(comma);
            }
            [[fallthrough]];
        case CharacterKind::kStop:
            token_.end = ++at_;
            token_.kind = Kind::kStatementEnd;
            return;
        case CharacterKind::kFortranSign:
            if (dialect_ != ExpressionDialect::kFortran) break;
            [[fallthrough]];
        case CharacterKind::kSign:
            token_.end = ++at_;
            token_.kind = Kind::kOperator;
            return;
        default:
            break;
    }
    token_.end = ++at_;
    fail(kInvalidCharacter);
}

void Evaluator::readNumber(CommaMeans comma) {
    if (comma == CommaMeans::kDecimal) {
        const PlainNumber plain = readPlainNumber(at_, end_);
        if (plain.length != 0) {
            at_ += plain.length;
            token_.end = at_;
            token_.kind = Kind::kNumber;
            token_.value = plain.value;
            if (plain.mayMeanThousands) result_.warnings |= kCommaReadAsPoint;
            return;
        }
    }
    const std::size_t length = numberRunLength(at_, end_, comma);
    const WideView run(at_, length);
    at_ += length;
    token_.end = at_;
    token_.kind = Kind::kNumber;
    if (length > kLongestToken || !numberOfRun(run, token_.value)) {
        fail(kSyntaxError);
    } else if (mayMeanThousands(run)) {
        result_.warnings |= kCommaReadAsPoint;
    }
}

void Evaluator::readName() {
    const wchar_t* const begin = at_;
    while (at_ < end_ && isNameCharacter(*at_))
        ++at_;
    token_.end = at_;
    const WideView name(begin, static_cast<std::size_t>(at_ - begin));
    if (name.size() > kLongestToken) {
        fail(kSyntaxError);
        return;
    }
    token_.keyword = keywordOf(name, dialect_);
    if (token_.keyword != Keyword::kNone) {
        token_.kind = Kind::kKeyword;
        return;
    }
    double value = 0;
    const bool isKnown = resolve(name, value);  // may read on, behind an array's name
    token_.kind = isKnown ? Kind::kNumber : Kind::kStatementEnd;
    token_.sign = 0;
    token_.value = value;
    token_.at = begin;
    if (hasFailed()) token_.kind = Kind::kEnd;
}

bool Evaluator::resolve(WideView name, double& value) {
    if (names_ == nullptr) return false;
    // Hosts take names as C texts.
    wchar_t text[kLongestToken + 1];
    WideTraits::copy(text, name.data(), name.size());
    text[name.size()] = 0;
    const WideView terminated(text, name.size());
    CString macro;
    if (names_->macroText(terminated, macro)) return macroValue(macro, value);
    if (dialect_ == ExpressionDialect::kFortran && names_->hasArray(terminated)) return elementValue(terminated, value);
    return names_->variable(terminated, value);
}

bool Evaluator::macroValue(const CString& text, double& value) {
    const WideView expression = trimmed(viewOf(text));
    const Nested level(*this);
    if (hasFailed()) return false;
    if (expression.empty() || ++limits_.macros > kMostMacros) {
        fail(kSyntaxError);
        return false;
    }
    Evaluation inner = Evaluator(expression, names_->inMacros(), dialect_, limits_).run();
    if (inner.ok) {
        value = inner.value;
        return true;
    }
    const unsigned warnings = result_.warnings;
    result_ = std::move(inner);
    result_.isInMacro = true;
    result_.warnings |= warnings;
    at_ = end_;
    return false;
}

bool Evaluator::elementValue(WideView name, double& value) {
    const wchar_t* const begin = token_.at;
    read();
    const bool isRound = isOperator(L'(');
    if (!isRound && !isOperator(L'[')) {
        fail(kSyntaxError);
        return false;
    }
    const Nested level(*this);
    read();
    const int index = truncated(expression());
    if (hasFailed()) return false;
    if (!isOperator(isRound ? L')' : L']')) {
        fail(kBracketNotClosed);
        return false;
    }
    CString element;
    if (!names_->arrayElement(name, index, element)) {
        failAt(kSyntaxError, begin, at_);
        return false;
    }
    return macroValue(element, value);
}

// ---- Grammar: each function leaves the token behind what it read ----

double Evaluator::fail(ExpressionError error) { return failAt(error, token_.at, token_.end); }

double Evaluator::failAt(ExpressionError error, const wchar_t* at, const wchar_t* end) {
    if (!hasFailed()) {
        result_.error = error;
        result_.position = static_cast<int>(at - begin_);
        result_.length = static_cast<int>(end - at);
        result_.text = textOf({begin_, static_cast<std::size_t>(end_ - begin_)});
    }
    // Evaluation ends at its first error.
    token_.kind = Kind::kEnd;
    token_.at = token_.end = at_ = end_;
    return 0;
}

double Evaluator::expression(CommaMeans comma) {
    double value = term(comma);
    while (token_.kind == Kind::kOperator && (token_.sign == L'+' || token_.sign == L'-' || token_.sign == L'|')) {
        const wchar_t sign = token_.sign;
        read(comma);
        const double right = term(comma);
        if (sign == L'|') {
            value = truncated(value) | truncated(right);
        } else {
            value = sign == L'+' ? value + right : value - right;
        }
    }
    return value;
}

// ODDITY(expression-sine-replaces): SIN directly behind a term takes its place, and 2 SIN(0) is 0. Pinned by
// Expressions.HaveTheseValues.
double Evaluator::term(CommaMeans comma) {
    double value = power(comma);
    for (;;) {
        if (token_.kind == Kind::kKeyword && token_.keyword == Keyword::kSin) {
            result_.warnings |= kTermReplaced;
            read(comma);
            value = std::sin(power(comma));
        } else if (isOperator(L'*')) {
            read(comma);
            value *= power(comma);
        } else if (isOperator(L'/')) {
            read(comma);
            const Token divisor = token_;
            const double right = power(comma);
            if (right == 0 && !hasFailed()) return failAt(kDivisionByZero, divisor.at, divisor.end);
            value /= right;
        } else {
            return value;
        }
    }
}

double Evaluator::power(CommaMeans comma) {
    const double base = primary(comma);
    if (!isOperator(L'^')) return base;
    read(comma);
    const double exponent = primary(comma);
    return exponent == 2 ? base * base : std::pow(base, exponent);  // squares are most
}

// ODDITY(expression-missing-operand): the end of the text is an operand of 1, so that 2+ is 3. Pinned by
// Expressions.HaveTheseValues.
double Evaluator::primary(CommaMeans comma) {
    bool isNegative = false;
    while (isOperator(L'-') || isOperator(L'+')) {
        isNegative = isNegative != isOperator(L'-');
        read(comma);
    }
    double value = 0;
    if (token_.kind == Kind::kNumber) {
        value = token_.value;
        read(comma);
    } else if (isOperator(L'(')) {
        const Nested level(*this);
        read();
        value = expression();
        close(L')', comma);
    } else if (isOperator(L'%')) {
        value = remainder();
        close(L')', comma);
    } else if (token_.kind == Kind::kKeyword) {
        value = keywordValue(comma);
    } else if (token_.kind == Kind::kEnd) {
        if (!hasFailed()) result_.warnings |= kMissingOperand;
        value = 1;
    } else {
        return fail(kSyntaxError);
    }
    return isNegative ? -value : value;
}

bool Evaluator::open() {
    read();
    if (isOperator(L'(')) return true;
    fail(kSyntaxError);
    return false;
}

bool Evaluator::close(wchar_t bracket, CommaMeans behind) {
    if (hasFailed()) return false;
    if (!isOperator(bracket)) {
        fail(kBracketNotClosed);
        return false;
    }
    read(behind);
    return true;
}

/// %(a;b) up to the token behind b. Any one token separates.
double Evaluator::remainder() {
    if (!open()) return 0;
    const Nested level(*this);
    read(CommaMeans::kSeparatorUnlessDigit);
    const int a = truncated(expression(CommaMeans::kSeparatorUnlessDigit));
    read();
    const Token divisor = token_;
    const int b = truncated(expression());
    if (hasFailed()) return 0;
    if (b == 0) return failAt(kDivisionByZero, divisor.at, divisor.end);
    return b == -1 ? 0 : a % b;  // the smallest integer by -1 would trap
}

double Evaluator::keywordValue(CommaMeans comma) {
    const Keyword keyword = token_.keyword;
    if (keyword == Keyword::kPi) {
        read(comma);
        return std::numbers::pi;
    }
    if (keyword == Keyword::kChar) return fail(kSyntaxError);
    if (!open()) return 0;
    const Nested level(*this);
    double value = 0;
    if (keyword == Keyword::kIchar) {
        value = codeOfMacro();
    } else if (keyword == Keyword::kMin || keyword == Keyword::kMax || keyword == Keyword::kMod) {
        read(CommaMeans::kSeparator);
        const double a = expression(CommaMeans::kSeparator);
        if (token_.kind != Kind::kStatementEnd || token_.sign != L',') return fail(kSyntaxError);
        read(CommaMeans::kSeparator);
        const double b = expression(CommaMeans::kSeparator);
        if (keyword == Keyword::kMod && b == 0) return fail(kSyntaxError);
        value = keyword == Keyword::kMin ? std::min(a, b) : keyword == Keyword::kMax ? std::max(a, b) : std::fmod(a, b);
    } else {
        read();
        value = intrinsic(keyword, expression());
    }
    close(L')', comma);
    return value;
}

double Evaluator::intrinsic(Keyword keyword, double x) {
    const auto within = [&](bool isInDomain, double value) { return isInDomain ? value : fail(kSyntaxError); };
    switch (keyword) {
        case Keyword::kSin:
            return std::sin(x);
        case Keyword::kCos:
            return std::cos(x);
        case Keyword::kTan:
            return std::tan(x);
        case Keyword::kSqrt:
            return within(x >= 0, std::sqrt(x));
        case Keyword::kLog10:
            return within(x > 0, std::log10(x));
        case Keyword::kLog:
            return within(x > 0, std::log(x));
        case Keyword::kAbs:
            return std::fabs(x);
        case Keyword::kAcos:
            return within(x >= -1 && x <= 1, std::acos(x));
        case Keyword::kAsin:
            return within(x >= -1 && x <= 1, std::asin(x));
        case Keyword::kAtan:
            return std::atan(x);
        case Keyword::kCosh:
            return std::cosh(x);
        case Keyword::kSinh:
            return std::sinh(x);
        case Keyword::kExp:
            return std::exp(x);
        case Keyword::kInt:
            return std::trunc(x);
        case Keyword::kNint:
            return std::floor(x + 0.5);
        default:
            return fail(kSyntaxError);
    }
}

/// ICHAR(name): the name is not evaluated.
double Evaluator::codeOfMacro() {
    while (at_ < end_ && kindOf(*at_) == CharacterKind::kSpace)
        ++at_;
    const wchar_t* const begin = at_;
    while (at_ < end_ && isNameCharacter(*at_))
        ++at_;
    const CString name = textOf({begin, static_cast<std::size_t>(at_ - begin)});
    CString text;
    if (names_ == nullptr || name.IsEmpty() || viewOf(name).size() > kLongestToken ||
        !names_->macroText(viewOf(name), text) || text.IsEmpty()) {
        return failAt(kSyntaxError, begin, at_);
    }
    read();
    return text[0];
}

// ---- Whole texts ----

Evaluation Evaluator::run() {
    read();
    if (token_.kind == Kind::kEnd && !hasFailed()) return std::move(result_);
    const double value = expression();
    if (!hasFailed() && token_.kind != Kind::kEnd) fail(kSyntaxError);
    result_.ok = !hasFailed();
    result_.value = result_.ok ? value : 0;
    return std::move(result_);
}

bool Evaluator::runChar(double& code) {
    read();
    if (token_.kind != Kind::kKeyword || token_.keyword != Keyword::kChar || !open()) return false;
    read();
    code = expression();
    return close(L')', CommaMeans::kDecimal) && token_.kind == Kind::kEnd && !hasFailed();
}

}  // namespace orv
