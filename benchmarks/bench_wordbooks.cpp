// Wordbooks of 100,000 entries beside hash maps and packaged catalogues. Names: operation/input/who.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "names.h"
#include "orv/orv.h"
#if defined(ORV_PEER_ABSL)
#include <absl/container/flat_hash_map.h>
#endif
#if defined(ORV_PEER_QT)
#include <QHash>
#include <QString>
#include <QTranslator>
#endif

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kEntries = 100'000;
constexpr std::size_t kCold = 50'000;
constexpr std::size_t kHot = 100;

using Entries = std::vector<std::pair<std::string, std::string>>;

// About 30 characters of source, some with a context or a colon, and 25 of translation.
const Entries& entries() {
    static const Entries all = [] {
        static const char* const kEnglish[] = {"radiator",      "heat pump",   "air duct",         "check valve",
                                               "floor heating", "buffer tank", "circulation pump", "expansion vessel",
                                               "strainer",      "fire damper", "air sensor",       "manifold"};
        std::mt19937 random(3);
        Entries made;
        for (std::size_t i = 0; i < kEntries; ++i) {
            const std::string name = bench::name(random);
            std::string source = name.substr(0, name.rfind(' ')) + " " + std::to_string(i);
            if (i % 5 == 4) source = "@Einheit@" + source;
            if (i % 9 == 8) source += ":";
            const auto word = [&] { return std::string(kEnglish[random() % std::size(kEnglish)]); };
            const std::string first = word();
            made.emplace_back(source, first + " " + word() + " " + std::to_string(i));
        }
        return made;
    }();
    return all;
}

std::vector<std::size_t> order(std::size_t count) {
    std::mt19937 random(11);
    std::vector<std::size_t> made;
    for (std::size_t i = 0; i < count; ++i)
        made.push_back(random() % kEntries);
    return made;
}

/// A folder with the wordbook and the catalogues made of it.
class Folder {
  public:
    Folder() : path_(fs::temp_directory_path() / ("orv_bench_words_" + std::to_string(std::random_device()()))) {
        fs::create_directories(path_);
        std::ofstream book(file(), std::ios::binary);
        book << "\xEF\xBB\xBF";
        for (const auto& [source, translation] : entries())
            book << source << " <*> " << translation << "\r\n";
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    std::string path() const { return path_.string(); }
    std::string file() const { return (path_ / "wordbook.EN").string(); }

    /// The compiled catalogue, made by the peer's own compiler; "" where that is missing.
    std::string compiled() const {
        const fs::path made = path_ / "w.qm";
        if (fs::exists(made)) return made.string();
        {
            std::ofstream ts(path_ / "w.ts", std::ios::binary);
            ts << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n<TS version=\"2.1\" language=\"en\">\n"
                  "<context><name>c</name>\n";
            for (const auto& [source, translation] : entries())
                ts << "<message><source>" << source << "</source><translation>" << translation
                   << "</translation></message>\n";
            ts << "</context></TS>\n";
        }
        const std::string command =
            "lrelease -silent '" + (path_ / "w.ts").string() + "' -qm '" + made.string() + "' >/dev/null 2>&1";
        return std::system(command.c_str()) == 0 ? made.string() : std::string();
    }

  private:
    fs::path path_;
};

const Folder& folder() {
    static const Folder made;
    return made;
}

CString wide(const std::string& text) { return orvStdStrUtil::convertUtf8ToUnicode(text); }

void itemsPerRun(benchmark::State& state, std::size_t items) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items));
}

// ---- Loading ----

void loadOrv(benchmark::State& state) {
    CTranslationModule module(nullptr);
    module.ScanDirectory(wide(folder().path()));
    CString found;
    const CString key = wide(entries().front().first);
    for (auto _ : state) {
        module.Reload();
        if (module.FindTranslation(key, found, L"EN") == 0) state.SkipWithError("not found");
    }
    itemsPerRun(state, kEntries);
}
BENCHMARK(loadOrv)->Name("wordbook-load/100000/orv")->Unit(benchmark::kMillisecond);

