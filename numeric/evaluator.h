// One pass over an expression: tokens are read as the grammar asks for them, nothing is built.
#pragma once

#include "numeric/keywords.h"
#include "numeric/number_run.h"
#include "orv/expressions.h"

namespace orv {

/// What all expressions of one evaluation share: the given one and those of its macros.
struct EvaluationLimits {
    int depth = 0;
    int macros = 0;
};

class Evaluator {
  public:
    Evaluator(WideView text, ExpressionNames* names, ExpressionDialect dialect, EvaluationLimits& limits)
        : begin_(text.data()),
          at_(text.data()),
          end_(text.data() + text.size()),
          names_(names),
          dialect_(dialect),
          limits_(limits) {}

    Evaluation run();
    /// For CHAR(expression): the code; false if the text is anything else, or wrong.
    bool runChar(double& code);

  private:
    enum class Kind { kEnd, kStatementEnd, kNumber, kKeyword, kOperator };
    struct Token {
        Kind kind = Kind::kEnd;
        wchar_t sign = 0;  // of kOperator
        Keyword keyword = Keyword::kNone;
        double value = 0;  // of kNumber
        const wchar_t* at = nullptr;
        const wchar_t* end = nullptr;
    };
    class Nested;

    void read(CommaMeans comma = CommaMeans::kDecimal);
    void readNumber(CommaMeans comma);
    void readName();
    bool resolve(WideView name, double& value);
    bool macroValue(const CString& text, double& value);
    bool elementValue(WideView name, double& value);

    double expression(CommaMeans comma = CommaMeans::kDecimal);
    double term(CommaMeans comma);
    double power(CommaMeans comma);
    double primary(CommaMeans comma);
    double keywordValue(CommaMeans comma);
    double remainder();
    double intrinsic(Keyword keyword, double x);
    double codeOfMacro();

    bool isOperator(wchar_t sign) const { return token_.kind == Kind::kOperator && token_.sign == sign; }
    bool open();
    bool close(wchar_t bracket, CommaMeans behind);
    double fail(ExpressionError error);
    double failAt(ExpressionError error, const wchar_t* at, const wchar_t* end);
    bool hasFailed() const { return result_.error != kNoError; }

    const wchar_t* const begin_;
    const wchar_t* at_;
    const wchar_t* const end_;
    ExpressionNames* const names_;
    const ExpressionDialect dialect_;
    EvaluationLimits& limits_;
    Token token_;
    Evaluation result_;
};

}  // namespace orv
