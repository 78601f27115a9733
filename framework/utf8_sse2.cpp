#include <emmintrin.h>

#include <bit>

#include "framework/utf8_kernels.h"

namespace orv::utf8 {
namespace {

__m128i load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

void store(void* to, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }

}  // namespace

namespace {

bool isFollower(unsigned byte) { return (byte & 0xC0) == 0x80; }

}  // namespace

Decoded decodeShort(const Byte* in, const Byte* end, wchar_t* out) {
    const __m128i zero = _mm_setzero_si128();
    while (end - in >= 16) {
        const __m128i bytes = load(in);
        store(out, _mm_unpacklo_epi8(bytes, zero));
        store(out + 8, _mm_unpackhi_epi8(bytes, zero));
        const auto high = static_cast<unsigned>(_mm_movemask_epi8(bytes));
        if (high == 0) {
            in += 16;
            out += 16;
            continue;
        }
        const int run = std::countr_zero(high);
        in += run;
        out += run;
        // Characters of two bytes, and the plain ones of three (neither E0 nor ED begins those).
        while (end - in >= 3) {
            const unsigned lead = in[0];
            if (lead >= 0xC2 && lead <= 0xDF && isFollower(in[1])) {
                *out++ = static_cast<wchar_t>((lead & 0x1F) << 6 | (in[1] & 0x3FU));
                in += 2;
            } else if ((lead & 0xF0) == 0xE0 && lead != 0xE0 && lead != 0xED && isFollower(in[1]) &&
                       isFollower(in[2])) {
                *out++ = static_cast<wchar_t>((lead & 0x0F) << 12 | (in[1] & 0x3FU) << 6 | (in[2] & 0x3FU));
                in += 3;
            } else {
                break;
            }
        }
        if (end > in && *in >= 0x80) return {in, out};
    }
    while (in < end && *in < 0x80)
        *out++ = *in++;
    return {in, out};
}

Encoded encodeShort(const wchar_t* in, const wchar_t* end, Byte* out) {
    const __m128i zero = _mm_setzero_si128();
    while (end - in >= 16) {
        const __m128i first = load(in);
        const __m128i second = load(in + 8);
        store(out, _mm_packus_epi16(first, second));
        const __m128i low = _mm_packs_epi16(_mm_cmpeq_epi16(_mm_srli_epi16(first, 7), zero),
                                            _mm_cmpeq_epi16(_mm_srli_epi16(second, 7), zero));
        const unsigned other = static_cast<unsigned>(_mm_movemask_epi8(low)) ^ 0xFFFFU;
        if (other == 0) {
            in += 16;
            out += 16;
            continue;
        }
        const int run = std::countr_zero(other);
        in += run;
        out += run;
        for (; in < end && *in >= 0x80 && (*in & 0xF800) != 0xD800; ++in) {
            const unsigned unit = *in;
            if (unit < 0x800) {
                *out++ = static_cast<Byte>(0xC0 | unit >> 6);
            } else {
                *out++ = static_cast<Byte>(0xE0 | unit >> 12);
                *out++ = static_cast<Byte>(0x80 | (unit >> 6 & 0x3F));
            }
            *out++ = static_cast<Byte>(0x80 | (unit & 0x3F));
        }
        if (in < end && *in >= 0x80) return {in, out};
    }
    while (in < end && *in < 0x80)
        *out++ = static_cast<Byte>(*in++);
    return {in, out};
}

}  // namespace orv::utf8
