// Texts of number entry fields, which may hold an expression in place of a number. The language of expressions is told
// in expressions.h, which also has forms without process-wide state.
//
// - Macros, error counter, quiet counter and line number are process-wide, one set for CNumString and another for
//   CFortranString. They are for one thread, the user interface's.
// - A failure is reported once an evaluation, through ErrorPrint; the result is then 0. An empty text fails without.
// - The format is printf's for one floating-point number. One that is not exactly one such directive with literal text
//   around it counts as "%.02f", and so does an empty one.
#pragma once

#include "orv/export.h"
#include "orv/expressions.h"
#include "orv/framework/arrays.h"
#include "orv/framework/string.h"

namespace orv {

/// The value of a function macro: fills `result` and returns non-zero, or returns 0 for a name that it does not know.
using MacroCallback = int (*)(const wchar_t* name, CString& result);

/// What CNumString and CFortranString have in common.
template <ExpressionDialect kDialect>
class ORV_API NumericString {
  public:
    NumericString() : format_(L"%.02f") {}
    /// A text that holds "%." is the format, and the text empty; any other is the text, and the format empty.
    NumericString(const CString& text);
    NumericString(const NumericString&) = default;
    NumericString& operator=(const NumericString&) = default;

    // ---- Assigning: a number is written by the format, an integer by "%d", a text is trimmed ----
    NumericString& operator=(int value);
    NumericString& operator=(float value);
    NumericString& operator=(double value);
    NumericString& operator=(const wchar_t* text);
    NumericString& operator=(const CString& text);

    const CString& GetText() const { return text_; }
    const CString& GetFormat() const { return format_; }
    void SetFormat(const CString& format) { format_ = format; }
    /// Non-zero: a successful validation rewrites the text as the formatted value.
    void SetReformat(int reformat) { reformat_ = reformat; }

    // ---- Evaluating ----
    double Value();
    float Float();
    /// Truncated toward zero, saturating.
    int Int();
    /// 1 for an empty text or one with a value; else 0. A value that is no finite number rewrites nothing.
    int ValidateFloat();
    /// Rewrites by "%.0f".
    int ValidateInt();
    /// 1 for a value within the bounds; else 0. An empty text is out of range.
    int ValidateFloat(float least, float greatest);
    /// ODDITY(validate-int-is-float): the same as for floats but for the message, so that 2.5 lies between 1 and 10.
    /// Pinned by NumericStrings.RangesAreChecked.
    int ValidateInt(int least, int greatest);

    // ---- Macros of the process ----
    static void DefineMacro(const wchar_t* name, const wchar_t* text);
    static void DefineMacro(const wchar_t* name, MacroCallback callback);
    /// Removes a text macro; function macros stay.
    static void unDefineMacro(const wchar_t* name);
    /// Whether there is a text macro of that name, in this case of letters.
    static bool knownMacro(const wchar_t* name);
    static void deleteContents();

    // ---- Errors ----
    /// The errors since the last call.
    static int AnzahlFehler();
    /// Counts up (non-zero) or down; while the count is not 0 no message is shown.
    static void Quiet(int quiet);
    static int IsQuiet();
    /// The line that messages name; for all objects.
    void SetCurZeile(int line);
    /// Reports one of the ExpressionErrors: its text, the line, the expression.
    void stdError(int error);

    // ---- Texts ----
    /// With "." between groups of three digits and a decimal comma: 1234567.5 => 1.234.567,5. What is no number stays.
    CString strValTpunkt() const;
    /// Field n of the text, from 0; "" beyond the last.
    CString SubStr(int n, wchar_t separator) const;

    /// Shows the message, unless quiet, and counts it.
    virtual void ErrorPrint(const wchar_t* message);
    /// For names that are neither keyword nor macro: non-zero with the value of one that is known.
    virtual int examineVariables(double& value, const wchar_t* name);
    virtual ~NumericString();

  protected:
    bool evaluateText(double& value);
    /// The character of a code that CHAR gives, if the text begins with that; false if it does not.
    bool evaluateChar(CString& character);
    CString formatted(double value) const;

  private:
    template <class Run>
    bool evaluateBy(Run run, double& value);
    int validate(const wchar_t* format);
    bool isOutside(float least, float greatest);
    CString text_;
    CString format_;
    int reformat_ = 0;
};

extern template class ORV_API NumericString<ExpressionDialect::kCalculator>;
extern template class ORV_API NumericString<ExpressionDialect::kFortran>;

}  // namespace orv

/// A number entry field with a small calculator.
class ORV_API CNumString : public orv::NumericString<orv::ExpressionDialect::kCalculator> {
  public:
    using NumericString::NumericString;
    using NumericString::operator=;
};

/// The same with functions named as in Fortran, and array macros.
class ORV_API CFortranString : public orv::NumericString<orv::ExpressionDialect::kFortran> {
  public:
    using NumericString::NumericString;
    using NumericString::operator=;

    /// CHAR(n): the character of code n. The name of a text macro: its text, without quotes around it. Else the value
    /// by the format; "" when the evaluation fails.
    CString StringValue();
    /// The text of a text macro; "" when there is none.
    static CString getMacroValue(const wchar_t* name);
    /// An element, from 0; "" when there is none.
    static CString getArrayMacroValue(const wchar_t* name, int index);
    /// The list is not copied: it must live until it is replaced or deleteContents is called. Null removes the macro.
    static void DefineArrayMacro(const wchar_t* name, CStringArray* list);
};

/// Formats 0.5 by the C library that the DLL is linked with; if that gives a decimal comma, sets the numeric category
/// of the process's C locale to "C". The library itself never depends on the locale.
ORV_API void CheckLcNumeric();
