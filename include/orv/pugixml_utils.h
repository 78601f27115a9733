// XML files and texts into documents of pugixml, for hosts that use that library: its headers are theirs to include
// (narrow mode, version 1.13 as the library itself is built with, its own memory functions).
#pragma once

#include "orv/export.h"
#include "orv/framework/string.h"

namespace pugi {
class xml_document;
class xml_node;
}  // namespace pugi

class ORV_API CPugiXmlUtils {
  public:
    /// False when the file does not exist; else true, whatever the document became.
    static bool readInViaFile(const CString& path, pugi::xml_document& document);
    /// False for an empty text; else true, whatever the document became: callers inspect it.
    static bool readInViaXmlString(const CString& text, pugi::xml_document& document);
    /// Removes every child; nothing for an empty node. Takes no stack in proportion to the depth.
    static void deleteAllChildren(pugi::xml_node node);
};
