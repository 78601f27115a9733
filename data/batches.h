// References to texts, and pieces of pages, taken and given back many at a time: one locked operation for all of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "framework/text_pages.h"

namespace orv {

/// References to the texts of a tree for its copy. Those to one text are counted together, and only then in one locked
/// operation: the tree is not used meanwhile, and holds its own.
class SharedTexts {
  public:
    SharedTexts() = default;
    SharedTexts(const SharedTexts&) = delete;
    SharedTexts& operator=(const SharedTexts&) = delete;
    ~SharedTexts() {
        for (const Shared& one : shared_)
            flush(one);
    }

    /// A text with one more reference, which its string takes over.
    wchar_t* share(const CString& text) {
        wchar_t* const characters = StringAccess::charactersOf(text);
        std::atomic<std::int32_t>& references = StringAccess::dataOf(characters)->references;
        const std::int32_t count = references.load(std::memory_order_relaxed);
        if (count == StringData::kAlone) {
            tellShared(*pageOf(*StringAccess::dataOf(characters)));
            references.store(2, std::memory_order_relaxed);
        } else if (count == 1) {
            references.store(2, std::memory_order_relaxed);
        } else if (count > 1) {
            Shared& slot = shared_[reinterpret_cast<std::uintptr_t>(characters) / 8 % shared_.size()];
            if (slot.text != characters) {
                flush(slot);
                slot = {characters, 0};
            }
            ++slot.count;
        } else if (count == StringData::kLocked) {
            CString copy(text);
            return StringAccess::release(copy);
        }
        return characters;
    }

  private:
    struct Shared {
        wchar_t* text = nullptr;
        std::int32_t count = 0;
    };
    static void flush(const Shared& one) {
        if (one.count != 0) StringAccess::dataOf(one.text)->references.fetch_add(one.count, std::memory_order_relaxed);
    }

    std::array<Shared, 64> shared_;
};

/// Collects what ends, so that pieces of one page and references to one text go in one operation.
class Ending {
  public:
    Ending() = default;
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;
    ~Ending() {
        for (const Shared& one : shared_)
            flush(one);
        releaseNow();
    }

    void piece(MemoryPage* page, std::size_t bytes) {
        if (page != page_) {
            releaseNow();
            page_ = page;
        }
        bytes_ += bytes;
    }
    /// A value mostly has one reference.
    void value(wchar_t* text) {
        StringData& data = *StringAccess::dataOf(text);
        const std::int32_t references = data.references.load(std::memory_order_acquire);
        if (references == StringData::kImmortal) return;
        if (references > 1) {
            name(text);
        } else if (data.capacity < 0) {
            piece(pageOf(data), bytesInPage(data));
        } else {
            const CString last(StringAccess::adopt(text));
        }
    }
    /// A name lasts, or has thousands of them.
    void name(wchar_t* text) {
        const std::int32_t references = StringAccess::dataOf(text)->references.load(std::memory_order_relaxed);
        if (references == StringData::kImmortal) return;
        if (references < 0) {
            const CString last(StringAccess::adopt(text));
            return;
        }
        Shared& slot = shared_[reinterpret_cast<std::uintptr_t>(text) / 8 % shared_.size()];
        if (slot.text != text) {
            flush(slot);
            slot = {text, 0};
        }
        ++slot.count;
    }

  private:
    struct Shared {
        wchar_t* text = nullptr;
        std::int32_t count = 0;
    };
    void releaseNow() {
        if (bytes_ != 0) releaseBytes(page_, bytes_);
        bytes_ = 0;
    }
    void flush(const Shared& one) {
        if (one.count == 0) return;
        StringData& data = *StringAccess::dataOf(one.text);
        if (data.references.fetch_sub(one.count, std::memory_order_acq_rel) == one.count) {
            if (data.capacity < 0) {
                piece(pageOf(data), bytesInPage(data));
            } else {
                freeText(one.text);
            }
        }
    }

    MemoryPage* page_ = nullptr;
    std::size_t bytes_ = 0;
    std::array<Shared, 64> shared_;
};

}  // namespace orv
