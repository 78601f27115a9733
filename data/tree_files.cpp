// Trees in files, and reading with error reporting.
#include <memory>

#include "data/tree_links.h"
#include "localization/translate.h"
#include "orv/messages.h"
#include "orv/string_utilities.h"
#include "orv/tree_tools.h"
#include "platform/system_errors.h"

namespace {

constexpr unsigned kUtf8WithMark = 65001;

std::unique_ptr<CNode> treeIn(const CString& text, wchar_t separator) {
    auto root = std::make_unique<CNode>();
    const wchar_t* at = text;
    root->ReadFromMem(at, separator);
    return root;
}

void tellOfFile(const CString& path, const CString& reason) {
    CString message;
    message.Format(orv::translateFormat(L"Die Datei\n%s\nkann nicht gelesen werden."), path);
    if (!reason.IsEmpty()) message += L"\n" + reason;
    orv::showMessage(orv::MessageKind::kError, orv::translate(L"Datei lesen"), message);
}

}  // namespace

bool CNode::WriteToFile(const wchar_t* path, bool scrambled, bool indented, bool unicode, unsigned int codePage,
                        wchar_t /*separator*/) const {
    // ODDITY(tree-file-separator): the separator argument has no say; files always have ":".
    // Pinned by TreeFiles.Encodings.
    CString text;
    if (!WriteToString(text, scrambled, indented, unicode, codePage, L':')) return false;
    const unsigned page = unicode && codePage == 0 ? kUtf8WithMark : codePage;
    return orvStrUtil::writeStringBufferToFile(text, path, unicode, page, scrambled);
}

CNode* CNode::ReadFromFile(const CFilePath& path, bool scrambled, wchar_t separator, bool* isUnicode, bool* isIndented,
                           unsigned int codePage) {
    CString text;
    if (!orvStrUtil::readStringBufferFromFile(text, path, codePage, scrambled)) return nullptr;
    if (isUnicode != nullptr) *isUnicode = orvStrUtil::isUnicodeFile(path, scrambled);
    if (isIndented != nullptr) *isIndented = text.Find(L"\t\t") >= 0;
    return treeIn(text, separator).release();
}

CNode* CNode::ReadFromFile(const CFilePath& path, bool scrambled, wchar_t separator, bool* isUnicode,
                           unsigned int codePage) {
    return ReadFromFile(path, scrambled, separator, isUnicode, nullptr, codePage);
}

namespace TreeItems {

bool ReadFromFile(const CFilePath& path, CNode*& out, bool* isUnicode, unsigned int codePage, bool silent) {
    out = nullptr;
    const wchar_t last = orvStrUtil::GetLastChar(path);
    // ODDITY(tree-file-x): the last letter of the name alone says that a file is scrambled.
    // Pinned by TreeFiles.ByName.
    const bool scrambled = last == L'x' || last == L'X';
    try {
        out = CNode::ReadFromFile(path, scrambled, L':', isUnicode, codePage);
        if (out == nullptr && !silent) tellOfFile(path, orv::platform::lastErrorText());
    } catch (CExcRead* error) {
        if (!silent) tellOfFile(path, error->getText());
        error->Delete();
    }
    return out != nullptr;
}

bool ReadFromFile(const CFilePath& path, CNode*& out, bool silent) {
    return ReadFromFile(path, out, nullptr, kUtf8WithMark, silent);
}

CNode* ReadFromFile(const CFilePath& path, bool silent) {
    CNode* tree = nullptr;
    ReadFromFile(path, tree, silent);
    return tree;
}

bool ReadFromString(const CString& text, CNode*& out, bool silent) {
    out = nullptr;
    if (text.IsEmpty()) return false;
    try {
        out = treeIn(text, L':').release();
    } catch (CExcRead* error) {
        if (!silent) orv::showMessage(orv::MessageKind::kError, orv::translate(L"Daten lesen"), error->getText());
        error->Delete();
    }
    return out != nullptr;
}

CNode* ReadFromString(const CString& text, bool silent) {
    CNode* tree = nullptr;
    ReadFromString(text, tree, silent);
    return tree;
}

}  // namespace TreeItems
