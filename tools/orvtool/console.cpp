#include <cstdio>

#include "commands.h"
#include "console.h"
#include "orv/string_utilities.h"

namespace orvtool {

CString wide(const std::string& utf8) { return orvStdStrUtil::convertUtf8ToUnicode(utf8); }

std::string utf8(const CString& text) { return orvStdStrUtil::convertUnicodeToUtf8(text); }

void print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void printError(const std::string& text) {
    std::fflush(stdout);
    std::fwrite(text.data(), 1, text.size(), stderr);
}

void printProgress(const std::string& text) {
    if (errorIsTerminal()) printError(text);
}

bool finishOutput() {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return true;
    printError("orvtool: standard output: not everything could be written\n");
    return false;
}

}  // namespace orvtool
