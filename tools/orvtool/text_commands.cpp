// orvtool text: what a text file is made of, and the same text in another encoding.
#include <memory>

#include "commands.h"
#include "encodings.h"
#include "orv/string_utilities.h"
#include "orv/text_files.h"

namespace orvtool {

namespace {

struct TextWords {
    std::string in, out, to, from;
    bool isScrambled = false;  // the input
    bool doScramble = false;   // the output
};

std::string nameOf(orv::TextEncoding encoding) {
    switch (encoding) {
        case orv::TextEncoding::kUtf16LittleEndian:
            return "UTF-16 little-endian";
        case orv::TextEncoding::kUtf16BigEndian:
            return "UTF-16 big-endian";
        case orv::TextEncoding::kWindows1252:
            return "Windows-1252";
        case orv::TextEncoding::kUtf8:
            break;
    }
    return "UTF-8";
}

orv::TextFileInfo inspect(const TextWords& words) {
    orv::TextFileInfo info;
    if (!orv::inspectTextFile(wide(words.in), words.isScrambled, info)) throw Failure{words.in + ": cannot be read"};
    return info;
}

void printInfo(const TextWords& words, Outcome& outcome) {
    const orv::TextFileInfo info = inspect(words);
    const auto number = [](std::uint64_t value) { return std::to_string(value); };
    print("encoding:    " + nameOf(info.encoding) + "\n");
    print(std::string("mark:        ") + (info.hasMark ? "yes" : "no") + "\n");
    print("bytes:       " + number(info.bytes) + "\n");
    print("characters:  " + number(info.characters) + "\n");
    print("line ends:   " + number(info.crLfEnds) + " CR LF, " + number(info.lfEnds) + " LF, " + number(info.crEnds) +
          " CR\n");
    print("undecodable: " + number(info.undecodable) +
          (info.undecodable == 0 ? "\n" : ", the first at byte " + number(info.firstUndecodable) + "\n"));
    outcome.exitCode = info.undecodable == 0 ? 0 : 1;
}

/// Where a character stands: "line 3, character 14".
std::string placeOf(const CString& text, int index) {
    int line = 1;
    int start = 0;
    for (int i = 0; i < index; ++i) {
        const bool isEnd = text[i] == L'\n' || (text[i] == L'\r' && text[i + 1] != L'\n');
        if (isEnd) {
            ++line;
            start = i + 1;
        }
    }
    return "line " + std::to_string(line) + ", character " + std::to_string(index - start + 1);
}

CString readInput(const TextWords& words) {
    const orv::TextFileInfo info = inspect(words);
    CString text;
    bool isRead = false;
    bool isUtf8 = info.encoding == orv::TextEncoding::kUtf8;
    if (words.from.empty()) {
        isRead = orvStrUtil::readStringFromFileAuto(text, wide(words.in), words.isScrambled);
    } else {
        const TextForm from = textForm(words.from);
        const unsigned page = from.page == kUtf8WithMark ? kUtf8Page : from.page;  // the user says so: trust it
        if (page == kUtf16Page && !info.hasMark) throw Failure{words.in + ": UTF-16 needs a mark"};
        if (page == kUtf8Page && !info.hasMark && !isUtf8) throw Failure{words.in + ": not UTF-8"};
        isRead = orvStrUtil::readStringBufferFromFile(text, wide(words.in), page, words.isScrambled);
    }
    if (!isRead) throw Failure{words.in + ": cannot be read"};
    if (text.IsEmpty() && info.characters != 0) throw Failure{words.in + ": cannot be read twice (is it a pipe?)"};
    // Bytes that Windows-1252 leaves open come through as controls; the others would be lost.
    if (info.hasMark && info.undecodable != 0) {
        throw Failure{words.in + ": byte " + std::to_string(info.firstUndecodable) + " is no " + nameOf(info.encoding)};
    }
    return text;
}

void convert(const TextWords& words) {
    const CString text = readInput(words);
    const CString out = wide(words.out);
    const TextForm to = textForm(words.to);
    if (!orvStrUtil::writeStringBufferToFile(text, out, to.unicode, to.page, words.doScramble)) {
        throw Failure{words.out + ": cannot be written as " + words.to};
    }
    if (to.unicode) return;
    // A page that lacks characters has written its default character for them: say where.
    CString back;
    if (!orvStrUtil::readStringBufferFromFile(back, out, to.page, words.doScramble)) {
        throw Failure{words.out + ": cannot be read back"};
    }
    int same = 0;
    while (same < text.GetLength() && same < back.GetLength() && text[same] == back[same])
        ++same;
    if (same < text.GetLength() || same < back.GetLength()) {
        throw Failure{words.in + ": " + placeOf(text, same) + " does not come back from " + words.to + " (" +
                      words.out + " was written with a stand-in)"};
    }
}

}  // namespace

void addTextCommands(CLI::App& app, Outcome& outcome) {
    CLI::App* text = app.add_subcommand("text", "Text files and their encodings");
    text->require_subcommand(1);
    const auto words = std::make_shared<TextWords>();

    CLI::App* info = text->add_subcommand(
        "info", "Print encoding, mark, size, line ends and undecodable bytes (ends with 1 if there are any)");
    info->add_option("FILE", words->in, "The text file")->required();
    info->add_flag("--scrambled", words->isScrambled, "The file is scrambled");
    info->callback([words, &outcome] { printInfo(*words, outcome); });

    CLI::App* change = text->add_subcommand("convert", "Write the text of a file in another encoding");
    change->add_option("IN", words->in, "The text file")->required();
    change->add_option("OUT", words->out, "The file to create or replace")->required();
    change->add_option("--to", words->to, "Encoding of OUT, or the number of a Windows code page")
        ->required()
        ->check(isTextForm());
    change->add_option("--from", words->from, "Encoding of IN where it has no mark; detected by default")
        ->check(isTextForm());
    change->add_flag("--unscramble", words->isScrambled, "IN is scrambled");
    change->add_flag("--scramble", words->doScramble, "Scramble OUT");
    change->callback([words] { convert(*words); });
}

}  // namespace orvtool
