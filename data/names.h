// The names that one reader meets. They repeat, mostly in the same order.
#pragma once

#include <array>
#include <cstdint>

#include "data/name_table.h"
#include "framework/cpu.h"
#include "framework/text_pages.h"

namespace orv {

class Names {
  public:
    explicit Names(MemoryPages& pages) : pages_(pages) {}

    /// The lasting text of a name if that is what came behind the last one before; else null.
    wchar_t* expected(WideView name) {
        Slot* const slot = last_->following;
        if (slot == nullptr || !isName(slot->text, name)) return nullptr;
        last_ = slot;
        return slot->text;
    }
    /// The lasting text of a name, or null.
    wchar_t* lasting(WideView name) {
        wchar_t* const found = expected(name);
        return found != nullptr ? found : find(name);
    }
    /// The same, or else a text of its own.
    ORV_KERNEL_INLINE wchar_t* get(WideView name) {
        wchar_t* const found = expected(name);
        return found != nullptr ? found : findOrMake(name);
    }

  private:
    struct Slot {
        wchar_t* text = nullptr;
        Slot* following = nullptr;  // what came next, the last time
    };
    static constexpr unsigned kSlotBits = 7;

    static bool isName(const wchar_t* text, WideView name) {
        return static_cast<std::size_t>(StringAccess::dataOf(text)->length) == name.size() &&
               equalUnits(text, name.data(), name.size());
    }
    static std::size_t slotOf(WideView name) {
        const std::uint64_t some = name.front() | std::uint64_t{name.back()} << 16 |
                                   std::uint64_t{name[name.size() / 2]} << 32 | std::uint64_t{name.size()} << 48;
        return some * 0x9E37'79B9'7F4A'7C15 >> (64 - kSlotBits);  // the multiplier of Fibonacci hashing
    }
    wchar_t* findOrMake(WideView name) {
        wchar_t* const found = find(name);
        return found != nullptr ? found : makeText(pages_, name);
    }
    wchar_t* find(WideView name) {
        if (name.empty()) return const_cast<wchar_t*>(emptyString());
        // Some node's: readers of lines do not look for a CR in what they expect.
        if (findUnit(name.data(), name.size(), L'\r') != name.size()) return nullptr;
        Slot& slot = slots_[slotOf(name)];
        if (slot.text == nullptr || !isName(slot.text, name)) {
            wchar_t* const found = lastingName(name);
            if (found == nullptr) return nullptr;
            slot.text = found;
        }
        last_->following = &slot;
        last_ = &slot;
        return slot.text;
    }

    MemoryPages& pages_;
    std::array<Slot, std::size_t{1} << kSlotBits> slots_{};
    Slot* last_ = &slots_[0];
};

}  // namespace orv
