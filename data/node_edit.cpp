// Editing and navigation: nodes and attributes behave alike, so each rule is written once for any list of pointers.
#include <memory>
#include <vector>

#include "data/batches.h"
#include "data/node_memory.h"

namespace {

template <class Entry>
using EntryList = CList<Entry*, Entry*>;

template <class Entry>
Entry* addTail(EntryList<Entry>& list, Entry* entry) {
    if (entry != nullptr) list.AddTail(entry);
    return entry;
}

template <class Entry>
Entry* addTail(EntryList<Entry>& list, std::unique_ptr<Entry> entry) {
    list.AddTail(entry.get());
    return entry.release();
}

template <class Entry>
POSITION positionOf(const EntryList<Entry>& list, const Entry* entry) {
    return list.Find(const_cast<Entry*>(entry));
}

template <class Entry>
Entry* insertAfter(EntryList<Entry>& list, Entry* entry, const Entry* after) {
    if (entry == nullptr) return nullptr;
    const POSITION at = after == nullptr ? nullptr : positionOf(list, after);
    if (at == nullptr) {
        list.AddHead(entry);
    } else {
        list.InsertAfter(at, entry);
    }
    return entry;
}

template <class Entry>
Entry* insertAfter(EntryList<Entry>& list, std::unique_ptr<Entry> entry, const Entry* after) {
    insertAfter(list, entry.get(), after);
    return entry.release();
}

template <class Entry>
bool takeOut(EntryList<Entry>& list, Entry* entry, bool keep) {
    const POSITION at = positionOf(list, entry);
    if (at == nullptr || entry == nullptr) return false;
    list.RemoveAt(at);
    if (!keep) delete entry;
    return true;
}

template <class Entry>
POSITION before(const EntryList<Entry>& list, POSITION at) {
    list.GetPrev(at);
    return at;
}

template <class Entry>
void exchange(EntryList<Entry>& list, Entry* a, Entry* b) {
    const POSITION atA = a != nullptr ? positionOf(list, a) : nullptr;
    const POSITION atB = b != nullptr ? positionOf(list, b) : nullptr;
    if (a == b || (a != nullptr && atA == nullptr) || (b != nullptr && atB == nullptr)) return;
    if (a == nullptr) {
        list.RemoveAt(atB);
        list.AddHead(b);
        return;
    }
    if (b == nullptr) {
        list.RemoveAt(atA);
        list.AddTail(a);
        return;
    }
    const POSITION beforeA = before(list, atA);
    const POSITION beforeB = before(list, atB);
    if (beforeA == atB || beforeB == atA) {
        list.SetAt(atA, b);
        list.SetAt(atB, a);
        return;
    }
    // ODDITY(node-exchange-head): exchanged with the head, an entry goes to the tail and not to the head, while the old
    // head takes its place. Pinned by Nodes.Exchange.
    list.RemoveAt(atA);
    list.RemoveAt(atB);
    list.InsertAfter(beforeB, a);  // null means the tail
    list.InsertAfter(beforeA, b);
}

template <class Entry>
Entry* entryAt(const EntryList<Entry>& list, int index) {
    const POSITION at = list.FindIndex(index);
    return at != nullptr ? list.GetAt(at) : nullptr;
}

/// The first entry of that name behind `after` (null: from the start).
template <class Entry>
Entry* findNext(const EntryList<Entry>& list, const wchar_t* name, const Entry* after) {
    if (name == nullptr) return nullptr;
    POSITION at = list.GetHeadPosition();
    if (after != nullptr) {
        at = positionOf(list, after);
        if (at == nullptr) return nullptr;
        list.GetNext(at);
    }
    while (at != nullptr) {
        Entry* entry = list.GetNext(at);
        if (entry != nullptr && entry->name == name) return entry;
    }
    return nullptr;
}

}  // namespace

CProNodeBase::~CProNodeBase() { orv::destroyContents(*this); }

