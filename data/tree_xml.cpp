// The pair of XML writing and reading that loses nothing.
#include "data/tree_xml.h"

#include <algorithm>
#include <new>
#include <set>
#include <string>
#include <string_view>

#include "data/tree_links.h"
#include "data/xml_names.h"
#include "framework/utf8.h"
#include "orv/tree_xml.h"

namespace orv {
namespace {

constexpr const char* kNamespace = "urn:orvbase:tree";
constexpr const char* kNamespaceAttribute = "xmlns:orv";
constexpr const char* kForm = "orv:form";
constexpr const char* kSimple = "simple";
constexpr const char* kLeaf = "orv:leaf";
constexpr const char* kNode = "orv:node";

CString textOf(const char* utf8) {
    const WideString wide = utf8ToWide(utf8);
    if (wide.size() > kLongestText) throw std::bad_alloc();
    return {wide.data(), static_cast<int>(wide.size())};
}

struct TextSink : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }
};

/// A name that stands for itself, not for something of XML's own.
bool isPlainName(WideView name) { return isXmlName(name) && name != L"xmlns"; }

class Writer {
  public:
    /// False for what cannot be written.
    bool add(const CNode& root, pugi::xml_document& document) {
        pugi::xml_node at = document;
        bool isGood = true;
        walkBranch(
            root,
            [&](const CNode& node) {
                const WideView name = viewOf(node.GetName());
                isGood = isGood && !name.empty() && isXmlText(name);
                if (!isGood) return;
                const bool isPlain = isPlainName(name);
                at = at.append_child(isPlain ? wideToUtf8(name).c_str() : kNode);
                if (&node == &root) root_ = at;
                if (!isPlain) own(at.append_attribute("name"), name);
                if (node.isSimpleXML()) own(at.append_attribute(kForm), WideView(L"simple"));
                isGood = addLeaves(node, at, isPlain);
            },
            [&](const CNode&) {
                if (isGood) at = at.parent();
            });
        if (isGood && isOwnUsed_) root_.prepend_attribute(kNamespaceAttribute).set_value(kNamespace);
        return isGood;
    }

  private:
    void own(pugi::xml_attribute attribute, WideView value) {
        isOwnUsed_ = true;
        attribute.set_value(wideToUtf8(value).c_str());
    }

    bool addLeaves(const CNode& node, pugi::xml_node element, bool isPlainNode) {
        std::set<WideView> taken;
        bool isPlain = isPlainNode;  // the others' attributes are the library's
        for (const CLeaf& leaf : leavesOf(node)) {
            const WideView name = viewOf(leaf.GetName());
            const WideView value = viewOf(leaf.GetRawData());
            if (!isXmlText(name) || !isXmlText(value)) return false;
            isPlain = isPlain && isPlainName(name) && taken.insert(name).second;
            if (isPlain) {
                element.append_attribute(wideToUtf8(name).c_str()).set_value(wideToUtf8(value).c_str());
            } else {
                pugi::xml_node inside = element.append_child(kLeaf);
                own(inside.append_attribute("name"), name);
                own(inside.append_attribute("value"), value);
            }
        }
        return true;
    }

    pugi::xml_node root_;
    bool isOwnUsed_ = false;
};

bool isOwn(const char* name, const char* own) { return std::string_view(name) == own; }

/// The node that an element is, without its children.
void readElement(pugi::xml_node element, CNode& node) {
    const bool isPlain = !isOwn(element.name(), kNode);
    node.SetName(textOf(isPlain ? element.name() : element.attribute("name").value()));
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const char* name = attribute.name();
        if (isOwn(name, kForm)) {
            node.setSimpleXML(isOwn(attribute.value(), kSimple));
        } else if (isPlain && !(isOwn(name, kNamespaceAttribute) && isOwn(attribute.value(), kNamespace))) {
            node.AddLeaf(new CLeaf(textOf(name), textOf(attribute.value())));
        }
    }
}

void readElements(pugi::xml_node root, CNode& rootNode) {
    CNode* node = &rootNode;
    readElement(root, *node);
    pugi::xml_node at = root.first_child();
    pugi::xml_node parent = root;
    for (;;) {
        while (!at) {
            if (parent == root) return;
            at = parent.next_sibling();
            parent = parent.parent();
            node = node->GetParent();
        }
        if (at.type() == pugi::node_element && !isOwn(at.name(), kLeaf)) {
            auto child = std::make_unique<CNode>();
            readElement(at, *child);
            node = node->AddChild(child.release());
            parent = at;
            at = at.first_child();
            continue;
        }
        if (at.type() == pugi::node_element) {
            node->AddLeaf(new CLeaf(textOf(at.attribute("name").value()), textOf(at.attribute("value").value())));
        } else if (at.type() == pugi::node_pcdata || at.type() == pugi::node_cdata) {
            node->AddLeaf(CString(), textOf(at.value()));
        }
        at = at.next_sibling();
    }
}

}  // namespace

CString xmlTextOf(const pugi::xml_document& document, bool indented) {
    TextSink sink;
    sink.text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>";
    if (indented) sink.text += "\n";
    document.document_element().print(sink, "\t", indented ? pugi::format_indent : pugi::format_raw,
                                      pugi::encoding_utf8);
    return textOf(sink.text.c_str());
}

bool writeXml(const CNode& node, CString& out, bool indented) {
    pugi::xml_document document;
    out.Empty();
    if (!Writer().add(node, document)) return false;
    out = xmlTextOf(document, indented && node.GetSizeOfBranch(0) < kLongestText / 4);
    return true;
}

std::unique_ptr<CNode> readXml(const CString& text, XmlReadError& error) {
    const std::string utf8 = wideToUtf8(viewOf(text));
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(utf8.data(), utf8.size(), pugi::parse_default, pugi::encoding_utf8);
    error = XmlReadError();
    const pugi::xml_node element = document.document_element();
    if (!result || !element) {
        const auto end =
            utf8.begin() + std::min<std::ptrdiff_t>(result.offset, static_cast<std::ptrdiff_t>(utf8.size()));
        const auto lineStart = std::find(std::make_reverse_iterator(end), utf8.rend(), '\n').base();
        error.text = textOf(result.description());
        error.line = 1 + static_cast<int>(std::count(utf8.begin(), end, '\n'));
        error.column = 1 + static_cast<int>(std::count_if(lineStart, end, [](char ch) { return (ch & 0xC0) != 0x80; }));
        return nullptr;
    }
    auto root = std::make_unique<CNode>();
    readElements(element, *root);
    return root;
}

}  // namespace orv
