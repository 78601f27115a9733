#include "console.h"

namespace orvtool {

void prepareConsole() {}

std::vector<std::string> commandLine(int argc, char** argv) {
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

}  // namespace orvtool
