#include "framework/text_pages.h"

namespace orv {

// Several threads may copy at once.
void shareFromPage(StringData& data) noexcept {
    tellShared(*pageOf(data));
    std::int32_t alone = StringData::kAlone;
    if (!data.references.compare_exchange_strong(alone, 2, std::memory_order_relaxed)) {
        data.references.fetch_add(1, std::memory_order_relaxed);
    }
}

wchar_t* makeText(MemoryPages& pages, WideView text) {
    if (text.empty()) return const_cast<wchar_t*>(emptyString());
    if (bytesOfText(text.size()) <= MemoryPages::kLargestPiece) {
        std::uint32_t offset = 0;
        void* const piece = pages.allocate(bytesOfText(text.size()), offset);
        return writeText(piece, offset, text, text.size());
    }
    if (text.size() > static_cast<std::size_t>(kMaximumTextLength)) throw std::bad_alloc();
    wchar_t* const characters = allocateText(static_cast<int>(text.size()));
    StringAccess::dataOf(characters)->length = static_cast<std::int32_t>(text.size());
    WideTraits::copy(characters, text.data(), text.size());
    characters[text.size()] = 0;
    return characters;
}

}  // namespace orv
