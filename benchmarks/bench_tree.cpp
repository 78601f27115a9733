// Data trees of 1, 16 and 64 MiB beside documents of other libraries, the same tree in each notation.
// Names: operation/MiB/who; times are those of one attribute (leaf).
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "names.h"
#include "orv/orv.h"
#if defined(ORV_PEER_PUGIXML)
#include <pugixml.hpp>
#endif
#if defined(ORV_PEER_RAPIDJSON)
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#endif
#if defined(ORV_PEER_TINYXML2)
#include <tinyxml2.h>
#endif

namespace {

// ---- The tree: project, buildings, floors, rooms, parts; eight attributes a node ----

struct Texts {
    std::string bracketed, xml, json;
    std::size_t attributes = 0;
};

class Generator {
  public:
    explicit Generator(int buildings) : buildings_(buildings) {}

    Texts make() {
        texts_.xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
        node(0);
        return std::move(texts_);
    }

  private:
    static constexpr int kLevels = 5;

    void node(int level) {
        static constexpr const char* kNames[kLevels] = {"PROJEKT", "Gebaeude", "Geschoss", "Raum", "Bauteil"};
        const std::string tabs(static_cast<std::size_t>(level), '\t');
        texts_.bracketed += tabs + "[" + kNames[level] + "]\r\n";
        texts_.xml += tabs + "<" + kNames[level];
        texts_.json += tabs + "{\"n\":\"" + kNames[level] + "\",\"a\":{";
        isFirst_ = true;
        attribute(level, "Name", bench::name(random_));
        attribute(level, "Bezeichnung", bench::name(random_).substr(0, 24));
        attribute(level, "guid", formatted("%08x-%04x", random_(), random_() & 0xFFFFU));
        attribute(level, "Laenge", formatted("%.2f", number()));
        attribute(level, "Breite", formatted("%.2f", number()));
        attribute(level, "Leistung",
                  formatted("%d:%d", static_cast<int>(random_() % 5000), static_cast<int>(random_() % 100)));
        attribute(level, "Temperatur", formatted("%.1f", number() / 50));
        attribute(level, "Nummer", formatted("%d", static_cast<int>(random_() % 100000)));
        const int children[kLevels] = {buildings_, 6, 20, 12, 0};
        texts_.xml += children[level] != 0 ? ">\n" : "/>\n";
        texts_.json += "},\"c\":[\n";
        for (int i = 0; i < children[level]; ++i) {
            if (i != 0) texts_.json += ",\n";
            node(level + 1);
        }
        texts_.bracketed += tabs + "[ENDE_" + kNames[level] + "]\r\n";
        if (children[level] != 0) texts_.xml += tabs + "</" + kNames[level] + ">\n";
        texts_.json += "]}";
    }
    template <class... Values>
    static std::string formatted(const char* format, Values... values) {
        char text[64];
        std::snprintf(text, sizeof text, format, values...);
        return text;
    }
    double number() { return static_cast<double>(random_() % 100'000) / 100; }
    void attribute(int level, const char* name, const std::string& value) {
        texts_.bracketed += std::string(static_cast<std::size_t>(level) + 1, '\t') + name + ":" + value + "\r\n";
        texts_.xml += std::string(" ") + name + "=\"" + value + "\"";
        texts_.json += std::string(isFirst_ ? "" : ",") + "\"" + name + "\":\"" + value + "\"";
        isFirst_ = false;
        ++texts_.attributes;
    }

    int buildings_;
    std::mt19937 random_{11};
    bool isFirst_ = true;
    Texts texts_;
};

const Texts& texts(std::int64_t mebibytes) {
    static std::map<std::int64_t, Texts> all;
    Texts& made = all[mebibytes];
    if (made.attributes == 0) made = Generator(static_cast<int>(3 * mebibytes)).make();  // a building is 0.3 MiB
    return made;
}

const CString& wideText(std::int64_t mebibytes) {
    static std::map<std::int64_t, CString> all;
    CString& made = all[mebibytes];
    if (made.IsEmpty()) made = orvStdStrUtil::convertUtf8ToUnicode(texts(mebibytes).bracketed);
    return made;
}

void items(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts(state.range(0)).attributes));
}

std::unique_ptr<CNode> parsed(std::int64_t mebibytes) {
    CNode* root = nullptr;
    TreeItems::ReadFromString(wideText(mebibytes), root, true);
    return std::unique_ptr<CNode>(root);
}

/// Runs once a state: make() before the clock, use(made) within, its destruction behind.
template <class Make, class Use>
void run(benchmark::State& state, Make make, Use use) {
    for (auto _ : state) {
        state.PauseTiming();
        auto made = make();
        state.ResumeTiming();
        use(made);
        state.PauseTiming();
        made = decltype(made)();
        state.ResumeTiming();
    }
    items(state);
}

// ---- The library ----

void parseOrv(benchmark::State& state) {
    wideText(state.range(0));
    run(
        state, [] { return std::unique_ptr<CNode>(); },
        [&](std::unique_ptr<CNode>& root) {
            root = parsed(state.range(0));
            if (root == nullptr) state.SkipWithError("no tree");
        });
}

void writeOrv(benchmark::State& state) {
    const std::unique_ptr<CNode> root = parsed(state.range(0));
    run(
        state, [] { return CString(); }, [&](CString& out) { root->WriteToString(out, false, true, true, 0); });
}

void copyOrv(benchmark::State& state) {
    const std::unique_ptr<CNode> root = parsed(state.range(0));
    run(
        state, [] { return std::unique_ptr<CNode>(); },
        [&](std::unique_ptr<CNode>& copy) { copy = std::make_unique<CNode>(*root); });
}

void destroyOrv(benchmark::State& state) {
    run(
        state, [&] { return parsed(state.range(0)); }, [](std::unique_ptr<CNode>& root) { root = nullptr; });
}

void destroyPartOrv(benchmark::State& state) {
    run(
        state, [&] { return parsed(state.range(0)); },
        [](std::unique_ptr<CNode>& root) {
            while (root->DeleteChild(root->GetFirstChild()))
                continue;
        });
}

void findOrv(benchmark::State& state) {
    const std::unique_ptr<CNode> root = parsed(state.range(0));
    const CNode& room = *root->GetChild(0)->GetChild(2)->GetChild(7);
    for (auto _ : state) {
        const CNode* part = room.FindChild(L"Bauteil");
        benchmark::DoNotOptimize(part->FindLeaf(L"Leistung")->GetIntLeafValue(1));
    }
    state.SetItemsProcessed(state.iterations());
}

// The file's bytes to the tree, decoding them included.
void loadOrv(benchmark::State& state) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "orv_bench_tree.txt";
    std::ofstream(path, std::ios::binary) << "\xEF\xBB\xBF" << texts(state.range(0)).bracketed;
    const CFilePath name(CString(path.c_str()));
    run(
        state, [] { return std::unique_ptr<CNode>(); },
        [&](std::unique_ptr<CNode>& root) {
            root.reset(CNode::ReadFromFile(name, false, L':', nullptr, nullptr, 0));
            if (root == nullptr) state.SkipWithError("no tree");
        });
    std::filesystem::remove(path);
}

