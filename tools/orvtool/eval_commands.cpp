// orvtool eval: the expressions of entry fields.
#include <cstdlib>
#include <map>
#include <vector>

#include "commands.h"
#include "orv/expressions.h"

namespace orvtool {
namespace {

struct EvalWords {
    std::vector<std::string> expressions, definitions;
    bool fortran = false;
    bool explain = false;
};

class Definitions : public orv::ExpressionNames {
  public:
    void add(const std::string& definition) {
        const std::size_t equals = definition.find('=');
        if (equals == std::string::npos || equals == 0) throw Failure{"--define wants NAME=TEXT: " + definition};
        macros_[wide(definition.substr(0, equals))] = wide(definition.substr(equals + 1));
    }
    bool macroText(orv::WideView name, CString& text) override {
        const auto found = macros_.find(CString(name.data(), static_cast<int>(name.size())));
        if (found != macros_.end()) text = found->second;
        return found != macros_.end();
    }

  private:
    std::map<CString, CString> macros_;
};

std::string shortest(double value) {
    CString text;
    for (int digits = 1; digits <= 17; ++digits) {
        text.Format(L"%.*g", digits, value);
        if (std::strtod(utf8(text).c_str(), nullptr) == value) break;
    }
    return utf8(text);
}

std::string messageOf(const orv::Evaluation& found) {
    static const char* const kMessages[] = {"syntax error", "invalid character", "bracket not closed",
                                            "division by zero"};
    return found.error == orv::kNoError ? "there is nothing to evaluate" : kMessages[found.error];
}

/// The expression, and under it marks for the token that is to blame.
std::string pointed(const orv::Evaluation& found) {
    const int length = found.length > 0 ? found.length : 1;
    return "  " + utf8(found.text) + "\n  " + std::string(static_cast<std::size_t>(found.position), ' ') +
           std::string(static_cast<std::size_t>(length), '^') + "\n";
}

std::string explained(const CString& text, const orv::Evaluation& found, orv::ExpressionDialect dialect) {
    std::string out;
    if (found.error != orv::kNoError) out += pointed(found);
    CStringArray names;
    orv::namesInExpression({text.GetString(), static_cast<std::size_t>(text.GetLength())}, names, dialect);
    for (int i = 0; i < names.GetSize(); ++i)
        out += (i == 0 ? "  names: " : ", ") + utf8(names[i]);
    if (names.GetSize() != 0) out += "\n";
    out += notesOf(found.warnings);
    return out;
}

void eval(const EvalWords& words, Outcome& outcome) {
    Definitions definitions;
    for (const std::string& definition : words.definitions)
        definitions.add(definition);
    const auto dialect = words.fortran ? orv::ExpressionDialect::kFortran : orv::ExpressionDialect::kCalculator;
    for (const std::string& expression : words.expressions) {
        const CString text = wide(expression);
        const orv::Evaluation found =
            orv::evaluate({text.GetString(), static_cast<std::size_t>(text.GetLength())}, &definitions, dialect);
        print((found.ok ? shortest(found.value) : messageOf(found) + (found.isInMacro ? " in a macro" : "")) + "\n");
        if (words.explain) print(explained(text, found, dialect));
        if (!found.ok) outcome.exitCode = 1;
    }
}

}  // namespace

std::string notesOf(unsigned warnings) {
    struct Row {
        unsigned warning;
        const char* text;
    };
    std::string out;
    for (const Row& row : {Row{orv::kMissingOperand, "an operand is missing and counts as 1"},
                           Row{orv::kTermReplaced, "SIN takes the place of the term in front of it"},
                           Row{orv::kCommaReadAsPoint, "a comma is read as decimal, and may have meant thousands"}}) {
        if ((warnings & row.warning) != 0) out += std::string("  note: ") + row.text + "\n";
    }
    return out;
}

void addEvalCommands(CLI::App& app, Outcome& outcome) {
    const auto words = std::make_shared<EvalWords>();
    CLI::App* command = app.add_subcommand("eval", "Evaluate expressions of entry fields; exit code 1 if one fails");
    command->add_option("EXPR", words->expressions, "The expressions; \"--\" goes before one that begins with \"-\"")
        ->required();
    command->add_option("--define", words->definitions, "A macro, NAME=TEXT")->allow_extra_args(false);
    command->add_flag("--fortran", words->fortran, "With the functions named as in Fortran");
    command->add_flag("--explain", words->explain, "Point at what is wrong; list names and what may surprise");
    command->callback([words, &outcome] { eval(*words, outcome); });
}

}  // namespace orvtool
