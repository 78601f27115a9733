#include "tree_files.h"

#include "commands.h"
#include "console.h"
#include "orv/files.h"
#include "orv/string_utilities.h"
#include "orv/text_files.h"
#include "orv/tree_xml.h"

namespace orvtool {
namespace {

constexpr std::int64_t kWorthTelling = 4 << 20;  // bytes of a file that takes a moment

TextForm encodingOf(const orv::TextFileInfo& info) {
    switch (info.encoding) {
        case orv::TextEncoding::kUtf16LittleEndian:
        case orv::TextEncoding::kUtf16BigEndian:
            return textForm("utf16");
        case orv::TextEncoding::kWindows1252:
            return textForm("1252");
        default:
            return textForm(info.hasMark ? "utf8-bom" : "utf8");
    }
}

std::string place(const std::string& file, int line, int column) {
    return file + ":" + std::to_string(line) + ":" + std::to_string(column) + ": ";
}

/// An XML document begins with a declaration or a comment; "<Room>" alone may be either form.
bool looksLikeXml(const CString& text) {
    const wchar_t* at = text;
    CTreeItem::SkipWhitespace(at);
    return at[0] == L'<' && (at[1] == L'?' || at[1] == L'!');
}

void readItems(const CString& text, const TreeSource& source, TreeFile& out) {
    std::vector<orv::TreeReadError> errors;
    out.form = TreeForm::kItems;
    out.root = orv::readTree(text, static_cast<unsigned char>(source.separator), errors);
    out.isIndented = text.Find(L"\t\t") >= 0;
    for (const orv::TreeReadError& error : errors) {
        out.errors.push_back(place(source.file, error.line, error.column) + utf8(orv::treeErrorText(error.error)) +
                             (error.path.IsEmpty() ? "" : " (in " + utf8(error.path) + ")"));
    }
}

void readXmlDocument(const CString& text, const TreeSource& source, TreeFile& out) {
    orv::XmlReadError error;
    out.form = TreeForm::kXml;
    out.root = orv::readXml(text, error);
    if (out.root == nullptr) out.errors.push_back(place(source.file, error.line, error.column) + utf8(error.text));
}

}  // namespace

TreeFile readTreeFile(const TreeSource& source) {
    std::int64_t bytes = 0;
    const CFilePath path = wide(source.file);
    if (GetFileSize(path, bytes) && bytes >= kWorthTelling)
        printProgress("orvtool: reading " + std::to_string(bytes >> 20) + " MiB of " + source.file + "\n");
    orv::TextFileInfo info;
    CString text;
    if (!orv::inspectTextFile(path, source.isScrambled, info) ||
        !orvStrUtil::readStringFromFileAuto(text, path, source.isScrambled)) {
        throw Failure{source.file + ": cannot be read"};
    }
    TreeFile out;
    out.encoding = encodingOf(info);
    const bool isXml = source.form.empty() ? looksLikeXml(text) : source.form == "xml";
    if (isXml) {
        readXmlDocument(text, source, out);
        return out;
    }
    readItems(text, source, out);
    if (!out.errors.empty() && source.form.empty() && text.Find(L'<') == 0) {
        TreeFile document = std::move(out);
        readXmlDocument(text, source, document);
        if (document.root != nullptr) document.errors.clear();
        return document;
    }
    return out;
}

TreeFile readGoodTreeFile(const TreeSource& source) {
    TreeFile file = readTreeFile(source);
    if (!file.errors.empty() || file.root == nullptr)
        throw Failure{file.errors.empty() ? source.file + ": no tree" : file.errors.front()};
    return file;
}

void writeTreeText(const CString& text, const std::string& file, const TextForm& encoding, bool scramble) {
    if (text.GetLength() >= kWorthTelling)
        printProgress("orvtool: writing " + std::to_string(text.GetLength() >> 20) + " Mi characters to " + file +
                      "\n");
    if (!encoding.unicode) {
        // A page that lacks characters would write its default character for them.
        const CString page = wide(file);
        CString back;
        if (orvStrUtil::writeStringBufferToFile(text, page, false, encoding.page, scramble) &&
            orvStrUtil::readStringBufferFromFile(back, page, encoding.page, scramble) && back == text) {
            return;
        }
        throw Failure{file + ": not everything can be written in that encoding"};
    }
    if (!orvStrUtil::writeStringBufferToFile(text, wide(file), true, encoding.page, scramble))
        throw Failure{file + ": cannot be written"};
}

CString itemsText(const CNode& root, bool indented, char separator, const std::string& file) {
    const auto character = static_cast<wchar_t>(static_cast<unsigned char>(separator));
    const std::vector<orv::TreeProblem> problems = orv::checkTree(root, character);
    if (!problems.empty()) {
        throw Failure{file + ": " + utf8(problems.front().path) + ": " + describe(problems.front().kind) +
                      " would not read back"};
    }
    CString text;
    if (!root.WriteToString(text, false, indented, true, 0, character)) throw Failure{file + ": the text is too long"};
    return text;
}

const char* describe(orv::TreeProblem::Kind kind) {
    using Kind = orv::TreeProblem::Kind;
    switch (kind) {
        case Kind::kNodeName:
            return "this node's name";
        case Kind::kLeafName:
            return "the name of a leaf";
        case Kind::kLeafValue:
            return "the value of a leaf";
        case Kind::kForm:
            return "this mixture of bracketed and XML-like items";
        case Kind::kLoneSurrogate:
            return "half a character";
        default:
            return "so deep a tree, indented,";
    }
}

}  // namespace orvtool
