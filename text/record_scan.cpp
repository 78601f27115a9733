#include "text/record_scan.h"

#include <emmintrin.h>
#include <immintrin.h>

#include <bit>
#include <cstdint>

#include "framework/cpu.h"

// The kernels load whole vectors from texts of unknown length, and so may read behind the closing NUL; never into
// another page, so that no such load can fault. The address sanitizer must be told.
#define ORV_READS_TO_PAGE_END __attribute__((no_sanitize("address")))

namespace orv {

namespace {

constexpr wchar_t kEscapedColon = 0x00AE;

// Characters from `text` to the end of its page.
std::size_t charactersInPage(const wchar_t* text) {
    constexpr std::uintptr_t kPage = 4096;
    return (kPage - (reinterpret_cast<std::uintptr_t>(text) & (kPage - 1))) / sizeof(wchar_t);
}

// One character with its escape.
wchar_t* putEscaped(wchar_t* to, wchar_t ch) {
    switch (ch) {
        case L':':
            *to++ = kEscapedColon;
            break;
        case L'\r':
            *to++ = L'&';
            *to++ = L'r';
            break;
        case L'\n':
            *to++ = L'&';
            *to++ = L'n';
            break;
        default:
            *to++ = ch;
    }
    return to;
}

bool endsPlainRun(wchar_t ch, wchar_t separator) {
    return ch == separator || ch == kEscapedColon || ch == L'&' || ch == L'\r' || ch == L'\n' || ch == 0;
}

// ---- The base line: 8 characters a step ----

constexpr std::size_t kShort = 8;

__m128i equal(__m128i characters, wchar_t ch) {
    return _mm_cmpeq_epi16(characters, _mm_set1_epi16(static_cast<short>(ch)));
}

// Two bits a character.
unsigned bitsOf(__m128i found) { return static_cast<unsigned>(_mm_movemask_epi8(found)); }

ORV_READS_TO_PAGE_END __m128i loadShort(const wchar_t* text) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

EscapedCopy copyEscapedSse2(const wchar_t* from, wchar_t* to, const wchar_t* end) {
    while (to < end) {
        if (charactersInPage(from) < kShort) {
            if (*from == 0) break;
            to = putEscaped(to, *from++);
            continue;
        }
        const __m128i part = loadShort(from);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), part);
        const __m128i breaks = _mm_or_si128(equal(part, L'\r'), equal(part, L'\n'));
        const unsigned special = bitsOf(_mm_or_si128(_mm_or_si128(breaks, equal(part, L':')), equal(part, 0)));
        if (special == 0) {
            from += kShort;
            to += kShort;
            continue;
        }
        const int plain = std::countr_zero(special) / 2;
        from += plain;
        to += plain;
        if (*from == 0) break;
        to = putEscaped(to, *from++);
    }
    return {from, to};
}

std::size_t plainLengthSse2(const wchar_t* text, wchar_t separator) {
    const wchar_t* at = text;
    for (;;) {
        if (charactersInPage(at) < kShort) {
            if (endsPlainRun(*at, separator)) return static_cast<std::size_t>(at - text);
            ++at;
            continue;
        }
        const __m128i part = loadShort(at);
        const __m128i breaks = _mm_or_si128(equal(part, L'\r'), equal(part, L'\n'));
        const __m128i escapes = _mm_or_si128(equal(part, kEscapedColon), equal(part, L'&'));
        const __m128i ends = _mm_or_si128(equal(part, separator), equal(part, 0));
        const unsigned special = bitsOf(_mm_or_si128(_mm_or_si128(breaks, escapes), ends));
        if (special != 0) return static_cast<std::size_t>(at - text + std::countr_zero(special) / 2);
        at += kShort;
    }
}

const wchar_t* skipSeparatorsSse2(const wchar_t* text, wchar_t separator, long count) {
    while (count > 0) {
        if (charactersInPage(text) < kShort) {
            if (*text == 0 || *text == L'\n') return nullptr;
            if (*text++ == separator) --count;
            continue;
        }
        const __m128i part = loadShort(text);
        unsigned ends = bitsOf(_mm_or_si128(equal(part, 0), equal(part, L'\n')));
        unsigned found = bitsOf(equal(part, separator));
        if (ends != 0) found &= (ends & (0U - ends)) - 1;  // only those before the end
        const int here = std::popcount(found) / 2;
        if (here < count) {
            if (ends != 0) return nullptr;
            count -= here;
            text += kShort;
            continue;
        }
        for (; count > 1; --count)
            found &= found - 1, found &= found - 1;
        return text + std::countr_zero(found) / 2 + 1;
    }
    return text;
}

