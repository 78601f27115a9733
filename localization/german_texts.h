// What is shown where nothing is translated: the German text of a key, without its context and in the region's
// spelling.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "framework/hash_index.h"
#include "orv/framework/string.h"

namespace orv {

/// Results by key. A result depends on nothing but its key, so entries are only ever added: reading takes no lock, and
/// results are shared without counting. All of it lives until the process ends, up to kMostEntries.
class GermanTexts {
  public:
    explicit GermanTexts(bool isSwiss) : isSwiss_(isSwiss) {}

    /// For all threads at any time. Null for a key that was never added.
    const CString* find(WideView key, std::uint32_t hash) const noexcept {
        const Table* const table = table_.load(std::memory_order_acquire);
        if (table == nullptr) return nullptr;
        for (std::size_t at = hash & table->mask;; at = (at + 1) & table->mask) {
            const Entry* const entry = table->slots[at].load(std::memory_order_acquire);
            if (entry == nullptr) return nullptr;
            if (entry->hash == hash && sameText(entry->key, key)) return &entry->result;
        }
    }
    /// The result of a key that is not there. Under the translation lock.
    CString add(WideView key, std::uint32_t hash);

  private:
    static constexpr std::size_t kMostEntries = 65'536;  // whoever asks for ever new texts must not fill the memory
    static constexpr std::size_t kLongestKey = 4096;
    struct Entry {
        std::uint32_t hash;
        WideView key;  // in the result's characters, where they are the same, else in `own`
        WideString own;
        CString result;
    };
    struct Table {
        explicit Table(std::size_t size) : mask(size - 1), slots(size) {}
        std::size_t mask;
        std::vector<std::atomic<const Entry*>> slots;
    };
    static void put(Table& table, const Entry* entry);
    void grow();

    const bool isSwiss_;
    std::atomic<Table*> table_{nullptr};
    std::vector<std::unique_ptr<Table>> tables_;  // the smaller ones may still be read: half as many bytes together
    std::vector<std::unique_ptr<const Entry>> entries_;
};

/// Those of the current region; never destroyed.
GermanTexts& germanTexts();

}  // namespace orv
