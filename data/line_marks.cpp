#include "data/line_marks.h"

#include <bit>

#include "framework/cpu.h"
#include "framework/vector.h"
#include "framework/wide_intrinsics.h"

// The sanitizers would take the reads behind a text's end, on the same page, for overruns. They cannot fault, and what
// lies behind the NUL is dropped.
#define ORV_READS_WHOLE_BLOCKS __attribute__((no_sanitize("address", "thread")))

namespace orv {
namespace {

/// What stands in some blocks of 64 characters, one bit for each of them.
struct Found {
    std::uint64_t marks[LineMarks::kBlocks];
    std::size_t blocks;  // up to the one with the NUL
    std::uint64_t nuls;  // in the last block
};

ORV_READS_WHOLE_BLOCKS void findSse2(const wchar_t* block, wchar_t separator, wchar_t other, Found& found) {
    const __m128i nul = _mm_setzero_si128(), lf = _mm_set1_epi16(L'\n'),
                  wanted = _mm_set1_epi16(static_cast<short>(separator)),
                  third = _mm_set1_epi16(static_cast<short>(other));
    found.nuls = 0;
    for (found.blocks = 0; found.blocks < LineMarks::kBlocks && found.nuls == 0; block += LineMarks::kBlock) {
        std::uint64_t all = 0;
        for (unsigned part = 0; part < 4; ++part) {
            __m128i marks[2], nuls[2];
            for (unsigned half = 0; half < 2; ++half) {
                const __m128i units = _mm_load_si128(reinterpret_cast<const __m128i*>(block) + part * 2 + half);
                nuls[half] = _mm_cmpeq_epi16(units, nul);
                marks[half] = _mm_or_si128(_mm_cmpeq_epi16(units, third),
                                           _mm_or_si128(_mm_cmpeq_epi16(units, lf), _mm_cmpeq_epi16(units, wanted)));
            }
            all |= std::uint64_t{detail::maskOf(_mm_packs_epi16(marks[0], marks[1]))} << part * 16;
            found.nuls |= std::uint64_t{detail::maskOf(_mm_packs_epi16(nuls[0], nuls[1]))} << part * 16;
        }
        found.marks[found.blocks++] = all;
    }
}

ORV_READS_WHOLE_BLOCKS ORV_TARGET_AVX512 void findAvx512(const wchar_t* block, wchar_t separator, wchar_t other,
                                                         Found& found) {
    const __m512i lf = _mm512_set1_epi16(L'\n'), wanted = _mm512_set1_epi16(static_cast<short>(separator)),
                  third = _mm512_set1_epi16(static_cast<short>(other));
    found.nuls = 0;
    for (found.blocks = 0; found.blocks < LineMarks::kBlocks && found.nuls == 0; block += LineMarks::kBlock) {
        const __m512i low = _mm512_loadu_si512(block), high = _mm512_loadu_si512(block + LineMarks::kBlock / 2);
        const std::uint64_t lowMarks = _mm512_cmpeq_epi16_mask(low, lf) | _mm512_cmpeq_epi16_mask(low, wanted) |
                                       _mm512_cmpeq_epi16_mask(low, third);
        const std::uint64_t highMarks = _mm512_cmpeq_epi16_mask(high, lf) | _mm512_cmpeq_epi16_mask(high, wanted) |
                                        _mm512_cmpeq_epi16_mask(high, third);
        const std::uint64_t lowNuls = _mm512_testn_epi16_mask(low, low), highNuls = _mm512_testn_epi16_mask(high, high);
        found.nuls = lowNuls | highNuls << 32;
        found.marks[found.blocks++] = lowMarks | highMarks << 32;
    }
}

/// Where the bits stand. A block has five or six, mostly: what is written behind the last one is overwritten, without a
/// branch for each.
ORV_KERNEL_INLINE const wchar_t** putAll(const Found& found, const wchar_t* start, const wchar_t** to) {
    constexpr unsigned kAtOnce = 8;
    constexpr std::uint64_t kLast = std::uint64_t{1} << 63;  // so that there always is a first bit
    for (std::size_t i = 0; i < found.blocks; ++i, start += LineMarks::kBlock) {
        std::uint64_t marks = found.marks[i];
        const wchar_t** const end = to + __builtin_popcountll(marks);
        for (unsigned k = 0; k < kAtOnce; ++k, marks &= marks - 1)
            to[k] = start + __builtin_ctzll(marks | kLast);
        for (to += kAtOnce; marks != 0; marks &= marks - 1)
            *to++ = start + __builtin_ctzll(marks);
        to = end;
    }
    return to;
}

const wchar_t** put(const Found& found, const wchar_t* start, const wchar_t** to) { return putAll(found, start, to); }

ORV_TARGET_AVX512 const wchar_t** putAvx512(const Found& found, const wchar_t* start, const wchar_t** to) {
    return putAll(found, start, to);
}

}  // namespace

void LineMarks::fill() {
    constexpr std::uintptr_t kBlockBytes = kBlock * sizeof(wchar_t);
    const bool isWide = vectorLevel() >= VectorLevel::kAvx512;
    Found found;
    next_ = end_ = marks_.data();
    while (end_ == next_) {
        const auto address = reinterpret_cast<std::uintptr_t>(block_);
        const std::uintptr_t before = address % kBlockBytes / sizeof(wchar_t);
        const wchar_t* const start = block_ - before;
        (isWide ? findAvx512 : findSse2)(start, separator_, other_, found);
        const std::uint64_t here = ~std::uint64_t{0} << before;
        found.marks[0] &= here;
        if (found.blocks == 1) found.nuls &= here;
        if (found.nuls != 0) {  // the first one ends the text
            const std::uint64_t first = found.nuls & (~found.nuls + 1);
            std::uint64_t& last = found.marks[found.blocks - 1];
            last = (last & (first - 1)) | first;
        }
        end_ = (isWide ? putAvx512 : put)(found, start, end_);
        block_ = start + found.blocks * kBlock;
        seen_ = found.nuls != 0 ? end_[-1] : block_;
    }
}

}  // namespace orv
