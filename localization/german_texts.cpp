#include "localization/german_texts.h"

#include "framework/string_access.h"
#include "localization/key_context.h"
#include "localization/translation_state.h"
#include "text/views.h"

namespace orv {
namespace {

constexpr wchar_t kSharpS = L'\xDF';

CString germanText(WideView key, bool isSwiss) {
    CString result = textOf(key);
    if (isSwiss) result.Replace(CString(kSharpS), L"ss");
    const std::size_t context = contextLength(viewOf(result));
    return context == 0 ? result : result.Mid(static_cast<int>(context));
}

}  // namespace

GermanTexts& germanTexts() {
    static GermanTexts* const all[] = {new GermanTexts(false), new GermanTexts(true)};
    return *all[region().isSwiss.load(std::memory_order_acquire) ? 1 : 0];
}

CString GermanTexts::add(WideView key, std::uint32_t hash) {
    CString result = germanText(key, isSwiss_);
    if (entries_.size() >= kMostEntries || key.size() > kLongestKey) return result;
    StringAccess::makeImmortal(result);
    auto entry = std::make_unique<Entry>(Entry{hash, viewOf(result), {}, result});
    if (!sameText(entry->key, key)) {
        entry->own = key;
        entry->key = entry->own;
    }
    const Table* const table = table_.load(std::memory_order_relaxed);
    if (table == nullptr || entries_.size() * 2 >= table->slots.size()) grow();
    entries_.push_back(std::move(entry));
    put(*table_.load(std::memory_order_relaxed), entries_.back().get());
    return result;
}

void GermanTexts::put(Table& table, const Entry* entry) {
    std::size_t at = entry->hash & table.mask;
    while (table.slots[at].load(std::memory_order_relaxed) != nullptr)
        at = (at + 1) & table.mask;
    table.slots[at].store(entry, std::memory_order_release);
}

void GermanTexts::grow() {
    constexpr std::size_t kFewest = 256;
    auto larger = std::make_unique<Table>(tables_.empty() ? kFewest : tables_.back()->slots.size() * 2);
    for (const auto& entry : entries_)
        put(*larger, entry.get());
    tables_.push_back(std::move(larger));
    table_.store(tables_.back().get(), std::memory_order_release);
}

}  // namespace orv
