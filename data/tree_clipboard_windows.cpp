#include <memory>

#include "data/clipboard_windows.h"
#include "orv/tree_items.h"

namespace {

UINT formatOf(bool isNode) {
    return RegisterClipboardFormatW(isNode ? L"ORVETA_TREEITEM_NODE" : L"ORVETA_TREEITEM_LEAF");
}

/// In place of what the clipboard holds.
bool putItem(const CTreeItem& item, UINT format, int level, wchar_t separator) {
    const orv::Clipboard clipboard;
    if (!clipboard.isOpen()) return false;
    EmptyClipboard();
    return orv::Clipboard::putText(format, item.GetSizeOfBranch(level),
                                   [&](wchar_t* buffer) { item.WriteToMem(buffer, level, separator); });
}

}  // namespace

bool CNode::ClipboardOut(bool asText, bool indented) const {
    const UINT own = RegisterClipboardFormatW(L"UPRONODE");
    return putItem(*this, asText ? CF_UNICODETEXT : own, indented ? 0 : -1, L':');
}

bool CTreeItem::WriteToClipBoard(wchar_t separator) const {
    constexpr int kNode = 1;
    return putItem(*this, formatOf(GetType() == kNode), -1, separator);
}

CTreeItem* CTreeItem::ReadFromClipBoard(wchar_t separator) {
    orv::WideString text;
    std::unique_ptr<CTreeItem> item;
    {
        const orv::Clipboard clipboard;
        if (!clipboard.isOpen()) return nullptr;
        if (orv::Clipboard::takeText(formatOf(true), text)) {
            item = std::make_unique<CNode>();
        } else if (orv::Clipboard::takeText(formatOf(false), text)) {
            item = std::make_unique<CLeaf>();
        } else {
            return nullptr;
        }
    }
    const wchar_t* at = text.c_str();
    item->ReadFromMem(at, separator);
    return item.release();
}

bool CTreeItem::IsClipboardAvailable() {
    return IsClipboardFormatAvailable(formatOf(true)) != FALSE || IsClipboardFormatAvailable(formatOf(false)) != FALSE;
}
