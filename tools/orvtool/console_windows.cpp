#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>

#include "commands.h"
#include "console.h"

namespace orvtool {

void prepareConsole() {
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

bool errorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

// The narrow words of `argv` have gone through the ANSI code page; the system's own line has not.
std::vector<std::string> commandLine(int, char**) {
    std::vector<std::string> words;
    int count = 0;
    wchar_t** parts = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; parts != nullptr && i < count; ++i)
        words.push_back(utf8(CString(parts[i])));
    LocalFree(parts);
    return words;
}

}  // namespace orvtool