#if defined(ORV_PEER_ABSL)
std::string contentOf(const std::string& path) {
    std::string content(fs::file_size(path), 0);
    std::ifstream(path, std::ios::binary).read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
}

void loadAbsl(benchmark::State& state) {
    for (auto _ : state) {
        const std::string content = contentOf(folder().file());
        absl::flat_hash_map<std::string, std::string> map;
        map.reserve(kEntries);
        std::string_view rest(content);
        rest.remove_prefix(3);
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            std::string_view line = rest.substr(0, end);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
            if (line.ends_with('\r')) line.remove_suffix(1);
            const std::size_t at = line.find(" <*> ");
            if (at != std::string_view::npos)
                map.insert_or_assign(std::string(line.substr(0, at)), std::string(line.substr(at + 5)));
        }
        if (map.size() != kEntries) state.SkipWithError("wrong number of entries");
    }
    itemsPerRun(state, kEntries);
}
BENCHMARK(loadAbsl)->Name("wordbook-load/100000/absl")->Unit(benchmark::kMillisecond);
#endif

// ---- Looking up ----

void lookOrv(benchmark::State& state, std::size_t count) {
    CTranslationModule module(nullptr);
    module.ScanDirectory(wide(folder().path()));
    module.SetLanguage(L"EN");
    std::vector<CString> keys;
    for (const std::size_t i : order(count))
        keys.push_back(wide(entries()[i].first));
    for (const CString& key : keys)
        module.TranslateText(key);
    for (auto _ : state) {
        for (const CString& key : keys) {
            CString text = module.TranslateText(key);
            benchmark::DoNotOptimize(text);
        }
    }
    itemsPerRun(state, count);
}
BENCHMARK_CAPTURE(lookOrv, hot, kHot)->Name("wordbook-look-up/hot/orv");
BENCHMARK_CAPTURE(lookOrv, cold, kCold)->Name("wordbook-look-up/cold/orv");

void lookGerman(benchmark::State& state) {
    CTranslationModule module(nullptr);
    std::vector<CString> keys;
    for (const std::size_t i : order(kHot))
        keys.push_back(wide(entries()[i].first));
    for (auto _ : state) {
        for (const CString& key : keys) {
            CString text = module.TranslateText(key);
            benchmark::DoNotOptimize(text);
        }
    }
    itemsPerRun(state, kHot);
}
BENCHMARK(lookGerman)->Name("wordbook-german/hot/orv");

#if defined(ORV_PEER_QT)
void lookTranslator(benchmark::State& state, std::size_t count) {
    QTranslator translator;
    if (!translator.load(QString::fromStdString(folder().compiled()))) {
        state.SkipWithError("no compiled catalogue");
        return;
    }
    std::vector<std::string> keys;
    for (const std::size_t i : order(count))
        keys.push_back(entries()[i].first);
    for (auto _ : state) {
        for (const std::string& key : keys) {
            QString text = translator.translate("c", key.c_str());
            if (text.isNull()) state.SkipWithError("not found");
            benchmark::DoNotOptimize(text);
        }
    }
    itemsPerRun(state, count);
}
BENCHMARK_CAPTURE(lookTranslator, hot, kHot)->Name("wordbook-look-up/hot/qtranslator");
BENCHMARK_CAPTURE(lookTranslator, cold, kCold)->Name("wordbook-look-up/cold/qtranslator");

void lookHash(benchmark::State& state) {
    QHash<QString, QString> map;
    for (const auto& [source, translation] : entries())
        map.insert(QString::fromStdString(source), QString::fromStdString(translation));
    std::vector<QString> keys;
    for (const std::size_t i : order(kHot))
        keys.push_back(QString::fromStdString(entries()[i].first));
    for (auto _ : state) {
        for (const QString& key : keys) {
            QString text = map.value(key);
            benchmark::DoNotOptimize(text);
        }
    }
    itemsPerRun(state, kHot);
}
BENCHMARK(lookHash)->Name("wordbook-german/hot/qhash");
#endif

}  // namespace

BENCHMARK_MAIN();
