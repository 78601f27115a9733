// Data trees of 1, 16 and 64 MiB beside documents of other libraries, the same tree in each notation.
// Names: operation/MiB/who; times are those of one attribute (leaf).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "orv/orv.h"
#include "tree_data.h"
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
#if defined(ORV_PEER_BOOST)
#include <boost/property_tree/json_parser.hpp>
#include <sstream>
#endif

namespace {

using bench::texts;
using bench::wideText;

std::int64_t size = 0;  // MiB, of the case that runs

void items(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts(size).attributes));
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
    wideText(size);
    run(
        state, [] { return std::unique_ptr<CNode>(); },
        [&](std::unique_ptr<CNode>& root) {
            root = parsed(size);
            if (root == nullptr) state.SkipWithError("no tree");
        });
}

void writeOrv(benchmark::State& state) {
    const std::unique_ptr<CNode> root = parsed(size);
    run(
        state, [] { return CString(); }, [&](CString& out) { root->WriteToString(out, false, true, true, 0); });
}

void copyOrv(benchmark::State& state) {
    const std::unique_ptr<CNode> root = parsed(size);
    run(
        state, [] { return std::unique_ptr<CNode>(); },
        [&](std::unique_ptr<CNode>& copy) { copy = std::make_unique<CNode>(*root); });
}

void destroyOrv(benchmark::State& state) {
    run(
        state, [&] { return parsed(size); }, [](std::unique_ptr<CNode>& root) { root = nullptr; });
}

void destroyPartOrv(benchmark::State& state) {
    run(
        state, [&] { return parsed(size); },
        [](std::unique_ptr<CNode>& root) {
            while (root->DeleteChild(root->GetFirstChild()))
                continue;
        });
}

void findOrv(benchmark::State& state) {
    const std::unique_ptr<CNode> root = parsed(size);
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
    std::ofstream(path, std::ios::binary) << "\xEF\xBB\xBF" << texts(size).bracketed;
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
    wideText(size);
    run(
        state, [] { return Nodes(); }, [&](Nodes& root) { root = nodesParsed(size); });
}

void writeNodes(benchmark::State& state) {
    const Nodes root = nodesParsed(size);
    run(
        state, [] { return std::unique_ptr<wchar_t[]>(); },
        [&](std::unique_ptr<wchar_t[]>& text) {
            wchar_t* out = nullptr;
            root->WriteToString(out, false, true);
            text.reset(out);
        });
}

void copyNodes(benchmark::State& state) {
    const Nodes root = nodesParsed(size);
    run(
        state, [] { return Nodes(); }, [&](Nodes& copy) { copy = std::make_unique<CProNodeBase>(*root); });
}

void destroyNodes(benchmark::State& state) {
    run(
        state, [&] { return nodesParsed(size); }, [](Nodes& root) { root = nullptr; });
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
            text = texts(size).xml;
            return std::make_unique<pugi::xml_document>();
        },
        [&](PugiDocument& document) {
            document->load_buffer_inplace(text.data(), text.size(), pugi::parse_minimal, pugi::encoding_utf8);
        });
}

void loadPugi(benchmark::State& state) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "orv_bench_tree.xml";
    std::ofstream(path, std::ios::binary) << texts(size).xml;
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
    const PugiDocument document = pugiParsed(size);
    run(
        state, [] { return std::make_unique<Sink>(); },
        [&](std::unique_ptr<Sink>& sink) {
            document->save(*sink, "", pugi::format_raw | pugi::format_no_escapes, pugi::encoding_utf8);
        });
}

void copyPugi(benchmark::State& state) {
    const PugiDocument document = pugiParsed(size);
    run(
        state, [] { return std::make_unique<pugi::xml_document>(); },
        [&](PugiDocument& copy) { copy->reset(*document); });
}

void destroyPugi(benchmark::State& state) {
    run(
        state, [&] { return pugiParsed(size); }, [](PugiDocument& document) { document = nullptr; });
}

void destroyPartPugi(benchmark::State& state) {
    run(
        state, [&] { return pugiParsed(size); },
        [](PugiDocument& document) {
            pugi::xml_node root = document->document_element();
            while (root.remove_child(root.first_child()))
                continue;
        });
}

void findPugi(benchmark::State& state) {
    const PugiDocument document = pugiParsed(size);
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
            document = jsonParsed(size);
            if (document->HasParseError()) state.SkipWithError("no document");
        });
}

void writeJson(benchmark::State& state) {
    const JsonDocument document = jsonParsed(size);
    run(
        state, [] { return std::make_unique<rapidjson::StringBuffer>(); },
        [&](std::unique_ptr<rapidjson::StringBuffer>& buffer) {
            rapidjson::Writer<rapidjson::StringBuffer> writer(*buffer);
            document->Accept(writer);
        });
}

void copyJson(benchmark::State& state) {
    const JsonDocument document = jsonParsed(size);
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
    const std::string& text = texts(size).xml;
    run(
        state, [] { return std::make_unique<tinyxml2::XMLDocument>(); },
        [&](TinyDocument& document) { document->Parse(text.data(), text.size()); });
}
#endif

#if defined(ORV_PEER_BOOST)
using BoostTree = std::unique_ptr<boost::property_tree::ptree>;

void parseBoost(benchmark::State& state) {
    std::istringstream text;
    run(
        state,
        [&] {
            text = std::istringstream(texts(size).json);
            return std::make_unique<boost::property_tree::ptree>();
        },
        [&](BoostTree& tree) { boost::property_tree::read_json(text, *tree); });
}
#endif

void add(const char* operation, const char* who, void (*benchmarked)(benchmark::State&), bool isLarge = true) {
    for (const std::int64_t mebibytes : {1, 16, 64}) {
        if (mebibytes > 1 && !isLarge) continue;
        const std::string name = "tree-" + std::string(operation) + "/" + std::to_string(mebibytes) + "MiB/" + who;
        auto* const one = benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
            size = mebibytes;
            benchmarked(state);
        });
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
#if defined(ORV_PEER_BOOST)
    add("parse", "boost", parseBoost, false);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    addAll();
    benchmark::RunSpecifiedBenchmarks();
}
