#include "data/clipboard_windows.h"
#include "orv/node_format.h"

bool CProNodeBase::ClipboardOut(bool asText, bool indented) const {
    const orv::Clipboard clipboard;
    if (!clipboard.isOpen()) return false;
    EmptyClipboard();
    const UINT own = RegisterClipboardFormatW(L"PRONODE");
    const int level = indented ? 0 : -1;
    // ODDITY(node-clipboard-wide): the plain text format, which others read as narrow text, gets wide characters too.
    // Pinned by NodeClipboard.TextFormatHoldsWideCharacters.
    return orv::Clipboard::putText(asText ? CF_TEXT : own, getSize(level),
                                   [&](wchar_t* buffer) { WriteToMem(buffer, level); });
}

CProNodeBase* CProNodeBase::ClipboardIn(bool /*unused*/) {
    orv::WideString text;
    {
        const orv::Clipboard clipboard;
        if (!clipboard.isOpen()) return nullptr;
        const UINT formats[] = {RegisterClipboardFormatW(L"PRONODE"), RegisterClipboardFormatW(L"UPRONODE"), CF_TEXT};
        bool isThere = false;
        for (const UINT format : formats) {
            isThere = orv::Clipboard::takeText(format, text);
            if (isThere) break;
        }
        if (!isThere) return nullptr;
    }
    return ReadFromString(text.c_str(), 0, false);
}
