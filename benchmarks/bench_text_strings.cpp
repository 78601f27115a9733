// Searching, wildcards, natural order, digests and numbers beside the strongest packaged peers, in one program.
// Names: operation/input/who. The library is called through its exported interface.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "names.h"
#include "orv/framework.h"
#include "orv/hashing.h"
#include "orv/numbers.h"
#include "orv/string_utilities.h"

#ifdef ORV_PEER_HYPERSCAN
#include <hs/hs.h>
#endif
#ifdef ORV_PEER_PCRE2
#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>
#endif
#ifdef ORV_PEER_SQLITE
#include <sqlite3.h>
#endif
#ifdef ORV_PEER_QT
#include <QString>
#endif
#ifdef ORV_PEER_OPENSSL
#include <openssl/md5.h>
#endif
#ifdef ORV_PEER_FAST_FLOAT
#include <fast_float/fast_float.h>
#endif

namespace {

// ---- Inputs: names of about 25 characters, the same on every run ----

using bench::name;

const std::vector<std::string>& names() {
    static const std::vector<std::string> all = [] {
        std::mt19937 random(22);
        std::vector<std::string> made(1000);
        for (std::string& one : made)
            one = name(random);
        return made;
    }();
    return all;
}

const std::vector<CString>& wideNames() {
    static const std::vector<CString> all = [] {
        std::vector<CString> made;
        for (const std::string& one : names())
            made.push_back(orvStdStrUtil::convertUtf8ToUnicode(one));
        return made;
    }();
    return all;
}

// 65,536 characters of names.
const CString& longText() {
    static const CString text = [] {
        std::mt19937 random(21);
        CString made;
        while (made.GetLength() < 65536)
            made += orvStdStrUtil::convertUtf8ToUnicode(name(random) + " ");
        return made.Left(65536);
    }();
    return text;
}

const std::string& longTextUtf8() {
    static const std::string text = orvStdStrUtil::convertUnicodeToUtf8(longText());
    return text;
}

constexpr const char* kAbsent = "KÜHLDECKE Süd";  // 13 characters
constexpr const wchar_t* kAbsentWide = L"KÜHLDECKE Süd";

void perItem(benchmark::State& state, std::size_t items) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items));
}

template <class Search>
void searchLong(benchmark::State& state, Search search) {
    for (auto _ : state)
        benchmark::DoNotOptimize(search());
}

template <class Texts, class Each>
void overNames(benchmark::State& state, const Texts& texts, Each each) {
    for (auto _ : state) {
        for (const auto& text : texts)
            benchmark::DoNotOptimize(each(text));
    }
    perItem(state, texts.size());
}

// ---- Search, ignoring case ----

void FindLong_orv(benchmark::State& state) {
    searchLong(state, [] { return orvStrUtil::FindIndexNoCase(longText(), kAbsentWide, 0); });
}
BENCHMARK(FindLong_orv)->Name("find/64K/orv");

void FindLongPointer_orv(benchmark::State& state) {
    searchLong(state, [] { return orvStrUtil::FindNoCase(longText(), kAbsentWide); });
}
BENCHMARK(FindLongPointer_orv)->Name("find/64K/orv_pointer_form");

void FindShort_orv(benchmark::State& state) {
    overNames(state, wideNames(),
              [](const CString& text) { return orvStrUtil::FindIndexNoCase(text, kAbsentWide, 0); });
}
BENCHMARK(FindShort_orv)->Name("find/25/orv");

void FindShortPointer_orv(benchmark::State& state) {
    overNames(state, wideNames(), [](const CString& text) { return orvStrUtil::FindNoCase(text, kAbsentWide); });
}
BENCHMARK(FindShortPointer_orv)->Name("find/25/orv_pointer_form");

