#include "framework/text_search.h"

#include <cstring>
#include <vector>

#include "framework/vector.h"

namespace orv {

namespace {

// Knuth, Morris and Pratt's search: for texts that were made to match nearly everywhere.
std::size_t findByBorders(WideView text, WideView what, std::size_t from) {
    std::vector<std::size_t> border(what.size() + 1, 0);  // the longest end of the first i units that begins them too
    for (std::size_t i = 1, k = 0; i < what.size(); ++i) {
        while (k > 0 && what[i] != what[k])
            k = border[k];
        if (what[i] == what[k]) ++k;
        border[i + 1] = k;
    }
    std::size_t matched = 0;
    for (std::size_t at = from; at < text.size(); ++at) {
        while (matched > 0 && text[at] != what[matched])
            matched = border[matched];
        if (text[at] == what[matched]) ++matched;
        if (matched == what.size()) return at + 1 - matched;
    }
    return WideView::npos;
}

}  // namespace

std::size_t findText(WideView text, WideView what, std::size_t from) {
    if (what.empty()) return from;
    if (what.size() > text.size()) return WideView::npos;
    const std::size_t starts = text.size() - what.size() + 1;
    std::size_t compared = 0;
    for (std::size_t at = from; at < starts; ++at) {
        at += findUnit(text.data() + at, starts - at, what[0]);
        if (at >= starts) break;
        std::size_t same = 1;
        while (same < what.size() && text[at + same] == what[same])
            ++same;
        if (same == what.size()) return at;
        compared += same;
        if (compared > 1000 + 8 * (at - from)) return findByBorders(text, what, at + 1);
    }
    return WideView::npos;
}

}  // namespace orv
