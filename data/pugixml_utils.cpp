#include "orv/pugixml_utils.h"

#include <cstdint>
#include <pugixml.hpp>
#include <vector>

#include "platform/files.h"

bool CPugiXmlUtils::readInViaFile(const CString& path, pugi::xml_document& document) {
    orv::platform::File file;
    if (!file.openForReading(path)) return false;
    const std::int64_t size = file.size();
    std::vector<char> bytes(size > 0 ? static_cast<std::size_t>(size) : 0);
    const std::ptrdiff_t read = file.read(bytes.data(), bytes.size());
    document.load_buffer(bytes.data(), read > 0 ? static_cast<std::size_t>(read) : 0);
    return true;
}

bool CPugiXmlUtils::readInViaXmlString(const CString& text, pugi::xml_document& document) {
    if (text.IsEmpty()) return false;
    // ODDITY(pugixml-text-result): true also for what is no XML. Pinned by PugiXml.Reads.
    document.load_buffer(text.GetString(), static_cast<std::size_t>(text.GetLength()) * sizeof(wchar_t),
                         pugi::parse_default, pugi::encoding_utf16_le);
    return true;
}

void CPugiXmlUtils::deleteAllChildren(pugi::xml_node node) {
    // From the ends of the branches: removing a branch would recurse.
    pugi::xml_node at = node;
    while (node.first_child()) {
        if (const pugi::xml_node child = at.first_child()) {
            at = child;
        } else {
            pugi::xml_node parent = at.parent();
            parent.remove_child(at);
            at = parent;
        }
    }
}
