// Characters of strings in pages: made by the thousand, without an allocation for each.
//
// A string that has such characters never writes into them: its capacity is below 0, the distance from the page. As
// long as no other string shares them nothing is counted (StringData::kAlone), and the page knows when that has
// changed: a whole run of pages can then be released without a look at its texts.
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

inline std::size_t bytesInPage(const StringData& data) {
    return MemoryPages::rounded(bytesOfText(static_cast<std::size_t>(data.length)));
}

inline void releaseFromPage(StringData& data) noexcept { releaseBytes(pageOf(data), bytesInPage(data)); }

/// Before a text of the page has more than one reference.
inline void tellShared(MemoryPage& page) noexcept {
    if (!page.isShared.load(std::memory_order_relaxed)) page.isShared.store(true, std::memory_order_relaxed);
}

/// One more reference to a text that was alone.
void shareFromPage(StringData& data) noexcept;

/// Writes a text that is not empty, and alone, into the piece that was made last, so far from its page. Of the source
/// `readable` characters may be read.
inline wchar_t* writeText(void* piece, std::uint32_t offset, WideView text, std::size_t readable) {
    auto* data = new (piece)
        StringData{StringData::kAlone, static_cast<std::int32_t>(text.size()), -static_cast<std::int32_t>(offset)};
    auto* characters = reinterpret_cast<wchar_t*>(data + 1);
    constexpr std::size_t kAtOnce = MemoryPages::kSlack / sizeof(wchar_t);
    if (text.size() <= kAtOnce && readable >= kAtOnce) {  // whatever the length: no branch depends on it
        for (std::size_t i = 0; i < kAtOnce; i += 8)
            _mm_storeu_si128(reinterpret_cast<__m128i*>(characters + i), detail::load8(text.data() + i));
    } else {
        copyUnits(characters, text.data(), text.size());
    }
    characters[text.size()] = 0;
    return characters;
}

/// A copy of a text; a long one is on the heap.
wchar_t* makeText(MemoryPages& pages, WideView text);

}  // namespace orv
