#include <bit>

#include "framework/utf8_kernels.h"
#include "framework/wide_intrinsics.h"

namespace orv::utf8 {
namespace {

constexpr std::ptrdiff_t kBlock = 64;
constexpr std::ptrdiff_t kLookAhead = 2;  // the third byte of a character that begins at the block's last byte

ORV_TARGET_AVX512 ORV_KERNEL_INLINE __m512i bytesOf(int value) { return _mm512_set1_epi8(static_cast<char>(value)); }

ORV_TARGET_AVX512 ORV_KERNEL_INLINE __m512i lowHalf(__m512i bytes) {
    return _mm512_cvtepu8_epi16(_mm512_castsi512_si256(bytes));
}

ORV_TARGET_AVX512 ORV_KERNEL_INLINE __m512i highHalf(__m512i bytes) {
    return _mm512_cvtepu8_epi16(_mm512_extracti64x4_epi64(bytes, 1));
}

/// Characters of one and two bytes: the leading bytes as words, their followers, and which of them have one.
ORV_TARGET_AVX512 ORV_KERNEL_INLINE __m512i joinTwo(__m512i lead, __m512i next, __mmask32 two) {
    const __m512i value = _mm512_or_si512(_mm512_slli_epi16(_mm512_and_si512(lead, _mm512_set1_epi16(0x1F)), 6),
                                          _mm512_and_si512(next, _mm512_set1_epi16(0x3F)));
    return _mm512_mask_mov_epi16(lead, two, value);
}

/// The same with third bytes; the four bits of the lead fall into place by themselves.
ORV_TARGET_AVX512 ORV_KERNEL_INLINE __m512i joinThree(__m512i lead, __m512i next, __m512i third, __mmask32 two,
                                                      __mmask32 three) {
    const __m512i tail = _mm512_or_si512(_mm512_slli_epi16(_mm512_and_si512(next, _mm512_set1_epi16(0x3F)), 6),
                                         _mm512_and_si512(third, _mm512_set1_epi16(0x3F)));
    const __m512i value = _mm512_or_si512(_mm512_slli_epi16(lead, 12), tail);
    return _mm512_mask_mov_epi16(joinTwo(lead, next, two), three, value);
}

}  // namespace

ORV_TARGET_AVX512 Decoded decodeWide(const Byte* in, const Byte* end, wchar_t* out) {
    while (end - in >= kBlock + kLookAhead) {
        const __m512i bytes = _mm512_loadu_si512(in);
        const std::uint64_t high = _mm512_movepi8_mask(bytes);
        if (high == 0) {
            _mm512_storeu_si512(out, lowHalf(bytes));
            _mm512_storeu_si512(out + 32, highHalf(bytes));
            in += kBlock;
            out += kBlock;
            continue;
        }
        const std::uint64_t followers = _mm512_mask_cmplt_epu8_mask(high, bytes, bytesOf(0xC0));
        const std::uint64_t leads = high & ~followers;
        const std::uint64_t threes = _mm512_cmpge_epu8_mask(bytes, bytesOf(0xE0));
        const std::uint64_t refused =
            _mm512_cmpge_epu8_mask(bytes, bytesOf(0xF0)) | _mm512_mask_cmplt_epu8_mask(leads, bytes, bytesOf(0xC2));
        if (refused != 0) break;
        // A character that the block cuts belongs to the next one.
        int step = kBlock;
        if ((leads >> 63) != 0) {
            step = 63;
        } else if (((threes >> 62) & 1) != 0) {
            step = 62;
        }
        const std::uint64_t inStep = ~std::uint64_t{0} >> (kBlock - step);
        // Followers must stand exactly where the characters of this step ask for them, also behind the step's last
        // character; only a second byte of the character that was cut is not judged yet.
        const std::uint64_t asked = ((leads & inStep) << 1) | ((threes & inStep) << 2);
        const std::uint64_t unjudged = step == 62 ? std::uint64_t{1} << 63 : 0;
        if (((asked ^ followers) & ~unjudged) != 0) break;
        const std::uint64_t starts = ~followers & inStep;
        const __m512i nextBytes = _mm512_loadu_si512(in + 1);
        const __m512i lead = _mm512_maskz_compress_epi8(starts, bytes);
        const __m512i next = _mm512_maskz_compress_epi8(starts, nextBytes);
        const std::uint64_t twos = _pext_u64(leads & ~threes, starts);
        if (threes == 0) {
            _mm512_storeu_si512(out, joinTwo(lowHalf(lead), lowHalf(next), static_cast<__mmask32>(twos)));
            _mm512_storeu_si512(out + 32, joinTwo(highHalf(lead), highHalf(next), static_cast<__mmask32>(twos >> 32)));
        } else {
            // E0 with 80..9F would be too long a form, ED with A0..BF a surrogate.
            const std::uint64_t low = _mm512_cmplt_epu8_mask(nextBytes, bytesOf(0xA0));
            const std::uint64_t least = _mm512_cmpeq_epi8_mask(bytes, bytesOf(0xE0));
            const std::uint64_t surrogates = _mm512_cmpeq_epi8_mask(bytes, bytesOf(0xED));
            if ((((least & low) | (surrogates & ~low)) & inStep) != 0) break;
            const __m512i third = _mm512_maskz_compress_epi8(starts, _mm512_loadu_si512(in + kLookAhead));
            const std::uint64_t longs = _pext_u64(threes, starts);
            _mm512_storeu_si512(out, joinThree(lowHalf(lead), lowHalf(next), lowHalf(third),
                                               static_cast<__mmask32>(twos), static_cast<__mmask32>(longs)));
            _mm512_storeu_si512(
                out + 32, joinThree(highHalf(lead), highHalf(next), highHalf(third), static_cast<__mmask32>(twos >> 32),
                                    static_cast<__mmask32>(longs >> 32)));
        }
        in += step;
        out += std::popcount(starts);
    }
    return {in, out};
}

namespace {

/// The bytes of 16 characters in 32-bit lanes (first byte lowest), and which of the 64 bytes count.
ORV_TARGET_AVX512 ORV_KERNEL_INLINE Byte* encodeLanes(__m512i characters, Byte* out) {
    const __m512i follower = _mm512_set1_epi32(0x80);
    const __m512i six = _mm512_set1_epi32(0x3F);
    const __m512i last = _mm512_or_si512(_mm512_and_si512(characters, six), follower);
    const __m512i middle = _mm512_or_si512(_mm512_and_si512(_mm512_srli_epi32(characters, 6), six), follower);
    const __m512i two = _mm512_or_si512(_mm512_or_si512(_mm512_srli_epi32(characters, 6), _mm512_set1_epi32(0xC0)),
                                        _mm512_slli_epi32(last, 8));
    const __m512i three = _mm512_or_si512(_mm512_or_si512(_mm512_srli_epi32(characters, 12), _mm512_set1_epi32(0xE0)),
                                          _mm512_or_si512(_mm512_slli_epi32(middle, 8), _mm512_slli_epi32(last, 16)));
    const __mmask16 isLong = _mm512_cmpge_epu32_mask(characters, _mm512_set1_epi32(0x80));
    const __mmask16 isLonger = _mm512_cmpge_epu32_mask(characters, _mm512_set1_epi32(0x800));
    const __m512i bytes = _mm512_mask_mov_epi32(_mm512_mask_mov_epi32(characters, isLong, two), isLonger, three);
    const std::uint64_t counts = _pdep_u64(0xFFFF, 0x1111111111111111) | _pdep_u64(isLong, 0x2222222222222222) |
                                 _pdep_u64(isLonger, 0x4444444444444444);
    _mm512_storeu_si512(out, _mm512_maskz_compress_epi8(counts, bytes));
    return out + std::popcount(counts);
}

}  // namespace

ORV_TARGET_AVX512 Encoded encodeWide(const wchar_t* in, const wchar_t* end, Byte* out) {
    while (end - in >= 32) {
        const __m512i characters = _mm512_loadu_si512(in);
        const __mmask32 isLong = _mm512_cmpge_epu16_mask(characters, _mm512_set1_epi16(0x80));
        if (isLong == 0) {
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm512_cvtepi16_epi8(characters));
            out += 32;
        } else if (_mm512_cmpge_epu16_mask(characters, _mm512_set1_epi16(0x800)) == 0) {
            const __m512i lead = _mm512_or_si512(_mm512_srli_epi16(characters, 6), _mm512_set1_epi16(0xC0));
            const __m512i follower =
                _mm512_or_si512(_mm512_and_si512(characters, _mm512_set1_epi16(0x3F)), _mm512_set1_epi16(0x80));
            const __m512i two = _mm512_or_si512(lead, _mm512_slli_epi16(follower, 8));
            const __m512i bytes = _mm512_mask_mov_epi16(characters, isLong, two);
            const std::uint64_t counts = 0x5555555555555555 | _pdep_u64(isLong, 0xAAAAAAAAAAAAAAAA);
            _mm512_storeu_si512(out, _mm512_maskz_compress_epi8(counts, bytes));
            out += 32 + std::popcount(static_cast<std::uint32_t>(isLong));
        } else {
            const __m512i kind = _mm512_and_si512(characters, _mm512_set1_epi16(static_cast<short>(0xF800)));
            if (_mm512_cmpeq_epi16_mask(kind, _mm512_set1_epi16(static_cast<short>(0xD800))) != 0) break;
            out = encodeLanes(_mm512_cvtepu16_epi32(_mm512_castsi512_si256(characters)), out);
            out = encodeLanes(_mm512_cvtepu16_epi32(_mm512_extracti64x4_epi64(characters, 1)), out);
        }
        in += 32;
    }
    return {in, out};
}

}  // namespace orv::utf8