#ifdef ORV_PEER_HYPERSCAN
struct Hyperscan {
    hs_database_t* database = nullptr;
    hs_scratch_t* scratch = nullptr;
    explicit Hyperscan(const char* pattern) {
        hs_compile_error_t* error = nullptr;
        hs_compile(pattern, HS_FLAG_CASELESS | HS_FLAG_UTF8 | HS_FLAG_UCP | HS_FLAG_SINGLEMATCH, HS_MODE_BLOCK, nullptr,
                   &database, &error);
        hs_alloc_scratch(database, &scratch);
    }
    bool find(const std::string& text) const {
        bool found = false;
        const auto hit = [](unsigned, unsigned long long, unsigned long long, unsigned, void* context) {
            *static_cast<bool*>(context) = true;
            return 1;
        };
        hs_scan(database, text.data(), static_cast<unsigned>(text.size()), 0, scratch, hit, &found);
        return found;
    }
};

void FindLong_hyperscan(benchmark::State& state) {
    const Hyperscan scanner(kAbsent);
    searchLong(state, [&] { return scanner.find(longTextUtf8()); });
}
BENCHMARK(FindLong_hyperscan)->Name("find/64K/hyperscan");

void FindShort_hyperscan(benchmark::State& state) {
    const Hyperscan scanner(kAbsent);
    overNames(state, names(), [&](const std::string& text) { return scanner.find(text); });
}
BENCHMARK(FindShort_hyperscan)->Name("find/25/hyperscan");
#endif

#ifdef ORV_PEER_PCRE2
struct Pcre {
    pcre2_code* code;
    pcre2_match_data* match;
    explicit Pcre(const CString& pattern) {
        int error = 0;
        PCRE2_SIZE offset = 0;
        code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.GetString()),
                             static_cast<PCRE2_SIZE>(pattern.GetLength()), PCRE2_CASELESS | PCRE2_UTF, &error, &offset,
                             nullptr);
        pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
        match = pcre2_match_data_create_from_pattern(code, nullptr);
    }
    bool find(const CString& text) const {
        return pcre2_jit_match(code, reinterpret_cast<PCRE2_SPTR>(text.GetString()),
                               static_cast<PCRE2_SIZE>(text.GetLength()), 0, 0, match, nullptr) >= 0;
    }
};

void FindLong_pcre2(benchmark::State& state) {
    const Pcre pattern(kAbsentWide);
    searchLong(state, [&] { return pattern.find(longText()); });
}
BENCHMARK(FindLong_pcre2)->Name("find/64K/pcre2_16_jit");

void FindShort_pcre2(benchmark::State& state) {
    const Pcre pattern(kAbsentWide);
    overNames(state, wideNames(), [&](const CString& text) { return pattern.find(text); });
}
BENCHMARK(FindShort_pcre2)->Name("find/25/pcre2_16_jit");
#endif

// ---- Replace, ignoring case: one word of many in the long text, and in names ----

const wchar_t* const kOld = L"WÄRMEPUMPE";
const wchar_t* const kNewSameLength = L"Kompressor";
const wchar_t* const kNewLonger = L"Heizungswärmepumpe";

void replaceLong(benchmark::State& state, const wchar_t* to) {
    for (auto _ : state) {
        CString text = longText();
        benchmark::DoNotOptimize(orvStrUtil::ReplaceNoCase(text, kOld, to));
    }
}
BENCHMARK_CAPTURE(replaceLong, same, kNewSameLength)->Name("replace/64K_same_length/orv");
BENCHMARK_CAPTURE(replaceLong, longer, kNewLonger)->Name("replace/64K_longer/orv");

void ReplaceShort_orv(benchmark::State& state) {
    overNames(state, wideNames(), [](const CString& name) {
        CString text = name;
        return orvStrUtil::ReplaceNoCase(text, kOld, kNewLonger);
    });
}
BENCHMARK(ReplaceShort_orv)->Name("replace/25_longer/orv");

#ifdef ORV_PEER_QT
QString qt(const CString& text) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.GetString()), text.GetLength());
}

