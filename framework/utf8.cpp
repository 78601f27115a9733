#include "framework/utf8.h"

#include "framework/cpu.h"
#include "framework/utf8_kernels.h"

namespace orv {
namespace {

using utf8::Byte;

constexpr wchar_t kReplacement = 0xFFFD;

/// One character read byte by byte, or one maximal bad part.
struct Step {
    std::uint32_t character;  // kReplacement for a bad part
    unsigned bytes;
    bool isBad;
};

constexpr bool isFollower(Byte byte, Byte low = 0x80, Byte high = 0xBF) { return byte >= low && byte <= high; }

/// What may begin with `lead`: how many bytes follow (0 for none: a bad byte) and the range of the first of them.
struct Sequence {
    unsigned followers;
    Byte low;
    Byte high;
};

constexpr Sequence sequenceOf(Byte lead) {
    if (lead >= 0xC2 && lead <= 0xDF) return {1, 0x80, 0xBF};
    if (lead >= 0xE0 && lead <= 0xEF) {
        return {2, lead == 0xE0 ? Byte{0xA0} : Byte{0x80}, lead == 0xED ? Byte{0x9F} : Byte{0xBF}};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        return {3, lead == 0xF0 ? Byte{0x90} : Byte{0x80}, lead == 0xF4 ? Byte{0x8F} : Byte{0xBF}};
    }
    return {0, 0, 0};
}

inline Step nextCharacter(const Byte* in, const Byte* end) {
    const Byte lead = *in;
    if (lead < 0x80) return {lead, 1, false};
    const Sequence sequence = sequenceOf(lead);
    if (sequence.followers == 0) return {kReplacement, 1, true};
    const auto left = static_cast<std::size_t>(end - in) - 1;
    std::uint32_t value = lead & (0x3FU >> sequence.followers);
    for (unsigned i = 1; i <= sequence.followers; ++i) {
        const bool isGood = i <= left && (i == 1 ? isFollower(in[i], sequence.low, sequence.high) : isFollower(in[i]));
        if (!isGood) return {kReplacement, i, true};
        value = value << 6 | (in[i] & 0x3FU);
    }
    return {value, sequence.followers + 1, false};
}

inline wchar_t* put(std::uint32_t character, wchar_t* out) {
    if (character < 0x10000) {
        *out++ = static_cast<wchar_t>(character);
    } else {
        *out++ = static_cast<wchar_t>(0xD7C0 + (character >> 10));
        *out++ = static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
    }
    return out;
}

const Byte* bytesOf(std::string_view bytes) { return reinterpret_cast<const Byte*>(bytes.data()); }

// How many bytes are decoded one character at a time before a vector kernel that stopped is asked again: as long a run
// as the kernel's block, so that a text full of what it does not do costs one wasted block in two.
constexpr std::ptrdiff_t kScalarRun = 64;

/// Decodes everything; `onBad(offset)` is told of each bad part and says whether to go on.
template <class OnBad>
inline std::size_t decode(std::string_view text, wchar_t* const start, OnBad onBad) {
    const Byte* const begin = bytesOf(text);
    const Byte* const end = begin + text.size();
    const Byte* in = begin;
    wchar_t* out = start;
    const bool isWide = vectorLevel() >= VectorLevel::kAvx512;
    while (in < end) {
        if (isWide && end - in > kScalarRun) {
            const utf8::Decoded run = utf8::decodeWide(in, end, out);
            in = run.in;
            out = run.out;
        }
        const Byte* const runEnd = end - in > kScalarRun && isWide ? in + kScalarRun : end;
        while (in < runEnd) {
            const utf8::Decoded run = utf8::decodeShort(in, runEnd, out);
            in = run.in;
            out = run.out;
            if (in >= runEnd) break;
            const Step step = nextCharacter(in, end);
            if (step.isBad && !onBad(static_cast<std::size_t>(in - begin))) {
                return static_cast<std::size_t>(out - start);
            }
            out = put(step.character, out);
            in += step.bytes;
        }
    }
    return static_cast<std::size_t>(out - start);
}

}  // namespace

Utf8Decoded decodeUtf8(std::string_view bytes, wchar_t* out) {
    Utf8Decoded result{0, 0, bytes.size()};
    result.length = decode(bytes, out, [&](std::size_t offset) {
        if (result.badParts++ == 0) result.firstBadAt = offset;
        return true;
    });
    return result;
}

bool decodeValidUtf8(std::string_view bytes, wchar_t* out, std::size_t& length) {
    bool isValid = true;
    length = decode(bytes, out, [&](std::size_t) { return isValid = false; });
    return isValid;
}

std::size_t cutUtf8Tail(std::string_view bytes) {
    const Byte* const begin = bytesOf(bytes);
    const Byte* const end = begin + bytes.size();
    for (std::size_t tail = 1; tail <= 3 && tail <= bytes.size(); ++tail) {
        const Byte* const lead = end - tail;
        if (isFollower(*lead)) continue;
        if (*lead < 0x80) return 0;
        const Step step = nextCharacter(lead, end);
        // A bad part that reaches the end is cut there, unless it is bad for what it is.
        return step.isBad && step.bytes == tail && sequenceOf(*lead).followers >= tail ? tail : 0;
    }
    return 0;
}

std::size_t encodeUtf8(WideView text, char* out) {
    const wchar_t* in = text.data();
    const wchar_t* const end = in + text.size();
    auto* const start = reinterpret_cast<Byte*>(out);
    Byte* to = start;
    const bool isWide = vectorLevel() >= VectorLevel::kAvx512;
    while (in < end) {
        const utf8::Encoded run =
            isWide && end - in >= 32 ? utf8::encodeWide(in, end, to) : utf8::encodeShort(in, end, to);
        in = run.in;
        to = run.out;
        const wchar_t* const runEnd = end - in > 32 ? in + 32 : end;
        // Behind a wide kernel a whole block is done by hand; otherwise all that is not ASCII.
        while (in < runEnd && (isWide || *in >= 0x80)) {
            const std::uint32_t unit = *in++;
            if (unit < 0x80) {
                *to++ = static_cast<Byte>(unit);
            } else if (unit < 0x800) {
                *to++ = static_cast<Byte>(0xC0 | unit >> 6);
                *to++ = static_cast<Byte>(0x80 | (unit & 0x3F));
            } else if ((unit & 0xFC00) == 0xD800 && in < end && (*in & 0xFC00) == 0xDC00) {
                const std::uint32_t value = 0x10000 + ((unit - 0xD800) << 10) + (*in++ - 0xDC00U);
                *to++ = static_cast<Byte>(0xF0 | value >> 18);
                *to++ = static_cast<Byte>(0x80 | (value >> 12 & 0x3F));
                *to++ = static_cast<Byte>(0x80 | (value >> 6 & 0x3F));
                *to++ = static_cast<Byte>(0x80 | (value & 0x3F));
            } else {
                const std::uint32_t value = (unit & 0xF800) == 0xD800 ? std::uint32_t{kReplacement} : unit;
                *to++ = static_cast<Byte>(0xE0 | value >> 12);
                *to++ = static_cast<Byte>(0x80 | (value >> 6 & 0x3F));
                *to++ = static_cast<Byte>(0x80 | (value & 0x3F));
            }
        }
    }
    return static_cast<std::size_t>(to - start);
}

WideString utf8ToWide(std::string_view bytes) {
    WideString text(bytes.size() + kUtf8Slack, 0);
    text.resize(decodeUtf8(bytes, text.data()).length);
    return text;
}

std::string wideToUtf8(WideView text) {
    std::string bytes(3 * text.size() + kUtf8Slack, '\0');
    bytes.resize(encodeUtf8(text, bytes.data()));
    return bytes;
}

}  // namespace orv
