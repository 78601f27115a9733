// CTranslationModule: every call takes the lock and asks the module's state.
#include <string_view>

#include "localization/translation_state.h"
#include "text/views.h"

using orv::TranslationState;
using orv::viewOf;

namespace {

class Locked {
  public:
    explicit Locked(TranslationState* state) : guard_(orv::translationLock()), state_(state) {}
    TranslationState* operator->() const { return state_; }

  private:
    orv::TranslationGuard guard_;
    TranslationState* state_;
};

}  // namespace

CTranslationModule::CTranslationModule(orv::ModuleHandle instance) : state_(new TranslationState(instance)) {}

CTranslationModule::~CTranslationModule() { delete state_; }

int CTranslationModule::ScanWordbookFiles(const CFilePath& module) { return Locked(state_)->scanWordbookFiles(module); }

int CTranslationModule::ScanDirectory(const CDirPath& folder) { return ScanDirectory(folder, L"wordbook.*"); }

int CTranslationModule::ScanDirectory(const CDirPath& folder, const CString& pattern) {
    return Locked(state_)->scanDirectory(folder, pattern);
}

void CTranslationModule::Reload() { Locked(state_)->reload(); }

void CTranslationModule::SetLanguage(const CString& language) {
    if (!language.IsEmpty()) Locked(state_)->setLanguage(language);
}

CString CTranslationModule::FindBestLanguage(const CString& language) const {
    return Locked(state_)->findBestLanguage(language);
}

CString CTranslationModule::GetLanguage() const { return Locked(state_)->language(); }

bool CTranslationModule::IsGermanActive() const { return Locked(state_)->language() == L"DE"; }

void CTranslationModule::EnumLanguages(CStringArray& languages) const { Locked(state_)->enumLanguages(languages); }

int CTranslationModule::FindTranslation(const wchar_t* text, CString& out) {
    const orv::WideView wanted = viewOf(text);
    const std::uint32_t hash = orv::hashText(wanted);
    const Locked state(state_);
    const CString* found = state->findOrEnglish(wanted, hash, state->language());
    if (found != nullptr) out = *found;
    return found != nullptr ? 1 : 0;
}

int CTranslationModule::FindTranslation(const wchar_t* text, CString& out, const wchar_t* language) {
    const orv::WideView wanted = viewOf(text);
    const std::uint32_t hash = orv::hashText(wanted);
    const CString* found = Locked(state_)->find(wanted, hash, CString(language));
    if (found != nullptr) out = *found;
    return found != nullptr ? 1 : 0;
}

CString CTranslationModule::TranslateText(const wchar_t* text) {
    const orv::WideView wanted = viewOf(text);
    if (const CString* known = state_->knownGerman(wanted)) return *known;
    const Locked state(state_);
    return state->translate(wanted, state->language());
}

CString CTranslationModule::TranslateText(const char* text) {
    return Locked(state_)->translateNarrow(text == nullptr ? std::string_view() : std::string_view(text));
}

bool CTranslationModule::ChangeText(CString& text) {
    const CString translated = TranslateText(text);
    if (translated == text) return false;
    text = translated;
    return true;
}

orv::ModuleHandle CTranslationModule::GetInstanceHandle() const { return state_->instance(); }
