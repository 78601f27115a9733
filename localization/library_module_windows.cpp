#include "localization/library_module.h"
#include "platform/program.h"
#include "platform/windows/windows.h"

namespace orv {
namespace {

HMODULE findLibrary() {
    HMODULE library = nullptr;
    constexpr DWORD kAsItIs = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(kAsItIs, reinterpret_cast<const wchar_t*>(&findLibrary), &library);
    return library;
}

}  // namespace

ModuleHandle libraryHandle() {
    static const HMODULE library = findLibrary();
    return library;
}

WideString libraryPath() { return platform::modulePath(libraryHandle()); }

bool sameModule(ModuleHandle a, ModuleHandle b) {
    const auto handleOf = [](ModuleHandle module) { return module != nullptr ? module : GetModuleHandleW(nullptr); };
    return a == b || handleOf(a) == handleOf(b);
}

}  // namespace orv
