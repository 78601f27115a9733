// The process-wide state of one kind of numeric string.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "orv/numeric_strings.h"
#include "text/views.h"

namespace orv {

struct NameHash {
    using is_transparent = void;
    std::size_t operator()(WideView name) const {
        std::size_t hash = 0xCBF2'9CE4'8422'2325;  // FNV-1a over characters
        for (const wchar_t ch : name)
            hash = (hash ^ ch) * 0x100'0000'01B3;
        return hash;
    }
};
struct SameName {
    using is_transparent = void;
    bool operator()(WideView a, WideView b) const { return a == b; }
};
template <class Value>
using NameMap = std::unordered_map<WideString, Value, NameHash, SameName>;

struct TextMacro {
    CString text;
    double number = 0;
    bool isNumber = false;  // plainly, so that evaluating the text gives the number and nothing else
};

struct NumericState {
    NameMap<TextMacro> texts;
    NameMap<MacroCallback> callbacks;
    NameMap<CStringArray*> arrays;
    int errors = 0;
    std::uint64_t counted = 0;  // errors, never reset
    int quiet = 0;
    int line = 0;

    const CString* textOf(WideView name) const {
        const auto found = texts.find(name);
        return found != texts.end() ? &found->second.text : nullptr;
    }
    /// Null when there is no such element.
    const CString* elementOf(WideView name, int index) const {
        const auto found = arrays.find(name);
        const bool isThere = found != arrays.end() && index >= 0 && index < found->second->GetSize();
        return isThere ? &(*found->second)[index] : nullptr;
    }
};

TextMacro textMacro(const wchar_t* text);

NumericState& numericState(ExpressionDialect dialect);

/// The macros of the process, before a numeric string's own variables.
class MacroNames : public ExpressionNames {
  public:
    explicit MacroNames(NumericState& state) : state_(state) {}

    bool macroNumber(WideView name, double& value) override;
    bool macroText(WideView name, CString& text) override;
    bool hasArray(WideView name) override { return state_.arrays.find(name) != state_.arrays.end(); }
    bool arrayElement(WideView name, int index, CString& text) override;

  private:
    NumericState& state_;
};

}  // namespace orv
