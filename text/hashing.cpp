// MD5 (RFC 1321). Its steps form one chain, so only short chains between them make it fast: additions that do not wait
// for the last step stand first in each sum.
#include "orv/hashing.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t kBlock = 64;
constexpr std::size_t kLengthAt = 56;  // the length in bits ends the last block

// floor(2^32 * |sin(i + 1)|), as the RFC lists them.
// clang-format off
constexpr std::uint32_t kSines[64] = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};
constexpr int kTurns[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};
// clang-format on

using State = std::array<std::uint32_t, 4>;
constexpr State kStart = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};

template <std::size_t step>
[[gnu::always_inline]] inline void turn(std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                                        const std::uint32_t* words) {
    constexpr std::size_t round = step / 16;
    constexpr std::size_t word = (round == 0   ? step
                                  : round == 1 ? 5 * step + 1
                                  : round == 2 ? 3 * step + 5
                                               : 7 * step) %
                                 16;
    a += words[word] + kSines[step];
    if constexpr (round == 0) {
        a += d ^ (b & (c ^ d));
    } else if constexpr (round == 1) {
        a += ~d & c;  // does not wait for b, and shares no bit with what follows
        a += d & b;
    } else if constexpr (round == 2) {
        a += b ^ (c ^ d);
    } else {
        a += c ^ (b | ~d);
    }
    a = std::rotl(a, kTurns[round][step % 4]) + b;
}

template <std::size_t... fours>
[[gnu::always_inline]] inline void allTurns(State& s, const std::uint32_t* words, std::index_sequence<fours...>) {
    std::uint32_t a = s[0], b = s[1], c = s[2], d = s[3];
    ((turn<fours * 4>(a, b, c, d, words), turn<fours * 4 + 1>(d, a, b, c, words),
      turn<fours * 4 + 2>(c, d, a, b, words), turn<fours * 4 + 3>(b, c, d, a, words)),
     ...);
    s[0] += a;
    s[1] += b;
    s[2] += c;
    s[3] += d;
}

void digestBlock(State& state, const unsigned char* bytes) {
    std::uint32_t words[16];
    std::memcpy(words, bytes, kBlock);
    allTurns(state, words, std::make_index_sequence<16>());
}

State digest(const unsigned char* bytes, std::size_t count) {
    State state = kStart;
    std::size_t left = count;
    for (; left >= kBlock; left -= kBlock, bytes += kBlock)
        digestBlock(state, bytes);
    unsigned char end[2 * kBlock] = {};
    std::memcpy(end, bytes, left);
    end[left] = 0x80;
    const std::size_t endLength = left < kLengthAt ? kBlock : 2 * kBlock;
    const std::uint64_t bits = std::uint64_t{count} * 8;
    std::memcpy(end + endLength - sizeof bits, &bits, sizeof bits);
    digestBlock(state, end);
    if (endLength > kBlock) digestBlock(state, end + kBlock);
    return state;
}

static_assert(std::endian::native == std::endian::little, "texts and words are digested as they stand in memory");

}  // namespace

CString CHashing::md5(const CString& text) {
    const State state = digest(reinterpret_cast<const unsigned char*>(text.GetString()),
                               static_cast<std::size_t>(text.GetLength()) * sizeof(wchar_t));
    wchar_t hex[32];
    wchar_t* out = hex;
    for (std::uint32_t word : state) {
        for (int byte = 0; byte < 4; ++byte, word >>= 8) {
            *out++ = L"0123456789abcdef"[word >> 4 & 15];
            *out++ = L"0123456789abcdef"[word & 15];
        }
    }
    return {hex, 32};
}
