// Lower case in a hurry, and the other way: which characters have a given lower case.
#pragma once

#include "framework/characters.h"

namespace orv {

/// toLower with the way cut short for Latin-1.
inline wchar_t lowerOf(wchar_t ch) {
    const unsigned u = ch;
    if (u >= 0x100) return toLower(ch);
    const bool capital = u - 'A' < 26U || (u - 0xC0U < 0x1FU && u != 0xD7);
    return static_cast<wchar_t>(capital ? u + 32 : u);
}

/// All characters whose lower case is a given character's own: at most three, repeated where they are fewer.
struct LowerSpellings {
    wchar_t lower;
    wchar_t upper;
    wchar_t third;
};

namespace detail {
LowerSpellings spellingsByTable(wchar_t lower);
}

inline LowerSpellings spellingsOf(wchar_t lower) {
    if (lower < 0x80 && lower != L'i' && lower != L'k') {
        const bool letter = static_cast<unsigned>(lower - L'a') < 26U;
        return {lower, static_cast<wchar_t>(letter ? lower - 32 : lower), lower};
    }
    return detail::spellingsByTable(lower);
}

}  // namespace orv
