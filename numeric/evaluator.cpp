#include "numeric/evaluator.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <numbers>

#include "framework/plain_number.h"
#include "numeric/character_kinds.h"
#include "text/views.h"

namespace orv {
namespace {

/// The evaluations of this thread that wait for a host's names, in which others run.
struct Waiting {
    int depth = 0;
    EvaluationLimits* outermost = nullptr;
};
thread_local Waiting waiting;

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
        if (++limits_.depth <= limits_.deepest) return;
        limits_.deepest = kDeepestExpression - waiting.depth;
        if (limits_.depth > limits_.deepest) owner.fail(kSyntaxError);
    }
    ~Nested() { --limits_.depth; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

  private:
    EvaluationLimits& limits_;
};

/// A host's names may evaluate, and so lead back to themselves.
class Evaluator::HostCall {
  public:
    explicit HostCall(Evaluator& owner) : before_(waiting) {
        waiting.depth += owner.limits_.depth + 1;
        if (waiting.outermost == nullptr) {
            waiting.outermost = &owner.limits_;
        } else if (++waiting.outermost->macros > kMostMacroUses) {
            owner.fail(kSyntaxError);
        }
        if (waiting.depth > kDeepestExpression) owner.fail(kSyntaxError);
    }
    ~HostCall() { waiting = before_; }
    HostCall(const HostCall&) = delete;
    HostCall& operator=(const HostCall&) = delete;

