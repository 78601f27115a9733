// Bracketed nodes and attributes in pages of memory, as readers and copies make them.
#pragma once

#include <memory>

#include "data/item_memory.h"
#include "framework/cpu.h"
#include "framework/text_pages.h"
#include "orv/node_format.h"

namespace orv {

/// A new child, which takes over one reference of its name.
CProNodeBase& addNewChild(MemoryPages& pages, CProNodeBase& node, wchar_t* name);

/// At a place in a page; takes over one reference of each text.
inline void addAttributeAt(void* place, CProNodeBase& node, wchar_t* name, wchar_t* value) {
    std::unique_ptr<CProAttBase> made(::new (place) CProAttBase(StringAccess::adopt(name), StringAccess::adopt(value)));
    node.attributes.AddTail(made.get());
    made.release();
}

/// A new attribute, which takes over one reference of each text.
inline void addNewAttribute(MemoryPages& pages, CProNodeBase& node, wchar_t* name, wchar_t* value) {
    std::uint32_t offset = 0;
    addAttributeAt(placeItem<CProAttBase>(pages, offset), node, name, value);
}

/// With a value of its own, which stands behind it; see writeText.
ORV_KERNEL_INLINE void addNewAttribute(MemoryPages& pages, CProNodeBase& node, wchar_t* name, WideView value,
                                       std::size_t readable) {
    const std::size_t bytes = bytesOfText(value.size());
    if (value.empty() || kPlacedBytes<CProAttBase> + bytes > MemoryPages::kLargestPiece) {
        return addNewAttribute(pages, node, name, makeText(pages, value));
    }
    std::uint32_t offset = 0;
    void* const place = placeItem<CProAttBase>(pages, offset, bytes);
    char* const behind = static_cast<char*>(place) - sizeof(ItemPlace) + kPlacedBytes<CProAttBase>;
    const std::uint32_t textOffset = offset + static_cast<std::uint32_t>(kPlacedBytes<CProAttBase>);
    addAttributeAt(place, node, name, writeText(behind, textOffset, value, readable));
}

/// Destroys what a node holds.
void destroyContents(CProNodeBase& node);

}  // namespace orv
