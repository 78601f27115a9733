// What a translation module holds, and the lock under which all of it is used.
#pragma once

#include <atomic>
#include <deque>
#include <mutex>

#include "localization/german_texts.h"
#include "localization/text_cache.h"
#include "localization/translation_lock.h"
#include "localization/wordbook.h"
#include "orv/translation.h"

namespace orv {

/// Guards every module, the manager, the caches, the region and the list of missed texts.
TranslationLock& translationLock();
using TranslationGuard = std::lock_guard<TranslationLock>;

/// The installation's region: only what it means to German texts is read without the lock.
struct Region {
    CString token;
    std::atomic<bool> isSwiss{false};
};
Region& region();

/// To be called after each change of languages, wordbooks, modules or the region.
void translationsChanged() noexcept;

/// Notes a text that no wordbook has, if that is asked for.
void noteMissedText(const CString& language, WideView text);

/// All calls but those said to be free are made under the lock.
class TranslationState {
  public:
    explicit TranslationState(ModuleHandle instance) : instance_(instance) {}

    ModuleHandle instance() const { return instance_; }
    const CString& language() const { return language_; }
    bool hasWordbooks() const { return !wordbooks_.empty(); }

    /// Free: the result while the language is German and the text has been asked for before; else null.
    const CString* knownGerman(WideView text) const {
        return isGerman_.load(std::memory_order_acquire) ? germanTexts().find(text, hashText(text)) : nullptr;
    }

    int scanWordbookFiles(const CFilePath& module);
    int scanDirectory(const CDirPath& folder, const CString& pattern);
    void reload();

    void setLanguage(const CString& language);
    CString findBestLanguage(const CString& language) const;
    void enumLanguages(CStringArray& languages) const;

    /// In one language; null when there is none.
    const CString* find(WideView text, std::uint32_t hash, const CString& language);
    /// In a language, then in English.
    const CString* findOrEnglish(WideView text, std::uint32_t hash, const CString& language);
    CString translate(WideView text, const CString& language);
    CString translateNarrow(std::string_view text);

  private:
    bool hasLanguage(const CString& language) const;

    ModuleHandle instance_;
    CString language_ = L"DE";
    std::atomic<bool> isGerman_{true};
    std::deque<Wordbook> wordbooks_;
    TextCache<char> widened_;
};

}  // namespace orv
