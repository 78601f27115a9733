#include "numeric/macros.h"

#include "framework/plain_number.h"

namespace orv {

TextMacro textMacro(const wchar_t* text) {
    TextMacro macro{CString(text)};
    const WideView view = viewOf(macro.text);
    if (view.empty() || !isAsciiDigit(view[0])) return macro;
    const PlainNumber plain = readPlainNumber(view.data(), view.data() + view.size());
    macro.isNumber = plain.length == view.size() && !plain.mayMeanThousands;
    macro.number = plain.value;
    return macro;
}

NumericState& numericState(ExpressionDialect dialect) {
    static NumericState states[2];
    return states[dialect == ExpressionDialect::kFortran ? 1 : 0];
}

bool MacroNames::macroNumber(WideView name, double& value) {
    if (!state_.callbacks.empty() && state_.callbacks.find(name) != state_.callbacks.end()) return false;
    const auto found = state_.texts.find(name);
    if (found == state_.texts.end() || !found->second.isNumber) return false;
    value = found->second.number;
    return true;
}

bool MacroNames::macroText(WideView name, CString& text) {
    if (!state_.callbacks.empty()) {
        const auto callback = state_.callbacks.find(name);
        CString result;
        if (callback != state_.callbacks.end() && callback->second(name.data(), result) != 0) {
            text = result;
            return true;
        }
    }
    const CString* found = state_.textOf(name);
    if (found != nullptr) text = *found;
    return found != nullptr;
}

bool MacroNames::arrayElement(WideView name, int index, CString& text) {
    const CString* found = state_.elementOf(name, index);
    if (found != nullptr) text = *found;
    return found != nullptr;
}

}  // namespace orv
