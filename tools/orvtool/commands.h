// The commands of orvtool. Each family adds its own to the program and lives in one file.
//
// A command parses its words through the command-line library and runs through the library's exported interface. It
// prints results to standard output and errors to standard error; it ends with 0 (done), 1 (the answer is "no", or an
// input is bad) or 2 (wrong use). Everything is UTF-8.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "orv/framework.h"

namespace orvtool {

/// Thrown by a command: printed as "orvtool: TEXT", exit code 1.
struct Failure {
    std::string text;
};

/// What a command hands back to main.
struct Outcome {
    int exitCode = 0;
};

void addTextCommands(CLI::App& app, Outcome& outcome);
void addRecordCommands(CLI::App& app, Outcome& outcome);
void addEvalCommands(CLI::App& app, Outcome& outcome);
void addMatchCommands(CLI::App& app, Outcome& outcome);  // match, sort, md5
void addPathCommands(CLI::App& app, Outcome& outcome);
void addTableCommands(CLI::App& app, Outcome& outcome);
void addTreeCommands(CLI::App& app, Outcome& outcome);
void addUnitCommands(CLI::App& app, Outcome& outcome);
void addWordbookCommands(CLI::App& app, Outcome& outcome);

/// A line for each ExpressionWarning.
std::string notesOf(unsigned warnings);

/// UTF-8 words of the command line and the library's texts.
CString wide(const std::string& utf8);
std::string utf8(const CString& text);
/// Writes bytes to standard output as they are.
void print(const std::string& text);

}  // namespace orvtool