void replaceLongQt(benchmark::State& state, const wchar_t* to) {
    const QString all = qt(longText());
    const QString from = qt(kOld);
    const QString by = qt(to);
    for (auto _ : state) {
        QString text = all;
        benchmark::DoNotOptimize(text.replace(from, by, Qt::CaseInsensitive));
    }
}
BENCHMARK_CAPTURE(replaceLongQt, same, kNewSameLength)->Name("replace/64K_same_length/qt");
BENCHMARK_CAPTURE(replaceLongQt, longer, kNewLonger)->Name("replace/64K_longer/qt");

void ReplaceShort_qt(benchmark::State& state) {
    const QString from = qt(kOld);
    const QString by = qt(kNewLonger);
    std::vector<QString> texts;
    for (const CString& text : wideNames())
        texts.push_back(qt(text));
    overNames(state, texts, [&](const QString& name) {
        QString text = name;
        return text.replace(from, by, Qt::CaseInsensitive).size();
    });
}
BENCHMARK(ReplaceShort_qt)->Name("replace/25_longer/qt");
#endif

// ---- Wildcards ----

struct Glob {
    const char* utf8;
    const wchar_t* wide;
};
constexpr Glob kGlobs[] = {{"*pumpe*", L"*pumpe*"}, {"Heizk?rper*", L"Heizk?rper*"}, {"*Süd ??2*", L"*Süd ??2*"}};

void wildcard(benchmark::State& state, bool caseSensitive) {
    const wchar_t* pattern = kGlobs[state.range(0)].wide;
    overNames(state, wideNames(),
              [=](const CString& text) { return orvStrUtil::MatchesWildcardPattern(text, pattern, caseSensitive); });
}
BENCHMARK_CAPTURE(wildcard, exact, true)->Name("wildcard/exact/orv")->DenseRange(0, 2);
BENCHMARK_CAPTURE(wildcard, folding, false)->Name("wildcard/folding/orv")->DenseRange(0, 2);

void Glob_orv(benchmark::State& state) {
    const orv::WideView pattern = kGlobs[state.range(0)].wide;
    overNames(state, wideNames(), [=](const CString& text) {
        return orv::globMatch({text.GetString(), static_cast<std::size_t>(text.GetLength())}, pattern, true);
    });
}
BENCHMARK(Glob_orv)->Name("wildcard/glob/orv")->DenseRange(0, 2);

#ifdef ORV_PEER_SQLITE
void Wildcard_sqlite(benchmark::State& state) {
    const char* pattern = kGlobs[state.range(0)].utf8;
    overNames(state, names(), [=](const std::string& text) { return sqlite3_strglob(pattern, text.c_str()) == 0; });
}
BENCHMARK(Wildcard_sqlite)->Name("wildcard/exact/sqlite")->DenseRange(0, 2);
#endif

// ---- Natural order: neighbours of the list, and (sorted) neighbours that share their first half ----

std::vector<std::size_t> sortedOrder() {
    std::vector<std::size_t> order(names().size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(), [](std::size_t a, std::size_t b) { return names()[a] < names()[b]; });
    return order;
}

template <class Texts, class Compare>
void compareNeighbours(benchmark::State& state, const Texts& all, Compare compare) {
    Texts texts = all;
    if (state.range(0) != 0) {
        const std::vector<std::size_t> order = sortedOrder();
        for (std::size_t i = 0; i < order.size(); ++i)
            texts[i] = all[order[i]];
    }
    for (auto _ : state) {
        for (std::size_t i = 1; i < texts.size(); ++i)
            benchmark::DoNotOptimize(compare(texts[i - 1], texts[i]));
    }
    perItem(state, texts.size() - 1);
}

void Natural_orv(benchmark::State& state) { compareNeighbours(state, wideNames(), orvStrUtil::CompareAlphaNumerical); }
BENCHMARK(Natural_orv)->Name("natural/25/orv")->ArgName("sorted")->DenseRange(0, 1);

