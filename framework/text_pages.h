// Characters of strings in pages: made by the thousand, without an allocation for each. A string that has such
// characters never writes into them: its capacity is below 0, the distance from the page.
#pragma once

#include <new>

#include "framework/memory_pages.h"
#include "framework/string_access.h"
#include "framework/string_data.h"
#include "framework/vector.h"
#include "orv/wide.h"

namespace orv {

inline MemoryPage* pageOf(StringData& data) {
    return MemoryPage::of(&data, static_cast<std::uint32_t>(-data.capacity));
}

/// A copy of a text, with one reference.
inline wchar_t* makeText(MemoryPages& pages, WideView text) {
    if (text.empty()) return const_cast<wchar_t*>(emptyString());
    const std::size_t bytes = sizeof(StringData) + (text.size() + 1) * sizeof(wchar_t);
    wchar_t* characters = nullptr;
    if (bytes <= MemoryPages::kLargestPiece) {
        std::uint32_t offset = 0;
        void* const piece = pages.allocate(bytes, offset);
        auto* data =
            new (piece) StringData{1, static_cast<std::int32_t>(text.size()), -static_cast<std::int32_t>(offset)};
        characters = reinterpret_cast<wchar_t*>(data + 1);
    } else {
        if (text.size() > static_cast<std::size_t>(kMaximumTextLength)) throw std::bad_alloc();
        characters = allocateText(static_cast<int>(text.size()));
        StringAccess::dataOf(characters)->length = static_cast<std::int32_t>(text.size());
    }
    copyUnits(characters, text.data(), text.size());
    characters[text.size()] = 0;
    return characters;
}

}  // namespace orv
