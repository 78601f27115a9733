// The forms of typed numbers that are no expressions: long decimals, mixed numbers, feet and inches.
#pragma once

#include "orv/wide.h"

namespace orv {

struct TypedNumber {
    enum class Kind { kNone, kNumber, kDividedByZero, kWrong };
    Kind kind = Kind::kNone;  // kNone: of another form
    double value = 0;
    std::size_t position = 0;  // of what is wrong
};

/// The whole of a text without blanks around it: "-12,5" of any length, "1 1/2".
TypedNumber readDecimalOrMixed(WideView text);

/// Whether a text has signs of feet or inches, ' or ", typographic ones among them.
bool hasImperialSigns(WideView text);
/// The whole of such a text in inches: "3'-4 1/2"".
TypedNumber readFeetAndInches(WideView text);

}  // namespace orv
