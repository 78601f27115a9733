// Data trees as XML documents and as JSON.
//
// Two XML forms, both with an element for each node, in order, and attributes for leaves:
//
// - TreeItems::WriteToXml is what other programs read: each attribute is its leaf's value, decoded as one field.
// - orv::writeXml and orv::readXml lose nothing. Attributes hold the values as they are stored. What XML cannot hold so
//   stands in names of the namespace "urn:orvbase:tree":
//
//       <Room xmlns:orv="urn:orvbase:tree" orv:form="simple" Area="12.5">    a node in the XML-like form
//         <orv:leaf name="2. Name" value="x"/>                               from the first leaf on whose name is
//         taken, <orv:leaf name="Area" value="y"/>                                  missing or forbidden in XML
//         <orv:node name="A B"/>                                             a node whose name XML forbids
//       </Room>
//
// Empty node names and characters that XML forbids altogether (controls, halves of surrogate pairs) are refused.
#pragma once

#include <memory>

#include "orv/export.h"
#include "orv/tree_items.h"

namespace TreeItems {

/// The declaration and the root element, through the system's XML service on Windows. Of leaves of one name the last
/// stays. False, with "", for null, without the service, and for names or characters that XML forbids.
ORV_API bool WriteToXml(const CNode* node, CString& out);

}  // namespace TreeItems

namespace orv {

/// Refuses with false and "". `indented` puts each element on a line of its own, unless depth would make that huge.
ORV_API bool writeXml(const CNode& node, CString& out, bool indented = false);

struct XmlReadError {
    CString text;    // "" when there is none
    int line = 0;    // from 1
    int column = 0;  // from 1, in characters
};

/// Reads any XML document: attributes become leaves with their values as they are, texts between tags nameless leaves
/// of one escaped field; comments and instructions are skipped, prefixes belong to names. Null, with the error, for
/// what is no document.
ORV_API std::unique_ptr<CNode> readXml(const CString& text, XmlReadError& error);

/// {"name": "Room", "form": "simple", "leaves": [{"name": "Area", "value": "12.5"}], "children": [...]} with the values
/// as they are stored, and without what is empty or usual. `indented` as in writeXml.
ORV_API CString toJson(const CNode& node, bool indented = false);

}  // namespace orv
