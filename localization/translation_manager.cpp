// CTranslationManager: the modules of the process.
#include <memory>
#include <vector>

#include "localization/library_module.h"
#include "localization/translation_state.h"
#include "platform/program.h"
#include "text/views.h"

// The lock guards these; modules are few.
struct CTranslationManager::Modules {
    std::vector<std::unique_ptr<CTranslationModule>> all;
    CString language;       // "": none was chosen
    CString printLanguage;  // "": that of each module

    CTranslationModule* find(orv::ModuleHandle instance) {
        for (const auto& module : all) {
            if (orv::sameModule(module->state_->instance(), instance)) return module.get();
        }
        return nullptr;
    }
    CTranslationModule& add(orv::ModuleHandle instance, const CFilePath& path) {
        CTranslationModule* module = find(instance);
        if (module == nullptr) {
            all.push_back(std::make_unique<CTranslationModule>(instance));
            module = all.back().get();
        }
        module->state_->scanWordbookFiles(path);
        if (!language.IsEmpty()) module->state_->setLanguage(language);
        return *module;
    }
    CTranslationModule& findOrAdd(orv::ModuleHandle instance, orv::WideString (*pathOf)()) {
        CTranslationModule* module = find(instance);
        return module != nullptr ? *module : add(instance, orv::textOf(pathOf()));
    }
    CTranslationModule& host() { return findOrAdd(nullptr, orv::platform::programPath); }
};

namespace {

CTranslationManager* manager = nullptr;

}  // namespace

CTranslationManager::CTranslationManager() : modules_(new Modules) {}

CTranslationManager::~CTranslationManager() { delete modules_; }

CTranslationManager& CTranslationManager::GetInstance() {
    const orv::TranslationGuard guard(orv::translationLock());
    if (manager == nullptr) manager = new CTranslationManager;
    return *manager;
}

void CTranslationManager::Release() {
    const orv::TranslationGuard guard(orv::translationLock());
    delete manager;
    manager = nullptr;
    orv::translationsChanged();
}

CTranslationModule* CTranslationManager::AddModule(orv::ModuleHandle instance, const CFilePath& modulePath) {
    const orv::TranslationGuard guard(orv::translationLock());
    return &modules_->add(instance, modulePath);
}

CTranslationModule* CTranslationManager::FindModule(orv::ModuleHandle instance) {
    const orv::TranslationGuard guard(orv::translationLock());
    return modules_->find(instance);
}

bool CTranslationManager::RemoveModule(orv::ModuleHandle instance) {
    const orv::TranslationGuard guard(orv::translationLock());
    const CTranslationModule* module = modules_->find(instance);
    orv::translationsChanged();
    return std::erase_if(modules_->all, [&](const auto& one) { return one.get() == module; }) != 0;
}

void CTranslationManager::SetLanguage(const CString& language) {
    if (language.IsEmpty()) return;
    const orv::TranslationGuard guard(orv::translationLock());
    modules_->language = language;
    for (const auto& module : modules_->all)
        module->state_->setLanguage(language);
}

void CTranslationManager::SetPrintLanguage(const CString& language) {
    const orv::TranslationGuard guard(orv::translationLock());
    if (!language.IsEmpty()) modules_->printLanguage = language;
}

CString CTranslationManager::GetActualLanguage() {
    const orv::TranslationGuard guard(orv::translationLock());
    const CTranslationModule* module = modules_->find(nullptr);
    if (module == nullptr && !modules_->all.empty()) module = modules_->all.front().get();
    return module != nullptr ? module->state_->language() : CString(L"DE");
}

CString CTranslationManager::GetActualPrintLanguage() {
    const orv::TranslationGuard guard(orv::translationLock());
    const CTranslationModule* module = modules_->find(nullptr);
    if (module == nullptr && !modules_->all.empty()) module = modules_->all.front().get();
    if (module == nullptr) return L"DE";
    return modules_->printLanguage.IsEmpty() ? module->state_->language()
                                             : module->state_->findBestLanguage(modules_->printLanguage);
}

void CTranslationManager::ResetLanguage() {
    const orv::TranslationGuard guard(orv::translationLock());
    modules_->language.Empty();
    modules_->printLanguage.Empty();
    for (const auto& module : modules_->all)
        module->state_->setLanguage(CString());
}

void CTranslationManager::Reload() {
    const orv::TranslationGuard guard(orv::translationLock());
    for (const auto& module : modules_->all)
        module->state_->reload();
}

CString CTranslationManager::GetDataText(const wchar_t* text, CTranslationModule* module) {
    const orv::TranslationGuard guard(orv::translationLock());
    orv::TranslationState& state = *(module != nullptr ? *module : modules_->host()).state_;
    const CString& print = modules_->printLanguage;
    return state.translate(orv::viewOf(text), print.IsEmpty() ? state.language() : state.findBestLanguage(print));
}

CTranslationModule& CTranslationManager::LibraryModule() {
    const orv::TranslationGuard guard(orv::translationLock());
    if (orv::libraryHandle() != nullptr) {
        CTranslationModule& library = modules_->findOrAdd(orv::libraryHandle(), orv::libraryPath);
        if (library.state_->hasWordbooks()) return library;
    }
    return modules_->host();
}

CTranslationModule& CTranslationManager::hostModule() {
    const orv::TranslationGuard guard(orv::translationLock());
    return modules_->host();
}
