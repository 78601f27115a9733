// Wordbooks for tools: every line, and lines that read back.
#include "localization/wordbook_lines.h"
#include "orv/string_utilities.h"
#include "orv/wordbooks.h"
#include "text/views.h"

namespace orv {
namespace {

/// Calls use(entry) for every line of a text that has a separator.
template <class Use>
void forEachLine(WideView text, Use use) {
    WideString changed(text);
    changed.push_back(0);  // the one character more
    WordbookLines lines(changed.data(), changed.data() + text.size());
    for (WordbookEntry entry; lines.next(entry, false);)
        use(entry);
}

CString escaped(CString text) {
    text.Replace(L"\\", L"\\\\");
    text.Replace(L"\r", L"\\r");
    text.Replace(L"\n", L"\\n");
    text.Replace(L"\t", L"\\t");
    text.Replace(L"\"", L"\\\"");
    return text;
}

}  // namespace

bool readWordbook(const CFilePath& path, CArray<WordbookLine, const WordbookLine&>& lines) {
    CString text;
    if (!orvStrUtil::readStringBufferFromFile(text, path, kWordbookPage, false)) return false;
    lines.RemoveAll();
    forEachLine(viewOf(text), [&](const WordbookEntry& entry) {
        lines.Add(
            {static_cast<int>(entry.line), textOf(entry.source), textOf(entry.written), textOf(entry.translation)});
    });
    return true;
}

bool makeWordbookLine(const CString& source, const CString& translation, CString& line) {
    const CString made = escaped(source) + L" <*> " + escaped(translation);
    bool isSame = false;
    int read = 0;
    forEachLine(viewOf(made), [&](const WordbookEntry& entry) {
        ++read;
        isSame = entry.source == viewOf(source) && entry.translation == viewOf(translation) && !translation.IsEmpty();
    });
    if (!isSame || read != 1) return false;
    line = made;
    return true;
}

}  // namespace orv