void NaturalStrict_orv(benchmark::State& state) {
    compareNeighbours(state, wideNames(), [](const CString& a, const CString& b) {
        return orv::compareNatural({a.GetString(), static_cast<std::size_t>(a.GetLength())},
                                   {b.GetString(), static_cast<std::size_t>(b.GetLength())}, true);
    });
}
BENCHMARK(NaturalStrict_orv)->Name("natural/25/orv_strict_order")->ArgName("sorted")->DenseRange(0, 1);

#ifdef __GLIBC__
void Natural_strverscmp(benchmark::State& state) {
    compareNeighbours(state, names(),
                      [](const std::string& a, const std::string& b) { return strverscmp(a.c_str(), b.c_str()); });
}
BENCHMARK(Natural_strverscmp)->Name("natural/25/strverscmp")->ArgName("sorted")->DenseRange(0, 1);
#endif

// ---- MD5, as 32 hexadecimal digits ----

void Md5_orv(benchmark::State& state) {
    const CString text = longText().Left(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(CHashing::md5(text));
}
BENCHMARK(Md5_orv)->Name("md5/orv")->Arg(200)->Arg(2000)->Arg(65536);

#ifdef ORV_PEER_OPENSSL
void Md5_openssl(benchmark::State& state) {
    const CString text = longText().Left(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        unsigned char digest[16];
        MD5(reinterpret_cast<const unsigned char*>(text.GetString()), static_cast<std::size_t>(text.GetLength()) * 2,
            digest);
        char hex[33];
        for (std::size_t i = 0; i < 16; ++i) {
            hex[2 * i] = "0123456789abcdef"[digest[i] >> 4];
            hex[2 * i + 1] = "0123456789abcdef"[digest[i] & 15];
        }
        hex[32] = 0;
        benchmark::DoNotOptimize(hex);
    }
}
BENCHMARK(Md5_openssl)->Name("md5/openssl")->Arg(200)->Arg(2000)->Arg(65536);
#endif

// ---- Numbers ----

const std::vector<double>& numbers() {
    static const std::vector<double> all = [] {
        std::mt19937 random(9);
        std::vector<double> made(1000);
        for (double& one : made)
            one = static_cast<double>(random() % 10000000) / 1000.0;
        return made;
    }();
    return all;
}

const std::vector<std::string>& numberTexts() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> made;
        char text[40];
        for (const double value : numbers())
            made.emplace_back(text, std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr);
        return made;
    }();
    return all;
}

void Format_orv(benchmark::State& state) {
    overNames(state, numbers(), [](double value) {
        wchar_t text[orv::kGeneralLength];
        const int length = orv::formatGeneral(value, text);
        benchmark::DoNotOptimize(text);
        return length;
    });
}
BENCHMARK(Format_orv)->Name("format_g/orv");

void Format_to_chars(benchmark::State& state) {
    overNames(state, numbers(), [](double value) {
        char text[40];
        const char* end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr;
        benchmark::DoNotOptimize(text);
        return end;
    });
}
BENCHMARK(Format_to_chars)->Name("format_g/to_chars");

void Parse_orv(benchmark::State& state) {
    std::vector<orv::WideString> texts;
    for (const std::string& text : numberTexts())
        texts.emplace_back(text.begin(), text.end());
    overNames(state, texts, [](const orv::WideString& text) { return orv::parseDouble(text).value; });
}
BENCHMARK(Parse_orv)->Name("parse_double/orv");

#ifdef ORV_PEER_FAST_FLOAT
void Parse_fast_float(benchmark::State& state) {
    overNames(state, numberTexts(), [](const std::string& text) {
        double value = 0;
        fast_float::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    });
}
BENCHMARK(Parse_fast_float)->Name("parse_double/fast_float");
#endif

}  // namespace

BENCHMARK_MAIN();
