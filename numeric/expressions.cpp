#include "orv/expressions.h"

#include <utility>
#include <vector>

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

// A pass over the names alone, so that those behind an error are found too. What a comma means is kept for each
// bracket.
void namesInExpression(WideView text, CStringArray& names, ExpressionDialect dialect) {
    names.RemoveAll();
    std::vector<CommaMeans> brackets;
    CommaMeans inNext = CommaMeans::kDecimal;  // in the bracket that may come
    for (std::size_t at = 0; at < text.size();) {
        const wchar_t ch = text[at];
        const CommaMeans comma = brackets.empty() ? CommaMeans::kDecimal : brackets.back();
        const CommaMeans inThis = std::exchange(inNext, CommaMeans::kDecimal);
        std::size_t end = at + 1;
        if (isAsciiDigit(ch)) {
            end = at + numberRunLength(text.data() + at, text.data() + text.size(), comma);
        } else if (kindOf(ch) == CharacterKind::kLetter) {
            while (end < text.size() && isNameCharacter(text[end]))
                ++end;
            const WideView name = text.substr(at, end - at);
            const Keyword keyword = keywordOf(name, dialect);
            if (keyword == Keyword::kNone) addOnce(names, name);
            const bool takesTwo = keyword == Keyword::kMin || keyword == Keyword::kMax || keyword == Keyword::kMod;
            if (takesTwo) inNext = CommaMeans::kSeparator;
        } else if (ch == L'(' || ch == L'[') {
            brackets.push_back(inThis);
        } else if ((ch == L')' || ch == L']') && !brackets.empty()) {
            brackets.pop_back();
        } else if (ch == L'%') {
            inNext = CommaMeans::kSeparatorUnlessDigit;
        } else if (kindOf(ch) == CharacterKind::kSpace) {
            inNext = inThis;
        } else if ((ch == L',' || ch == L';') && comma == CommaMeans::kSeparatorUnlessDigit) {
            brackets.back() = CommaMeans::kDecimal;  // behind the separator of a remainder
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
