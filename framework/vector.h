// Kernels over 16-bit units that many files share: finding, comparing, measuring. The base line SSE2 alone; texts of
// names and lines end long before wider vectors pay. (Wider ones stand beside the algorithms that need them.)
//
// Kernels with a count read those units and no others. The ...OrEnd kernels take texts that end in NUL and may read
// behind it, but only on the same page.
#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orv {

/// Units before the closing NUL.
std::size_t wideLength(const wchar_t* text) noexcept;
/// Units before the first of the wanted ones, or before the closing NUL.
std::size_t findUnitOrEnd(const wchar_t* text, wchar_t wanted) noexcept;
std::size_t findOfThreeOrEnd(const wchar_t* text, wchar_t a, wchar_t b, wchar_t c) noexcept;

namespace detail {

inline __m128i load8(const wchar_t* units) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(units)); }

inline __m128i eightTimes(wchar_t unit) { return _mm_set1_epi16(static_cast<short>(unit)); }

// One bit a byte: two equal bits a unit.
inline unsigned maskOf(__m128i units) { return static_cast<unsigned>(_mm_movemask_epi8(units)); }

inline std::size_t firstUnitIn(unsigned mask) { return static_cast<std::size_t>(__builtin_ctz(mask)) / 2; }

}  // namespace detail

/// Index of the first `wanted` among `count` units; `count` when there is none.
inline std::size_t findUnit(const wchar_t* text, std::size_t count, wchar_t wanted) noexcept {
    std::size_t i = 0;
    for (const __m128i all = detail::eightTimes(wanted); count - i >= 8; i += 8) {
        const unsigned found = detail::maskOf(_mm_cmpeq_epi16(detail::load8(text + i), all));
        if (found != 0) return i + detail::firstUnitIn(found);
    }
    while (i < count && text[i] != wanted)
        ++i;
    return i;
}

/// Index of the first unit of two texts that differs; `count` when none does.
inline std::size_t firstMismatch(const wchar_t* a, const wchar_t* b, std::size_t count) noexcept {
    std::size_t i = 0;
    for (; count - i >= 8; i += 8) {
        const unsigned same = detail::maskOf(_mm_cmpeq_epi16(detail::load8(a + i), detail::load8(b + i)));
        if (same != 0xFFFF) return i + detail::firstUnitIn(~same);
    }
    while (i < count && a[i] == b[i])
        ++i;
    return i;
}

/// As memcpy, for the lengths of names and values.
inline void copyUnits(wchar_t* to, const wchar_t* from, std::size_t count) noexcept {
    constexpr std::size_t kEight = 8, kFour = 4;
    const auto eight = [&](std::size_t at) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + at), detail::load8(from + at));
    };
    const auto four = [&](std::size_t at) { std::memcpy(to + at, from + at, kFour * sizeof(wchar_t)); };
    if (count >= kEight) {
        for (std::size_t at = 0; at + kEight < count; at += kEight)
            eight(at);
        eight(count - kEight);
    } else if (count >= kFour) {
        four(0);
        four(count - kFour);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            to[i] = from[i];
    }
}

/// Whether two texts of one length are the same, for the lengths of names.
inline bool equalUnits(const wchar_t* a, const wchar_t* b, std::size_t count) noexcept {
    constexpr std::size_t kEight = 8, kFour = 4;
    const auto four = [](const wchar_t* at) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        return word;
    };
    if (count >= kEight) {
        const auto differs = [&](std::size_t at) {
            return detail::maskOf(_mm_cmpeq_epi16(detail::load8(a + at), detail::load8(b + at))) != 0xFFFF;
        };
        for (std::size_t at = 0; at + kEight < count; at += kEight) {
            if (differs(at)) return false;
        }
        return !differs(count - kEight);
    }
    if (count >= kFour) return four(a) == four(b) && four(a + count - kFour) == four(b + count - kFour);
    for (std::size_t i = 0; i < count; ++i) {
        if (a[i] != b[i]) return false;
    }
    return true;
}

}  // namespace orv
