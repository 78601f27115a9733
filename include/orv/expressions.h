// Arithmetic expressions as people type them into entry fields: value, or what is wrong and where.
//
//   expression   term { ("+" | "-" | "|") term }            "|" is the bitwise or of both sides as integers
//   term         power { ("*" | "/") power }
//   power        primary [ "^" primary ]                    one exponent: 2^3^2 is an error
//   primary      number | name | "(" expression ")" | "-" primary | "+" primary | PI | SIN(x) COS(x) TAN(x), in radians
//                | %(a; b), the integer remainder
//
// - Decimal comma and point mean the same: 3,5 is 3.5. 0x10 is 16. White space separates; keywords in any case.
// - Surprising and kept: an operand that is missing at the end counts as 1 ("2+" is 3); SIN directly behind a term
//   replaces it ("2 SIN(0)" is 0). Evaluation::warnings tells of both.
// - The Fortran dialect has besides MIN(a,b) MAX(a,b) MOD(a,b) SQRT LOG LOG10 ABS ACOS ASIN ATAN COSH SINH EXP INT NINT
//   ICHAR(macro) and array macros, name(i) or name[i] from 0. Between the arguments of MIN, MAX and MOD a comma always
//   separates. CHAR gives a text and is an error within arithmetic.
// - Names and numbers of 30 characters and more, nesting beyond kDeepestExpression, macros that lead to themselves,
//   more than kMostMacroUses of them, arguments outside a function's domain: a syntax error. Nothing throws but for
//   lack of memory.
// - No process-wide state: for many threads at once, as far as the names are.
#pragma once

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/framework/string.h"
#include "orv/wide.h"

namespace orv {

/// Brackets within brackets, macros within macros and evaluations within a host's names, all together.
inline constexpr int kDeepestExpression = 250;
/// In one evaluation, with those that a host's names start within it.
inline constexpr int kMostMacroUses = 1'000'000;

enum class ExpressionDialect { kCalculator, kFortran };

/// The names that an expression may use. Asked in this order; each may be asked several times.
class ORV_API ExpressionNames {
  public:
    ExpressionNames() = default;
    ExpressionNames(const ExpressionNames&) = delete;
    ExpressionNames& operator=(const ExpressionNames&) = delete;
    virtual ~ExpressionNames();

    /// A macro whose text is nothing but a number, for who knows it; quicker than its text. The name is not
    /// NUL-terminated. Must not evaluate.
    virtual bool macroNumber(WideView name, double& value);
    /// A macro's text, which is an expression of its own. False: no such macro.
    virtual bool macroText(WideView name, CString& text);
    virtual bool hasArray(WideView name);
    /// False: no such element.
    virtual bool arrayElement(WideView name, int index, CString& text);
    /// The name is NUL-terminated.
    virtual bool variable(WideView name, double& value);
    /// What the texts of macros may use: the same names, unless this is overridden.
    virtual ExpressionNames* inMacros();
};

enum ExpressionError {
    kNoError = -1,
    kSyntaxError = 0,
    kInvalidCharacter = 1,
    kBracketNotClosed = 2,
    kDivisionByZero = 3
};

/// What is legal and yet may not be meant; a set of these bits.
enum ExpressionWarning : unsigned {
    kMissingOperand = 1,   // "2+" counts the missing operand as 1
    kTermReplaced = 2,     // "2 SIN(0)": the 2 has no effect
    kCommaReadAsPoint = 4  // "1,234" is 1.234 and may have meant thousands
};

struct Evaluation {
    bool ok = false;
    double value = 0;        // 0 unless ok
    int error = kNoError;    // an empty text is not ok and has no error
    int position = 0;        // of the offending token, or of the divisor that is 0, in `text`
    int length = 0;          // of the same; 0 at the end of the text
    CString text;            // the expression that failed: the given one, or the macro's that is to blame
    bool isInMacro = false;  // the latter
    unsigned warnings = 0;
};

/// Evaluates a text. Null names: no names but the keywords.
///   "3,5*2" => 7     "2+" => 3     "4/0" => kDivisionByZero at 3     "" => not ok, kNoError
ORV_API Evaluation evaluate(WideView text, ExpressionNames* names = nullptr,
                            ExpressionDialect dialect = ExpressionDialect::kCalculator);

/// Fills the array anew with the names that an expression uses and that are no keywords, in order, each once.
ORV_API void namesInExpression(WideView text, CStringArray& names,
                               ExpressionDialect dialect = ExpressionDialect::kCalculator);

/// "Syntaxfehler" and so on: the German key of an error's text; "" for kNoError and numbers that are none.
ORV_API const wchar_t* expressionErrorKey(int error);

}  // namespace orv
