// Globbing: a star stands for whatever makes the rest match.
#include "framework/vector.h"
#include "orv/string_utilities.h"
#include "text/lower_spellings.h"

namespace orv {

namespace {

bool sameIgnoringCase(wchar_t a, wchar_t b) { return a == b || foldCase(a) == foldCase(b); }

// Whether a piece of a pattern, which holds no star, stands for the units at the start of a text.
bool standsAt(WideView text, WideView piece, bool caseSensitive) {
    for (std::size_t i = 0; i < piece.size(); ++i) {
        if (piece[i] == L'?' || piece[i] == text[i]) continue;
        if (caseSensitive || !sameIgnoringCase(piece[i], text[i])) return false;
    }
    return true;
}

std::size_t findPiece(WideView text, WideView piece, bool caseSensitive) {
    for (std::size_t at = 0; at + piece.size() <= text.size(); ++at) {
        if (caseSensitive && piece.front() != L'?') {
            at += findUnit(text.data() + at, text.size() - piece.size() + 1 - at, piece.front());
            if (at + piece.size() > text.size()) break;
        }
        if (standsAt(text.substr(at), piece, caseSensitive)) return at;
    }
    return WideView::npos;
}

}  // namespace

// The piece before the first star stands at the start, the one behind the last at the end, and the others at the first
// place where they fit: an earlier place never harms what follows. Time: text length times pattern length at worst.
bool globMatch(WideView text, WideView pattern, bool caseSensitive) {
    std::size_t star = pattern.find(L'*');
    if (star == WideView::npos) {
        return text.size() == pattern.size() && standsAt(text, pattern, caseSensitive);
    }
    const std::size_t lastStar = pattern.rfind(L'*');
    const WideView head = pattern.substr(0, star);
    const WideView tail = pattern.substr(lastStar + 1);
    if (text.size() < head.size() + tail.size() || !standsAt(text, head, caseSensitive) ||
        !standsAt(text.substr(text.size() - tail.size()), tail, caseSensitive)) {
        return false;
    }
    text = text.substr(head.size(), text.size() - head.size() - tail.size());
    while (star < lastStar) {
        const std::size_t next = pattern.find(L'*', star + 1);
        const WideView piece = pattern.substr(star + 1, next - star - 1);
        star = next;
        if (piece.empty()) continue;
        const std::size_t at = findPiece(text, piece, caseSensitive);
        if (at == WideView::npos) return false;
        text.remove_prefix(at + piece.size());
    }
    return true;
}

}  // namespace orv
