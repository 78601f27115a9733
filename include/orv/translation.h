// User-visible texts in the user's language.
//
// A text stands in the source in German, or as a key: "@", a context, "@" and the German text ("@Einheit@Meter"). A
// translation module turns it into the current language. In German nothing is looked up; the context goes. For other
// languages the module looks into wordbooks, text files beside its program, named NAME.LANGUAGE ("wordbook.EN"):
//
//   Heizkörper <*> Radiator                  source, " <*> ", translation; other lines are ignored
//   @Einheit@Meter <*> metre                 the context is part of the source
//   Zeile 1\nZeile 2 <*> Line 1\nLine 2      \r \n \t \" \\ on both sides
//
// - A file without a mark is in Windows-1252. A line without a translation counts for nothing; the last line of several
//   with the same source counts. A colon, a blank or a line feed at the end of the source is one of the translation
//   too.
// - A text that no wordbook of the language has is looked for in English, and then stays German without its context.
// - Nothing fails and nothing throws but for lack of memory; null texts count as "". A wordbook that cannot be read has
//   no entries, and is tried again at the next look-up.
// - Languages are upper-case abbreviations ("DE", "EN"), as the files' extensions have them.
// - Everything here is for several threads at once, under one process-wide lock. A module that is removed, or a manager
//   that is released, must not be in use.
// - A text that has been asked for before costs no allocation: the same characters are handed out again.
#pragma once

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/framework/string.h"
#include "orv/paths.h"

struct HINSTANCE__;
struct HMENU__;
struct HWND__;

namespace orv {

/// The instance handle of a program module (HINSTANCE); null is the host program's.
using ModuleHandle = HINSTANCE__*;

class TranslationState;

}  // namespace orv

/// The wordbooks of one program module and its current language.
class ORV_API CTranslationModule {
  public:
    /// Without wordbooks, in German.
    explicit CTranslationModule(orv::ModuleHandle instance);
    CTranslationModule(const CTranslationModule&) = delete;
    CTranslationModule& operator=(const CTranslationModule&) = delete;
    ~CTranslationModule();

    // ---- Wordbooks ----
    /// Finds the wordbooks of a program module in its folder: NAME_dict.* (NAME: up to the first "_"); if there is none
    /// and the module is no DLL, FILENAME.*; else wordbook.*. Returns how many the last of these gave.
    int ScanWordbookFiles(const CFilePath& module);
    /// Add the files of a folder that match a pattern ("wordbook.*"), but for those that end in "db", have no
    /// extension, or whose name is shorter than the pattern. Return how many of these the module then has.
    int ScanDirectory(const CDirPath& folder);
    int ScanDirectory(const CDirPath& folder, const CString& pattern);
    /// Reads the wordbooks again, each when it is next needed.
    void Reload();

    // ---- Languages ----
    /// Makes FindBestLanguage(language) the current one; "" changes nothing.
    void SetLanguage(const CString& language);
    /// "DE" without wordbooks or when it is asked for; the language if there is a wordbook of it; else the first that
    /// can be had of: the system's, English, the first wordbook's. In any case of letters.
    CString FindBestLanguage(const CString& language) const;
    CString GetLanguage() const;
    bool IsGermanActive() const;
    /// Fills the array anew: "DE", then the wordbooks' languages, each once.
    void EnumLanguages(CStringArray& languages) const;

    // ---- Texts ----
    /// 1 if the text has a translation in the current language or, unless that is German, in English; else 0, and `out`
    /// as it was.
    int FindTranslation(const wchar_t* text, CString& out);
    /// In one language alone, whose abbreviation must be exact.
    int FindTranslation(const wchar_t* text, CString& out, const wchar_t* language);
    /// The text in the current language. A "≈" (U+2248) in front goes. Where the region is Switzerland an untranslated
    /// text has "ss" for every "ß".
    CString TranslateText(const wchar_t* text);
    /// A narrow text is in Windows-1252.
    CString TranslateText(const char* text);
    /// Translates in place; whether that changed the text.
    bool ChangeText(CString& text);

    // ---- The user interface; Windows alone ----
    /// Translates every text of a menu, those of its submenus too.
    void TranslateMenu(HMENU__* menu);
    /// Translates the texts of all buttons of a tool bar control.
    void TranslateToolBar(HWND__* toolBar);
    /// The button of a command; whether there is one with a text.
    bool TranslateToolBarButton(HWND__* toolBar, int command);
    /// Translates the title of a window, its menu, and the texts of all windows in it. The content of edit fields,
    /// lists and combo boxes is the user's and stays.
    void TranslateWindow(HWND__* window);
    /// One control of a window; whether it is there.
    bool TranslateWindowPart(HWND__* window, int control);

    orv::ModuleHandle GetInstanceHandle() const;

  private:
    friend class CTranslationManager;
    orv::TranslationState* state_;
};

/// The modules of the process: one for each program module. Language changes reach all of them.
class ORV_API CTranslationManager {
  public:
    /// The one manager, made at the first call.
    static CTranslationManager& GetInstance();
    /// Destroys the manager with its modules, if there is one; the next GetInstance makes a new one.
    static void Release();

    CTranslationManager(const CTranslationManager&) = delete;
    CTranslationManager& operator=(const CTranslationManager&) = delete;

    /// Makes a module in the manager's language and scans for its wordbooks; one that is there already scans for more.
    /// The manager owns it.
    CTranslationModule* AddModule(orv::ModuleHandle instance, const CFilePath& modulePath);
    /// Null when there is none.
    CTranslationModule* FindModule(orv::ModuleHandle instance);
    /// Destroys the module; whether there was one.
    bool RemoveModule(orv::ModuleHandle instance);

    /// For all modules, also those that come later; "" changes nothing.
    void SetLanguage(const CString& language);
    /// The language of GetDataText; until it is set, that of the module. "" changes nothing.
    void SetPrintLanguage(const CString& language);
    /// Of the host's module, else of the first; "DE" without modules.
    CString GetActualLanguage();
    CString GetActualPrintLanguage();
    /// Returns every module to the language that suits the system best; the print language follows again.
    void ResetLanguage();
    void Reload();

    /// The text in the print language. A null module is the host's, which is made, with the wordbooks beside the
    /// program, if it is not there.
    CString GetDataText(const wchar_t* text, CTranslationModule* module);
    /// A text of the module's string table in its current language; "" when there is none. Windows alone.
    CString GetStringTableText(unsigned id, CTranslationModule* module);

    /// The module of the library's own texts: the library's, if there are wordbooks beside it, else the host's.
    CTranslationModule& LibraryModule();

  private:
    CTranslationManager();
    ~CTranslationManager();
    CTranslationModule& hostModule();

    struct Modules;
    Modules* modules_;
};

namespace orv {

/// The region of the installation, three letters ("CHE": Switzerland). "" until it is set: not Swiss.
ORV_API void setRegionToken(const CString& token);
ORV_API CString regionToken();

/// A text that was asked for in a language and found neither in it nor in English.
struct MissedText {
    CString language;
    CString text;
    unsigned count = 0;
};

/// Starts the list of missed texts anew, or ends it. Off until it is called.
ORV_API void collectMissedTexts(bool collect);
/// Fills the array anew, in the order in which the texts were first asked for.
ORV_API void missedTexts(CArray<MissedText, const MissedText&>& texts);

/// Whether two printf formats take the same arguments: number, order and types of their directives.
///   "%s: %d" and "%s = %5d" => true     "%d" and "%s" => false     "%d" and "%*d" => false     "100 %%" and "" => true
ORV_API bool takeSameArguments(const wchar_t* a, const wchar_t* b);

}  // namespace orv
