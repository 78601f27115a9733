#include "orv/numeric_strings.h"

#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "localization/translate.h"
#include "numeric/evaluator.h"
#include "numeric/macros.h"
#include "numeric/number_format.h"
#include "orv/messages.h"

namespace orv {
namespace {

constexpr wchar_t kUsualFormat[] = L"%.02f";

/// The process's macros, then the object's variables. A macro's text is an expression of its own, which the object's
/// variables do not reach.
template <class Owner>
class OwnNames : public MacroNames {
  public:
    OwnNames(NumericState& state, Owner& owner) : MacroNames(state), owner_(owner), macros_(state) {}
    bool variable(WideView name, double& value) override { return owner_.examineVariables(value, name.data()) != 0; }
    ExpressionNames* inMacros() override { return &macros_; }

  private:
    Owner& owner_;
    MacroNames macros_;
};

}  // namespace

template <ExpressionDialect kDialect>
NumericString<kDialect>::NumericString(const CString& text) {
    if (text.Find(L"%.") >= 0) {
        format_ = text;
    } else {
        *this = text;
    }
}

template <ExpressionDialect kDialect>
NumericString<kDialect>::~NumericString() = default;

// ---- Assigning ----

template <ExpressionDialect kDialect>
NumericString<kDialect>& NumericString<kDialect>::operator=(int value) {
    text_.Format(L"%d", value);
    return *this;
}

template <ExpressionDialect kDialect>
NumericString<kDialect>& NumericString<kDialect>::operator=(float value) {
    return *this = static_cast<double>(value);
}

template <ExpressionDialect kDialect>
NumericString<kDialect>& NumericString<kDialect>::operator=(double value) {
    text_ = formatted(value);
    return *this;
}

template <ExpressionDialect kDialect>
NumericString<kDialect>& NumericString<kDialect>::operator=(const wchar_t* text) {
    return *this = CString(text);
}

template <ExpressionDialect kDialect>
NumericString<kDialect>& NumericString<kDialect>::operator=(const CString& text) {
    text_ = text;
    text_.Trim();
    return *this;
}

template <ExpressionDialect kDialect>
CString NumericString<kDialect>::formatted(double value) const {
    CString text;
    text.Format(isNumberFormat(viewOf(format_)) ? format_.GetString() : kUsualFormat, value);
    return text;
}

// ---- Evaluating ----

// ODDITY(numeric-success-by-counter): success follows the error counter, so that an ErrorPrint that does not count
// hides an error, unless it left some of the text unread. Pinned by NumericStrings.ErrorPrintDecides.
template <ExpressionDialect kDialect>
template <class Run>
bool NumericString<kDialect>::evaluateBy(Run run, double& value) {
    value = 0;
    NumericState& state = numericState(kDialect);
    const std::uint64_t before = state.counted;
    OwnNames<NumericString> names(state, *this);
    EvaluationLimits limits;
    Evaluation found;
    Evaluator evaluator(viewOf(text_), &names, kDialect, limits, found);
    run(evaluator);
    if (found.isInMacro) {
        NumericString macro;
        macro = found.text;
        macro.stdError(found.error);
    } else if (found.error != kNoError) {
        stdError(found.error);
    }
    const bool isGood = state.counted == before && (found.ok || evaluator.hasReadAll());
    if (isGood) value = found.value;
    return isGood;
}

template <ExpressionDialect kDialect>
bool NumericString<kDialect>::evaluateText(double& value) {
    value = 0;
    return !text_.IsEmpty() && evaluateBy([](Evaluator& evaluator) { evaluator.run(); }, value);
}

template <ExpressionDialect kDialect>
bool NumericString<kDialect>::evaluateChar(CString& character) {
    bool isChar = false;
    double code = 0;
    const auto run = [&](Evaluator& evaluator) {
        isChar = evaluator.isChar();
        if (isChar) evaluator.runChar();
    };
    character.Empty();
    if (!evaluateBy(run, code)) return isChar;
    constexpr double kLastCode = 0xFFFF;
    if (code >= 1 && code <= kLastCode) {
        character = static_cast<wchar_t>(code);
    } else {
        stdError(kSyntaxError);
    }
    return true;
}

template <ExpressionDialect kDialect>
double NumericString<kDialect>::Value() {
    double value = 0;
    evaluateText(value);
    return value;
}

template <ExpressionDialect kDialect>
float NumericString<kDialect>::Float() {
    return static_cast<float>(Value());
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::Int() {
    const double value = Value();
    if (std::isnan(value)) return 0;
    return value >= INT_MAX ? INT_MAX : value <= INT_MIN ? INT_MIN : static_cast<int>(value);
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::validate(const wchar_t* format) {
    if (text_.IsEmpty()) return 1;
    double value = 0;
    if (!evaluateText(value)) return 0;
    if (reformat_ == 0 || !std::isfinite(value)) return 1;
    if (format != nullptr) {
        text_.Format(format, value);
    } else {
        text_ = formatted(value);
    }
    return 1;
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::ValidateFloat() {
    return validate(nullptr);
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::ValidateInt() {
    return validate(L"%.0f");
}

template <ExpressionDialect kDialect>
bool NumericString<kDialect>::isOutside(float least, float greatest) {
    if (text_.IsEmpty()) return true;
    const float value = Float();
    return !(value >= least && value <= greatest);  // what is no number lies outside
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::ValidateFloat(float least, float greatest) {
    if (ValidateFloat() == 0) return 0;
    if (!isOutside(least, greatest)) return 1;
    CString message;
    message.Format(translateFormat(L"Bitte Zahl in Bereich <%5.2f...%5.2f> eingeben."), least, greatest);
    ErrorPrint(message);
    return 0;
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::ValidateInt(int least, int greatest) {
    if (ValidateFloat() == 0) return 0;
    if (!isOutside(static_cast<float>(least), static_cast<float>(greatest))) return 1;
    CString message;
    message.Format(translateFormat(L"Bitte Zahl in Bereich <%d...%d> eingeben."), least, greatest);
    ErrorPrint(message);
    return 0;
}

// ---- Macros ----

template <ExpressionDialect kDialect>
void NumericString<kDialect>::DefineMacro(const wchar_t* name, const wchar_t* text) {
    numericState(kDialect).texts[WideString(viewOf(name))] = textMacro(text);
}

template <ExpressionDialect kDialect>
void NumericString<kDialect>::DefineMacro(const wchar_t* name, MacroCallback callback) {
    NumericState& state = numericState(kDialect);
    const WideString key(viewOf(name));
    if (callback != nullptr) {
        state.callbacks[key] = callback;
    } else {
        state.callbacks.erase(key);
    }
}

template <ExpressionDialect kDialect>
void NumericString<kDialect>::unDefineMacro(const wchar_t* name) {
    numericState(kDialect).texts.erase(WideString(viewOf(name)));
}

template <ExpressionDialect kDialect>
bool NumericString<kDialect>::knownMacro(const wchar_t* name) {
    return numericState(kDialect).textOf(viewOf(name)) != nullptr;
}

template <ExpressionDialect kDialect>
void NumericString<kDialect>::deleteContents() {
    NumericState& state = numericState(kDialect);
    state.texts.clear();
    state.callbacks.clear();
    state.arrays.clear();
}

// ---- Errors ----

template <ExpressionDialect kDialect>
int NumericString<kDialect>::AnzahlFehler() {
    return std::exchange(numericState(kDialect).errors, 0);
}

template <ExpressionDialect kDialect>
void NumericString<kDialect>::Quiet(int quiet) {
    numericState(kDialect).quiet += quiet != 0 ? 1 : -1;
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::IsQuiet() {
    return numericState(kDialect).quiet;
}

template <ExpressionDialect kDialect>
void NumericString<kDialect>::SetCurZeile(int line) {
    numericState(kDialect).line = line;
}

template <ExpressionDialect kDialect>
void NumericString<kDialect>::stdError(int error) {
    CString line;
    line.Format(translateFormat(L"in Zeile: %d"), numericState(kDialect).line);
    ErrorPrint(translate(expressionErrorKey(error)) + L"\r\n" + line + L"\r\n" + text_);
}

template <ExpressionDialect kDialect>
void NumericString<kDialect>::ErrorPrint(const wchar_t* message) {
    NumericState& state = numericState(kDialect);
    if (state.quiet == 0) showMessage(MessageKind::kError, translate(L"Fehler"), message);
    ++state.errors;
    ++state.counted;
}

template <ExpressionDialect kDialect>
int NumericString<kDialect>::examineVariables(double& /*value*/, const wchar_t* /*name*/) {
    return 0;
}

// ---- Texts ----

template <ExpressionDialect kDialect>
CString NumericString<kDialect>::strValTpunkt() const {
    return withThousands(text_);
}

template <ExpressionDialect kDialect>
CString NumericString<kDialect>::SubStr(int n, wchar_t separator) const {
    WideView rest = viewOf(text_);
    for (; n > 0; --n) {
        const std::size_t at = rest.find(separator);
        if (at == WideView::npos) return {};
        rest.remove_prefix(at + 1);
    }
    return n < 0 ? CString() : textOf(rest.substr(0, rest.find(separator)));
}

template class NumericString<ExpressionDialect::kCalculator>;
template class NumericString<ExpressionDialect::kFortran>;

}  // namespace orv

// ---- Fortran alone ----

namespace {

orv::NumericState& fortran() { return orv::numericState(orv::ExpressionDialect::kFortran); }

CString withoutQuotes(const CString& text) {
    const int length = text.GetLength();
    const bool isQuoted = length >= 2 && (text[0] == L'"' || text[0] == L'\'') && text[length - 1] == text[0];
    return isQuoted ? text.Mid(1, length - 2) : text;
}

}  // namespace

CString CFortranString::StringValue() {
    if (const CString* macro = fortran().textOf(orv::viewOf(GetText())); macro != nullptr) return withoutQuotes(*macro);
    CString character;
    if (evaluateChar(character)) return character;
    double value = 0;
    return evaluateText(value) ? formatted(value) : CString();
}

CString CFortranString::getMacroValue(const wchar_t* name) {
    const CString* found = fortran().textOf(orv::viewOf(name));
    return found != nullptr ? *found : CString();
}

CString CFortranString::getArrayMacroValue(const wchar_t* name, int index) {
    const CString* found = fortran().elementOf(orv::viewOf(name), index);
    return found != nullptr ? *found : CString();
}

void CFortranString::DefineArrayMacro(const wchar_t* name, CStringArray* list) {
    const orv::WideString key(orv::viewOf(name));
    if (list != nullptr) {
        fortran().arrays[key] = list;
    } else {
        fortran().arrays.erase(key);
    }
}

void CheckLcNumeric() {
    constexpr std::size_t kRoom = 32;
    char text[kRoom];
    const int length = std::snprintf(text, kRoom, "%f", 0.5);
    if (length > 1 && std::string_view(text).find(',', 1) != std::string_view::npos) std::setlocale(LC_NUMERIC, "C");
}
