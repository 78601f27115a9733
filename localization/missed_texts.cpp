// The region of the installation, and the texts that no wordbook has.
#include <vector>

#include "framework/hash_index.h"
#include "localization/translation_state.h"
#include "text/views.h"

namespace orv {
namespace {

class MissedTexts {
  public:
    bool isOn = false;

    void clear() {
        texts_.clear();
        index_.clear();
    }
    void note(const CString& language, WideView text) {
        const std::uint32_t hash = hashText(text) ^ hashText(viewOf(language));
        const std::uint32_t at = index_.find(
            hash, [&](std::uint32_t i) { return viewOf(texts_[i].text) == text && texts_[i].language == language; });
        if (at != HashIndex::kNone) {
            ++texts_[at].count;
            return;
        }
        texts_.push_back({language, textOf(text), 1});
        index_.add(hash, static_cast<std::uint32_t>(texts_.size() - 1));
    }
    const std::vector<MissedText>& texts() const { return texts_; }

  private:
    std::vector<MissedText> texts_;
    HashIndex index_;
};

MissedTexts& missed() {
    static MissedTexts only;
    return only;
}

}  // namespace

void noteMissedText(const CString& language, WideView text) {
    if (missed().isOn) missed().note(language, text);
}

void collectMissedTexts(bool collect) {
    const TranslationGuard guard(translationLock());
    if (collect) missed().clear();
    missed().isOn = collect;
}

void missedTexts(CArray<MissedText, const MissedText&>& texts) {
    const TranslationGuard guard(translationLock());
    texts.RemoveAll();
    for (const MissedText& text : missed().texts())
        texts.Add(text);
}

void setRegionToken(const CString& token) {
    const TranslationGuard guard(translationLock());
    region().token = token;
    region().isSwiss.store(token == L"CHE", std::memory_order_release);
    translationsChanged();
}

CString regionToken() {
    const TranslationGuard guard(translationLock());
    return region().token;
}

}  // namespace orv
