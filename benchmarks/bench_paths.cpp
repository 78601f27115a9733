// Paths and folders beside the strongest packaged peers. Names: operation/input/who.
#include <benchmark/benchmark.h>
#include <fts.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "names.h"
#include "orv/orv.h"
#if defined(ORV_PEER_GLIB)
#include <glib.h>
#endif
#if defined(ORV_PEER_BOOST)
#include <boost/filesystem.hpp>
#endif

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPaths = 1000;

std::string word(std::mt19937& random) {
    std::string made = bench::name(random);
    return made.substr(0, made.find(' '));
}

// Three to six folders; one path in four has steps to rewrite.
const std::vector<std::string>& windowsPaths() {
    static const std::vector<std::string> all = [] {
        std::mt19937 random(5);
        std::vector<std::string> made;
        for (std::size_t i = 0; i < kPaths; ++i) {
            std::string path = "C:";
            for (unsigned long folders = 3 + random() % 4; folders > 0; --folders)
                path += "\\" + word(random);
            if (i % 4 == 0) path += "\\.\\Daten\\..";
            if (i % 8 == 0) path += "\\\\";
            made.push_back(path + "\\Plan_" + std::to_string(i) + ".pri");
        }
        return made;
    }();
    return all;
}

template <class Path>
std::vector<Path> paths() {
    std::vector<Path> made;
    for (std::string path : windowsPaths()) {
        if constexpr (std::is_base_of_v<CString, Path>) {
            made.push_back(orvStdStrUtil::convertUtf8ToUnicode(path));
        } else {
            path.erase(0, 2);
            for (char& c : path)
                c = c == '\\' ? '/' : c;
            made.push_back(path);
        }
    }
    return made;
}

template <class Path, class Work>
void eachPath(benchmark::State& state, Work work) {
    const std::vector<Path> all = paths<Path>();
    for (auto _ : state) {
        for (const Path& path : all) {
            auto result = work(path);
            benchmark::DoNotOptimize(result);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kPaths));
}

template <class Path, class Work>
void add(const char* name, Work work) {
    benchmark::RegisterBenchmark(name, [work](benchmark::State& state) { eachPath<Path>(state, work); });
}

// ---- Walking 20,000 files in 1,000 folders ----

constexpr int kFolders = 1000;
constexpr int kFilesEach = 20;

class WalkTree {
  public:
    WalkTree() : root_(fs::temp_directory_path() / ("orv_bench_paths_" + std::to_string(std::random_device()()))) {
        std::mt19937 random(9);
        for (int d = 0; d < kFolders; ++d) {
            const fs::path folder = root_ / word(random) / ("Projekt_" + std::to_string(d));
            fs::create_directories(folder);
            for (int f = 0; f < kFilesEach; ++f) {
                std::ofstream(folder / ("Zeichnung_" + std::to_string(f) + (f % 5 != 0 ? ".dat" : ".pri")));
            }
        }
    }
    ~WalkTree() {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }
    std::string root() const { return root_.string(); }

  private:
    fs::path root_;
};

template <class Walk>
void addWalk(const char* name, Walk walk) {
    benchmark::RegisterBenchmark(name, [walk](benchmark::State& state) {
        static const WalkTree tree;
        const std::string root = tree.root();
        std::size_t found = 0;
        for (auto _ : state)
            found = walk(root);
        if (found != kFolders * kFilesEach) state.SkipWithError("wrong number of files");
        state.SetItemsProcessed(state.iterations() * kFolders * kFilesEach);
    });
}

std::size_t walkFts(const std::string& root) {
    std::string start = root;
    char* const starts[] = {start.data(), nullptr};
    FTS* tree = fts_open(starts, FTS_PHYSICAL | FTS_NOSTAT | FTS_NOCHDIR, nullptr);
    std::size_t found = 0;
    while (const FTSENT* entry = fts_read(tree))
        found += entry->fts_info == FTS_NSOK || entry->fts_info == FTS_F;
    fts_close(tree);
    return found;
}

std::size_t walkStd(const std::string& root) {
    std::size_t found = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
        found += entry.is_regular_file();
    return found;
}

std::size_t walkOrv(const std::string& root) {
    CArray<CFilePath, const CFilePath&> files;
    CollectFilesRecursive(orvStdStrUtil::convertUtf8ToUnicode(root), L"*", files);
    return static_cast<std::size_t>(files.GetSize());
}

void addAll() {
    add<CFilePath>("path-normalize/1-in-4-dirty/orv", [](const CFilePath& path) { return path.Normalized(); });
#if defined(ORV_PEER_GLIB)
    add<std::string>("path-normalize/1-in-4-dirty/glib-canonicalize", [](const std::string& path) {
        char* made = g_canonicalize_filename(path.c_str(), "/");
        g_free(made);
        return made != nullptr;
    });
#endif
    add<fs::path>("path-normalize/1-in-4-dirty/std-lexically_normal",
                  [](const fs::path& path) { return path.lexically_normal(); });

    add<CDirPath>("path-join/file-name/orv", [](const CDirPath& path) { return path.AppendFile(L"x.dat"); });
    const CString name(L"x.dat");
    add<CDirPath>("path-join/file-name/orv-made-name", [name](const CDirPath& path) { return path.AppendFile(name); });
#if defined(ORV_PEER_BOOST)
    add<boost::filesystem::path>("path-join/file-name/boost",
                                 [](const boost::filesystem::path& path) { return path / "x.dat"; });
#endif
    add<fs::path>("path-join/file-name/std", [](const fs::path& path) { return path / "x.dat"; });

    add<CFilePath>("path-extension/any/orv", [](const CFilePath& path) { return path.GetFileExt(); });
    add<fs::path>("path-extension/any/std", [](const fs::path& path) { return path.extension(); });
    const CString ext(L"dat");
    add<CFilePath>("path-is-extension/any/orv", [ext](const CFilePath& path) { return path.IsFileExt(ext); });
    add<fs::path>("path-is-extension/any/std", [](const fs::path& path) { return path.extension() == ".dat"; });

    const CString base = paths<CFilePath>()[7];
    add<CFilePath>("path-relative/other-folder/orv",
                   [base](const CFilePath& path) { return CalcRelativePath(path, base); });
    const fs::path stdBase = paths<fs::path>()[7];
    add<fs::path>("path-relative/other-folder/std",
                  [stdBase](const fs::path& path) { return path.lexically_relative(stdBase); });

    addWalk("folder-walk/20000-files/orv", walkOrv);
    addWalk("folder-walk/20000-files/fts", walkFts);
    addWalk("folder-walk/20000-files/std", walkStd);
}

}  // namespace

int main(int argc, char** argv) {
    addAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
