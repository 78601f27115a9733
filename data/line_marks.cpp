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

struct BlockMarks {
    std::uint64_t marks;
    std::uint64_t nuls;
};

/// One bit for each of the 64 characters of an aligned block.
ORV_READS_WHOLE_BLOCKS BlockMarks marksInSse2(const wchar_t* block, wchar_t separator) {
    const __m128i nul = _mm_setzero_si128(), lf = _mm_set1_epi16(L'\n'),
                  wanted = _mm_set1_epi16(static_cast<short>(separator));
    BlockMarks found{0, 0};
    for (unsigned part = 0; part < 4; ++part) {
        __m128i marks[2], nuls[2];
        for (unsigned half = 0; half < 2; ++half) {
            const __m128i units = _mm_load_si128(reinterpret_cast<const __m128i*>(block) + part * 2 + half);
            nuls[half] = _mm_cmpeq_epi16(units, nul);
            marks[half] = _mm_or_si128(_mm_cmpeq_epi16(units, lf), _mm_cmpeq_epi16(units, wanted));
        }
        const auto bits = [](const __m128i(&both)[2]) {
            return static_cast<std::uint64_t>(
                static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(both[0], both[1]))));
        };
        found.marks |= bits(marks) << part * 16;
        found.nuls |= bits(nuls) << part * 16;
    }
    return found;
}

ORV_READS_WHOLE_BLOCKS ORV_TARGET_AVX512 BlockMarks marksInAvx512(const wchar_t* block, wchar_t separator) {
    const __m512i low = _mm512_loadu_si512(block), high = _mm512_loadu_si512(block + 32);
    const __m512i lf = _mm512_set1_epi16(L'\n'), wanted = _mm512_set1_epi16(static_cast<short>(separator));
    const std::uint64_t lowMarks = _mm512_cmpeq_epi16_mask(low, lf) | _mm512_cmpeq_epi16_mask(low, wanted);
    const std::uint64_t highMarks = _mm512_cmpeq_epi16_mask(high, lf) | _mm512_cmpeq_epi16_mask(high, wanted);
    const std::uint64_t lowNuls = _mm512_testn_epi16_mask(low, low), highNuls = _mm512_testn_epi16_mask(high, high);
    return {lowMarks | highMarks << 32, lowNuls | highNuls << 32};
}

}  // namespace

void LineMarks::fill() {
    constexpr std::uintptr_t kBlockBytes = kBlock * sizeof(wchar_t);
    const auto marksIn = vectorLevel() >= VectorLevel::kAvx512 ? marksInAvx512 : marksInSse2;
    next_ = end_ = marks_.data();
    while (end_ == next_) {
        for (std::size_t i = 0; i < kBlocks; ++i) {
            const auto address = reinterpret_cast<std::uintptr_t>(block_);
            const std::uintptr_t before = address % kBlockBytes;
            const wchar_t* const start = reinterpret_cast<const wchar_t*>(address - before);
            BlockMarks found = marksIn(start, separator_);
            const std::uint64_t here = ~std::uint64_t{0} << before / sizeof(wchar_t);
            found.marks &= here;
            found.nuls &= here;
            if (found.nuls != 0) {  // the first one ends the text
                const std::uint64_t first = found.nuls & (~found.nuls + 1);
                found.marks = (found.marks & (first - 1)) | first;
            }
            const wchar_t** to = end_;
            for (; found.marks != 0; found.marks &= found.marks - 1)
                *to++ = start + std::countr_zero(found.marks);
            end_ = to;
            if (found.nuls != 0) return;
            block_ = start + kBlock;
        }
    }
}

}  // namespace orv
