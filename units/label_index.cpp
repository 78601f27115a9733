#include "units/label_index.h"

#include <algorithm>
#include <memory>
#include <mutex>

#include "framework/characters.h"
#include "localization/translate.h"
#include "text/views.h"

namespace orv {
namespace {

std::uint32_t hashFolded(WideView text) {
    std::uint32_t hash = 0x811C'9DC5;  // FNV-1a over folded characters
    for (const wchar_t ch : text)
        hash = (hash ^ foldCase(ch)) * 0x0100'0193;
    return hash ^ (hash >> 15);
}

bool sameFolded(WideView a, WideView b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return foldCase(x) == foldCase(y); });
}

const UnitRow& rowAt(std::uint32_t i) { return unitCatalogue()[i]; }

}  // namespace

LabelIndex::LabelIndex(std::vector<CString> labels) : labels_(std::move(labels)) {
    // Room first: nothing is moved then, and of equal labels the first to be added is the first to be found.
    exact_.reserve(labels_.size());
    folded_.reserve(labels_.size());
    for (std::uint32_t i = 0; i < labels_.size(); ++i) {
        const WideView label = viewOf(labels_[i]);
        if (label.empty()) continue;
        exact_.add(hashText(label), i);
        folded_.add(hashFolded(label), i);
        longest_ = std::max(longest_, label.size());
    }
}

enUnit LabelIndex::find(WideView label, int group) const {
    if (label.empty() || label.size() > longest_) return eUnitUndefined;
    const auto isIn = [group](std::uint32_t i) { return group == 0 || groupOf(rowAt(i).value) == group; };
    std::uint32_t at =
        exact_.find(hashText(label), [&](std::uint32_t i) { return sameText(viewOf(labels_[i]), label) && isIn(i); });
    if (at == HashIndex::kNone) {
        at = folded_.find(hashFolded(label),
                          [&](std::uint32_t i) { return sameFolded(viewOf(labels_[i]), label) && isIn(i); });
    }
    return at == HashIndex::kNone ? eUnitUndefined : rowAt(at).value;
}

/// Every set of labels that was ever current stays, since others may be reading it; languages are few.
struct CurrentLabels {
    std::atomic<const LabelIndex*> index{nullptr};
    std::mutex mutex;
    std::vector<std::unique_ptr<const LabelIndex>> all;

    const LabelIndex& renewed() {
        const std::lock_guard lock(mutex);
        const unsigned generation = translationGeneration();
        std::vector<CString> labels;
        for (const UnitRow& row : unitCatalogue())
            labels.push_back(translate(row.labelKey));
        auto known = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one->labels_ == labels; });
        if (known == all.end()) {
            all.emplace_back(new LabelIndex(std::move(labels)));
            known = all.end() - 1;
        }
        (*known)->generation_.store(generation, std::memory_order_release);
        index.store(known->get(), std::memory_order_release);
        return **known;
    }
};

const LabelIndex& LabelIndex::current() {
    static CurrentLabels& labels = *new CurrentLabels;  // never destroyed: who ends last may still ask
    const LabelIndex* index = labels.index.load(std::memory_order_acquire);
    return index != nullptr && index->generation_.load(std::memory_order_acquire) == translationGeneration()
               ? *index
               : labels.renewed();
}

}  // namespace orv
