// Real menus, tool bars, windows and a real string table.
#include <gtest/gtest.h>
#include <windows.h>
// Behind it, because it needs it.
#include <commctrl.h>

#include "orv/translation.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

constexpr int kOpen = 101;
constexpr int kPipe = 102;
constexpr int kLabel = 201;
constexpr int kField = 202;

class UserInterface : public testing::Test {
  protected:
    UserInterface() {
        folder.put("wordbook.EN",
                   "&\xD6"
                   "ffnen <*> &Open\n@Teil@Rohr <*> pipe\nTitel <*> title\nDatei <*> File\n"
                   "Text 7 <*> text seven");
        module.ScanDirectory(TempFolder::asText(folder.path()));
        module.SetLanguage(L"EN");
    }

    static CString titleOf(HWND window) {
        wchar_t text[100];
        GetWindowTextW(window, text, 100);
        return text;
    }
    static CString itemOf(HMENU menu, int position) {
        wchar_t text[100] = {};
        GetMenuStringW(menu, static_cast<UINT>(position), text, 100, MF_BYPOSITION);
        return text;
    }

    TempFolder folder;
    CTranslationModule module{nullptr};
};

HWND child(const wchar_t* kind, const wchar_t* text, HWND parent, int id) {
    return CreateWindowExW(0, kind, text, WS_CHILD, 0, 0, 50, 20, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

TEST_F(UserInterface, WindowsSpeakTheLanguage) {
    const HMENU sub = CreatePopupMenu();
    AppendMenuW(sub, MF_STRING, kOpen, L"&Öffnen");
    AppendMenuW(sub, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(sub, MF_STRING | MF_CHECKED, kPipe, L"@Teil@Rohr");
    const CString longText(L'x', 300);
    AppendMenuW(sub, MF_STRING, 103, L"@a@" + longText);
    const HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(sub), L"Datei");
    const HWND window =
        CreateWindowExW(0, L"#32770", L"Titel", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr, bar, nullptr, nullptr);
    ASSERT_NE(nullptr, window);
    const HWND group = child(L"Button", L"Titel", window, 200);
    const HWND label = child(L"Static", L"@Teil@Rohr", group, kLabel);
    const HWND field = child(L"Edit", L"Titel", window, kField);
    module.TranslateWindow(window);
    EXPECT_TEXT(L"title", titleOf(window));
    EXPECT_TEXT(L"title", titleOf(group));
    EXPECT_TEXT(L"pipe", titleOf(label)) << "a window in a window";
    EXPECT_TEXT(L"Titel", titleOf(field)) << "what the user typed";
    EXPECT_TEXT(L"File", itemOf(bar, 0));
    EXPECT_TEXT(L"&Open", itemOf(sub, 0));
    EXPECT_TEXT(L"pipe", itemOf(sub, 2));
    wchar_t wide[400] = {};
    GetMenuStringW(sub, 3, wide, 400, MF_BYPOSITION);
    EXPECT_TEXT(longText, CString(wide));
    EXPECT_EQ(static_cast<UINT>(kPipe), GetMenuItemID(sub, 2));
    EXPECT_NE(0U, GetMenuState(sub, kPipe, MF_BYCOMMAND) & MF_CHECKED);
    SetWindowTextW(group, L"Datei");
    EXPECT_TRUE(module.TranslateWindowPart(window, 200));
    EXPECT_TEXT(L"File", titleOf(group));
    EXPECT_FALSE(module.TranslateWindowPart(window, 999));
    DestroyWindow(window);
    module.TranslateWindow(nullptr);
    module.TranslateMenu(nullptr);
}

TEST_F(UserInterface, ToolBarsSpeakTheLanguage) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_BAR_CLASSES};
    ASSERT_TRUE(InitCommonControlsEx(&controls));
    const HWND window =
        CreateWindowExW(0, L"#32770", L"", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr);
    const HWND bar = child(TOOLBARCLASSNAMEW, L"", window, 300);
    ASSERT_NE(nullptr, bar);
    SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    TBBUTTON buttons[3] = {};
    buttons[0].idCommand = kOpen;
    buttons[0].iString = reinterpret_cast<INT_PTR>(L"Datei");
    buttons[1].fsStyle = BTNS_SEP;
    buttons[2].idCommand = kPipe;
    buttons[2].iString = reinterpret_cast<INT_PTR>(L"@Teil@Rohr");
    SendMessageW(bar, TB_ADDBUTTONSW, 3, reinterpret_cast<LPARAM>(buttons));
    const auto textOf = [bar](int command) {
        wchar_t text[100] = {};
        SendMessageW(bar, TB_GETBUTTONTEXTW, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(text));
        return CString(text);
    };
    EXPECT_TRUE(module.TranslateToolBarButton(bar, kPipe));
    EXPECT_FALSE(module.TranslateToolBarButton(bar, 999));
    EXPECT_TEXT(L"pipe", textOf(kPipe));
    EXPECT_TEXT(L"Datei", textOf(kOpen));
    module.TranslateWindow(window);
    EXPECT_TEXT(L"File", textOf(kOpen));
    EXPECT_TEXT(L"pipe", textOf(kPipe));
    DestroyWindow(window);
}

TEST_F(UserInterface, StringTablesSpeakTheLanguage) {
    CTranslationManager& manager = CTranslationManager::GetInstance();
    EXPECT_TEXT(L"text seven", manager.GetStringTableText(7, &module));
    EXPECT_TEXT(L"Text 7", manager.GetStringTableText(7, nullptr));
    EXPECT_TEXT(L"", manager.GetStringTableText(8, &module));
    // The library's handle and the host's are different modules.
    const orv::ModuleHandle library = GetModuleHandleW(L"orvbase.dll");
    EXPECT_NE(manager.AddModule(library, folder / "x.dll"), manager.AddModule(nullptr, folder / "x.exe"));
    EXPECT_EQ(manager.FindModule(nullptr), manager.FindModule(GetModuleHandleW(nullptr)));
    CTranslationManager::Release();
}

}  // namespace
