#include "text/caseless_kernels.h"

#include <immintrin.h>

#include "framework/cpu.h"
#include "framework/vector.h"

namespace orv {

namespace {

bool mayStand(wchar_t unit, SpellingFilter filter) { return (unit & filter.kept) == filter.wanted; }

constexpr Candidates kNothingMore = {0, 0};

Candidates oneByOne(const wchar_t* text, std::size_t count, const NeedleEnds& ends, std::size_t from) {
    for (std::size_t i = from; i < count; ++i) {
        if (mayStand(text[i], ends.first) && mayStand(text[i + ends.gap], ends.last)) return {i, 1};
    }
    return kNothingMore;
}

Candidates nextBySse2(const wchar_t* text, std::size_t count, const NeedleEnds& ends, std::size_t from) {
    const __m128i firstKept = detail::eightTimes(ends.first.kept);
    const __m128i firstWanted = detail::eightTimes(ends.first.wanted);
    const __m128i lastKept = detail::eightTimes(ends.last.kept);
    const __m128i lastWanted = detail::eightTimes(ends.last.wanted);
    const auto eight = [&](std::size_t at) {
        const __m128i first = _mm_and_si128(detail::load8(text + at), firstKept);
        const __m128i last = _mm_and_si128(detail::load8(text + at + ends.gap), lastKept);
        return _mm_and_si128(_mm_cmpeq_epi16(first, firstWanted), _mm_cmpeq_epi16(last, lastWanted));
    };
    std::size_t i = from;
    for (; count - i >= 16; i += 16) {
        const unsigned bits = detail::maskOf(_mm_packs_epi16(eight(i), eight(i + 8)));
        if (bits != 0) return {i, bits};
    }
    if (count - i >= 8) {
        const unsigned bits = detail::maskOf(_mm_packs_epi16(eight(i), _mm_setzero_si128()));
        if (bits != 0) return {i, bits};
        i += 8;
    }
    if (i < count && count >= 8) {
        // The last positions once more together with some before them, which are shifted out.
        const std::size_t at = count - 8;
        const unsigned bits = detail::maskOf(_mm_packs_epi16(eight(at), _mm_setzero_si128())) >> (i - at);
        return bits != 0 ? Candidates{i, bits} : kNothingMore;
    }
    return oneByOne(text, count, ends, i);
}

ORV_TARGET_AVX2 Candidates nextByAvx2(const wchar_t* text, std::size_t count, const NeedleEnds& ends,
                                      std::size_t from) {
    const __m256i firstKept = _mm256_set1_epi16(static_cast<short>(ends.first.kept));
    const __m256i firstWanted = _mm256_set1_epi16(static_cast<short>(ends.first.wanted));
    const __m256i lastKept = _mm256_set1_epi16(static_cast<short>(ends.last.kept));
    const __m256i lastWanted = _mm256_set1_epi16(static_cast<short>(ends.last.wanted));
    for (std::size_t i = from; count - i >= 32; i += 32) {
        const wchar_t* head = text + i;
        const wchar_t* tail = head + ends.gap;
        const __m256i h0 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(head));
        const __m256i h1 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(head + 16));
        const __m256i t0 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(tail));
        const __m256i t1 = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(tail + 16));
        const __m256i c0 = _mm256_and_si256(_mm256_cmpeq_epi16(_mm256_and_si256(h0, firstKept), firstWanted),
                                            _mm256_cmpeq_epi16(_mm256_and_si256(t0, lastKept), lastWanted));
        const __m256i c1 = _mm256_and_si256(_mm256_cmpeq_epi16(_mm256_and_si256(h1, firstKept), firstWanted),
                                            _mm256_cmpeq_epi16(_mm256_and_si256(t1, lastKept), lastWanted));
        if (_mm256_testz_si256(_mm256_or_si256(c0, c1), _mm256_or_si256(c0, c1)) != 0) continue;
        // Packing works within each half of a vector; the permutation puts the quarters back in order.
        const __m256i both = _mm256_permute4x64_epi64(_mm256_packs_epi16(c0, c1), 0xD8);
        return {i, static_cast<unsigned>(_mm256_movemask_epi8(both))};
    }
    return nextBySse2(text, count, ends, count - (count - from) % 32);
}

// wanted ^ (kept & unit), which is 0 where the filter holds, as vpternlog's truth table.
constexpr int kAndThenXor = 0x78;

ORV_TARGET_AVX512 Candidates nextByAvx512(const wchar_t* text, std::size_t count, const NeedleEnds& ends,
                                          std::size_t from) {
    const __m512i firstKept = _mm512_set1_epi16(static_cast<short>(ends.first.kept));
    const __m512i firstWanted = _mm512_set1_epi16(static_cast<short>(ends.first.wanted));
    const __m512i lastKept = _mm512_set1_epi16(static_cast<short>(ends.last.kept));
    const __m512i lastWanted = _mm512_set1_epi16(static_cast<short>(ends.last.wanted));
    std::size_t i = from;
    for (; count - i >= 64; i += 64) {
        const wchar_t* head = text + i;
        const wchar_t* tail = head + ends.gap;
        const __m512i h0 = _mm512_ternarylogic_epi64(firstWanted, firstKept, _mm512_loadu_si512(head), kAndThenXor);
        const __m512i h1 =
            _mm512_ternarylogic_epi64(firstWanted, firstKept, _mm512_loadu_si512(head + 32), kAndThenXor);
        const __m512i t0 = _mm512_ternarylogic_epi64(lastWanted, lastKept, _mm512_loadu_si512(tail), kAndThenXor);
        const __m512i t1 = _mm512_ternarylogic_epi64(lastWanted, lastKept, _mm512_loadu_si512(tail + 32), kAndThenXor);
        const __m512i d0 = _mm512_or_si512(h0, t0);
        const __m512i d1 = _mm512_or_si512(h1, t1);
        // Lanes of the lesser: 0 where either half has a candidate.
        if (_mm512_testn_epi16_mask(_mm512_min_epu16(d0, d1), _mm512_set1_epi16(-1)) == 0) continue;
        const std::uint64_t bits =
            _mm512_testn_epi16_mask(d0, d0) | static_cast<std::uint64_t>(_mm512_testn_epi16_mask(d1, d1)) << 32;
        return {i, bits};
    }
    for (; i < count; i += 32) {
        const std::size_t left = count - i;
        const __mmask32 within = left >= 32 ? ~__mmask32{0} : _bzhi_u32(~0U, static_cast<unsigned>(left));
        const __m512i head = _mm512_maskz_loadu_epi16(within, text + i);
        const __m512i tail = _mm512_maskz_loadu_epi16(within, text + i + ends.gap);
        const __m512i differs = _mm512_or_si512(_mm512_ternarylogic_epi64(firstWanted, firstKept, head, kAndThenXor),
                                                _mm512_ternarylogic_epi64(lastWanted, lastKept, tail, kAndThenXor));
        const __mmask32 bits = _mm512_mask_testn_epi16_mask(within, differs, differs);
        if (bits != 0) return {i, bits};
    }
    return kNothingMore;
}

}  // namespace

Candidates nextCandidates(const wchar_t* text, std::size_t count, const NeedleEnds& ends, std::size_t from) {
    const VectorLevel level = vectorLevel();
    if (level >= VectorLevel::kAvx512) return nextByAvx512(text, count, ends, from);
    if (level >= VectorLevel::kAvx2) return nextByAvx2(text, count, ends, from);
    return nextBySse2(text, count, ends, from);
}

}  // namespace orv
