// Field records beside the strongest packaged ways to join and split texts. Names: operation/input/who.
#include <absl/strings/str_join.h>
#include <absl/strings/str_split.h>
#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <random>
#include <string>
#include <vector>

#include "names.h"
#include "orv/orv.h"

namespace {

constexpr std::size_t kFields = 20'000;

// About 17 characters a field; one in 64 holds a character that a record escapes.
const std::vector<std::string>& fields() {
    static const std::vector<std::string> all = [] {
        std::mt19937 random(7);
        std::vector<std::string> made;
        for (std::size_t i = 0; i < kFields; ++i) {
            std::string field = bench::name(random);
            field.resize(std::min<std::size_t>(field.size(), 10 + random() % 16));
            while (static_cast<unsigned char>(field.back()) >= 0x80)
                field.pop_back();  // no half character
            if (random() % 64 == 0) field += ':';
            made.push_back(field);
        }
        return made;
    }();
    return all;
}

std::vector<CString> wideFields() {
    std::vector<CString> all;
    for (const std::string& field : fields())
        all.push_back(orvStdStrUtil::convertUtf8ToUnicode(field));
    return all;
}

CString record() {
    COrvSubStr writer;
    writer.AddInit(L':');
    for (const CString& field : wideFields())
        writer.Add(field.GetString());
    CString made;
    writer.AddEnd(made);
    return made;
}

void count(benchmark::State& state, std::size_t items) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items));
}

// ---- Writing ----

void writeOrv(benchmark::State& state) {
    const std::vector<CString> all = wideFields();
    for (auto _ : state) {
        COrvSubStr writer;
        writer.AddInit(L':');
        for (const CString& field : all)
            writer.Add(field.GetString());
        CString made;
        writer.AddEnd(made);
        benchmark::DoNotOptimize(made.GetString());
    }
    count(state, kFields);
}
BENCHMARK(writeOrv)->Name("record-write/20000-fields/orv");

void writeAbsl(benchmark::State& state) {
    for (auto _ : state) {
        std::string made = absl::StrJoin(fields(), ":");
        benchmark::DoNotOptimize(made.data());
    }
    count(state, kFields);
}
BENCHMARK(writeAbsl)->Name("record-write/20000-fields/absl-StrJoin");

// ---- Reading all fields ----

void readOrv(benchmark::State& state) {
    const CString text = record();
    for (auto _ : state) {
        COrvSubStr reader;
        CString field;
        std::size_t n = 1;
        for (reader.GetInit(text, L':'); reader.Get(field); ++n)
            benchmark::DoNotOptimize(field.GetString());
        if (n != kFields) state.SkipWithError("wrong number of fields");
    }
    count(state, kFields);
}
BENCHMARK(readOrv)->Name("record-read/20000-fields/orv");

void readSimdjson(benchmark::State& state) {
    std::string json = "[";
    for (const std::string& field : fields())
        json += (json.size() > 1 ? ",\"" : "\"") + field + "\"";
    const simdjson::padded_string padded(json + "]");
    simdjson::ondemand::parser parser;
    for (auto _ : state) {
        std::size_t n = 0;
        simdjson::ondemand::document document = parser.iterate(padded);
        for (auto value : document.get_array()) {
            std::string_view field = value.get_string();
            benchmark::DoNotOptimize(field.data());
            ++n;
        }
        if (n != kFields) state.SkipWithError("wrong number of fields");
    }
    count(state, kFields);
}
BENCHMARK(readSimdjson)->Name("record-read/20000-fields/simdjson-on-demand");

// ---- One field of twelve ----

constexpr const wchar_t* kShort =
    L"Heizk\x00F6rper S\x00FC"
    L"d:12:0.5:K\x00FC"
    L"che:2345.50:1:0::Vorlauf 70:55:20:Typ 22";

void oneFieldOrv(benchmark::State& state) {
    const CString text(kShort);
    for (auto _ : state) {
        CString field = orvStrUtil::GetSubStr(text, 9, L':');
        benchmark::DoNotOptimize(field.GetString());
    }
    count(state, 1);
}
BENCHMARK(oneFieldOrv)->Name("record-field/9-of-12/orv");

void oneFieldAbsl(benchmark::State& state) {
    const std::string text = orvStdStrUtil::convertUnicodeToUtf8(CString(kShort));
    for (auto _ : state) {
        int n = 0;
        std::string field;
        for (const absl::string_view piece : absl::StrSplit(text, ':')) {
            if (++n < 9) continue;
            field = std::string(piece);
            break;
        }
        benchmark::DoNotOptimize(field.data());
    }
    count(state, 1);
}
BENCHMARK(oneFieldAbsl)->Name("record-field/9-of-12/absl-StrSplit");

}  // namespace

BENCHMARK_MAIN();
