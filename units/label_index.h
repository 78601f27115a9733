// Units by their labels in the current language.
#pragma once

#include <atomic>
#include <vector>

#include "framework/hash_index.h"
#include "units/catalogue.h"

namespace orv {

class LabelIndex {
  public:
    /// That of the current language, valid until the process ends.
    static const LabelIndex& current();

    /// Exact case first, then any case; among equals the lowest value. A group of 0: all groups.
    enUnit find(WideView label, int group = 0) const;
    const CString& labelOf(const UnitRow& row) const {
        return labels_[static_cast<std::size_t>(&row - unitCatalogue().data())];
    }
    /// Of all labels, in characters.
    std::size_t longest() const { return longest_; }

  private:
    friend struct CurrentLabels;
    explicit LabelIndex(std::vector<CString> labels);

    std::vector<CString> labels_;  // by rows of the catalogue, translated
    HashIndex exact_, folded_;
    std::size_t longest_ = 0;
    mutable std::atomic<unsigned> generation_{0};  // of the translations that gave these labels
};

}  // namespace orv
