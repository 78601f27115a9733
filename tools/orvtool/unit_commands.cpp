// orvtool unit: the catalogue of units.
#include <cmath>
#include <cstdlib>

#include "commands.h"
#include "orv/display_values.h"
#include "orv/expressions.h"

namespace orvtool {
namespace {

struct UnitWords {
    std::string value, from, in, to, group;
    int format = -1;
    int precision = -1;
};

std::string number(const wchar_t* format, double value) {
    CString text;
    text.Format(format, value);
    return utf8(text);
}

enUnit unitOf(const std::string& name) {
    const enUnit unit = orvUnits::getEnumValueByString(wide(name));
    if (unit == eUnitUndefined) throw Failure{"\"" + name + "\" is no unit"};
    return unit;
}

double valueOf(const std::string& text) {
    const CString expression = wide(text);
    const orv::Evaluation found =
        orv::evaluate({expression.GetString(), static_cast<std::size_t>(expression.GetLength())});
    if (!found.ok) throw Failure{"\"" + text + "\" is no number"};
    return found.value;
}

orv::ParsedBaseValue baseValueOf(const std::string& text, enUnit unit) {
    const CString typed = wide(text);
    const orv::ParsedBaseValue value =
        orv::parseBaseValue({typed.GetString(), static_cast<std::size_t>(typed.GetLength())}, unit);
    if (value.ok) return value;
    const std::string at = utf8(typed.Mid(value.position, value.length));
    switch (value.error) {
        case orv::InputError::kUnknownUnit:
            throw Failure{"\"" + at + "\" is no unit"};
        case orv::InputError::kOtherQuantity:
            throw Failure{"\"" + at + "\" measures something else"};
        case orv::InputError::kNotFinite:
            throw Failure{"the value is too large"};
        default:
            throw Failure{"\"" + text + "\" is no value" + (at.empty() ? "" : ": \"" + at + "\"")};
    }
}

/// Calls use(unit) for all units, group by group.
template <class Use>
void forEachUnit(Use use) {
    constexpr int kGroupStep = 1000;
    for (int group = 0; group <= eUnitGroupDimensionslos; group += kGroupStep) {
        CArray<enUnit> units;
        orvUnits::getUnitGroupArray(units, static_cast<enUnit>(group + 1));
        for (int i = 0; i < units.GetSize(); ++i)
            use(units[i]);
    }
}

void list(const UnitWords& words) {
    const int wanted = words.group.empty() ? 0 : unitOf(words.group) / 1000;
    forEachUnit([&](enUnit unit) {
        if (wanted != 0 && unit / 1000 != wanted) return;
        print(std::to_string(unit) + "\t" + utf8(orvUnits::getUnitEnumName(unit)) + "\t" +
              utf8(orvUnits::getUnitLabel(unit)) + "\t" + utf8(orvUnits::getUnitName(unit)) + "\n");
    });
}

void table() {
    print(
        "<!-- Made by: orvtool unit table > docs/units.md -->\n\n# Units and their factors\n\n"
        "One unit is so many base units: as the library applies its rounded constants, by today's definition of the\n"
        "unit, and how far the first is from the second, relatively. Temperatures also have offsets.\n\n"
        "| unit | symbol | factor | by definition | deviation |\n|---|---|---|---|---|\n");
    forEachUnit([](enUnit unit) {
        const double exact = orv::unitFactorByDefinition(unit);
        if (exact == 0) return;
        const double used = orv::unitFactor(unit);
        // Differences in the last digits are those of the arithmetic, not of a constant.
        constexpr double kSameNumber = 1e-15;
        const double deviation = std::fabs(used / exact - 1) <= kSameNumber ? 0 : used / exact - 1;
        print("| " + utf8(orvUnits::getUnitEnumName(unit)) + " | " + utf8(orvUnits::getUnitLabel(unit)) + " | " +
              number(L"%.15g", used) + " | " + number(L"%.15g", exact) + " | " +
              (deviation == 0 ? "0" : number(L"%.1e", deviation)) + " |\n");
    });
}

void convert(const UnitWords& words) {
    if (words.in != "in") throw Failure{"say: unit convert VALUE UNIT in UNIT"};
    double result = 0;
    switch (orv::tryConvert(valueOf(words.value), unitOf(words.from), unitOf(words.to), result)) {
        case orv::UnitConversion::kDone:
            print(number(L"%.15g", result) + "\n");
            return;
        case orv::UnitConversion::kNoCommonQuantity:
            throw Failure{"nothing converts " + words.from + " and " + words.to};
        case orv::UnitConversion::kDifferentGroups:
            throw Failure{words.from + " and " + words.to + " measure different things"};
        default:
            throw Failure{"unknown unit"};
    }
}

void format(const UnitWords& words) {
    orvUnitSetting setting;
    setting.unit = unitOf(words.from);
    orvUnits::getUnitStandardFormat(setting.format, setting.precision, setting.unit);
    if (words.format >= 0) setting.format = static_cast<enUnitFormat>(words.format);
    if (words.precision >= 0) setting.precision = static_cast<enUnitPrec>(words.precision);
    print(utf8(orv::formatBaseValue(baseValueOf(words.value, setting.unit).value, setting, true)) + "\n");
}

void parse(const UnitWords& words) {
    const orv::ParsedBaseValue value = baseValueOf(words.value, unitOf(words.from));
    const auto base = static_cast<enUnit>(value.unit / 1000 * 1000 + 1);
    print(number(L"%.15g", value.value) + utf8(orvUnits::getUnitLabel(base, true, true)) + "\n" +
          notesOf(value.warnings));
}

}  // namespace

void addUnitCommands(CLI::App& app, Outcome& /*outcome*/) {
    CLI::App* unit = app.add_subcommand("unit", "Units of measure: by name (eUnitMeter) or symbol (m)");
    unit->require_subcommand(1);
    const auto words = std::make_shared<UnitWords>();

    CLI::App* all = unit->add_subcommand("list", "Number, name, symbol and German name of every unit");
    all->add_option("GROUP", words->group, "Only the units of this one's or this unit's group");
    all->callback([words] { list(*words); });

    unit->add_subcommand("table", "What is used to convert, and how exact that is")->callback(table);

    CLI::App* conversion = unit->add_subcommand("convert", "VALUE UNIT in UNIT; the value may be an expression");
    conversion->add_option("VALUE", words->value, "The value")->required();
    conversion->add_option("FROM", words->from, "Its unit")->required();
    conversion->add_option("in", words->in, "The word \"in\"")->required();
    conversion->add_option("TO", words->to, "The wanted unit")->required();
    conversion->callback([words] { convert(*words); });

    CLI::App* typed = unit->add_subcommand("parse", "What a typed text means, in the base unit");
    typed->add_option("TEXT", words->value, "Such as \"12,7 mm\", \"2*3/4 in\", \"3'-4 1/2\\\"\"")->required();
    typed->add_option("UNIT", words->from, "The unit that counts where none is named")->required();
    typed->callback([words] { parse(*words); });

    CLI::App* text = unit->add_subcommand("format", "A value as it is shown to the user");
    text->add_option("VALUE", words->value, "The value in the unit")->required();
    text->add_option("UNIT", words->from, "The unit")->required();
    text->add_option("--format", words->format, "0 decimal, 1 fraction, 2 feet and decimal inches, 3 feet and inches")
        ->check(CLI::Range(0, 6));
    text->add_option("--precision", words->precision, "Decimals, or the power of the fraction")
        ->check(CLI::Range(0, 8));
    text->callback([words] { format(*words); });
}

}  // namespace orvtool
