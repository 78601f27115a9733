// The framework's growable arrays: CArray<TYPE, ARG_TYPE> and CStringArray.
//
// Indices count from 0. Access outside 0..GetSize()-1 raises CInvalidArgException and changes nothing, as do negative
// sizes; SetAtGrow and InsertAt lengthen the array instead.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "orv/framework/exceptions.h"
#include "orv/framework/string.h"

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
  public:
    CArray() = default;
    CArray(const CArray&) = delete;
    CArray& operator=(const CArray&) = delete;

    std::intptr_t GetSize() const noexcept { return static_cast<std::intptr_t>(items_.size()); }
    std::intptr_t GetCount() const noexcept { return GetSize(); }
    bool IsEmpty() const noexcept { return items_.empty(); }
    std::intptr_t GetUpperBound() const noexcept { return GetSize() - 1; }

    /// Cuts the array or fills it up with default values. `growBy` is a hint that changes no result.
    void SetSize(std::intptr_t size, [[maybe_unused]] std::intptr_t growBy = -1) {
        if (size < 0) orv::throwInvalidArgument();
        items_.resize(static_cast<std::size_t>(size));
    }
    void FreeExtra() { items_.shrink_to_fit(); }
    void RemoveAll() { items_.clear(); }

    const TYPE& GetAt(std::intptr_t index) const { return items_[checked(index)].value; }
    TYPE& GetAt(std::intptr_t index) { return items_[checked(index)].value; }
    TYPE& ElementAt(std::intptr_t index) { return GetAt(index); }
    const TYPE& ElementAt(std::intptr_t index) const { return GetAt(index); }
    void SetAt(std::intptr_t index, ARG_TYPE element) { GetAt(index) = element; }
    const TYPE& operator[](std::intptr_t index) const { return GetAt(index); }
    TYPE& operator[](std::intptr_t index) { return GetAt(index); }

    /// The elements in one piece; null for an empty array.
    TYPE* GetData() noexcept { return items_.empty() ? nullptr : &items_.data()->value; }
    const TYPE* GetData() const noexcept { return items_.empty() ? nullptr : &items_.data()->value; }

    void SetAtGrow(std::intptr_t index, ARG_TYPE element) {
        if (index < 0 || index == INTPTR_MAX) orv::throwInvalidArgument();
        TYPE copy(element);  // `element` may stand in this array
        if (index >= GetSize()) SetSize(index + 1);
        GetAt(index) = std::move(copy);
    }
    /// Appends and returns the index of the new element.
    std::intptr_t Add(ARG_TYPE element) {
        items_.push_back(Item{element});
        return GetUpperBound();
    }
    /// Appends another array; returns the index of its first element here.
    std::intptr_t Append(const CArray& other) {
        if (this == &other) orv::throwInvalidArgument();
        const std::intptr_t first = GetSize();
        items_.insert(items_.end(), other.items_.begin(), other.items_.end());
        return first;
    }
    void Copy(const CArray& other) {
        if (this != &other) items_ = other.items_;
    }
    void InsertAt(std::intptr_t index, ARG_TYPE element, std::intptr_t count = 1) {
        if (index < 0 || count <= 0) orv::throwInvalidArgument();
        const Item copy{element};
        if (index > GetSize()) SetSize(index);
        items_.insert(items_.begin() + index, static_cast<std::size_t>(count), copy);
    }
    void InsertAt(std::intptr_t index, const CArray* other) {
        if (index < 0 || other == nullptr || other == this) orv::throwInvalidArgument();
        if (other->IsEmpty()) return;
        if (index > GetSize()) SetSize(index);
        items_.insert(items_.begin() + index, other->items_.begin(), other->items_.end());
    }
    void RemoveAt(std::intptr_t index, std::intptr_t count = 1) {
        if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index) orv::throwInvalidArgument();
        items_.erase(items_.begin() + index, items_.begin() + index + count);
    }

  private:
    // The wrapper gives every element, a bool too, an address of its own.
    struct Item {
        TYPE value{};
    };

    std::size_t checked(std::intptr_t index) const {
        if (index < 0 || index >= GetSize()) orv::throwInvalidArgument();
        return static_cast<std::size_t>(index);
    }

    std::vector<Item> items_;
};

/// An array of texts.
class CStringArray : public CArray<CString, const CString&> {
  public:
    using CArray::Add;
    std::intptr_t Add(const wchar_t* text) { return CArray::Add(CString(text)); }
};
