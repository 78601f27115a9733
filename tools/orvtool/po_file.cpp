#include "po_file.h"

#include <string_view>

#include "commands.h"

namespace orvtool {
namespace {

std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        switch (c) {
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            case '"':
            case '\\':
                out += '\\';
                [[fallthrough]];
            default:
                out += c;
        }
    }
    return out + "\"";
}

class PoReader {
  public:
    explicit PoReader(std::string_view text) : text_(text) {}

    std::vector<PoEntry> run() {
        while (!text_.empty()) {
            const std::size_t end = text_.find('\n');
            std::string_view line = text_.substr(0, end);
            text_.remove_prefix(end == std::string_view::npos ? text_.size() : end + 1);
            if (line.ends_with('\r')) line.remove_suffix(1);
            ++line_;
            read(line);
        }
        finish();
        return std::move(entries_);
    }

  private:
    [[noreturn]] void fail(const std::string& what) const {
        throw Failure{"line " + std::to_string(line_) + ": " + what};
    }

    void read(std::string_view line) {
        if (line.empty()) return;
        if (line.starts_with("#")) {
            if (line.starts_with("#,") && line.find("fuzzy") != std::string_view::npos) {
                if (current_ == &entry_.translation) finish();
                isFuzzy_ = true;
            }
            return;
        }
        if (line.starts_with("msgctxt ")) {
            finishIfComplete();
            entry_.hasContext = true;
            take(line.substr(8), entry_.context);
        } else if (line.starts_with("msgid_plural") || line.starts_with("msgstr[")) {
            fail("plural forms have no place in a wordbook");
        } else if (line.starts_with("msgid ")) {
            finishIfComplete();
            entry_.line = line_;
            take(line.substr(6), entry_.source);
        } else if (line.starts_with("msgstr ")) {
            take(line.substr(7), entry_.translation);
        } else if (line.starts_with("\"") && current_ != nullptr) {
            unquote(line, *current_);
        } else {
            fail("this is no line of a .po file");
        }
    }

    void take(std::string_view text, std::string& to) {
        current_ = &to;
        unquote(text, to);
    }

    void unquote(std::string_view text, std::string& to) const {
        while (text.starts_with(' '))
            text.remove_prefix(1);
        if (text.size() < 2 || !text.starts_with('"') || !text.ends_with('"')) fail("a text in quotes is missing");
        text = text.substr(1, text.size() - 2);
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '"') fail("a quote inside a text lacks its backslash");
            if (text[i] != '\\') {
                to += text[i];
                continue;
            }
            if (++i == text.size()) fail("a backslash stands alone");
            static constexpr std::string_view kLetters = "nrt\"\\";
            static constexpr std::string_view kMeanings = "\n\r\t\"\\";
            const std::size_t at = kLetters.find(text[i]);
            if (at == std::string_view::npos) fail(std::string("unknown escape \\") + text[i]);
            to += kMeanings[at];
        }
    }

    void finishIfComplete() {
        if (current_ == &entry_.translation) finish();
    }

    void finish() {
        const bool isHeader = entry_.source.empty() && !entry_.hasContext;
        if (current_ != nullptr && !isHeader && !isFuzzy_ && !entry_.translation.empty()) entries_.push_back(entry_);
        entry_ = {};
        current_ = nullptr;
        isFuzzy_ = false;
    }

    std::string_view text_;
    int line_ = 0;
    PoEntry entry_;
    std::string* current_ = nullptr;
    bool isFuzzy_ = false;
    std::vector<PoEntry> entries_;
};

}  // namespace

std::string writePo(const std::vector<PoEntry>& entries, const std::string& language) {
    std::string out = "msgid \"\"\nmsgstr \"\"\n\"Content-Type: text/plain; charset=UTF-8\\n\"\n";
    out += "\"Content-Transfer-Encoding: 8bit\\n\"\n\"Language: " + language + "\\n\"\n";
    for (const PoEntry& entry : entries) {
        out += "\n";
        if (entry.hasContext) out += "msgctxt " + quoted(entry.context) + "\n";
        out += "msgid " + quoted(entry.source) + "\nmsgstr " + quoted(entry.translation) + "\n";
    }
    return out;
}

std::vector<PoEntry> readPo(const std::string& text) {
    std::string_view view(text);
    if (view.starts_with("\xEF\xBB\xBF")) view.remove_prefix(3);
    return PoReader(view).run();
}

}  // namespace orvtool
