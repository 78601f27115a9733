// Bracketed nodes and attributes in pages of memory, as readers and copies make them.
#pragma once

#include <memory>

#include "data/item_memory.h"
#include "framework/text_pages.h"
#include "orv/node_format.h"

namespace orv {

/// A new child, which takes over one reference of its name.
CProNodeBase& addNewChild(MemoryPages& pages, CProNodeBase& node, wchar_t* name);

/// A new attribute, which takes over one reference of each text.
void addNewAttribute(MemoryPages& pages, CProNodeBase& node, wchar_t* name, wchar_t* value);
/// With a value of its own, which stands behind it; see writeText.
void addNewAttribute(MemoryPages& pages, CProNodeBase& node, wchar_t* name, WideView value, std::size_t readable);

/// Destroys what a node holds.
void destroyContents(CProNodeBase& node);

}  // namespace orv
