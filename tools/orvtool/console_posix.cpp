#include "console.h"

#include <unistd.h>

namespace orvtool {

void prepareConsole() {}

bool errorIsTerminal() { return ::isatty(STDERR_FILENO) != 0; }

std::vector<std::string> commandLine(int argc, char** argv) {
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

}  // namespace orvtool
