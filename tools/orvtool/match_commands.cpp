// orvtool match, sort, md5: lines by wildcards, lines in order, digests of texts.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "commands.h"
#include "orv/hashing.h"
#include "orv/string_utilities.h"

namespace orvtool {

namespace {

struct MatchWords {
    std::string pattern;
    std::string file;
    bool glob = false;
    bool ignoreCase = false;
    bool invert = false;
    bool scrambled = false;
};

struct SortWords {
    std::string file;
    std::string separator = ":";
    int field = 0;  // 0: the whole line
    bool natural = false;
    bool ignoreCase = false;
};

struct DigestWords {
    std::vector<std::string> texts;
    bool areFiles = false;
};

std::vector<CString> linesOfFile(const std::string& file, bool scrambled) {
    CStringList lines;
    if (!orvStrUtil::readStringlistFromFileAuto(lines, wide(file), scrambled)) throw Failure{"cannot read " + file};
    std::vector<CString> result;
    for (POSITION at = lines.GetHeadPosition(); at != nullptr;)
        result.push_back(lines.GetNext(at));
    return result;
}

// Standard input is UTF-8; its lines end as those of files do.
std::vector<CString> linesOfInput() {
    std::string bytes;
    char part[65536];
    for (std::size_t count = 0; (count = std::fread(part, 1, sizeof part, stdin)) != 0;)
        bytes.append(part, count);
    std::vector<CString> lines;
    for (std::size_t first = 0; first < bytes.size();) {
        const std::size_t end = std::min(bytes.find_first_of("\r\n", first), bytes.size());
        lines.push_back(wide(bytes.substr(first, end - first)));
        first = end + (bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

std::vector<CString> linesOf(const std::string& file, bool scrambled) {
    return file.empty() || file == "-" ? linesOfInput() : linesOfFile(file, scrambled);
}

orv::WideView viewOf(const CString& text) { return {text.GetString(), static_cast<std::size_t>(text.GetLength())}; }

bool printMatches(const MatchWords& words) {
    const CString pattern = wide(words.pattern);
    bool any = false;
    for (const CString& line : linesOf(words.file, words.scrambled)) {
        const bool matches = words.glob ? orv::globMatch(viewOf(line), viewOf(pattern), !words.ignoreCase)
                                        : orvStrUtil::MatchesWildcardPattern(line, pattern, !words.ignoreCase);
        if (matches == words.invert) continue;
        print(utf8(line) + "\n");
        any = true;
    }
    return any;
}

void printSorted(const SortWords& words) {
    struct Entry {
        CString key;
        CString line;
    };
    const CString separator = wide(words.separator);
    std::vector<Entry> entries;
    for (const CString& line : linesOf(words.file, false))
        entries.push_back({words.field == 0 ? line : substr(line, words.field, separator), line});
    std::stable_sort(entries.begin(), entries.end(), [&words](const Entry& a, const Entry& b) {
        if (words.natural) return orv::compareNatural(viewOf(a.key), viewOf(b.key), !words.ignoreCase) < 0;
        return (words.ignoreCase ? a.key.CompareNoCase(b.key) : a.key.Compare(b.key)) < 0;
    });
    for (const Entry& entry : entries)
        print(utf8(entry.line) + "\n");
}

void printDigests(const DigestWords& words) {
    for (const std::string& word : words.texts) {
        CString text;
        if (!words.areFiles) {
            text = wide(word);
        } else if (!orvStrUtil::readStringFromFileAuto(text, wide(word), false)) {
            throw Failure{"cannot read " + word};
        }
        print(utf8(CHashing::md5(text)) + "  " + word + "\n");
    }
}

}  // namespace

void addMatchCommands(CLI::App& app, Outcome& outcome) {
    CLI::App* match = app.add_subcommand("match", "Print the lines that match a wildcard pattern as a whole");
    const auto matchWords = std::make_shared<MatchWords>();
    match->add_option("PATTERN", matchWords->pattern, "* for any run of characters, ? for one")->required();
    match->add_option("FILE", matchWords->file, "A text file; standard input (UTF-8) without it");
    match->add_flag("-g,--glob", matchWords->glob, "True globbing instead of the suite's own steps");
    match->add_flag("-i,--ignore-case", matchWords->ignoreCase, "Ignore case");
    match->add_flag("-v,--invert", matchWords->invert, "Print the lines that do not match");
    match->add_flag("--scrambled", matchWords->scrambled, "The file is scrambled");
    match->callback([matchWords, &outcome] { outcome.exitCode = printMatches(*matchWords) ? 0 : 1; });

    CLI::App* sort = app.add_subcommand("sort", "Print lines in order; equal ones stay as they stand");
    const auto sortWords = std::make_shared<SortWords>();
    sort->add_option("FILE", sortWords->file, "A text file; standard input (UTF-8) without it");
    sort->add_flag("-n,--natural", sortWords->natural, "Numbers in the lines count by their value");
    sort->add_flag("-i,--ignore-case", sortWords->ignoreCase, "Ignore case");
    sort->add_option("-f,--field", sortWords->field, "Order by this field alone, from 1")
        ->check(CLI::Range(1, 1000000));
    sort->add_option("-s,--separator", sortWords->separator, "What stands between fields")->capture_default_str();
    sort->callback([sortWords] { printSorted(*sortWords); });

    CLI::App* md5 = app.add_subcommand("md5", "Print the MD5 digests of texts as UTF-16");
    const auto digestWords = std::make_shared<DigestWords>();
    md5->add_option("TEXT", digestWords->texts, "Texts, or with --file text files")->required();
    md5->add_flag("--file", digestWords->areFiles, "Digest the texts that files hold");
    md5->callback([digestWords] { printDigests(*digestWords); });
}

}  // namespace orvtool
