#include "text/text_encodings.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace orv {
namespace {

// clang-format off
/// The characters of the bytes 80..9F; source: the code page's published table.
constexpr std::array<wchar_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
// clang-format on

constexpr wchar_t characterOf(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : wchar_t{byte};
}

/// The byte of a character that is not the same number, or "?".
char byteOf(wchar_t character) {
    const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
    return found == kUpperControls.end() ? '?' : static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

__m128i load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

void store(void* to, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }

constexpr std::ptrdiff_t kVector = 16;  // bytes

}  // namespace

void decodeWindows1252(std::string_view bytes, wchar_t* out) {
    const auto* in = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = in + bytes.size();
    const __m128i zero = _mm_setzero_si128();
    for (; end - in >= kVector; in += kVector, out += kVector) {
        const __m128i block = load(in);
        store(out, _mm_unpacklo_epi8(block, zero));
        store(out + 8, _mm_unpackhi_epi8(block, zero));
        // As signed numbers 80..9F are the ones below -96.
        if (_mm_movemask_epi8(_mm_cmplt_epi8(block, _mm_set1_epi8(-96))) != 0) {
            for (int i = 0; i < kVector; ++i)
                out[i] = characterOf(in[i]);
        }
    }
    while (in < end)
        *out++ = characterOf(*in++);
}

std::size_t encodeWindows1252(WideView text, char* const out) {
    const wchar_t* in = text.data();
    const wchar_t* const end = in + text.size();
    char* to = out;
    const __m128i zero = _mm_setzero_si128();
    while (in < end) {
        while (end - in >= kVector) {
            const __m128i first = load(in);
            const __m128i second = load(in + 8);
            const __m128i wide = _mm_or_si128(first, second);
            if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_srli_epi16(wide, 7), zero)) != 0xFFFF) break;
            store(to, _mm_packus_epi16(first, second));
            in += kVector;
            to += kVector;
        }
        const wchar_t* const stop = std::min<std::ptrdiff_t>(end - in, kVector) + in;
        while (in < stop) {
            const wchar_t character = *in++;
            const bool isSame = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
            *to++ = isSame ? static_cast<char>(character) : byteOf(character);
            const bool isPair = (character & 0xFC00) == 0xD800 && in < end && (*in & 0xFC00) == 0xDC00;
            if (isPair) ++in;
        }
    }
    return static_cast<std::size_t>(to - out);
}

void decodeUtf16(std::string_view bytes, bool isBigEndian, wchar_t* out) {
    const std::size_t count = bytes.size() / sizeof(wchar_t);
    if (!isBigEndian) {
        if (count != 0) std::memcpy(out, bytes.data(), count * sizeof(wchar_t));
        return;
    }
    const char* in = bytes.data();
    std::size_t done = 0;
    for (; done + 8 <= count; done += 8) {
        const __m128i block = load(in + done * sizeof(wchar_t));
        store(out + done, _mm_or_si128(_mm_slli_epi16(block, 8), _mm_srli_epi16(block, 8)));
    }
    for (; done < count; ++done) {
        const auto high = static_cast<unsigned char>(in[2 * done]);
        const auto low = static_cast<unsigned char>(in[2 * done + 1]);
        out[done] = static_cast<wchar_t>(high << 8 | low);
    }
}

namespace {

void addToEach(char* bytes, std::size_t count, unsigned char amount) {
    const __m128i addend = _mm_set1_epi8(static_cast<char>(amount));
    std::size_t done = 0;
    for (; done + kVector <= count; done += kVector)
        store(bytes + done, _mm_add_epi8(load(bytes + done), addend));
    for (; done < count; ++done)
        bytes[done] = static_cast<char>(static_cast<unsigned char>(bytes[done]) + amount);
}

}  // namespace

void scramble(char* bytes, std::size_t count) { addToEach(bytes, count, kScrambleStep); }

void unscramble(char* bytes, std::size_t count) { addToEach(bytes, count, static_cast<unsigned char>(-kScrambleStep)); }

}  // namespace orv
