// Menus, tool bars and windows in the current language, and texts of string tables.
#include <vector>

#include "localization/translation_state.h"
#include "platform/windows/windows.h"
// Behind it, because it needs it.
#include <commctrl.h>

namespace {

constexpr int kFirstRoom = 256;

/// A text of a system call that cuts it off: get(buffer, room) returns the length, without the NUL, of what it wrote.
template <class Get>
CString wholeText(Get get) {
    CString text;
    for (int room = kFirstRoom;; room *= 2) {
        const int length = get(text.GetBufferSetLength(room), room);
        if (length < room - 1) {
            text.ReleaseBufferSetLength(length > 0 ? length : 0);
            return text;
        }
    }
}

CString titleOf(HWND window) {
    return wholeText([window](wchar_t* to, int room) { return GetWindowTextW(window, to, room); });
}

CString menuTextOf(HMENU menu, UINT position) {
    return wholeText([&](wchar_t* to, int room) { return GetMenuStringW(menu, position, to, room, MF_BYPOSITION); });
}

/// Whose text is its content.
bool holdsTheUsersText(HWND window) {
    static constexpr const wchar_t* kClasses[] = {L"Edit",        L"ListBox",     L"ComboBox",      L"ComboBoxEx32",
                                                  L"RichEdit20W", L"RICHEDIT50W", L"SysListView32", L"SysTreeView32"};
    wchar_t name[kFirstRoom];
    if (GetClassNameW(window, name, kFirstRoom) == 0) return false;
    for (const wchar_t* one : kClasses) {
        if (lstrcmpiW(name, one) == 0) return true;
    }
    return false;
}

bool isToolBar(HWND window) {
    wchar_t name[kFirstRoom];
    return GetClassNameW(window, name, kFirstRoom) != 0 && lstrcmpiW(name, TOOLBARCLASSNAMEW) == 0;
}

void translateTitle(CTranslationModule& module, HWND window) {
    if (holdsTheUsersText(window)) return;
    CString title = titleOf(window);
    if (!title.IsEmpty() && module.ChangeText(title)) SetWindowTextW(window, title);
}

BOOL CALLBACK translateChild(HWND window, LPARAM module) {
    auto& translator = *reinterpret_cast<CTranslationModule*>(module);
    if (isToolBar(window)) {
        translator.TranslateToolBar(window);
    } else {
        translateTitle(translator, window);
    }
    return TRUE;
}

LRESULT send(HWND window, UINT message, WPARAM first, const void* second) {
    return SendMessageW(window, message, first, reinterpret_cast<LPARAM>(second));
}

}  // namespace

void CTranslationModule::TranslateMenu(HMENU menu) {
    std::vector<HMENU> waiting{menu};
    while (!waiting.empty()) {
        const HMENU current = waiting.back();
        waiting.pop_back();
        const int count = GetMenuItemCount(current);
        for (int i = 0; i < count; ++i) {
            const auto position = static_cast<UINT>(i);
            CString text = menuTextOf(current, position);
            if (!text.IsEmpty() && ChangeText(text)) {
                MENUITEMINFOW info{};
                info.cbSize = sizeof(info);
                info.fMask = MIIM_STRING;
                info.dwTypeData = text.GetBuffer();
                SetMenuItemInfoW(current, position, TRUE, &info);
            }
            if (const HMENU sub = GetSubMenu(current, i); sub != nullptr) waiting.push_back(sub);
        }
    }
}

bool CTranslationModule::TranslateToolBarButton(HWND toolBar, int command) {
    const auto button = static_cast<WPARAM>(command);
    const LRESULT length = SendMessageW(toolBar, TB_GETBUTTONTEXTW, button, 0);
    if (length <= 0) return false;
    CString text;
    send(toolBar, TB_GETBUTTONTEXTW, button, text.GetBufferSetLength(static_cast<int>(length)));
    text.ReleaseBuffer();
    if (text.IsEmpty()) return false;
    if (ChangeText(text)) {
        TBBUTTONINFOW info{};
        info.cbSize = sizeof(info);
        info.dwMask = TBIF_TEXT;
        info.pszText = text.GetBuffer();
        send(toolBar, TB_SETBUTTONINFOW, button, &info);
    }
    return true;
}

void CTranslationModule::TranslateToolBar(HWND toolBar) {
    const LRESULT count = SendMessageW(toolBar, TB_BUTTONCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        TBBUTTON button{};
        if (send(toolBar, TB_GETBUTTON, static_cast<WPARAM>(i), &button) != 0) {
            TranslateToolBarButton(toolBar, button.idCommand);
        }
    }
}

void CTranslationModule::TranslateWindow(HWND window) {
    translateTitle(*this, window);
    if (const HMENU menu = GetMenu(window); IsMenu(menu) != 0) {
        TranslateMenu(menu);
        DrawMenuBar(window);
    }
    EnumChildWindows(window, translateChild, reinterpret_cast<LPARAM>(this));
}

bool CTranslationModule::TranslateWindowPart(HWND window, int control) {
    const HWND part = GetDlgItem(window, control);
    if (part == nullptr) return false;
    translateChild(part, reinterpret_cast<LPARAM>(this));
    return true;
}

CString CTranslationManager::GetStringTableText(unsigned id, CTranslationModule* module) {
    CTranslationModule& owner = module != nullptr ? *module : hostModule();
    const wchar_t* text = nullptr;
    const HINSTANCE instance =
        owner.GetInstanceHandle() != nullptr ? owner.GetInstanceHandle() : GetModuleHandleW(nullptr);
    // With no room given, the call hands out the table's own characters, of any length and without a NUL.
    const int length = LoadStringW(instance, id, reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? owner.TranslateText(CString(text, length)) : CString();
}
