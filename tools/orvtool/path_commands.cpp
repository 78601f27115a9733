// orvtool path: paths as texts. No file is looked at.
#include "commands.h"
#include "orv/paths.h"

namespace orvtool {

namespace {

struct PathWords {
    std::string path;
    std::string other;
};

void addPath(CLI::App& command, PathWords& words) { command.add_option("PATH", words.path, "The path")->required(); }

/// One part a line: its name, a tab, the part.
void split(const PathWords& words) {
    const CFilePath path = wide(words.path);
    const auto line = [](const char* name, const CString& part) {
        print(std::string(name) + "\t" + utf8(part) + "\n");
    };
    line("host", path.GetHost());
    line("drive", path.GetDrive());
    line("folder", path.GetDirPath());
    line("name", path.GetShortFileName());
    line("extension", path.GetFileExt());
}

}  // namespace

void addPathCommands(CLI::App& app, Outcome& outcome) {
    CLI::App* path = app.add_subcommand("path", "Windows paths as texts");
    path->require_subcommand(1);
    const auto words = std::make_shared<PathWords>();

    CLI::App* normalize = path->add_subcommand("normalize", "Print the path with one spelling for what is the same");
    addPath(*normalize, *words);
    normalize->callback([words] { print(utf8(CFilePath(wide(words->path)).Normalized()) + "\n"); });

    CLI::App* relative = path->add_subcommand("relative", "Print the path as seen from a folder");
    addPath(*relative, *words);
    relative->add_option("FOLDER", words->other, "The folder")->required();
    relative->callback([words] { print(utf8(CalcRelativePath(wide(words->path), wide(words->other))) + "\n"); });

    CLI::App* parts = path->add_subcommand("split", "Print host, drive, folder, name and extension, one a line");
    addPath(*parts, *words);
    parts->callback([words] { split(*words); });

    CLI::App* compare = path->add_subcommand("compare", "Whether two paths name the same folder: exit code 0 or 1");
    addPath(*compare, *words);
    compare->add_option("OTHER", words->other, "The other path")->required();
    compare->callback([words, &outcome] {
        const bool isEqual = CDirPath(wide(words->path)).IsEqual(wide(words->other));
        print(isEqual ? "equal\n" : "different\n");
        outcome.exitCode = isEqual ? 0 : 1;
    });
}

}  // namespace orvtool