// ---- The bracketed nodes ----

using Nodes = std::unique_ptr<CProNodeBase>;

Nodes nodesParsed(std::int64_t mebibytes) { return Nodes(CProNodeBase::ReadFromString(wideText(mebibytes), 0, false)); }

void parseNodes(benchmark::State& state) {
    wideText(state.range(0));
    run(
        state, [] { return Nodes(); }, [&](Nodes& root) { root = nodesParsed(state.range(0)); });
}

void writeNodes(benchmark::State& state) {
    const Nodes root = nodesParsed(state.range(0));
    run(
        state, [] { return std::unique_ptr<wchar_t[]>(); },
        [&](std::unique_ptr<wchar_t[]>& text) {
            wchar_t* out = nullptr;
            root->WriteToString(out, false, true);
            text.reset(out);
        });
}

void copyNodes(benchmark::State& state) {
    const Nodes root = nodesParsed(state.range(0));
    run(
        state, [] { return Nodes(); }, [&](Nodes& copy) { copy = std::make_unique<CProNodeBase>(*root); });
}

void destroyNodes(benchmark::State& state) {
    run(
        state, [&] { return nodesParsed(state.range(0)); }, [](Nodes& root) { root = nullptr; });
}

// ---- Peers ----

#if defined(ORV_PEER_PUGIXML)
using PugiDocument = std::unique_ptr<pugi::xml_document>;

PugiDocument pugiParsed(std::int64_t mebibytes) {
    const std::string& text = texts(mebibytes).xml;
    auto document = std::make_unique<pugi::xml_document>();
    document->load_buffer(text.data(), text.size(), pugi::parse_minimal, pugi::encoding_utf8);
    return document;
}

void parsePugi(benchmark::State& state) {
    std::string text;
    run(
        state,
        [&] {
            text = texts(state.range(0)).xml;
            return std::make_unique<pugi::xml_document>();
        },
        [&](PugiDocument& document) {
            document->load_buffer_inplace(text.data(), text.size(), pugi::parse_minimal, pugi::encoding_utf8);
        });
}

void loadPugi(benchmark::State& state) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "orv_bench_tree.xml";
    std::ofstream(path, std::ios::binary) << texts(state.range(0)).xml;
    run(
        state, [] { return std::make_unique<pugi::xml_document>(); },
        [&](PugiDocument& document) { document->load_file(path.c_str(), pugi::parse_minimal, pugi::encoding_utf8); });
    std::filesystem::remove(path);
}

void writePugi(benchmark::State& state) {
    struct Sink : pugi::xml_writer {
        std::string text;
        void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }
    };
    const PugiDocument document = pugiParsed(state.range(0));
    run(
        state, [] { return std::make_unique<Sink>(); },
        [&](std::unique_ptr<Sink>& sink) {
            document->save(*sink, "", pugi::format_raw | pugi::format_no_escapes, pugi::encoding_utf8);
        });
}

