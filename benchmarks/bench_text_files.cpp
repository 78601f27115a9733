// Whole text files, read and written, beside the strongest peers that are installed.
//
// The cases are named operation/what/size/who. simdutf has no package of its own: the library of Node.js carries it
// (ORV_SIMDUTF names the file, libnode.so.108 by default); without it those cases are left out.
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <random>
#include <string>

#include "names.h"
#include "orv/string_utilities.h"
#include "orv/vector_level.h"

#if defined(BENCH_ICU)
#include <unicode/ucnv.h>
#include <unicode/ustring.h>
#endif
#if defined(BENCH_QT)
#include <QByteArray>
#include <QFile>
#include <QString>
#endif

namespace {

enum Kind { kUtf8, kWindows1252, kUtf16, kScrambled };
constexpr const char* kKindNames[] = {"utf8", "1252", "utf16", "scrambled"};

std::u16string wide(const std::string& utf8) {
    const CString text = orvStdStrUtil::convertUtf8ToUnicode(utf8);
    return {reinterpret_cast<const char16_t*>(text.GetString()), static_cast<std::size_t>(text.GetLength())};
}

std::string linesOf(std::size_t size) {
    std::mt19937 random(4);
    std::string text;
    while (text.size() < size)
        text += bench::name(random) + "\r\n";
    return text;
}

struct Folder {
    std::filesystem::path path = std::filesystem::temp_directory_path() / ("orv_bench_" + std::to_string(getpid()));
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string operator/(const std::string& name) const { return (path / name).string(); }
};
const Folder folder;

struct Input {
    std::string path;
    CString widePath;
    std::size_t characters;
};

Input makeInput(Kind kind, std::size_t size) {
    const std::string utf8 = linesOf(size);
    const std::u16string text = wide(utf8);
    std::string bytes = utf8;
    if (kind == kWindows1252) {
        bytes.clear();
        for (const char16_t unit : text)
            bytes += static_cast<char>(unit);
    } else if (kind == kUtf16) {
        bytes = "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    } else if (kind == kScrambled) {
        for (char& byte : bytes)
            byte = static_cast<char>(byte + 3);
    }
    const std::string path = folder / (kKindNames[kind] + std::to_string(size));
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return {path, orvStdStrUtil::convertUtf8ToUnicode(path), text.size()};
}

std::string slurp(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY);
    struct stat status;
    fstat(file, &status);
    std::string bytes;
    bytes.resize(static_cast<std::size_t>(status.st_size));
    if (read(file, bytes.data(), bytes.size()) < 0) std::abort();
    close(file);
    return bytes;
}

void store(const std::string& path, const char* bytes, std::size_t size) {
    const int file = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    if (write(file, bytes, size) < 0) std::abort();
    close(file);
}

void* simdutf(const char* symbol) {
    static void* const library = [] {
        const char* const named = std::getenv("ORV_SIMDUTF");
        return dlopen(named != nullptr ? named : "libnode.so.108", RTLD_NOW);
    }();
    return library != nullptr ? dlsym(library, symbol) : nullptr;
}
using ValidateUtf8 = bool (*)(const char*, std::size_t);
using BytesToUtf16 = std::size_t (*)(const char*, std::size_t, char16_t*);
using Utf16ToUtf8 = std::size_t (*)(const char16_t*, std::size_t, char*);
const auto validateUtf8 = reinterpret_cast<ValidateUtf8>(simdutf("_ZN7simdutf13validate_utf8EPKcm"));
const auto utf8ToUtf16 = reinterpret_cast<BytesToUtf16>(simdutf("_ZN7simdutf27convert_valid_utf8_to_utf16EPKcmPDs"));
const auto utf16ToUtf8 = reinterpret_cast<Utf16ToUtf8>(simdutf("_ZN7simdutf21convert_utf16_to_utf8EPKDsmPc"));

// ---- Readers: each returns the number of characters ----

std::size_t readLibrary(const Input& input, bool isScrambled) {
    CString text;
    orvStrUtil::readStringFromFileAuto(text, input.widePath, isScrambled);
    benchmark::DoNotOptimize(text.GetString());
    return static_cast<std::size_t>(text.GetLength());
}

std::size_t readSimdutf(const Input& input) {
    const std::string bytes = slurp(input.path);
    const std::unique_ptr<char16_t[]> text(new char16_t[bytes.size() + 64]);
    return validateUtf8(bytes.data(), bytes.size()) ? utf8ToUtf16(bytes.data(), bytes.size(), text.get()) : 0;
}

std::size_t readBare(const Input& input) {
    alignas(64) static char bytes[16384];
    const int file = open(input.path.c_str(), O_RDONLY);
    struct stat status;
    fstat(file, &status);
    if (read(file, bytes, static_cast<std::size_t>(status.st_size)) < 0) std::abort();
    close(file);
    return input.characters;
}

