#include <sys/mman.h>
#include <unistd.h>

#include <new>

#include "support/guarded_text.h"

GuardedText::GuardedText(orv::WideView text) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const std::size_t readable = (bytes + page - 1) / page * page;
    size_ = readable + page;
    pages_ = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages_ == MAP_FAILED) throw std::bad_alloc();
    auto* guard = static_cast<char*>(pages_) + readable;
    if (mprotect(guard, page, PROT_NONE) != 0) throw std::bad_alloc();
    characters_ = reinterpret_cast<wchar_t*>(guard) - text.size() - 1;
    orv::WideTraits::copy(characters_, text.data(), text.size());
    characters_[text.size()] = 0;
}

GuardedText::~GuardedText() { munmap(pages_, size_); }
