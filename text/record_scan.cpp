#include "text/record_scan.h"

#include <emmintrin.h>
#include <immintrin.h>

#include <bit>
#include <cstdint>
#include <cstring>

#include "framework/cpu.h"

// The kernels load whole vectors from texts of unknown length, and so may read behind the closing NUL; never into
// another page, so that no such load can fault. The address sanitizer must be told.
#define ORV_READS_TO_PAGE_END __attribute__((no_sanitize("address", "thread")))

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

// What ends a plain run, save the separator.
__m128i otherEnds(__m128i part) {
    const __m128i breaks = _mm_or_si128(equal(part, L'\r'), equal(part, L'\n'));
    const __m128i escapes = _mm_or_si128(equal(part, kEscapedColon), equal(part, L'&'));
    return _mm_or_si128(_mm_or_si128(breaks, escapes), equal(part, 0));
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
        const unsigned special = bitsOf(_mm_or_si128(otherEnds(part), equal(part, separator)));
        if (special != 0) return static_cast<std::size_t>(at - text + std::countr_zero(special) / 2);
        at += kShort;
    }
}

std::size_t copySimpleFieldSse2(const wchar_t* text, wchar_t separator, wchar_t* to, std::size_t room) {
    for (std::size_t length = 0; length < 4 * kShort && charactersInPage(text + length) >= kShort;) {
        const __m128i part = loadShort(text + length);
        const unsigned others = bitsOf(otherEnds(part));
        const unsigned separators = bitsOf(equal(part, separator));
        const unsigned special = others | separators;
        if (special == 0) {
            length += kShort;
            continue;
        }
        if ((special & (0U - special) & separators & ~others) == 0) break;
        length += static_cast<std::size_t>(std::countr_zero(special)) / 2;
        if (length > room) break;
        std::memmove(to, text, length * sizeof(wchar_t));
        return length;
    }
    return kNoSimpleField;
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

ORV_KERNEL_INLINE ORV_TARGET_AVX512 unsigned otherEnds512(LongPart part) {
    return (equal512(part.characters, kEscapedColon) | equal512(part.characters, L'&') |
            equal512(part.characters, L'\r') | equal512(part.characters, L'\n') | equal512(part.characters, 0)) &
           part.valid;
}

ORV_TARGET_AVX512 ORV_READS_TO_PAGE_END std::size_t plainLengthAvx512(const wchar_t* text, wchar_t separator) {
    const wchar_t* at = text;
    for (;;) {
        const LongPart part = loadLong(at);
        const unsigned special = otherEnds512(part) | (equal512(part.characters, separator) & part.valid);
        if (special != 0) return static_cast<std::size_t>(at - text) + _tzcnt_u32(special);
        at += part.count;
    }
}

ORV_TARGET_AVX512 ORV_READS_TO_PAGE_END std::size_t copySimpleFieldAvx512(const wchar_t* text, wchar_t separator,
                                                                          wchar_t* to, std::size_t room) {
    if (charactersInPage(text) < kLong) return kNoSimpleField;
    const LongPart part{_mm512_loadu_si512(text), ~__mmask32{0}, kLong};
    const unsigned others = otherEnds512(part);
    const unsigned separators = equal512(part.characters, separator);
    const unsigned special = others | separators;
    const unsigned length = _tzcnt_u32(special);
    if ((_blsi_u32(special) & separators & ~others) == 0 || length > room) return kNoSimpleField;
    _mm512_mask_storeu_epi16(to, _bzhi_u32(~0U, length), part.characters);
    return length;
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

std::size_t copySimpleField(const wchar_t* text, wchar_t separator, wchar_t* to, std::size_t room) {
    return vectorLevel() >= VectorLevel::kAvx512 ? copySimpleFieldAvx512(text, separator, to, room)
                                                 : copySimpleFieldSse2(text, separator, to, room);
}

const wchar_t* skipSeparators(const wchar_t* text, wchar_t separator, long count) {
    return vectorLevel() >= VectorLevel::kAvx512 ? skipSeparatorsAvx512(text, separator, count)
                                                 : skipSeparatorsSse2(text, separator, count);
}

}  // namespace orv