  private:
    const Waiting before_;
};

// ---- Tokens ----

inline void Evaluator::read(CommaMeans comma) {
    for (; at_ < end_; ++at_) {
        const CharacterKind kind = kindOf(*at_);
        if (kind == CharacterKind::kSpace) continue;
        tokenAt_ = at_;
        if (kind != CharacterKind::kSign) return readOther(kind, comma);
        token_ = *at_++;
        return;
    }
    tokenAt_ = end_;
    token_ = kEnd;
}

void Evaluator::readOther(CharacterKind kind, CommaMeans comma) {
    const wchar_t ch = *at_;
    switch (kind) {
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
            ++at_;
            token_ = kStatementEnd;
            return;
        case CharacterKind::kFortranSign:
            if (dialect_ != ExpressionDialect::kFortran) break;
            ++at_;
            token_ = ch;
            return;
        default:
            break;
    }
    ++at_;
    fail(kInvalidCharacter);
}

inline void Evaluator::readNumber(CommaMeans comma) {
    token_ = kNumber;
    if (comma == CommaMeans::kDecimal) {
        const PlainNumber plain = readPlainNumber(at_, end_);
        if (plain.length != 0) {
            at_ += plain.length;
            value_ = plain.value;
            if (plain.mayMeanThousands) result_.warnings |= kCommaReadAsPoint;
            return;
        }
    }
    const WideView run(at_, numberRunLength(at_, end_, comma));
    at_ += run.size();
    if (run.size() > kLongestToken || !numberOfRun(run, value_)) {
        fail(kSyntaxError);
    } else if (mayMeanThousands(run)) {
        result_.warnings |= kCommaReadAsPoint;
    }
}

void Evaluator::readName() {
    while (at_ < end_ && isNameCharacter(*at_))
        ++at_;
    const WideView name = token();
    if (name.size() > kLongestToken) {
        fail(kSyntaxError);
        return;
    }
    keyword_ = keywordOf(name, dialect_);
    if (keyword_ != Keyword::kNone) {
        token_ = kKeyword;
        return;
    }
    double value = 0;
    const bool isKnown = resolve(name, value);  // may read on, behind an array's name
    if (hasFailed()) return;
    token_ = isKnown ? kNumber : kStatementEnd;
    value_ = value;
    tokenAt_ = name.data();
}

bool Evaluator::resolve(WideView name, double& value) {
    if (names_ == nullptr) return false;
    if (names_->macroNumber(name, value)) return true;
    // Hosts take names as C texts.
    wchar_t text[kLongestToken + 1];
    WideTraits::copy(text, name.data(), name.size());
    text[name.size()] = 0;
    const WideView terminated(text, name.size());
    CString macro;
    bool isMacro = false;
    {
        const HostCall call(*this);
        if (hasFailed()) return false;
        isMacro = names_->macroText(terminated, macro);
        const bool isArray = !isMacro && dialect_ == ExpressionDialect::kFortran && names_->hasArray(terminated);
        if (!isMacro && !isArray) return names_->variable(terminated, value);
    }
    return isMacro ? macroValue(macro, value) : elementValue(terminated, value);
}

bool Evaluator::macroValue(const CString& text, double& value) {
    const WideView expression = trimmed(viewOf(text));
    const Nested level(*this);
    if (hasFailed()) return false;
    EvaluationLimits& all = waiting.outermost != nullptr ? *waiting.outermost : limits_;
    if (expression.empty() || ++all.macros > kMostMacroUses) {
        fail(kSyntaxError);
        return false;
    }
    Evaluation inner;
    Evaluator(expression, names_->inMacros(), dialect_, limits_, inner).run();
    inner.warnings |= result_.warnings;
    if (inner.ok) {
        result_.warnings = inner.warnings;
        value = inner.value;
        return true;
    }
    result_ = std::move(inner);
    result_.isInMacro = true;
    end();
    return false;
}

bool Evaluator::elementValue(WideView name, double& value) {
    const wchar_t* const begin = tokenAt_;
    read();
    const bool isRound = token_ == L'(';
    if (!isRound && token_ != L'[') {
        fail(kSyntaxError);
        return false;
    }
    const Nested level(*this);
    const int index = truncated(expression());
    if (hasFailed()) return false;
    if (token_ != (isRound ? L')' : L']')) {
        fail(kBracketNotClosed);
        return false;
    }
    CString element;
    bool isThere = false;
    {
        const HostCall call(*this);
        isThere = !hasFailed() && names_->arrayElement(name, index, element);
    }
    if (!isThere) {
        failAt(kSyntaxError, {begin, static_cast<std::size_t>(at_ - begin)});
        return false;
    }
    return macroValue(element, value);
}

// ---- Grammar: each function reads its first token and leaves the one behind what it read ----

double Evaluator::fail(ExpressionError error) { return failAt(error, token()); }

double Evaluator::failAt(ExpressionError error, WideView token) {
    if (!hasFailed()) {
        result_.error = error;
        result_.position = static_cast<int>(token.data() - begin_);
        result_.length = static_cast<int>(token.size());
        result_.text = textOf({begin_, static_cast<std::size_t>(end_ - begin_)});
        hasReadAll_ = token_ == kEnd || error == kDivisionByZero;
    }
    end();
    return 0;
}

/// Evaluation ends at its first error.
void Evaluator::end() {
    token_ = kEnd;
    tokenAt_ = at_ = end_;
}

double Evaluator::expression(CommaMeans comma) {
    double sum = 0;
    for (wchar_t how = 0;; how = token_) {  // how a term joins those before
        const double value = term(comma);
        switch (how) {
            case L'+':
                sum += value;
                break;
            case L'-':
                sum -= value;
                break;
            case L'|':
                sum = truncated(sum) | truncated(value);
                break;
            default:
                sum = value;
        }
        if (token_ != L'+' && token_ != L'-' && token_ != L'|') return sum;
    }
}

// ODDITY(expression-sine-replaces): SIN directly behind a term takes its place, and 2 SIN(0) is 0. Pinned by
// Expressions.HaveTheseValues.
inline double Evaluator::term(CommaMeans comma) {
    double product = 0;
    for (wchar_t how = 0;; how = token_) {
        const wchar_t* const begin = at_;
        const double value = power(comma);
        switch (how) {
            case L'*':
                product *= value;
                break;
            case L'/':
                if (value == 0 && !hasFailed()) {
                    return failAt(kDivisionByZero, trimmed({begin, static_cast<std::size_t>(tokenAt_ - begin)}));
                }
                product /= value;
                break;
            case kKeyword:
                result_.warnings |= kTermReplaced;
                product = std::sin(value);
                break;
            default:
                product = value;
        }
        const bool isSine = token_ == kKeyword && keyword_ == Keyword::kSin;
        if (token_ != L'*' && token_ != L'/' && !isSine) return product;
    }
}

inline double Evaluator::power(CommaMeans comma) {
    const double base = operand(comma);
    if (token_ != L'^') return base;
    const double exponent = operand(comma);
    return exponent == 2 ? base * base : std::pow(base, exponent);  // squares are most
}

/// Mostly a number.
inline double Evaluator::operand(CommaMeans comma) {
    if (at_ < end_ && isAsciiDigit(*at_)) {
        tokenAt_ = at_;
        readNumber(comma);
    } else {
        read(comma);
    }
    if (token_ != kNumber) return primary(comma);
    const double value = value_;
    read(comma);
    return value;
}

// ODDITY(expression-missing-operand): the end of the text is an operand of 1, so that 2+ is 3. Pinned by
// Expressions.HaveTheseValues.
double Evaluator::primary(CommaMeans comma) {
    bool isNegative = false;
    for (; token_ == L'-' || token_ == L'+'; read(comma))
        isNegative = isNegative != (token_ == L'-');
    double value = 0;
    if (token_ == kNumber) {
        value = value_;
        read(comma);
    } else if (token_ == L'(') {
        const Nested level(*this);
        value = expression();
        close(L')', comma);
    } else if (token_ == L'%') {
        value = remainder();
        close(L')', comma);
    } else if (token_ == kKeyword) {
        value = keywordValue(comma);
    } else if (token_ == kEnd) {
        if (!hasFailed()) result_.warnings |= kMissingOperand;
        value = 1;
    } else {
        return fail(kSyntaxError);
    }
    return isNegative ? -value : value;
}

bool Evaluator::open() {
    read();
    if (token_ == L'(') return true;
    fail(kSyntaxError);
    return false;
}

bool Evaluator::close(wchar_t bracket, CommaMeans behind) {
    if (hasFailed()) return false;
    if (token_ != bracket) {
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
    const int a = truncated(expression(CommaMeans::kSeparatorUnlessDigit));
    const wchar_t* const begin = at_;
    const int b = truncated(expression());
    if (hasFailed()) return 0;
    if (b == 0) return failAt(kDivisionByZero, trimmed({begin, static_cast<std::size_t>(tokenAt_ - begin)}));
    return b == -1 ? 0 : a % b;  // the smallest integer by -1 would trap
}

double Evaluator::keywordValue(CommaMeans comma) {
    const Keyword keyword = keyword_;
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
        const double a = expression(CommaMeans::kSeparator);
        if (token_ != kStatementEnd || *tokenAt_ != L',') return fail(kSyntaxError);
        const double b = expression(CommaMeans::kSeparator);
        value = keyword == Keyword::kMin ? std::min(a, b) : keyword == Keyword::kMax ? std::max(a, b) : std::fmod(a, b);
    } else {
        value = intrinsic(keyword, expression());
    }
    if (std::isnan(value)) return fail(kSyntaxError);  // outside the domain: LOG(-1), SIN(1E400), MOD(1,0)
    close(L')', comma);
    return value;
}

/// NaN outside the function's domain.
double Evaluator::intrinsic(Keyword keyword, double x) {
    constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();
    switch (keyword) {
        case Keyword::kSin:
            return std::sin(x);
        case Keyword::kCos:
            return std::cos(x);
        case Keyword::kTan:
            return std::tan(x);
        case Keyword::kSqrt:
            return std::sqrt(x);
        case Keyword::kLog10:
            return x > 0 ? std::log10(x) : kNoValue;
        case Keyword::kLog:
            return x > 0 ? std::log(x) : kNoValue;
        case Keyword::kAbs:
            return std::fabs(x);
        case Keyword::kAcos:
            return std::acos(x);
        case Keyword::kAsin:
            return std::asin(x);
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
    tokenAt_ = at_;
    while (at_ < end_ && isNameCharacter(*at_))
        ++at_;
    const CString name = textOf(token());
    const HostCall call(*this);
    CString text;
    if (hasFailed() || names_ == nullptr || name.IsEmpty() || viewOf(name).size() > kLongestToken ||
        !names_->macroText(viewOf(name), text) || text.IsEmpty()) {
        return fail(kSyntaxError);
    }
    read();
    return text[0];
}

// ---- Whole texts ----

void Evaluator::run() {
    while (at_ < end_ && kindOf(*at_) == CharacterKind::kSpace)
        ++at_;
    if (at_ != end_) finish(expression());
}

bool Evaluator::isChar() const {
    const wchar_t* first = at_;
    while (first < end_ && kindOf(*first) == CharacterKind::kSpace)
        ++first;
    const wchar_t* last = first;
    while (last < end_ && isNameCharacter(*last))
        ++last;
    return keywordOf({first, static_cast<std::size_t>(last - first)}, dialect_) == Keyword::kChar;
}

void Evaluator::runChar() {
    read();
    if (!open()) return;
    const double value = expression();
    close(L')', CommaMeans::kDecimal);
    finish(value);
}

void Evaluator::finish(double value) {
    if (!hasFailed() && token_ != kEnd) fail(kSyntaxError);
    result_.ok = !hasFailed();
    result_.value = result_.ok ? value : 0;
}

}  // namespace orv
