// The XML document form through the system's XML service.
#include <initializer_list>
#include <utility>

#include "data/tree_links.h"
#include "data/xml_names.h"
#include "orv/tree_xml.h"
#include "platform/windows/windows.h"
// after the system's header
#include <msxml.h>
#include <oleauto.h>

namespace {

/// An owned reference to a COM object.
template <class Interface>
class Owned {
  public:
    Owned() = default;
    Owned(Owned&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Owned() {
        if (object_ != nullptr) object_->Release();
    }
    Interface** place() { return &object_; }
    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }

  private:
    Interface* object_ = nullptr;
};

/// The service's own kind of text.
class ServiceText {
  public:
    explicit ServiceText(const CString& text) : text_(SysAllocStringLen(text, static_cast<UINT>(text.GetLength()))) {}
    ServiceText(const ServiceText&) = delete;
    ServiceText& operator=(const ServiceText&) = delete;
    ~ServiceText() { SysFreeString(text_); }
    BSTR get() const { return text_; }

  private:
    BSTR text_;
};

/// COM for this thread, which may have it already.
class Service {
  public:
    Service() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;
    ~Service() {
        if (SUCCEEDED(result_)) CoUninitialize();
    }
    static bool create(Owned<IXMLDOMDocument>& document) {
        for (const wchar_t* name : {L"Msxml2.DOMDocument.6.0", L"Msxml2.DOMDocument.3.0", L"Microsoft.XMLDOM"}) {
            CLSID id;
            if (SUCCEEDED(CLSIDFromProgID(name, &id)) &&
                SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                           reinterpret_cast<void**>(document.place())))) {
                return true;
            }
        }
        return false;
    }

  private:
    HRESULT result_;
};

bool addLeaves(const CNode& node, IXMLDOMElement& element) {
    for (const CLeaf& leaf : orv::leavesOf(node)) {
        const CString value = leaf.GetOnlyValue(L':');
        if (!orv::isXmlName(orv::viewOf(leaf.GetName())) || !orv::isXmlText(orv::viewOf(value))) return false;
        const ServiceText text(value);
        VARIANT variant;
        VariantInit(&variant);
        V_VT(&variant) = VT_BSTR;
        V_BSTR(&variant) = text.get();
        if (FAILED(element.setAttribute(ServiceText(leaf.GetName()).get(), variant))) return false;
    }
    return true;
}

}  // namespace

bool TreeItems::WriteToXml(const CNode* node, CString& out) {
    out.Empty();
    if (node == nullptr) return false;
    const Service service;
    Owned<IXMLDOMDocument> document;
    if (!Service::create(document)) return false;
    Owned<IXMLDOMNode> at;
    bool isGood = SUCCEEDED(document->QueryInterface(IID_IXMLDOMNode, reinterpret_cast<void**>(at.place())));
    orv::walkBranch(
        *node,
        [&](const CNode& one) {
            isGood = isGood && orv::isXmlName(orv::viewOf(one.GetName()));
            if (!isGood) return;
            Owned<IXMLDOMElement> element;
            Owned<IXMLDOMNode> child;
            isGood = SUCCEEDED(document->createElement(ServiceText(one.GetName()).get(), element.place())) &&
                     addLeaves(one, *element.get()) && SUCCEEDED(at->appendChild(element.get(), child.place()));
            at = std::move(child);
        },
        [&](const CNode&) {
            if (!isGood) return;
            Owned<IXMLDOMNode> parent;
            isGood = SUCCEEDED(at->get_parentNode(parent.place()));
            at = std::move(parent);
        });
    if (!isGood) return false;
    Owned<IXMLDOMElement> root;
    BSTR text = nullptr;
    if (FAILED(document->get_documentElement(root.place())) || FAILED(root->get_xml(&text))) return false;
    out = L"<?xml version=\"1.0\" encoding=\"utf-8\"?>";
    out.Append(text, static_cast<int>(SysStringLen(text)));
    SysFreeString(text);
    return true;
}
