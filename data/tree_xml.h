// What the two XML forms share.
#pragma once

#include <pugixml.hpp>

#include "orv/tree_items.h"

namespace orv {

/// The declaration and the text of a document's root element.
CString xmlTextOf(const pugi::xml_document& document, bool indented);

}  // namespace orv
