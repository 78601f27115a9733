// What reading a tree of 16 MiB takes: allocations, the most memory at a time, and what the tree holds.
// A table instead of times; run build/bench/bin/bench_tree_memory.
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <memory>

#include "tree_data.h"
#if defined(ORV_PEER_PUGIXML)
#include <pugixml.hpp>
#endif
#if defined(ORV_PEER_RAPIDJSON)
#include <rapidjson/document.h>
#endif
#if defined(ORV_PEER_TINYXML2)
#include <tinyxml2.h>
#endif

// The C library's own functions under the names by which it exports them beside the usual ones.
extern "C" void* __libc_malloc(std::size_t size);                 // NOLINT
extern "C" void* __libc_realloc(void* block, std::size_t size);   // NOLINT
extern "C" void* __libc_calloc(std::size_t n, std::size_t size);  // NOLINT
extern "C" void __libc_free(void* block);                         // NOLINT

namespace {

constexpr std::int64_t kMebibytes = 16;

std::atomic<std::int64_t> allocations{0}, held{0}, most{0};

void* count(void* block) {
    if (block == nullptr) return nullptr;
    ++allocations;
    const std::int64_t now = held += static_cast<std::int64_t>(malloc_usable_size(block));
    if (now > most) most = now;
    return block;
}

void uncount(void* block) {
    if (block != nullptr) held -= static_cast<std::int64_t>(malloc_usable_size(block));
}

/// In a process of its own: what a reader before has kept for the next does not count.
template <class Read>
void row(const char* who, Read read) {
    std::fflush(stdout);
    if (const pid_t child = fork(); child != 0) {
        waitpid(child, nullptr, 0);
        return;
    }
    const std::int64_t before = held, countBefore = allocations;
    most = before;
    const auto tree = read();
    constexpr double kMebibyte = 1024 * 1024;
    std::printf("| %s | %lld | %.1f | %.1f |\n", who, static_cast<long long>(allocations - countBefore),
                static_cast<double>(most - before) / kMebibyte, static_cast<double>(held - before) / kMebibyte);
    std::fflush(stdout);
    _exit(0);
}

}  // namespace

extern "C" void* malloc(std::size_t size) { return count(__libc_malloc(size)); }
extern "C" void* calloc(std::size_t n, std::size_t size) { return count(__libc_calloc(n, size)); }
extern "C" void* realloc(void* block, std::size_t size) {
    uncount(block);
    return count(__libc_realloc(block, size));
}
extern "C" void free(void* block) {
    uncount(block);
    __libc_free(block);
}

int main() {
    const bench::Texts& texts = bench::texts(kMebibytes);
    const CString& wide = bench::wideText(kMebibytes);
    std::printf("%zu attributes\n\n| reader | allocations | most, MiB | tree, MiB |\n|---|---|---|---|\n",
                texts.attributes);
    row("orv data tree", [&] { return std::unique_ptr<CNode>(TreeItems::ReadFromString(wide, true)); });
    row("orv bracketed nodes",
        [&] { return std::unique_ptr<CProNodeBase>(CProNodeBase::ReadFromString(wide, 0, false)); });
#if defined(ORV_PEER_PUGIXML)
    row("pugixml", [&] {
        auto document = std::make_unique<pugi::xml_document>();
        document->load_buffer(texts.xml.data(), texts.xml.size(), pugi::parse_minimal, pugi::encoding_utf8);
        return document;
    });
#endif
#if defined(ORV_PEER_RAPIDJSON)
    row("rapidjson", [&] {
        auto document = std::make_unique<rapidjson::Document>();
        document->Parse(texts.json.data(), texts.json.size());
        return document;
    });
#endif
#if defined(ORV_PEER_TINYXML2)
    row("tinyxml2", [&] {
        auto document = std::make_unique<tinyxml2::XMLDocument>();
        document->Parse(texts.xml.data(), texts.xml.size());
        return document;
    });
#endif
}