void copyPugi(benchmark::State& state) {
    const PugiDocument document = pugiParsed(state.range(0));
    run(
        state, [] { return std::make_unique<pugi::xml_document>(); },
        [&](PugiDocument& copy) { copy->reset(*document); });
}

void destroyPugi(benchmark::State& state) {
    run(
        state, [&] { return pugiParsed(state.range(0)); }, [](PugiDocument& document) { document = nullptr; });
}

void destroyPartPugi(benchmark::State& state) {
    run(
        state, [&] { return pugiParsed(state.range(0)); },
        [](PugiDocument& document) {
            pugi::xml_node root = document->document_element();
            while (root.remove_child(root.first_child()))
                continue;
        });
}

void findPugi(benchmark::State& state) {
    const PugiDocument document = pugiParsed(state.range(0));
    pugi::xml_node room = document->document_element().first_child();
    for (const int index : {2, 7}) {
        room = room.first_child();
        for (int i = 0; i < index; ++i)
            room = room.next_sibling();
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(room.child("Bauteil").attribute("Leistung").as_int());
    state.SetItemsProcessed(state.iterations());
}
#endif

#if defined(ORV_PEER_RAPIDJSON)
using JsonDocument = std::unique_ptr<rapidjson::Document>;

JsonDocument jsonParsed(std::int64_t mebibytes) {
    const std::string& text = texts(mebibytes).json;
    auto document = std::make_unique<rapidjson::Document>();
    document->Parse(text.data(), text.size());
    return document;
}

void parseJson(benchmark::State& state) {
    run(
        state, [] { return JsonDocument(); },
        [&](JsonDocument& document) {
            document = jsonParsed(state.range(0));
            if (document->HasParseError()) state.SkipWithError("no document");
        });
}

void writeJson(benchmark::State& state) {
    const JsonDocument document = jsonParsed(state.range(0));
    run(
        state, [] { return std::make_unique<rapidjson::StringBuffer>(); },
        [&](std::unique_ptr<rapidjson::StringBuffer>& buffer) {
            rapidjson::Writer<rapidjson::StringBuffer> writer(*buffer);
            document->Accept(writer);
        });
}

void copyJson(benchmark::State& state) {
    const JsonDocument document = jsonParsed(state.range(0));
    run(
        state, [] { return std::make_unique<rapidjson::Document>(); },
        [&](JsonDocument& copy) {
            const rapidjson::Value& value = *document;
            copy->CopyFrom(value, copy->GetAllocator());
        });
}
#endif

#if defined(ORV_PEER_TINYXML2)
using TinyDocument = std::unique_ptr<tinyxml2::XMLDocument>;

void parseTiny(benchmark::State& state) {
    const std::string& text = texts(state.range(0)).xml;
    run(
        state, [] { return std::make_unique<tinyxml2::XMLDocument>(); },
        [&](TinyDocument& document) { document->Parse(text.data(), text.size()); });
}
#endif

void add(const char* operation, const char* who, void (*benchmarked)(benchmark::State&), bool isLarge = true) {
    for (const std::int64_t mebibytes : {1, 16, 64}) {
        if (mebibytes > 1 && !isLarge) continue;
        const std::string name = "tree-" + std::string(operation) + "/" + std::to_string(mebibytes) + "MiB/" + who;
        auto* const one = benchmark::RegisterBenchmark(name.c_str(), benchmarked)->Args({mebibytes});
        // What is destroyed must be read before, so that a time to reach would take long.
        if (std::string(operation).starts_with("destroy")) one->Iterations(mebibytes > 1 ? 8 : 64);
    }
}

void addAll() {
    add("parse", "orv", parseOrv);
    add("write", "orv", writeOrv);
    add("copy", "orv", copyOrv);
    add("destroy", "orv", destroyOrv);
    add("destroy-part", "orv", destroyPartOrv);
    add("find", "orv", findOrv, false);
    add("load", "orv", loadOrv);
    add("parse", "orv-nodes", parseNodes);
    add("write", "orv-nodes", writeNodes);
    add("copy", "orv-nodes", copyNodes);
    add("destroy", "orv-nodes", destroyNodes);
#if defined(ORV_PEER_PUGIXML)
    add("parse", "pugixml", parsePugi);
    add("write", "pugixml", writePugi);
    add("load", "pugixml", loadPugi);
    add("copy", "pugixml", copyPugi);
    add("destroy", "pugixml", destroyPugi);
    add("destroy-part", "pugixml", destroyPartPugi);
    add("find", "pugixml", findPugi, false);
#endif
#if defined(ORV_PEER_RAPIDJSON)
    add("parse", "rapidjson", parseJson);
    add("write", "rapidjson", writeJson);
    add("copy", "rapidjson", copyJson);
#endif
#if defined(ORV_PEER_TINYXML2)
    add("parse", "tinyxml2", parseTiny);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    addAll();
    benchmark::RunSpecifiedBenchmarks();
}
