#include "localization/translation_state.h"

#include "localization/translate.h"
#include "orv/files.h"
#include "platform/program.h"
#include "text/text_encodings.h"
#include "text/views.h"

namespace orv {
namespace {

constexpr wchar_t kAlmostEqual = L'\x2248';
/// As == L"DE", which is a call.
bool isGerman(const CString& language) {
    const wchar_t* const letters = language.GetString();
    return letters[0] == L'D' && letters[1] == L'E' && letters[2] == 0;
}

CString upperCase(CString text) { return text.MakeUpper(); }

}  // namespace

TranslationLock& translationLock() {
    static constinit TranslationLock only;
    return only;
}

namespace {

std::atomic<unsigned> generation{0};

}  // namespace

void translationsChanged() noexcept { generation.fetch_add(1, std::memory_order_acq_rel); }

unsigned translationGeneration() noexcept { return generation.load(std::memory_order_acquire); }

Region& region() {
    static Region only;
    return only;
}

int TranslationState::scanWordbookFiles(const CFilePath& module) {
    const CDirPath folder = module.GetDirPath();
    if (folder.IsEmpty()) return 0;
    CString name = module.GetShortFileName();
    const int underscore = name.Find(L'_');
    if (underscore > 0) name.Truncate(underscore);
    CString pattern;
    pattern.Format(L"%s_dict.*", name);
    if (const int count = scanDirectory(folder, pattern); count > 0) return count;
    const CString extension = module.GetFileExt();
    if (!extension.IsEmpty() && extension.CompareNoCase(L"dll") != 0) {
        pattern.Format(L"%s.*", module.GetFileName());
        if (const int count = scanDirectory(folder, pattern); count > 0) return count;
    }
    return scanDirectory(folder, L"wordbook.*");
}

// ODDITY(wordbook-length-test): a name must be at least as long as the pattern's own text, wildcards included. Pinned
// by Wordbooks.FilesAreFoundLikeThis.
int TranslationState::scanDirectory(const CDirPath& folder, const CString& pattern) {
    CStringArray names;
    GetFileNames(folder, pattern, names);
    int count = 0;
    for (int i = 0; i < names.GetSize(); ++i) {
        const CString& name = names[i];
        if (name.GetLength() < pattern.GetLength() || name.Right(2).CompareNoCase(L"db") == 0) continue;
        const CFilePath path = folder.AppendFile(name);
        if (path.GetFileExt().IsEmpty()) continue;
        bool isKnown = false;
        for (const Wordbook& book : wordbooks_)
            isKnown = isKnown || book.path().IsEqual(path);
        if (!isKnown) wordbooks_.emplace_back(path);
        ++count;
    }
    translationsChanged();
    return count;
}

void TranslationState::reload() {
    for (Wordbook& book : wordbooks_)
        book.unload();
    translationsChanged();
}

void TranslationState::setLanguage(const CString& language) {
    language_ = findBestLanguage(language);
    for (const Wordbook& book : wordbooks_) {
        if (book.language() == language_) language_ = book.language();  // the same characters compare at once
    }
    isGerman_.store(isGerman(language_), std::memory_order_release);
    translationsChanged();
}

bool TranslationState::hasLanguage(const CString& language) const {
    for (const Wordbook& book : wordbooks_) {
        if (book.language() == language) return true;
    }
    return false;
}

CString TranslationState::findBestLanguage(const CString& language) const {
    const CString german = L"DE";
    const CString wanted = upperCase(language);
    if (wordbooks_.empty() || wanted == german || hasLanguage(wanted)) return wordbooks_.empty() ? german : wanted;
    const CString system = upperCase(textOf(platform::interfaceLanguage()));
    if (system == german || hasLanguage(system)) return system;
    const CString english = L"EN";
    return hasLanguage(english) ? english : wordbooks_.front().language();
}

void TranslationState::enumLanguages(CStringArray& languages) const {
    languages.RemoveAll();
    languages.Add(L"DE");
    for (const Wordbook& book : wordbooks_) {
        bool isKnown = false;
        for (int i = 0; i < languages.GetSize(); ++i)
            isKnown = isKnown || languages[i] == book.language();
        if (!isKnown) languages.Add(book.language());
    }
}

const CString* TranslationState::find(WideView text, std::uint32_t hash, const CString& language) {
    for (Wordbook& book : wordbooks_) {
        if (book.language() != language) continue;
        if (const CString* found = book.find(text, hash)) return found;
    }
    return nullptr;
}

const CString* TranslationState::findOrEnglish(WideView text, std::uint32_t hash, const CString& language) {
    if (text.empty()) return nullptr;
    const CString* found = find(text, hash, language);
    if (found == nullptr && language != L"EN" && language != L"DE") found = find(text, hash, L"EN");
    if (found == nullptr) noteMissedText(language, text);
    return found;
}

CString TranslationState::translate(WideView text, const CString& language) {
    if (text.starts_with(kAlmostEqual)) text.remove_prefix(1);
    if (text.empty()) return {};
    const std::uint32_t hash = hashText(text);
    if (!isGerman(language)) {
        if (const CString* found = findOrEnglish(text, hash, language)) return *found;
    }
    const CString* known = germanTexts().find(text, hash);
    return known != nullptr ? *known : germanTexts().add(text, hash);
}

CString TranslationState::translateNarrow(std::string_view text) {
    const std::uint32_t hash = hashBytes(text.data(), text.size());
    const CString* known = widened_.find(text, hash);
    if (known == nullptr) {
        WideString wide(text.size(), 0);
        decodeWindows1252(text, wide.data());
        known = &widened_.add(text, hash, textOf(wide));
    }
    return translate(viewOf(*known), language_);
}

}  // namespace orv
