// orvtool wordbook: translations for translators and build servers.
#include <vector>

#include "commands.h"
#include "orv/files.h"
#include "orv/framework/file.h"
#include "orv/string_utilities.h"
#include "orv/wordbooks.h"
#include "po_file.h"
#include "wordbook_check.h"

namespace orvtool {
namespace {

using Lines = CArray<orv::WordbookLine, const orv::WordbookLine&>;

struct WordbookWords {
    std::string from, to, pattern = "wordbook.*";
    bool details = false;
};

Lines& readLines(const CFilePath& path, Lines& lines) {
    if (!orv::readWordbook(path, lines)) throw Failure{utf8(path) + ": cannot be read"};
    return lines;
}

/// Writes a wordbook in UTF-8; an entry that would not read back stops it, named by where it comes from.
class WordbookWriter {
  public:
    void add(const CString& source, const CString& translation, const std::string& where) {
        CString line;
        if (!orv::makeWordbookLine(source, translation, line)) {
            throw Failure{where + ": no line of a wordbook can hold this: " + utf8(source) + " <*> " +
                          utf8(translation)};
        }
        lines_.AddTail(line);
    }
    void write(const std::string& path) {
        constexpr unsigned kUtf8WithMark = 65001;
        if (!orvStrUtil::writeStringlistToFile(lines_, wide(path), kUtf8WithMark, false)) {
            throw Failure{path + ": cannot be written"};
        }
    }

