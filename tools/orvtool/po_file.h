// Translations as .po files, in which translators' editors work.
#pragma once

#include <string>
#include <vector>

namespace orvtool {

struct PoEntry {
    bool hasContext = false;
    std::string context, source, translation;  // UTF-8
    int line = 0;                              // of its msgid in the file
};

/// The file's text, with a header that names the language.
std::string writePo(const std::vector<PoEntry>& entries, const std::string& language);

/// The entries without the header, those marked as fuzzy and those without a translation. Throws Failure naming the
/// line of what is no .po file; plural forms are refused, since wordbooks have none.
std::vector<PoEntry> readPo(const std::string& text);

}  // namespace orvtool
