// orvtool tree: data trees, shown, checked, converted, asked and compared.
#include <memory>

#include "commands.h"
#include "orv/tree_xml.h"
#include "tree_files.h"
#include "tree_outline.h"

namespace orvtool {
namespace {

struct TreeWords {
    TreeSource source;
    std::string other, out, path, value, to, encoding;
    int field = 0;  // 0: the whole value
    bool isIndented = false, doScramble = false, isInPlace = false;
};

CString checkedPath(const std::string& path) {
    const CString wanted = wide(path);
    if (!orv::isItemPath(wanted)) throw Failure{"\"" + path + "\" is no path, such as Geschoss[2]/Raum/@Name"};
    return wanted;
}

void check(const TreeWords& words, Outcome& outcome) {
    const TreeFile file = readTreeFile(words.source);
    for (const std::string& error : file.errors)
        print(error + "\n");
    outcome.exitCode = file.errors.empty() ? 0 : 1;
    if (file.root == nullptr) return;
    const auto separator = static_cast<wchar_t>(static_cast<unsigned char>(words.source.separator));
    for (const orv::TreeProblem& problem : orv::checkTree(*file.root, separator)) {
        print(utf8(problem.path) + ": " + describe(problem.kind) + " would not read back: " + utf8(problem.name) +
              "\n");
        outcome.exitCode = 1;
    }
    for (const orv::DuplicateName& twice : orv::findDuplicateNames(*file.root)) {
        if (!twice.isLeaf) continue;  // children of one name are a list
        print("note: " + utf8(twice.path) + ": " + std::to_string(twice.count) + " leaves are called " +
              utf8(twice.name) + "\n");
    }
    if (outcome.exitCode == 0) print(words.source.file + ": good\n");
}

void setForm(CNode& root, bool isSimple) {
    forEachNode(root, [isSimple](const CNode& node, int) { const_cast<CNode&>(node).setSimpleXML(isSimple); });
}

CString convertedText(CNode& root, const TreeWords& words) {
    CString text;
    if (words.to == "json") return orv::toJson(root, words.isIndented);
    if (words.to == "xml") {
        if (!orv::writeXml(root, text, words.isIndented))
            throw Failure{words.source.file + ": holds a character that XML forbids, or a node without a name"};
    } else if (words.to == "xml-values") {
        if (!TreeItems::WriteToXml(&root, text))
            throw Failure{words.source.file + ": a name or character is none in XML; try --to xml"};
    } else {
        setForm(root, words.to == "simple");
        text = itemsText(root, words.isIndented, words.source.separator, words.source.file);
    }
    return text;
}

void convert(const TreeWords& words) {
    const TreeFile file = readGoodTreeFile(words.source);
    const TextForm encoding = words.encoding.empty() ? file.encoding : textForm(words.encoding);
    const bool isUtf8 = encoding.page == kUtf8Page || encoding.page == kUtf8WithMark;
    if (words.to.starts_with("xml") && !isUtf8)
        throw Failure{"an XML document says that it is UTF-8: --encoding utf8 or utf8-bom"};
    writeTreeText(convertedText(*file.root, words), words.out, encoding, words.doScramble);
}

void get(const TreeWords& words, Outcome& outcome) {
    const TreeFile file = readGoodTreeFile(words.source);
    const std::vector<CTreeItem*> items = orv::selectItems(*file.root, checkedPath(words.path));
    for (const CTreeItem* item : items) {
        const auto* leaf = dynamic_cast<const CLeaf*>(item);
        if (leaf == nullptr) {
            print(outline(*static_cast<const CNode*>(item)));
        } else if (words.field > 0) {
            print(utf8(leaf->GetStrLeafValuePtr(words.field)) + "\n");
        } else {
            print(unpacked(*leaf) + "\n");
        }
    }
    if (items.empty()) outcome.exitCode = 1;
}

/// The leaf of a path; one that is missing is made in the node of the path, if that is there.
CLeaf& leafToSet(CNode& root, const std::string& path) {
    if (CLeaf* leaf = orv::selectLeaf(root, checkedPath(path))) return *leaf;
    const std::size_t at = path.rfind('@');
    if (at == std::string::npos) throw Failure{"\"" + path + "\" leads to no leaf: its last step is @NAME"};
    CNode* node = at == 0 ? &root : orv::selectNode(root, wide(path.substr(0, at - 1)));
    const CString name = wide(path.substr(at + 1));
    const bool isPlain = orv::isItemPath(L"@" + name) && name != L"*" && name.FindOneOf(L"'[") < 0;
    if (node == nullptr || !isPlain) throw Failure{"\"" + path + "\" leads nowhere"};
    return *node->AddLeaf(new CLeaf(name));
}

void set(const TreeWords& words) {
    if (words.out.empty() != words.isInPlace) throw Failure{"say where to write: --out FILE or --in-place"};
    const TreeFile file = readGoodTreeFile(words.source);
    if (file.form != TreeForm::kItems)
        throw Failure{words.source.file + ": only bracketed and XML-like files are changed"};
    CLeaf& leaf = leafToSet(*file.root, words.path);
    if (words.field > 0) {
        leaf.SetStrLeafValue(words.field, wide(words.value));
    } else {
        leaf.SetOnlyValue(wide(words.value));
    }
    const CString text = itemsText(*file.root, file.isIndented, words.source.separator, words.source.file);
    writeTreeText(text, words.isInPlace ? words.source.file : words.out, file.encoding, words.source.isScrambled);
}

std::string described(const orv::TreeDifference& difference) {
    using Kind = orv::TreeDifference::Kind;
    const std::string path = utf8(difference.path), before = utf8(difference.before), after = utf8(difference.after);
    switch (difference.kind) {
        case Kind::kNodeRemoved:
            return "- " + path;
        case Kind::kNodeAdded:
            return "+ " + path;
        case Kind::kLeafRemoved:
            return "- " + path + " = " + before;
        case Kind::kLeafAdded:
            return "+ " + path + " = " + after;
        case Kind::kOrderChanged:
            return "~ " + path + ": another order";
        default:
            return "~ " + path + " = " + before + " => " + after;
    }
}

void diff(const TreeWords& words, Outcome& outcome) {
    TreeSource second = words.source;
    second.file = words.other;
    second.isScrambled = false;
    const TreeFile a = readGoodTreeFile(words.source), b = readGoodTreeFile(second);
    for (const orv::TreeDifference& difference : orv::differences(*a.root, *b.root)) {
        print(described(difference) + "\n");
        outcome.exitCode = 1;
    }
}

/// A command that reads FILE.
CLI::App* addReader(CLI::App& tree, const std::shared_ptr<TreeWords>& words, const char* name, const char* what) {
    CLI::App* command = tree.add_subcommand(name, what);
    command->add_option("FILE", words->source.file, "The tree")->required();
    command->add_flag("--scrambled", words->source.isScrambled, "FILE is scrambled");
    command->add_option("--from", words->source.form, "What FILE is; told by its content by default")
        ->check(CLI::IsMember({"items", "xml"}));
    command->add_option("--separator", words->source.separator, "Between the name of a leaf and its value");
    return command;
}

}  // namespace

void addTreeCommands(CLI::App& app, Outcome& outcome) {
    CLI::App& tree = *app.add_subcommand("tree", "Data trees: bracketed, XML-like, XML documents");
    tree.require_subcommand(1);
    const auto words = std::make_shared<TreeWords>();

    addReader(tree, words, "show", "An outline with the fields of values unpacked")->callback([words] {
        print(outline(*readGoodTreeFile(words->source).root));
    });
    addReader(tree, words, "stats", "Nodes, leaves, levels, the most frequent names")->callback([words] {
        print(statistics(*readGoodTreeFile(words->source).root));
    });
    addReader(tree, words, "check", "All errors with their places, and what would not read back; 1 if there is any")
        ->callback([words, &outcome] { check(*words, outcome); });

    CLI::App* conversion = addReader(tree, words, "convert", "The tree in another form or encoding");
    conversion->add_option("OUT", words->out, "The file to create or replace")->required();
    conversion
        ->add_option("--to", words->to, "xml loses nothing; xml-values is for other programs: each value as one text")
        ->required()
        ->check(CLI::IsMember({"bracketed", "simple", "xml", "xml-values", "json"}));
    conversion->add_option("--encoding", words->encoding, "Of OUT; that of FILE by default")->check(isTextForm());
    conversion->add_flag("--indented", words->isIndented, "A TAB a level");
    conversion->add_flag("--scramble", words->doScramble, "Scramble OUT");
    conversion->callback([words] { convert(*words); });

    CLI::App* asking = addReader(tree, words, "get", "What a path leads to; 1 if that is nothing");
    asking->add_option("PATH", words->path, "From the root node: Geschoss[2]/Raum/@Name")->required();
    asking->add_option("--field", words->field, "One field of the value, from 1")->check(CLI::PositiveNumber);
    asking->callback([words, &outcome] { get(*words, outcome); });

    CLI::App* change = addReader(tree, words, "set", "Another value for the first leaf that a path leads to");
    change->add_option("PATH", words->path, "As for get; a leaf that is missing is made")->required();
    change->add_option("VALUE", words->value, "The text, of the whole value or of one field")->required();
    change->add_option("--field", words->field, "One field of the value, from 1")->check(CLI::PositiveNumber);
    change->add_option("--out", words->out, "The file to create or replace");
    change->add_flag("--in-place", words->isInPlace, "Write FILE itself");
    change->callback([words] { set(*words); });

    CLI::App* comparison = addReader(tree, words, "diff", "What makes OTHER of FILE; 1 if they differ");
    comparison->add_option("OTHER", words->other, "The other tree")->required();
    comparison->callback([words, &outcome] { diff(*words, outcome); });
}

}  // namespace orvtool
