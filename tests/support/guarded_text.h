// Texts that end, or begin, exactly where memory does: reading or writing one character too far crashes.
#pragma once

#include <cstddef>

#include "orv/wide.h"

class GuardedText {
  public:
    explicit GuardedText(orv::WideView text);
    GuardedText(const GuardedText&) = delete;
    GuardedText& operator=(const GuardedText&) = delete;
    ~GuardedText();

    /// NUL-terminated; the NUL is the last character before an unreadable page.
    wchar_t* characters() const { return characters_; }

  private:
    void* pages_;
    std::size_t size_;
    wchar_t* characters_;
};