#if defined(BENCH_ICU)
std::size_t readIcu(const Input& input, const char* page, std::size_t mark) {
    const std::string bytes = slurp(input.path);
    UErrorCode error = U_ZERO_ERROR;
    UConverter* const converter = ucnv_open(page, &error);
    std::u16string text(bytes.size() + 1, 0);
    const int length = ucnv_toUChars(converter, text.data(), static_cast<int>(text.size()), bytes.data() + mark,
                                     static_cast<int>(bytes.size() - mark), &error);
    ucnv_close(converter);
    return static_cast<std::size_t>(length);
}
#endif

#if defined(BENCH_QT)
std::size_t readQt(const Input& input, Kind kind) {
    QFile file(QString::fromStdString(input.path));
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const QString text = kind == kUtf8
                             ? QString::fromUtf8(bytes)
                             : QString(reinterpret_cast<const QChar*>(bytes.data() + 2), bytes.size() / 2 - 1);
    return static_cast<std::size_t>(text.size());
}
#endif

void addRead(Kind kind, std::size_t size, const std::string& who, std::function<std::size_t(const Input&)> reader) {
    const std::string name =
        std::string("read/") + kKindNames[kind] + "/" +
        (size < 1 << 20 ? std::to_string(size >> 10) + "KiB" : std::to_string(size >> 20) + "MiB") + "/" + who;
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        const Input input = makeInput(kind, size);
        std::size_t characters = 0;
        for (auto _ : state)
            characters = reader(input);
        if (characters != input.characters) state.SkipWithError("wrong number of characters");
        state.SetBytesProcessed(static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) *
                                                          std::filesystem::file_size(input.path)));
    });
}

void addWrite(std::size_t size, const std::string& who,
              std::function<void(const std::u16string&, const CString&, const std::string&)> writer) {
    const std::string name =
        "write/utf8/" + (size < 1 << 20 ? std::to_string(size >> 10) + "KiB" : std::to_string(size >> 20) + "MiB") +
        "/" + who;
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        const std::u16string text = wide(linesOf(size));
        const CString string(reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()));
        const std::string path = folder / "out";
        for (auto _ : state)
            writer(text, string, path);
        state.SetBytesProcessed(
            static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) * text.size() * 2));
    });
}

void addAll(std::size_t size) {
    addRead(kUtf8, size, "orv", [](const Input& input) { return readLibrary(input, false); });
    addRead(kUtf8, size, "orv_sse2", [](const Input& input) {
        orv::limitVectorLevel(orv::VectorLevel::kSse2);
        const std::size_t characters = readLibrary(input, false);
        orv::limitVectorLevel(orv::VectorLevel::kAvx512);
        return characters;
    });
    if (validateUtf8 != nullptr && utf8ToUtf16 != nullptr) addRead(kUtf8, size, "simdutf", readSimdutf);
    addRead(kWindows1252, size, "orv", [](const Input& input) { return readLibrary(input, false); });
    addRead(kUtf16, size, "orv", [](const Input& input) { return readLibrary(input, false); });
    addRead(kScrambled, size, "orv", [](const Input& input) { return readLibrary(input, true); });
#if defined(BENCH_ICU)
    addRead(kUtf8, size, "icu", [](const Input& input) { return readIcu(input, "UTF-8", 0); });
    addRead(kWindows1252, size, "icu", [](const Input& input) { return readIcu(input, "windows-1252", 0); });
    addRead(kUtf16, size, "icu", [](const Input& input) { return readIcu(input, "UTF-16LE", 2); });
#endif
#if defined(BENCH_QT)
    addRead(kUtf8, size, "qt", [](const Input& input) { return readQt(input, kUtf8); });
    addRead(kUtf16, size, "qt", [](const Input& input) { return readQt(input, kUtf16); });
#endif
    addWrite(size, "orv", [](const std::u16string&, const CString& text, const std::string& path) {
        orvStrUtil::writeStringBufferToFile(text, orvStdStrUtil::convertUtf8ToUnicode(path), true, 65001, false);
    });
    if (utf16ToUtf8 != nullptr) {
        addWrite(size, "simdutf", [](const std::u16string& text, const CString&, const std::string& path) {
            const std::unique_ptr<char[]> bytes(new char[text.size() * 3]);
            store(path, bytes.get(), utf16ToUtf8(text.data(), text.size(), bytes.get()));
        });
    }
#if defined(BENCH_QT)
    addWrite(size, "qt", [](const std::u16string& text, const CString&, const std::string& path) {
        QFile file(QString::fromStdString(path));
        file.open(QIODevice::WriteOnly);
        file.write("\xEF\xBB\xBF");
        file.write(QString::fromUtf16(text.data(), static_cast<int>(text.size())).toUtf8());
    });
#endif
}

}  // namespace

int main(int argc, char** argv) {
    constexpr std::size_t kSmall = 4096, kLarge = 16 << 20;
    addAll(kLarge);
    addAll(kSmall);
    addRead(kUtf8, kSmall, "bare_open_stat_read_close", readBare);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
