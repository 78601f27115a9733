#include "framework/vector.h"

// The sanitizers would take the reads behind a text's end, on the same page, for overruns. They cannot fault,
// what lies behind the NUL changes no result, and this file is the only one that is excused.
#define ORV_READS_WHOLE_BLOCKS __attribute__((no_sanitize("address", "thread")))

namespace orv {

namespace {

// Which units of an aligned vector are NUL or wanted, by one of the classes below.
struct Nul {
    ORV_READS_WHOLE_BLOCKS __m128i operator()(__m128i units) const {
        return _mm_cmpeq_epi16(units, _mm_setzero_si128());
    }
};

struct NulOrOne {
    __m128i a;
    ORV_READS_WHOLE_BLOCKS __m128i operator()(__m128i units) const {
        return _mm_or_si128(Nul()(units), _mm_cmpeq_epi16(units, a));
    }
};

struct NulOrThree {
    __m128i a;
    __m128i b;
    __m128i c;
    ORV_READS_WHOLE_BLOCKS __m128i operator()(__m128i units) const {
        return _mm_or_si128(_mm_or_si128(Nul()(units), _mm_cmpeq_epi16(units, a)),
                            _mm_or_si128(_mm_cmpeq_epi16(units, b), _mm_cmpeq_epi16(units, c)));
    }
};

constexpr std::uintptr_t kBlock = 64;
constexpr std::uintptr_t kPage = 4096;

// One bit for each of the 32 units of 64 bytes, aligned or not.
template <class Stop>
ORV_READS_WHOLE_BLOCKS inline unsigned stopsIn(std::uintptr_t address, Stop stop) {
    const auto* eights = reinterpret_cast<const __m128i*>(address);
    const __m128i low = _mm_packs_epi16(stop(_mm_loadu_si128(eights)), stop(_mm_loadu_si128(eights + 1)));
    const __m128i high = _mm_packs_epi16(stop(_mm_loadu_si128(eights + 2)), stop(_mm_loadu_si128(eights + 3)));
    return detail::maskOf(low) | detail::maskOf(high) << 16;
}

template <class Stop>
ORV_READS_WHOLE_BLOCKS inline std::size_t unitsBefore(const wchar_t* text, Stop stop) noexcept {
    const auto address = reinterpret_cast<std::uintptr_t>(text);
    std::uintptr_t block = address / kBlock * kBlock;
    // Most texts end within the first 32 units, which can be read from where they begin unless a page ends before.
    const bool withinPage = address % kPage <= kPage - kBlock;
    unsigned stops = withinPage ? stopsIn(address, stop) : stopsIn(block, stop) >> (address - block) / sizeof(wchar_t);
    if (stops != 0) return static_cast<std::size_t>(__builtin_ctz(stops));
    do {
        block += kBlock;
        stops = stopsIn(block, stop);
    } while (stops == 0);
    return (block - address) / sizeof(wchar_t) + static_cast<std::size_t>(__builtin_ctz(stops));
}

}  // namespace

ORV_READS_WHOLE_BLOCKS std::size_t wideLength(const wchar_t* text) noexcept { return unitsBefore(text, Nul()); }

ORV_READS_WHOLE_BLOCKS std::size_t findUnitOrEnd(const wchar_t* text, wchar_t wanted) noexcept {
    return unitsBefore(text, NulOrOne{detail::eightTimes(wanted)});
}

ORV_READS_WHOLE_BLOCKS std::size_t findOfThreeOrEnd(const wchar_t* text, wchar_t a, wchar_t b, wchar_t c) noexcept {
    return unitsBefore(text, NulOrThree{detail::eightTimes(a), detail::eightTimes(b), detail::eightTimes(c)});
}

}  // namespace orv
