// Finished results by the text that was asked for.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "framework/hash_index.h"
#include "orv/framework/string.h"

namespace orv {

/// Whoever asks for ever new texts must not fill the memory: a full cache starts anew.
inline constexpr std::size_t kMostCachedTexts = 65'536;

template <class Unit>
class TextCache {
  public:
    using View = std::conditional_t<std::is_same_v<Unit, wchar_t>, WideView, std::string_view>;

    /// Null when there is none; valid until the next call of add or clear.
    const CString* find(View key, std::uint32_t hash) const {
        const std::uint32_t at = index_.find(hash, [&](std::uint32_t i) { return isKey(entries_[i].key, key); });
        return at == HashIndex::kNone ? nullptr : &entries_[at].result;
    }
    const CString& add(View key, std::uint32_t hash, const CString& result) {
        if (entries_.size() >= kMostCachedTexts) clear();
        entries_.push_back({Key(key), result});
        index_.add(hash, static_cast<std::uint32_t>(entries_.size() - 1));
        return entries_.back().result;
    }
    void clear() {
        index_.clear();
        entries_.clear();
    }

  private:
    using Key = std::conditional_t<std::is_same_v<Unit, wchar_t>, WideString, std::string>;
    static bool isKey(const Key& own, View key) {
        return own.size() == key.size() && std::memcmp(own.data(), key.data(), key.size() * sizeof(Unit)) == 0;
    }
    struct Entry {
        Key key;
        CString result;
    };

    HashIndex index_;
    std::vector<Entry> entries_;
};

}  // namespace orv
