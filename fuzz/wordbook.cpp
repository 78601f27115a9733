// Wordbooks of any bytes, against a reading line by line and replacement by replacement.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "orv/string_utilities.h"
#include "orv/translation.h"

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

CString unescaped(CString text) {
    text.Replace(L"\\r", L"\r");
    text.Replace(L"\\n", L"\n");
    text.Replace(L"\\t", L"\t");
    text.Replace(L"\\\"", L"\"");
    text.Replace(L"\\\\", L"\\");
    return text;
}

wchar_t lastOf(const CString& text) { return text.IsEmpty() ? L'\0' : text[text.GetLength() - 1]; }

std::map<CString, CString> slowly(const CString& path) {
    std::map<CString, CString> entries;
    CStringList lines;
    check(orvStrUtil::readStringlistFromFile(lines, path, 1252, false));
    for (POSITION at = lines.GetHeadPosition(); at != nullptr;) {
        const CString line = lines.GetNext(at);
        const int separator = line.Find(L" <*> ");
        if (separator < 0) continue;
        const CString source = unescaped(line.Left(separator));
        CString translation = unescaped(line.Mid(separator + 5));
        if (translation.IsEmpty()) continue;
        const int context = translation[0] == L'@' ? translation.Find(L'@', 1) : -1;
        if (context > 0) translation.Delete(0, context + 1);
        const wchar_t k = lastOf(source);
        const wchar_t t = lastOf(translation);
        if (k != t) {
            if (k == L'\n' || k == L' ' || k == L':') translation += k;
            if (t == L' ') translation.Truncate(translation.GetLength() - 1);
        }
        entries[source] = translation;
    }
    return entries;
}

/// A folder that goes with the program.
struct Folder {
    std::string path = (std::filesystem::temp_directory_path() / "orv_fuzz_wordbook_XXXXXX").string();

    Folder() { check(mkdtemp(path.data()) != nullptr); }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const Folder temporary;
    const std::string& folder = temporary.path;
    if (std::find(bytes, bytes + size, 0) != bytes + size) return 0;  // texts that are asked for end at a NUL
    const std::string file = folder + "/wordbook.EN";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    const CString path = orvStdStrUtil::convertUtf8ToUnicode(file);
    CTranslationModule module(nullptr);
    check(module.ScanDirectory(orvStdStrUtil::convertUtf8ToUnicode(folder)) == 1);
    for (const auto& [source, translation] : slowly(path)) {
        CString found;
        const bool isFound = module.FindTranslation(source, found, L"EN") == 1;
        check(isFound && found == translation);
        check(module.FindTranslation(source + L"?", found, L"EN") == 0 || slowly(path).count(source + L"?") == 1);
    }
    return 0;
}
