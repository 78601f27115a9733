#include <emmintrin.h>

#include <bit>

#include "framework/utf8_kernels.h"

namespace orv::utf8 {
namespace {

__m128i load(const void* from) {
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
}

void store(void* to, __m128i value) {
    _mm_storeu_si128(static_cast<__m128i*>(to), value);
}

}  // namespace

Decoded decodeAscii(const Byte* in, const Byte* end, wchar_t* out) {
    const __m128i zero = _mm_setzero_si128();
    while (end - in >= 16) {
        const __m128i bytes = load(in);
        store(out, _mm_unpacklo_epi8(bytes, zero));
        store(out + 8, _mm_unpackhi_epi8(bytes, zero));
        const auto high = static_cast<unsigned>(_mm_movemask_epi8(bytes));
        const int run = high == 0 ? 16 : std::countr_zero(high);
        in += run;
        out += run;
        if (high != 0) return {in, out};
    }
    while (in < end && *in < 0x80)
        *out++ = *in++;
    return {in, out};
}

Encoded encodeAscii(const wchar_t* in, const wchar_t* end, Byte* out) {
    const __m128i zero = _mm_setzero_si128();
    while (end - in >= 16) {
        const __m128i first = load(in);
        const __m128i second = load(in + 8);
        store(out, _mm_packus_epi16(first, second));
        const __m128i low = _mm_packs_epi16(_mm_cmpeq_epi16(_mm_srli_epi16(first, 7), zero),
                                            _mm_cmpeq_epi16(_mm_srli_epi16(second, 7), zero));
        const unsigned other = static_cast<unsigned>(_mm_movemask_epi8(low)) ^ 0xFFFFU;
        const int run = other == 0 ? 16 : std::countr_zero(other);
        in += run;
        out += run;
        if (other != 0) return {in, out};
    }
    while (in < end && *in < 0x80)
        *out++ = static_cast<Byte>(*in++);
    return {in, out};
}

}  // namespace orv::utf8