// ---- AVX-512: 32 characters a step, the last ones of a page by a masked load ----

constexpr std::size_t kLong = 32;

struct LongPart {
    __m512i characters;
    __mmask32 valid;
    std::size_t count;
};

ORV_KERNEL_INLINE ORV_TARGET_AVX512 ORV_READS_TO_PAGE_END LongPart loadLong(const wchar_t* text) {
    const std::size_t inPage = charactersInPage(text);
    const std::size_t count = inPage < kLong ? inPage : kLong;
    const auto valid = static_cast<__mmask32>(_bzhi_u64(~std::uint64_t{0}, static_cast<unsigned>(count)));
    return {_mm512_maskz_loadu_epi16(valid, text), valid, count};
}

ORV_KERNEL_INLINE ORV_TARGET_AVX512 __mmask32 equal512(__m512i characters, wchar_t ch) {
    return _mm512_cmpeq_epi16_mask(characters, _mm512_set1_epi16(static_cast<short>(ch)));
}

ORV_TARGET_AVX512 ORV_READS_TO_PAGE_END EscapedCopy copyEscapedAvx512(const wchar_t* from, wchar_t* to,
                                                                      const wchar_t* end) {
    while (to < end) {
        const LongPart part = loadLong(from);
        _mm512_storeu_si512(to, part.characters);
        const __mmask32 special = (equal512(part.characters, L':') | equal512(part.characters, L'\r') |
                                   equal512(part.characters, L'\n') | equal512(part.characters, 0)) &
                                  part.valid;
        if (special == 0) {
            from += part.count;
            to += part.count;
            continue;
        }
        const unsigned plain = _tzcnt_u32(special);
        from += plain;
        to += plain;
        if (*from == 0) break;
        to = putEscaped(to, *from++);
    }
    return {from, to};
}

ORV_TARGET_AVX512 ORV_READS_TO_PAGE_END std::size_t plainLengthAvx512(const wchar_t* text, wchar_t separator) {
    const wchar_t* at = text;
    for (;;) {
        const LongPart part = loadLong(at);
        const __mmask32 special = (equal512(part.characters, separator) | equal512(part.characters, kEscapedColon) |
                                   equal512(part.characters, L'&') | equal512(part.characters, L'\r') |
                                   equal512(part.characters, L'\n') | equal512(part.characters, 0)) &
                                  part.valid;
        if (special != 0) return static_cast<std::size_t>(at - text) + _tzcnt_u32(special);
        at += part.count;
    }
}

ORV_TARGET_AVX512 ORV_READS_TO_PAGE_END const wchar_t* skipSeparatorsAvx512(const wchar_t* text, wchar_t separator,
                                                                            long count) {
    while (count > 0) {
        const LongPart part = loadLong(text);
        const __mmask32 ends = (equal512(part.characters, 0) | equal512(part.characters, L'\n')) & part.valid;
        unsigned found = equal512(part.characters, separator) & part.valid;
        if (ends != 0) found &= _blsmsk_u32(ends) >> 1;  // only those before the end
        const int here = std::popcount(found);
        if (here < count) {
            if (ends != 0) return nullptr;
            count -= here;
            text += part.count;
            continue;
        }
        const unsigned wanted = _pdep_u32(1U << (count - 1), found);
        return text + _tzcnt_u32(wanted) + 1;
    }
    return text;
}

}  // namespace

EscapedCopy copyEscaped(const wchar_t* from, wchar_t* to, const wchar_t* end) {
    return vectorLevel() >= VectorLevel::kAvx512 ? copyEscapedAvx512(from, to, end) : copyEscapedSse2(from, to, end);
}

std::size_t plainLength(const wchar_t* text, wchar_t separator) {
    return vectorLevel() >= VectorLevel::kAvx512 ? plainLengthAvx512(text, separator)
                                                 : plainLengthSse2(text, separator);
}

const wchar_t* skipSeparators(const wchar_t* text, wchar_t separator, long count) {
    return vectorLevel() >= VectorLevel::kAvx512 ? skipSeparatorsAvx512(text, separator, count)
                                                 : skipSeparatorsSse2(text, separator, count);
}

}  // namespace orv