CProNodeBase& CProNodeBase::operator=(const CProNodeBase& other) {
    if (this == &other) return *this;
    struct Step {
        const CProNodeBase* from;
        CProNodeBase* to;
        POSITION child;
    };
    CProNodeBase copy;  // first all of it: `other` may be above or below this node
    orv::MemoryPages pages;
    orv::SharedTexts texts;
    std::vector<Step> path;
    const auto enter = [&](const CProNodeBase& from, CProNodeBase& to) {
        for (POSITION at = from.attributes.GetHeadPosition(); at != nullptr;) {
            const CProAttBase* attribute = from.attributes.GetNext(at);
            if (attribute == nullptr) continue;
            orv::askAhead(attribute);
            wchar_t* const attributeName = texts.share(attribute->name);
            orv::addNewAttribute(pages, to, attributeName, texts.share(attribute->value));
        }
        path.push_back({&from, &to, from.children.GetHeadPosition()});
    };
    enter(other, copy);
    while (!path.empty()) {
        Step& step = path.back();
        if (step.child == nullptr) {
            path.pop_back();
        } else if (const CProNodeBase* child = step.from->children.GetNext(step.child); child != nullptr) {
            enter(*child, orv::addNewChild(pages, *step.to, texts.share(child->name)));
        }
    }
    name = other.name;
    // ODDITY(node-assignment-appends): what this node had stays, and the copies follow it. Pinned by Nodes.Assignment.
    while (!copy.children.IsEmpty()) {
        children.AddTail(copy.children.GetHead());
        copy.children.RemoveHead();
    }
    while (!copy.attributes.IsEmpty()) {
        attributes.AddTail(copy.attributes.GetHead());
        copy.attributes.RemoveHead();
    }
    return *this;
}

CProNodeBase* CProNodeBase::AddChild(CProNodeBase* node) { return addTail(children, node); }

CProNodeBase* CProNodeBase::AddChild(const CString& nodeName) {
    return addTail(children, std::make_unique<CProNodeBase>(nodeName));
}

CProAttBase* CProNodeBase::AddAttr(CProAttBase* attribute) { return addTail(attributes, attribute); }

CProAttBase* CProNodeBase::AddAttr(const CString& attributeName, const CString& attributeValue) {
    return addTail(attributes, std::make_unique<CProAttBase>(attributeName, attributeValue));
}

CProNodeBase* CProNodeBase::InsertChild(CProNodeBase* node, CProNodeBase* after) {
    return insertAfter(children, node, after);
}

CProNodeBase* CProNodeBase::InsertChild(const CString& nodeName, CProNodeBase* after) {
    return insertAfter(children, std::make_unique<CProNodeBase>(nodeName), after);
}

CProAttBase* CProNodeBase::InsertAttr(CProAttBase* attribute, CProAttBase* after) {
    return insertAfter(attributes, attribute, after);
}

CProAttBase* CProNodeBase::InsertAttr(const CString& attributeName, const CString& attributeValue, CProAttBase* after) {
    return insertAfter(attributes, std::make_unique<CProAttBase>(attributeName, attributeValue), after);
}

bool CProNodeBase::DeleteChild(CProNodeBase* node, bool keep) { return takeOut(children, node, keep); }

bool CProNodeBase::DeleteAttr(CProAttBase* attribute, bool keep) { return takeOut(attributes, attribute, keep); }

void CProNodeBase::ExchangeChilds(CProNodeBase* a, CProNodeBase* b) { exchange(children, a, b); }

void CProNodeBase::ExchangeAttrs(CProAttBase* a, CProAttBase* b) { exchange(attributes, a, b); }

POSITION CProNodeBase::GetPositionOfChild(const CProNodeBase* node) const {
    return node != nullptr ? positionOf(children, node) : nullptr;
}

POSITION CProNodeBase::GetPositionOfAttr(const CProAttBase* attribute) const {
    return attribute != nullptr ? positionOf(attributes, attribute) : nullptr;
}

CProNodeBase* CProNodeBase::findChild(int index) const { return entryAt(children, index); }

CProAttBase* CProNodeBase::findAttr(int index) const { return entryAt(attributes, index); }

CProNodeBase* CProNodeBase::findChild(const wchar_t* nodeName) const {
    return findNext<CProNodeBase>(children, nodeName, nullptr);
}

CProNodeBase* CProNodeBase::findChild(const wchar_t* nodeName, CProNodeBase*& cursor) const {
    cursor = findNext<CProNodeBase>(children, nodeName, cursor);
    return cursor;
}

CProAttBase* CProNodeBase::findAttr(const wchar_t* attributeName, CProAttBase* after) const {
    return findNext<CProAttBase>(attributes, attributeName, after);
}
