#include <limits>

#include "units/catalogue.h"

using orv::ToBase;
using orv::UnitRow;

namespace {

const UnitRow* convertible(int unit) {
    const UnitRow* row = orv::findUnit(unit);
    return row == nullptr || row->toBase.kind == ToBase::Kind::kUnknown ? nullptr : row;
}

}  // namespace

double orvUnits::convertToBaseUnit(const double& value, enUnit unit) {
    // ODDITY(cubic-millimetre): stored data was computed without this factor. Pinned by UnitConversion.Oddities.
    if (unit == eUnitMillimeter3) return 0.0;
    const UnitRow* row = convertible(unit);
    return row == nullptr ? 0.0 : row->toBase.apply(value);
}

double orvUnits::unitTrans(const double& value, enUnit from, enUnit to) {
    double result = 0;
    // Through the base unit, to which cubic millimetres do not lead.
    const double given = from == eUnitMillimeter3 && to != from ? 0.0 : value;
    switch (orv::tryConvert(given, from, to, result)) {
        case orv::UnitConversion::kDifferentGroups:
            return std::numeric_limits<double>::max();
        case orv::UnitConversion::kUnknownUnit:
            return orv::groupOf(from) == orv::groupOf(to) ? 0.0 : std::numeric_limits<double>::max();
        default:
            return result;
    }
}

double orv::convertFromBaseUnit(double value, enUnit unit) {
    const UnitRow* row = convertible(unit);
    return row == nullptr ? 0.0 : row->toBase.undo(value);
}

double orv::unitFactor(enUnit unit) {
    const UnitRow* row = findUnit(unit);
    if (row == nullptr || row->exact == 0) return 0;
    ToBase factors = row->toBase;
    factors.offset = -0.0;
    return factors.apply(1);
}

double orv::unitFactorByDefinition(enUnit unit) {
    const UnitRow* row = findUnit(unit);
    return row == nullptr ? 0 : row->exact;
}

orv::UnitConversion orv::tryConvert(double value, enUnit from, enUnit to, double& out) {
    const UnitRow* source = convertible(from);
    const UnitRow* target = convertible(to);
    if (source == nullptr || target == nullptr) return UnitConversion::kUnknownUnit;
    if (groupOf(from) != groupOf(to)) return UnitConversion::kDifferentGroups;
    out = from == to ? value : target->toBase.undo(source->toBase.apply(value));
    const bool isApart = source->toBase.kind == ToBase::Kind::kApart || target->toBase.kind == ToBase::Kind::kApart;
    return from != to && isApart ? UnitConversion::kNoCommonQuantity : UnitConversion::kDone;
}
