#include <windows.h>

#include <new>

#include "support/guarded_text.h"

GuardedText::GuardedText(orv::WideView text) {
    SYSTEM_INFO system;
    GetSystemInfo(&system);
    const std::size_t page = system.dwPageSize;
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const std::size_t readable = (bytes + page - 1) / page * page;
    size_ = readable + page;
    pages_ = VirtualAlloc(nullptr, size_, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (pages_ == nullptr) throw std::bad_alloc();
    auto* guard = static_cast<char*>(pages_) + readable;
    DWORD before = 0;
    if (VirtualProtect(guard, page, PAGE_NOACCESS, &before) == 0) throw std::bad_alloc();
    characters_ = reinterpret_cast<wchar_t*>(guard) - text.size() - 1;
    orv::WideTraits::copy(characters_, text.data(), text.size());
    characters_[text.size()] = 0;
}

GuardedText::~GuardedText() { VirtualFree(pages_, 0, MEM_RELEASE); }
