// Positions found by hashed keys: open addressing, eight bytes a slot. The keys themselves stay with the owner.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include "framework/vector.h"
#include "orv/wide.h"

namespace orv {

/// A 32-bit hash of bytes: each word of eight is multiplied for itself, so that no step waits for the one before.
inline std::uint32_t hashBytes(const void* bytes, std::size_t count) {
    constexpr std::uint64_t kOdd = 0x9E37'79B9'7F4A'7C15;  // 2^64 / golden ratio
    constexpr std::uint64_t kOther = 0xC2B2'AE3D'27D4'EB4F;
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    const auto* from = static_cast<const char*>(bytes);
    const auto word = [from](std::size_t at) {
        std::uint64_t loaded;
        std::memcpy(&loaded, from + at, kWord);
        return loaded;
    };
    const auto mixed = [](std::uint64_t value) {
        const std::uint64_t product = value * kOdd;
        return product ^ (product >> 32);
    };
    std::uint64_t sum = count * kOther;
    if (count >= kWord) {
        for (std::size_t at = 0; at + kWord <= count; at += kWord)
            sum += mixed(word(at) + at * kOther);
        sum += mixed(word(count - kWord) ^ kOther);
    } else if (count != 0) {
        std::uint64_t last = 0;
        std::memcpy(&last, from, count);
        sum += mixed(last + 1);
    }
    sum = (sum ^ (sum >> 29)) * kOther;
    return static_cast<std::uint32_t>(sum >> 32);
}

inline std::uint32_t hashText(WideView text) { return hashBytes(text.data(), text.size() * sizeof(wchar_t)); }

/// As ==, which goes unit by unit.
inline bool sameText(WideView a, WideView b) {
    return a.size() == b.size() && equalUnits(a.data(), b.data(), a.size());
}

class HashIndex {
  public:
    static constexpr std::uint32_t kNone = 0xFFFF'FFFF;

    void clear() {
        slots_.clear();
        count_ = 0;
    }
    /// Room for so many keys without moving any.
    void reserve(std::size_t keys) {
        std::size_t slots = kFewest;
        while (slots < keys * 2)
            slots *= 2;
        if (slots > slots_.size()) resize(slots);
    }
    /// The position whose key is the same, or kNone: same(position) decides among equal hashes.
    template <class Same>
    std::uint32_t find(std::uint32_t hash, Same same) const {
        if (slots_.empty()) return kNone;
        for (std::size_t at = hash & mask();; at = (at + 1) & mask()) {
            const Slot slot = slots_[at];
            if (slot.position == kNone || (slot.hash == hash && same(slot.position))) return slot.position;
        }
    }
    /// Makes a look-up of this hash that comes soon cheaper.
    void prefetch(std::uint32_t hash) const { __builtin_prefetch(&slots_[hash & mask()], 1); }
    /// A key that is not there yet.
    void add(std::uint32_t hash, std::uint32_t position) {
        reserve(++count_);
        put({hash, position});
    }

  private:
    static constexpr std::size_t kFewest = 16;
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t position = kNone;
    };

    std::size_t mask() const { return slots_.size() - 1; }
    void put(Slot slot) {
        std::size_t at = slot.hash & mask();
        while (slots_[at].position != kNone)
            at = (at + 1) & mask();
        slots_[at] = slot;
    }
    void resize(std::size_t slots) {
        std::vector<Slot> old(slots);
        old.swap(slots_);
        for (const Slot& slot : old) {
            if (slot.position != kNone) put(slot);
        }
    }

    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

}  // namespace orv
