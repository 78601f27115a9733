#include "orv/expressions.h"

#include "numeric/character_kinds.h"
#include "numeric/evaluator.h"
#include "text/views.h"

namespace orv {
namespace {

void addOnce(CStringArray& names, WideView name) {
    for (int i = 0; i < names.GetSize(); ++i) {
        if (viewOf(names[i]) == name) return;
    }
    names.Add(textOf(name));
}

}  // namespace

ExpressionNames::~ExpressionNames() = default;

bool ExpressionNames::macroNumber(WideView /*name*/, double& /*value*/) { return false; }

bool ExpressionNames::macroText(WideView /*name*/, CString& /*text*/) { return false; }

bool ExpressionNames::hasArray(WideView /*name*/) { return false; }

bool ExpressionNames::arrayElement(WideView /*name*/, int /*index*/, CString& /*text*/) { return false; }

bool ExpressionNames::variable(WideView /*name*/, double& /*value*/) { return false; }

ExpressionNames* ExpressionNames::inMacros() { return this; }

Evaluation evaluate(WideView text, ExpressionNames* names, ExpressionDialect dialect) {
    Evaluation result;
    EvaluationLimits limits;
    Evaluator(text, names, dialect, limits, result).run();
    return result;
}

// A pass over the names alone, so that those behind an error are found too.
void namesInExpression(WideView text, CStringArray& names, ExpressionDialect dialect) {
    names.RemoveAll();
    for (std::size_t at = 0; at < text.size();) {
        const wchar_t ch = text[at];
        std::size_t end = at + 1;
        if (isAsciiDigit(ch)) {
            end = at + numberRunLength(text.data() + at, text.data() + text.size(), CommaMeans::kDecimal);
        } else if (kindOf(ch) == CharacterKind::kLetter) {
            while (end < text.size() && isNameCharacter(text[end]))
                ++end;
            const WideView name = text.substr(at, end - at);
            if (keywordOf(name, dialect) == Keyword::kNone) addOnce(names, name);
        }
        at = end;
    }
}

const wchar_t* expressionErrorKey(int error) {
    static constexpr const wchar_t* kKeys[] = {L"Syntaxfehler", L"Ungültiges Zeichen", L"Klammer nicht geschlossen",
                                               L"Division durch 0"};
    return error >= 0 && error < static_cast<int>(std::size(kKeys)) ? kKeys[error] : L"";
}

}  // namespace orv
