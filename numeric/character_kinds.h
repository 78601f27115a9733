// What a character is to the expression language.
#pragma once

#include <array>

#include "framework/characters.h"
#include "orv/wide.h"

namespace orv {

enum class CharacterKind : unsigned char { kOther, kSpace, kDigit, kLetter, kSign, kFortranSign, kStop, kPoint };

inline CharacterKind kindOf(wchar_t ch) {
    constexpr std::size_t kAscii = 128;
    static constexpr auto kKinds = [] {
        std::array<CharacterKind, kAscii> kinds{};
        const auto set = [&](WideView characters, CharacterKind kind) {
            for (const wchar_t one : characters)
                kinds[one] = kind;
        };
        set(L"\t\v\f\r ", CharacterKind::kSpace);
        set(L"0123456789", CharacterKind::kDigit);
        set(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_", CharacterKind::kLetter);
        set(L"+-*/%()^|", CharacterKind::kSign);
        set(L"[]", CharacterKind::kFortranSign);
        set(L"\n;", CharacterKind::kStop);
        set(L".,", CharacterKind::kPoint);
        return kinds;
    }();
    if (ch < kAscii) return kKinds[ch];
    return isLetter(ch) ? CharacterKind::kLetter : isSpace(ch) ? CharacterKind::kSpace : CharacterKind::kOther;
}

/// A letter, a digit of any script, or "_".
inline bool isNameCharacter(wchar_t ch) {
    const CharacterKind kind = kindOf(ch);
    return kind == CharacterKind::kLetter || kind == CharacterKind::kDigit ||
           (kind == CharacterKind::kOther && isDigit(ch));
}

}  // namespace orv
