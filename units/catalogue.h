// The catalogue: one row a group or unit, in the order of their values.
#pragma once

#include <array>
#include <span>

#include "orv/units.h"

namespace orv {

/// What takes a value to the base unit: (value + offset) * first / over1, for some units then * second / over2. Parts
/// that are not used change nothing, to the last bit (-0.0 is the offset that keeps -0.0).
struct ToBase {
    enum class Kind : unsigned char { kUnknown, kBase, kFactors, kApart };
    Kind kind = Kind::kFactors;
    bool hasSecond = false;  // a division costs more than to know that it is not needed
    double offset = -0.0;
    double first = 1, over1 = 1, second = 1, over2 = 1;

    constexpr ToBase times(double by) const {
        ToBase result = *this;
        result.hasSecond = first != 1 || over1 != 1;
        (result.hasSecond ? result.second : result.first) = by;
        return result;
    }
    constexpr ToBase over(double by) const {
        ToBase result = *this;
        result.hasSecond = hasSecond || over1 != 1;
        (result.hasSecond ? result.over2 : result.over1) = by;
        return result;
    }
    constexpr double apply(double value) const {
        const double once = (value + offset) * first / over1;
        return hasSecond ? once * second / over2 : once;
    }
    constexpr double undo(double value) const {
        return (hasSecond ? value * over2 / second : value) * over1 / first - offset;
    }
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

namespace detail {

// From thousands and the rest to the row, counted from 1, 0 for none. Two groups lie far out; one shares its place.
inline constexpr unsigned kGroups = 102, kMembers = 20, kFarThousands = 1000;
constexpr unsigned groupIndex(unsigned thousands) { return thousands == kFarThousands ? kGroups - 1 : thousands; }
using UnitIndex = std::array<std::array<unsigned char, kMembers>, kGroups>;
extern const UnitIndex unitIndex;
extern const UnitRow* const unitRows;

}  // namespace detail

/// Null for a value that the catalogue does not hold.
inline const UnitRow* findUnit(int value) {
    constexpr unsigned kThousand = 1000;
    const unsigned thousands = static_cast<unsigned>(value) / kThousand,
                   member = static_cast<unsigned>(value) % kThousand;
    const unsigned group = detail::groupIndex(thousands);
    if (group >= detail::kGroups || member >= detail::kMembers || thousands == detail::kGroups - 1) return nullptr;
    const unsigned row = detail::unitIndex[group][member];
    return row == 0 ? nullptr : &detail::unitRows[row - 1];
}

constexpr int groupOf(int unit) { return unit / 1000 * 1000; }

}  // namespace orv
