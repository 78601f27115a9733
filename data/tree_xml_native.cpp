// The XML document form where there is no XML service: the same text by the packaged library.
#include <string>
#include <unordered_map>

#include "data/tree_links.h"
#include "data/tree_xml.h"
#include "data/xml_names.h"
#include "framework/utf8.h"
#include "orv/tree_xml.h"

namespace {

bool addElement(const CNode& node, pugi::xml_node& at) {
    if (!orv::isXmlName(orv::viewOf(node.GetName()))) return false;
    at = at.append_child(orv::wideToUtf8(orv::viewOf(node.GetName())).c_str());
    std::unordered_map<std::string, pugi::xml_attribute> attributes;  // a name that comes again replaces its value
    for (const CLeaf& leaf : orv::leavesOf(node)) {
        const CString value = leaf.GetOnlyValue(L':');
        if (!orv::isXmlName(orv::viewOf(leaf.GetName())) || !orv::isXmlText(orv::viewOf(value))) return false;
        const std::string name = orv::wideToUtf8(orv::viewOf(leaf.GetName()));
        pugi::xml_attribute& attribute = attributes[name];
        if (!attribute) attribute = at.append_attribute(name.c_str());
        attribute.set_value(orv::wideToUtf8(orv::viewOf(value)).c_str());
    }
    return true;
}

}  // namespace

bool TreeItems::WriteToXml(const CNode* node, CString& out) {
    out.Empty();
    if (node == nullptr) return false;
    pugi::xml_document document;
    pugi::xml_node at = document;
    bool isGood = true;
    orv::walkBranch(
        *node, [&](const CNode& one) { isGood = isGood && addElement(one, at); },
        [&](const CNode&) {
            if (isGood) at = at.parent();
        });
    if (isGood) out = orv::xmlTextOf(document, false);
    return isGood;
}
