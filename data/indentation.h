// TABs before lines.
#pragma once

#include <cstddef>

#include "framework/vector.h"

namespace orv {

/// The TABs before a line, mostly as many as before the last one: that is looked at first, so that what stands behind
/// them need not wait until they are counted.
class Indentation {
  public:
    /// The first place that is no TAB, or nearly at `end`.
    const wchar_t* behind(const wchar_t* at, const wchar_t* end) {
        constexpr std::ptrdiff_t kStep = 8;
        while (end - at >= kStep) {
            const unsigned found =
                detail::maskOf(_mm_cmpeq_epi16(detail::load8(at), detail::eightTimes(L'\t')));  // two bits each
            if ((found & (4 * before_ + 3)) == before_) return at + tabs_;
            const std::size_t tabs = detail::firstUnitIn(~found | 1U << (2 * kStep));
            at += tabs;
            if (tabs == kStep) continue;
            tabs_ = tabs;
            before_ = (1U << 2 * tabs) - 1;
            break;
        }
        return at;
    }

  private:
    std::size_t tabs_ = 0;
    unsigned before_ = 0;  // the bits of so many TABs
};

}  // namespace orv
