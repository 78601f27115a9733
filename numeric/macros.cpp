#include "numeric/macros.h"

namespace orv {

NumericState& numericState(ExpressionDialect dialect) {
    static NumericState states[2];
    return states[dialect == ExpressionDialect::kFortran ? 1 : 0];
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
