#include "wordbook_check.h"

#include <map>
#include <set>
#include <vector>

#include "commands.h"
#include "orv/files.h"
#include "orv/text_files.h"
#include "orv/translation.h"
#include "orv/wordbooks.h"

namespace orvtool {
namespace {

// What a row of the table counts; the last one is told but does no harm.
enum Find { kDuplicate, kMissing, kEmpty, kFormat, kUndecodable, kEnding, kFindKinds };
constexpr const char* kNames[] = {"duplicates", "missing", "empty", "formats", "undecodable", "endings"};

struct Language {
    std::size_t counts[kFindKinds] = {};
    std::map<CString, CString> entries;
};

class Check {
  public:
    explicit Check(bool listFinds) : listFinds_(listFinds) {}

    void read(const CFilePath& path) {
        CString name = path.GetFileExt();
        name.MakeUpper();
        Language& language = languages_[name];
        const std::string file = utf8(path.GetFileName());
        CArray<orv::WordbookLine, const orv::WordbookLine&> lines;
        orv::TextFileInfo info;
        if (!orv::readWordbook(path, lines) || !orv::inspectTextFile(path, false, info)) {
            throw Failure{utf8(path) + ": cannot be read"};
        }
        language.counts[kUndecodable] += info.undecodable;
        if (info.undecodable != 0) tell(file + ": " + std::to_string(info.undecodable) + " undecodable bytes");
        std::set<CString> own;
        for (int i = 0; i < lines.GetSize(); ++i)
            examine(language, file + ":" + std::to_string(lines[i].number), lines[i], own);
    }

    void compare() {
        std::set<CString> all;
        for (const auto& [name, language] : languages_) {
            for (const auto& [source, translation] : language.entries)
                all.insert(source);
        }
        for (auto& [name, language] : languages_) {
            for (const CString& source : all) {
                if (language.entries.count(source) == 0) note(language, kMissing, utf8(name), source);
            }
        }
    }

    bool print() const {
        bool isGood = true;
        std::string out = "language\tentries";
        for (const char* name : kNames)
            out += std::string("\t") + name;
        for (const auto& [name, language] : languages_) {
            out += "\n" + utf8(name) + "\t" + std::to_string(language.entries.size());
            for (int kind = 0; kind < kFindKinds; ++kind) {
                out += "\t" + std::to_string(language.counts[kind]);
                isGood = isGood && (kind == kEnding || language.counts[kind] == 0);
            }
        }
        orvtool::print(out + "\n" + finds_);
        return isGood;
    }

  private:
    void tell(const std::string& find) {
        if (listFinds_) finds_ += find + "\n";
    }
    void note(Language& language, Find kind, const std::string& where, const CString& source) {
        ++language.counts[kind];
        tell(where + ": " + kNames[kind] + ": " + utf8(source));
    }

    void examine(Language& language, const std::string& where, const orv::WordbookLine& line, std::set<CString>& own) {
        if (line.written.IsEmpty()) {
            note(language, kEmpty, where, line.source);
            return;
        }
        if (!own.insert(line.source).second) note(language, kDuplicate, where, line.source);
        if (!orv::takeSameArguments(line.source, line.translation)) note(language, kFormat, where, line.source);
        // A full stop or a bracket on one side alone; what is harmonised is right by now.
        if (isPunctuation(last(line.source)) != isPunctuation(last(line.translation))) {
            note(language, kEnding, where, line.source);
        }
        language.entries[line.source] = line.translation;
    }

    static wchar_t last(const CString& text) { return text.IsEmpty() ? L'\0' : text[text.GetLength() - 1]; }
    static bool isPunctuation(wchar_t ch) { return CString(L".,;:!?)]}\"…").Find(ch) >= 0 && ch != 0; }

    bool listFinds_;
    std::map<CString, Language> languages_;
    std::string finds_;
};

}  // namespace

bool checkWordbooks(const CDirPath& folder, const CString& pattern, bool listFinds) {
    CStringArray names;
    if (!GetFileNames(folder, pattern, names)) throw Failure{utf8(folder) + ": cannot be read"};
    std::set<CString> sorted;
    for (int i = 0; i < names.GetSize(); ++i) {
        const CFilePath path = folder.AppendFile(names[i]);
        if (!path.GetFileExt().IsEmpty() && path.Right(2).CompareNoCase(L"db") != 0) sorted.insert(path);
    }
    if (sorted.empty()) throw Failure{utf8(folder) + ": no wordbooks"};
    Check check(listFinds);
    for (const CString& path : sorted)
        check.read(path);
    check.compare();
    return check.print();
}

}  // namespace orvtool
