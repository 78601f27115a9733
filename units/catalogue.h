// The catalogue: one row a group or unit, in the order of their values.
#pragma once

#include <span>

#include "orv/units.h"

namespace orv {

/// What takes a value to the base unit: ((value + offset) * times / over) * thenTimes / thenOver. Parts that are not
/// used change nothing, to the last bit (-0.0 is the offset that keeps -0.0).
struct ToBase {
    enum class Kind : unsigned char { kUnknown, kBase, kFactors, kApart };
    Kind kind = Kind::kFactors;
    double offset = -0.0;
    double first = 1, over1 = 1, second = 1, over2 = 1;

    constexpr ToBase times(double by) const {
        ToBase result = *this;
        (first == 1 && over1 == 1 ? result.first : result.second) = by;
        return result;
    }
    constexpr ToBase over(double by) const {
        ToBase result = *this;
        (over1 == 1 && second == 1 ? result.over1 : result.over2) = by;
        return result;
    }
    constexpr double apply(double value) const { return (value + offset) * first / over1 * second / over2; }
    constexpr double undo(double value) const { return value * over2 / second * over1 / first - offset; }
};

struct UnitRow {
    enUnit value;
    const wchar_t* enumName;
    const wchar_t* nameKey;
    const wchar_t* labelKey;
    unsigned char format, precision;
    ToBase toBase;
    double exact;  // base units in one unit by today's definitions; 0 where nothing converts
};

std::span<const UnitRow> unitCatalogue();
/// Null for a value that the catalogue does not hold.
const UnitRow* findUnit(int value);

constexpr int groupOf(int unit) { return unit / 1000 * 1000; }

}  // namespace orv