  private:
    CStringList lines_;
};

std::string placeIn(const std::string& file, int line) { return file + ":" + std::to_string(line); }

void find(const WordbookWords& words) {
    const CDirPath folder = wide(words.from);
    CStringArray names;
    if (!GetFileNames(folder, wide(words.pattern), names)) throw Failure{words.from + ": cannot be read"};
    for (int i = 0; i < names.GetSize(); ++i) {
        Lines lines;
        readLines(folder.AppendFile(names[i]), lines);
        for (int j = 0; j < lines.GetSize(); ++j) {
            const orv::WordbookLine& line = lines[j];
            const CString wanted = wide(words.to);
            if (orvStrUtil::FindIndexNoCase(line.source, wanted, 0) < 0 &&
                orvStrUtil::FindIndexNoCase(line.written, wanted, 0) < 0) {
                continue;
            }
            print(placeIn(utf8(names[i]), line.number) + "\t" + utf8(line.source) + "\t" + utf8(line.translation) +
                  "\n");
        }
    }
}

/// Letters with marks, so that a text that was never translated stands out; what printf and menus read stays.
CString pseudoText(const CString& text) {
    constexpr const wchar_t* kPlain = L"aceghijklnorstuyzACEGHIJKLNORSTUYZ";
    constexpr const wchar_t* kMarked = L"äçéĝĥîĵķļñöŕšţüýžÄÇÉĜĤÎĴĶĻÑÖŔŠŢÜÝŽ";
    CString marked;
    for (int i = 0; i < text.GetLength(); ++i) {
        if (text[i] == L'%') {  // the directive up to its conversion
            marked += text[i];
            while (++i < text.GetLength() && CString(L"-+ #0123456789.*hlLIqjzt").Find(text[i]) >= 0)
                marked += text[i];
            if (i < text.GetLength()) marked += text[i];
            continue;
        }
        const int at = CString(kPlain).Find(text[i]);
        marked += at >= 0 ? kMarked[at] : text[i];
    }
    int end = marked.GetLength();
    while (end > 0 && CString(L": \n").Find(marked[end - 1]) >= 0)
        --end;
    return L"[" + marked.Left(end) + L"]" + marked.Mid(end);
}

void pseudo(const WordbookWords& words) {
    Lines lines;
    readLines(wide(words.from), lines);
    WordbookWriter writer;
    for (int i = 0; i < lines.GetSize(); ++i) {
        const CString& source = lines[i].source;
        const int context = source.Find(L'@') == 0 ? source.Find(L'@', 1) + 1 : 0;
        writer.add(source, pseudoText(source.Mid(context)), placeIn(words.from, lines[i].number));
    }
    writer.write(words.to);
}

void exportPo(const WordbookWords& words) {
    const CFilePath path = wide(words.from);
    Lines lines;
    readLines(path, lines);
    std::vector<PoEntry> entries;
    for (int i = 0; i < lines.GetSize(); ++i) {
        const orv::WordbookLine& line = lines[i];
        if (line.written.IsEmpty()) continue;
        PoEntry entry;
        const int second = line.source.Find(L'@') == 0 ? line.source.Find(L'@', 1) : -1;
        entry.hasContext = second > 0;
        if (entry.hasContext) entry.context = utf8(line.source.Mid(1, second - 1));
        entry.source = utf8(entry.hasContext ? line.source.Mid(second + 1) : line.source);
        entry.translation = utf8(line.translation);
        if ((entry.source.empty() && !entry.hasContext) || entry.translation.empty()) {
            throw Failure{placeIn(words.from, line.number) + ": a .po file has no place for an empty text"};
        }
        entries.push_back(entry);
    }
    CString language = path.GetFileExt();
    language.MakeLower();
    CFile file;
    const std::string text = writePo(entries, utf8(language));
    if (!file.Open(wide(words.to), CFile::modeCreate | CFile::modeWrite))
        throw Failure{words.to + ": cannot be written"};
    file.Write(text.data(), static_cast<unsigned>(text.size()));
    file.Close();
}

void importPo(const WordbookWords& words) {
    CString text;
    if (!orvStrUtil::readStringFromFileAuto(text, wide(words.from), false)) {
        throw Failure{words.from + ": cannot be read"};
    }
    WordbookWriter writer;
    try {
        for (const PoEntry& entry : readPo(utf8(text))) {
            const CString context = entry.hasContext ? L"@" + wide(entry.context) + L"@" : CString();
            writer.add(context + wide(entry.source), wide(entry.translation), placeIn(words.from, entry.line));
        }
    } catch (const Failure& failure) {
        throw Failure{failure.text.starts_with("line ") ? words.from + ": " + failure.text : failure.text};
    }
    writer.write(words.to);
}

}  // namespace

void addWordbookCommands(CLI::App& app, Outcome& outcome) {
    CLI::App* wordbook = app.add_subcommand("wordbook", "Translations of the programs' texts");
    wordbook->require_subcommand(1);
    const auto words = std::make_shared<WordbookWords>();
    const auto files = [&](CLI::App* command, const char* from, const char* to, void (*run)(const WordbookWords&)) {
        command->add_option("IN", words->from, from)->required();
        command->add_option("OUT", words->to, to)->required();
        command->callback([words, run] { run(*words); });
    };

    CLI::App* check = wordbook->add_subcommand(
        "check", "A table of the languages in a folder; exit code 1 if anything but an ending is wrong");
    check->add_option("DIR", words->from, "The folder")->required();
    check->add_option("--pattern", words->pattern, "The names of the wordbooks")->capture_default_str();
    check->add_flag("--details", words->details, "List every find with its place");
    check->callback([words, &outcome] {
        if (!checkWordbooks(wide(words->from), wide(words->pattern), words->details)) outcome.exitCode = 1;
    });

    CLI::App* search = wordbook->add_subcommand("find", "Entries that hold a text, ignoring case");
    search->add_option("TEXT", words->to, "The text")->required();
    search->add_option("DIR", words->from, "The folder")->required();
    search->add_option("--pattern", words->pattern, "The names of the wordbooks")->capture_default_str();
    search->callback([words] { find(*words); });

    files(wordbook->add_subcommand("pseudo", "Write a made-up language in which texts that are not translated show"),
          "A wordbook with the sources", "The wordbook to write", pseudo);
    files(wordbook->add_subcommand("export", "Write a wordbook as .po file"), "The wordbook", "The .po file", exportPo);
    files(wordbook->add_subcommand("import", "Write a .po file as wordbook"), "The .po file", "The wordbook", importPo);
}

}  // namespace orvtool
