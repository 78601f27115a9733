// orvtool: the library's companion program for the command line.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "commands.h"
#include "console.h"
#include "orv/version.h"

namespace {

constexpr int kWrongUse = 2;

int run(const std::vector<std::string>& words) {
    CLI::App app("Texts, records, units, trees: the orvbase library from the command line.", "orvtool");
    app.set_version_flag("--version", ORV_VERSION_TEXT);
    app.require_subcommand(1);
    app.set_help_all_flag("--help-all", "Help for every command");
    orvtool::Outcome outcome;
    orvtool::addTextCommands(app, outcome);
    orvtool::addRecordCommands(app, outcome);
    orvtool::addEvalCommands(app, outcome);
    orvtool::addMatchCommands(app, outcome);
    orvtool::addPathCommands(app, outcome);
    orvtool::addTableCommands(app, outcome);
    orvtool::addTreeCommands(app, outcome);
    orvtool::addUnitCommands(app, outcome);
    orvtool::addWordbookCommands(app, outcome);
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend()));  // the parser takes them last first
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongUse;
    } catch (const orvtool::Failure& failure) {
        orvtool::printError("orvtool: " + failure.text + "\n");
        return 1;
    } catch (const std::exception& error) {
        orvtool::printError(std::string("orvtool: ") + error.what() + "\n");
        return 1;
    }
    return orvtool::finishOutput() ? outcome.exitCode : 1;
}

}  // namespace

int main(int argc, char** argv) {
    orvtool::prepareConsole();
    return run(orvtool::commandLine(argc, argv));
}
