#include "data/name_table.h"

#include <array>
#include <atomic>

#include "framework/string_access.h"
#include "framework/vector.h"

namespace orv {
namespace {

constexpr std::size_t kMostNames = 4096;
constexpr std::size_t kSlots = 2 * kMostNames;
constexpr std::size_t kLongestName = 64;

std::array<std::atomic<wchar_t*>, kSlots> slots{};  // a slot is filled once
std::atomic<std::size_t> count{0};

std::size_t hashOf(WideView name) {
    std::size_t hash = 0xCBF2'9CE4'8422'2325;  // FNV-1a over characters
    for (const wchar_t ch : name)
        hash = (hash ^ ch) * 0x100'0000'01B3;
    return hash ^ hash >> 32;
}

bool isName(const wchar_t* text, WideView name) {
    return static_cast<std::size_t>(StringAccess::dataOf(text)->length) == name.size() &&
           equalUnits(text, name.data(), name.size());
}

}  // namespace

wchar_t* lastingName(WideView name) {
    if (name.empty()) return const_cast<wchar_t*>(emptyString());
    if (name.size() > kLongestName) return nullptr;
    CString made;
    for (std::size_t at = hashOf(name) % kSlots;; at = (at + 1) % kSlots) {
        wchar_t* found = slots[at].load(std::memory_order_acquire);
        if (found == nullptr) {
            if (made.IsEmpty()) {
                // Half of the slots stay free, so that each search ends.
                if (count.fetch_add(1, std::memory_order_relaxed) >= kMostNames) {
                    count.fetch_sub(1, std::memory_order_relaxed);
                    return nullptr;
                }
                made = CString(name.data(), static_cast<int>(name.size()));
                StringAccess::makeImmortal(made);
            }
            wchar_t* const mine = StringAccess::charactersOf(made);
            if (slots[at].compare_exchange_strong(found, mine, std::memory_order_acq_rel)) return mine;
        }
        if (isName(found, name)) {
            if (made.IsEmpty()) return found;
            // Another thread was quicker.
            StringAccess::dataOf(made)->references.store(1, std::memory_order_relaxed);
            count.fetch_sub(1, std::memory_order_relaxed);
            return found;
        }
    }
}

}  // namespace orv
