// The program's side of the console: words in, bytes out, all UTF-8.
#pragma once

#include <string>
#include <vector>

namespace orvtool {

/// Makes standard output carry bytes as they are.
void prepareConsole();
/// The words behind the program's name, in UTF-8.
std::vector<std::string> commandLine(int argc, char** argv);
void printError(const std::string& text);
/// Tells someone who watches how a long work goes on; nothing where standard error is no terminal.
void printProgress(const std::string& text);
bool errorIsTerminal();
/// False when something of the output could not be written.
bool finishOutput();

}  // namespace orvtool
