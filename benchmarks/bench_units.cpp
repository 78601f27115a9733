// Units: conversion, look-ups by name and label, values shown and read. Names: operation/input/who.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "orv/orv.h"
#if defined(ORV_PEER_UDUNITS)
#include <udunits2.h>
#endif
#if defined(ORV_PEER_ABSL)
#include <absl/container/flat_hash_map.h>
#endif
#if defined(ORV_PEER_FAST_FLOAT)
#include <fast_float/fast_float.h>
#endif
#if defined(ORV_PEER_GPERF)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#include "gperf_units.inc"
#pragma GCC diagnostic pop
#endif

namespace {

constexpr std::size_t kCount = 1000;

struct ConvertedUnit {
    enUnit unit;
    const char *from, *to;  // as the peer spells them
};
constexpr ConvertedUnit kConverted[] = {{eUnitInch, "in", "m"},
                                        {eUnitFeet, "ft", "m"},
                                        {eUnitGALUSpMIN, "gallon/min", "m3/h"},
                                        {eUnitPsi, "psi", "Pa"},
                                        {eUnitAbsGradCelsius, "degC", "K"},
                                        {eUnitLBpH, "lb/h", "kg/h"},
                                        {eUnitMillimeter, "mm", "m"},
                                        {eUnitKW, "kW", "W"}};

std::vector<std::pair<double, std::size_t>> mixedValues() {
    std::mt19937 random(2);
    std::vector<std::pair<double, std::size_t>> made;
    for (std::size_t i = 0; i < kCount; ++i)
        made.emplace_back(static_cast<double>(random() % 100000) / 100, random() % std::size(kConverted));
    return made;
}

void items(benchmark::State& state) { state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCount)); }

// ---- Conversion ----

void convertOrv(benchmark::State& state) {
    std::vector<std::pair<double, enUnit>> values;
    for (const auto& [value, which] : mixedValues())
        values.emplace_back(value, kConverted[which].unit);
    for (auto _ : state) {
        for (const auto& [value, unit] : values)
            benchmark::DoNotOptimize(orvUnits::convertToBaseUnit(value, unit));
    }
    items(state);
}
BENCHMARK(convertOrv)->Name("unit-convert/mixed/orv");

#if defined(ORV_PEER_UDUNITS)
void convertUdunits(benchmark::State& state) {
    ut_set_error_message_handler(ut_ignore);
    ut_system* const system = ut_read_xml(nullptr);
    std::vector<cv_converter*> converters;
    for (const ConvertedUnit& unit : kConverted) {
        ut_unit *from = ut_parse(system, unit.from, UT_UTF8), *to = ut_parse(system, unit.to, UT_UTF8);
        converters.push_back(from != nullptr && to != nullptr ? ut_get_converter(from, to) : nullptr);
        ut_free(from);
        ut_free(to);
        if (converters.back() == nullptr) {
            state.SkipWithError("the peer does not know a unit");
            return;
        }
    }
    const auto values = mixedValues();
    for (auto _ : state) {
        for (const auto& [value, which] : values)
            benchmark::DoNotOptimize(cv_convert_double(converters[which], value));
    }
    items(state);
    for (cv_converter* converter : converters)
        cv_free(converter);
    ut_free_system(system);
}
BENCHMARK(convertUdunits)->Name("unit-convert/mixed/udunits2");
#endif

// ---- Names and labels ----

struct Keys {
    std::vector<CString> wide;
    std::vector<std::string> narrow;
};

std::vector<enUnit> allUnits(bool withGroups) {
    std::vector<enUnit> made;
    for (int value = 1; value <= eUnitBoolean; ++value) {
        const auto unit = static_cast<enUnit>(value);
        if (!orvUnits::getUnitEnumName(unit).IsEmpty() && (withGroups || !orvUnits::getUnitLabel(unit).IsEmpty()))
            made.push_back(unit);
    }
    return made;
}

// Every second name in capitals.
Keys nameKeys() {
    std::mt19937 random(6);
    const std::vector<enUnit> units = allUnits(true);
    Keys keys;
    for (std::size_t i = 0; i < kCount; ++i) {
        CString name = orvUnits::getUnitEnumName(units[random() % units.size()]);
        keys.wide.push_back(i % 2 == 1 ? name.MakeUpper() : name);
        keys.narrow.push_back(orvStdStrUtil::convertUnicodeToUtf8(keys.wide.back()));
    }
    return keys;
}

Keys labelKeys() {
    std::mt19937 random(7);
    const std::vector<enUnit> units = allUnits(false);
    Keys keys;
    for (std::size_t i = 0; i < kCount; ++i) {
        keys.wide.push_back(orvUnits::getUnitLabel(units[random() % units.size()]));
        keys.narrow.push_back(orvStdStrUtil::convertUnicodeToUtf8(keys.wide.back()));
    }
    return keys;
}

