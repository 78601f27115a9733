// One pass over an expression: tokens are read as the grammar asks for them, nothing is built.
#pragma once

#include "numeric/character_kinds.h"
#include "numeric/keywords.h"
#include "numeric/number_run.h"
#include "orv/expressions.h"

namespace orv {

/// What all expressions of one evaluation share: the given one and those of its macros.
struct EvaluationLimits {
    /// Up to here nobody asks how deep the evaluations are that wait for a host's names.
    static constexpr int kSurelyAllowed = 8;

    int depth = 0;
    int deepest = kSurelyAllowed;
    int macros = 0;
};

class Evaluator {
  public:
    /// `result` is as new.
    Evaluator(WideView text, ExpressionNames* names, ExpressionDialect dialect, EvaluationLimits& limits,
              Evaluation& result)
        : begin_(text.data()),
          at_(text.data()),
          end_(text.data() + text.size()),
          names_(names),
          dialect_(dialect),
          limits_(limits),
          result_(result) {}

    void run();
    /// Whether the text begins with CHAR.
    bool isChar() const;
    /// For CHAR(expression): its value is the code.
    void runChar();
    /// Whether the error, if there is one, left nothing to be read.
    bool hasReadAll() const { return hasReadAll_; }

  private:
    // What a token is; an operator is its own character.
    static constexpr wchar_t kEnd = 0;
    static constexpr wchar_t kStatementEnd = L';';
    static constexpr wchar_t kNumber = L'0';
    static constexpr wchar_t kKeyword = L'A';
    class Nested;
    class HostCall;

    void read(CommaMeans comma = CommaMeans::kDecimal);
    void readOther(CharacterKind kind, CommaMeans comma);
    void readNumber(CommaMeans comma);
    void readName();
    bool resolve(WideView name, double& value);
    bool macroValue(const CString& text, double& value);
    bool elementValue(WideView name, double& value);

    double expression(CommaMeans comma = CommaMeans::kDecimal);
    double term(CommaMeans comma);
    double power(CommaMeans comma);
    double operand(CommaMeans comma);
    double primary(CommaMeans comma);
    double keywordValue(CommaMeans comma);
    double remainder();
    double intrinsic(Keyword keyword, double x);
    double codeOfMacro();

    void finish(double value);
    bool open();
    bool close(wchar_t bracket, CommaMeans behind);
    double fail(ExpressionError error);
    double failAt(ExpressionError error, WideView token);
    void end();
    WideView token() const { return {tokenAt_, static_cast<std::size_t>(at_ - tokenAt_)}; }
    bool hasFailed() const { return result_.error != kNoError; }

    const wchar_t* const begin_;
    const wchar_t* at_;
    const wchar_t* const end_;
    ExpressionNames* const names_;
    const ExpressionDialect dialect_;
    EvaluationLimits& limits_;
    wchar_t token_ = kStatementEnd;  // ends at at_; before the first one the text is not at its end
    const wchar_t* tokenAt_ = nullptr;
    double value_ = 0;                  // of kNumber
    Keyword keyword_ = Keyword::kNone;  // of kKeyword
    Evaluation& result_;
    bool hasReadAll_ = false;
};

}  // namespace orv
