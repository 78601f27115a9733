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

/// What a text takes.
inline std::size_t bytesOfText(std::size_t length) { return sizeof(StringData) + (length + 1) * sizeof(wchar_t); }

/// Writes a text that is not empty, with one reference, into a piece so far from its page.
inline wchar_t* writeText(void* piece, std::uint32_t offset, WideView text) {
    auto* data = new (piece) StringData{1, static_cast<std::int32_t>(text.size()), -static_cast<std::int32_t>(offset)};
    auto* characters = reinterpret_cast<wchar_t*>(data + 1);
    copyUnits(characters, text.data(), text.size());
    characters[text.size()] = 0;
    return characters;
}

/// A copy of a text, with one reference; a long one is on the heap.
wchar_t* makeText(MemoryPages& pages, WideView text);

}  // namespace orv