void nameOrv(benchmark::State& state) {
    const Keys keys = nameKeys();
    for (auto _ : state) {
        for (const CString& key : keys.wide)
            benchmark::DoNotOptimize(orvUnits::getEnumValueByNameCaseInsensitive(key));
    }
    items(state);
}
BENCHMARK(nameOrv)->Name("unit-name/any-case/orv");

#if defined(ORV_PEER_GPERF)
void nameGperf(benchmark::State& state) {
    const Keys keys = nameKeys();
    for (auto _ : state) {
        for (const std::string& key : keys.narrow) {
            const GperfUnit* found = GperfUnits::find(key.data(), key.size());
            if (found == nullptr) state.SkipWithError("not found");
            benchmark::DoNotOptimize(found);
        }
    }
    items(state);
}
BENCHMARK(nameGperf)->Name("unit-name/any-case/gperf");
#endif

void labelOrv(benchmark::State& state) {
    const Keys keys = labelKeys();
    for (auto _ : state) {
        for (const CString& key : keys.wide)
            benchmark::DoNotOptimize(orvUnits::getEnumValueByUnitLabelCaseInsensitive(key));
    }
    items(state);
}
BENCHMARK(labelOrv)->Name("unit-label/any-case/orv");

#if defined(ORV_PEER_ABSL)
std::string folded(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char ch) { return std::tolower(ch); });
    return text;
}

void labelAbsl(benchmark::State& state) {
    const Keys keys = labelKeys();
    absl::flat_hash_map<std::string, int> map;
    for (const enUnit unit : allUnits(false))
        map.emplace(folded(orvStdStrUtil::convertUnicodeToUtf8(orvUnits::getUnitLabel(unit))), unit);
    for (auto _ : state) {
        for (const std::string& key : keys.narrow)
            benchmark::DoNotOptimize(map.find(folded(key))->second);
    }
    items(state);
}
BENCHMARK(labelAbsl)->Name("unit-label/any-case/absl");
#endif

// ---- Values shown and read: the peers do the bare number alone ----

std::vector<double> lengths() {
    std::mt19937 random(9);
    std::vector<double> made;
    for (std::size_t i = 0; i < kCount; ++i)
        made.push_back(static_cast<double>(random() % 10'000'000) / 1e5);
    return made;
}

void formatOrv(benchmark::State& state) {
    const std::vector<double> values = lengths();
    for (auto _ : state) {
        for (const double value : values) {
            CString text = orv::formatBaseValue(value, eUnitCentimeter, eUnitFormatDecimal, eUnitPrec2);
            benchmark::DoNotOptimize(text);
        }
    }
    items(state);
}
BENCHMARK(formatOrv)->Name("unit-format/decimal/orv");

void formatStandard(benchmark::State& state) {
    const std::vector<double> values = lengths();
    for (auto _ : state) {
        for (const double value : values) {
            char text[64];
            benchmark::DoNotOptimize(std::to_chars(text, text + 64, value * 100, std::chars_format::fixed, 2).ptr);
            benchmark::DoNotOptimize(text);
        }
    }
    items(state);
}
BENCHMARK(formatStandard)->Name("unit-format/decimal/to_chars");

Keys typedValues() {
    Keys keys;
    for (const double value : lengths()) {
        const CString number = orv::formatBaseValue(value, eUnitMeter, eUnitFormatDecimal, eUnitPrec3, L',');
        keys.wide.push_back(number + L" m");
        keys.narrow.push_back(orvStdStrUtil::convertUnicodeToUtf8(number));
        std::replace(keys.narrow.back().begin(), keys.narrow.back().end(), ',', '.');
    }
    return keys;
}

void parseOrv(benchmark::State& state) {
    const Keys keys = typedValues();
    for (auto _ : state) {
        for (const CString& key : keys.wide) {
            const orv::ParsedBaseValue parsed =
                orv::parseBaseValue({key.GetString(), static_cast<std::size_t>(key.GetLength())}, eUnitMeter);
            if (!parsed.ok) state.SkipWithError("no value");
            benchmark::DoNotOptimize(parsed.value);
        }
    }
    items(state);
}
BENCHMARK(parseOrv)->Name("unit-parse/decimal/orv");

#if defined(ORV_PEER_FAST_FLOAT)
void parseFastFloat(benchmark::State& state) {
    const Keys keys = typedValues();
    for (auto _ : state) {
        for (const std::string& key : keys.narrow) {
            double value = 0;
            fast_float::from_chars(key.data(), key.data() + key.size(), value);
            benchmark::DoNotOptimize(value);
        }
    }
    items(state);
}
BENCHMARK(parseFastFloat)->Name("unit-parse/decimal/fast_float");
#endif

void parseStandard(benchmark::State& state) {
    const Keys keys = typedValues();
    for (auto _ : state) {
        for (const std::string& key : keys.narrow) {
            double value = 0;
            std::from_chars(key.data(), key.data() + key.size(), value);
            benchmark::DoNotOptimize(value);
        }
    }
    items(state);
}
BENCHMARK(parseStandard)->Name("unit-parse/decimal/from_chars");

}  // namespace

BENCHMARK_MAIN();
