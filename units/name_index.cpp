#include "units/name_index.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "units/catalogue.h"

namespace orv {
namespace {

constexpr std::size_t kWord = 4;  // characters at once
constexpr std::uint64_t kFourTimes = 0x0001'0001'0001'0001;
constexpr std::uint64_t kLowerCase = 0x20 * kFourTimes;

std::uint64_t wordAt(const wchar_t* text) {
    std::uint64_t word;
    std::memcpy(&word, text, sizeof word);
    return word;
}

/// Of a name of at least kWord characters: three places tell most names apart.
std::size_t hashOf(WideView name) {
    const std::size_t last = name.size() - kWord;
    const auto mixed = [&](std::size_t at, std::uint64_t odd) { return (wordAt(name.data() + at) | kLowerCase) * odd; };
    constexpr std::size_t kBehindPrefix = 5;  // "eUnit"
    std::uint64_t sum = mixed(last, 0x9E37'79B9'7F4A'7C15) +
                        mixed(std::min(kBehindPrefix, last), 0xC2B2'AE3D'27D4'EB4F) +
                        mixed(last < kWord ? 0 : last - kWord, 0xD6E8'FEB8'6659'FD93) + name.size();
    sum ^= sum >> 32;
    return (sum * 0x9E37'79B9'7F4A'7C15) >> 55;
}

/// `lower` is a name of ours in lower case: letters and digits.
bool isSame(WideView name, const wchar_t* lower) {
    std::uint64_t differs = 0;
    const auto compare = [&](std::size_t at) {
        const std::uint64_t word = wordAt(name.data() + at);
        // A control character is no digit of the other case.
        const std::uint64_t isPrinted = (word | (word << 1)) & (0x40 * kFourTimes);
        differs |= ((word | kLowerCase) ^ wordAt(lower + at)) | (isPrinted ^ (0x40 * kFourTimes));
    };
    for (std::size_t at = 0; at + kWord < name.size(); at += kWord)
        compare(at);
    compare(name.size() - kWord);
    return differs == 0;
}

class NameIndex {
  public:
    NameIndex() {
        const auto rows = unitCatalogue();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            Entry& entry = entries_[i + 1];
            const WideView name(rows[i].enumName);
            entry.unit = rows[i].value;
            entry.length = static_cast<unsigned short>(name.size());
            std::transform(name.begin(), name.end(), entry.lower,
                           [](wchar_t ch) { return ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch | 0x20) : ch; });
            std::size_t at = hashOf(name);
            while (slots_[at] != 0)
                at = (at + 1) % kSlots;
            slots_[at] = static_cast<unsigned char>(i + 1);
        }
    }
    enUnit find(WideView name) const {
        if (name.size() < kWord || name.size() > kLongest) return eUnitUndefined;
        for (std::size_t at = hashOf(name); slots_[at] != 0; at = (at + 1) % kSlots) {
            const Entry& entry = entries_[slots_[at]];
            if (entry.length == name.size() && isSame(name, entry.lower)) return entry.unit;
        }
        return eUnitUndefined;
    }

  private:
    static constexpr std::size_t kSlots = 512;  // what hashOf gives
    static constexpr std::size_t kLongest = 58;
    struct Entry {
        enUnit unit;
        unsigned short length;
        wchar_t lower[kLongest];
    };
    std::array<unsigned char, kSlots> slots_{};  // 0: free
    std::array<Entry, 256> entries_{};
};

}  // namespace

enUnit unitByName(WideView name) {
    static const NameIndex index;
    return index.find(name);
}

}  // namespace orv
