// The framework's doubly linked lists: CList<TYPE, ARG_TYPE> with POSITION, and CStringList.
//
// A POSITION names an element and stays good until that element is removed; null means "none" (an end, nothing found).
// It must come from the list it is given to. A null position, or an end of an empty list, where an element is needed
// raises CInvalidArgException. Nodes are allocated in blocks (10 by default) and kept for reuse until RemoveAll().
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

#include "orv/framework/exceptions.h"
#include "orv/framework/string.h"

struct OrvListPosition;  // never defined: a position is looked into by its list alone
using POSITION = OrvListPosition*;

template <class TYPE, class ARG_TYPE = const TYPE&>
class CList {
  public:
    explicit CList(std::intptr_t blockSize = 10) : blockSize_(blockSize > 0 ? blockSize : 10) {}
    CList(const CList&) = delete;
    CList& operator=(const CList&) = delete;
    ~CList() { RemoveAll(); }

    std::intptr_t GetCount() const noexcept { return count_; }
    std::intptr_t GetSize() const noexcept { return count_; }
    bool IsEmpty() const noexcept { return count_ == 0; }

    TYPE& GetHead() { return node(head_)->value; }
    const TYPE& GetHead() const { return node(head_)->value; }
    TYPE& GetTail() { return node(tail_)->value; }
    const TYPE& GetTail() const { return node(tail_)->value; }
    POSITION GetHeadPosition() const noexcept { return position(head_); }
    POSITION GetTailPosition() const noexcept { return position(tail_); }

    /// The element at `position`, which then names the next (previous) one, or null.
    TYPE& GetNext(POSITION& at) { return step(at, &Node::next)->value; }
    const TYPE& GetNext(POSITION& at) const { return step(at, &Node::next)->value; }
    TYPE& GetPrev(POSITION& at) { return step(at, &Node::previous)->value; }
    const TYPE& GetPrev(POSITION& at) const { return step(at, &Node::previous)->value; }
    TYPE& GetAt(POSITION at) { return node(at)->value; }
    const TYPE& GetAt(POSITION at) const { return node(at)->value; }
    void SetAt(POSITION at, ARG_TYPE value) { node(at)->value = value; }

    POSITION AddHead(ARG_TYPE value) { return insert(nullptr, head_, value); }
    POSITION AddTail(ARG_TYPE value) { return insert(tail_, nullptr, value); }
    void AddHead(CList* other) {
        std::intptr_t count = other->GetCount();  // so that a list can be put before itself
        for (POSITION at = other->GetTailPosition(); count > 0; --count)
            AddHead(other->GetPrev(at));
    }
    void AddTail(CList* other) {
        std::intptr_t count = other->GetCount();  // so that a list can be appended to itself
        for (POSITION at = other->GetHeadPosition(); count > 0; --count)
            AddTail(other->GetNext(at));
    }
    /// A null position inserts at the head (before) or the tail (after).
    POSITION InsertBefore(POSITION at, ARG_TYPE value) {
        if (at == nullptr) return AddHead(value);
        return insert(node(at)->previous, node(at), value);
    }
    POSITION InsertAfter(POSITION at, ARG_TYPE value) {
        if (at == nullptr) return AddTail(value);
        return insert(node(at), node(at)->next, value);
    }

    TYPE RemoveHead() { return take(node(head_)); }
    TYPE RemoveTail() { return take(node(tail_)); }
    void RemoveAt(POSITION at) { take(node(at)); }
    void RemoveAll() {
        for (Node* at = head_; at != nullptr;)
            std::exchange(at, at->next)->~Node();
        while (blocks_ != nullptr)
            ::operator delete(std::exchange(blocks_, blocks_->next));
        head_ = tail_ = free_ = nullptr;
        count_ = 0;
    }

    /// The first element equal to `value`, behind `startAfter` when that is given.
    POSITION Find(ARG_TYPE value, POSITION startAfter = nullptr) const {
        for (Node* at = startAfter == nullptr ? head_ : node(startAfter)->next; at != nullptr; at = at->next) {
            if (at->value == value) return position(at);
        }
        return nullptr;
    }
    POSITION FindIndex(std::intptr_t index) const {
        if (index < 0 || index >= count_) return nullptr;
        Node* at = head_;
        while (index-- > 0)
            at = at->next;
        return position(at);
    }

  private:
    struct Node {
        Node* next;
        Node* previous;
        TYPE value;
    };
    // A block's nodes follow it in memory.
    struct alignas(Node) Block {
        Block* next;
    };

    static POSITION position(Node* at) noexcept { return reinterpret_cast<POSITION>(at); }
    static Node* node(Node* at) {
        if (at == nullptr) orv::throwInvalidArgument();
        return at;
    }
    static Node* node(POSITION at) { return node(reinterpret_cast<Node*>(at)); }
    static Node* step(POSITION& at, Node* Node::*direction) {
        Node* here = node(at);
        at = position(here->*direction);
        return here;
    }

    POSITION insert(Node* previous, Node* next, ARG_TYPE value) {
        if (free_ == nullptr) allocateBlock();
        Node* place = free_;
        free_ = place->next;
        Node* made = nullptr;
        try {
            made = new (place) Node{next, previous, value};
        } catch (...) {  // the copy threw: the place stays free
            place->next = free_;
            free_ = place;
            throw;
        }
        (previous == nullptr ? head_ : previous->next) = made;
        (next == nullptr ? tail_ : next->previous) = made;
        ++count_;
        return position(made);
    }
    void allocateBlock() {
        static_assert(alignof(Node) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
        const auto size = static_cast<std::size_t>(blockSize_);
        auto* block = static_cast<Block*>(::operator new(sizeof(Block) + size * sizeof(Node)));
        block->next = blocks_;
        blocks_ = block;
        auto* nodes = reinterpret_cast<Node*>(block + 1);
        for (std::size_t i = size; i > 0; --i) {
            nodes[i - 1].next = free_;
            free_ = &nodes[i - 1];
        }
    }
    TYPE take(Node* gone) {
        TYPE value = std::move(gone->value);
        (gone->previous == nullptr ? head_ : gone->previous->next) = gone->next;
        (gone->next == nullptr ? tail_ : gone->next->previous) = gone->previous;
        gone->~Node();
        gone->next = free_;
        free_ = gone;
        if (--count_ == 0) RemoveAll();
        return value;
    }

    Node* head_ = nullptr;
    Node* tail_ = nullptr;
    Node* free_ = nullptr;
    Block* blocks_ = nullptr;
    std::intptr_t count_ = 0;
    std::intptr_t blockSize_;
};

/// A list of texts.
class CStringList : public CList<CString, const CString&> {
  public:
    explicit CStringList(std::intptr_t blockSize = 10) : CList(blockSize) {}
    using CList::AddHead;
    using CList::AddTail;
    POSITION AddHead(const wchar_t* text) { return CList::AddHead(CString(text)); }
    POSITION AddTail(const wchar_t* text) { return CList::AddTail(CString(text)); }
};
