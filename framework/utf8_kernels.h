// The steps of UTF-8 conversion: scalar definitions, and vector kernels that do the easy runs of a text.
//
// A kernel converts as far as it can do so without a decision about bad input and says how far it came; the caller does
// the next characters one by one and calls it again. Kernels read nothing outside their input.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orv::utf8 {

using Byte = unsigned char;

/// How far a kernel came.
template <class In, class Out>
struct Progress {
    const In* in;
    Out* out;
};
using Decoded = Progress<Byte, wchar_t>;
using Encoded = Progress<wchar_t, Byte>;

/// SSE2: ASCII and the commonest longer characters. Stops at others and at bad bytes. Writes up to 15 characters beyond
/// its end.
Decoded decodeShort(const Byte* in, const Byte* end, wchar_t* out);
/// AVX-512: any well-formed characters of up to three bytes. Stops before the first block that holds others or bad
/// bytes, and when fewer than 66 bytes are left. Writes up to 63 characters beyond its end.
Decoded decodeWide(const Byte* in, const Byte* end, wchar_t* out);

/// SSE2: any characters but surrogates, ASCII fastest. Writes up to 15 bytes beyond its end.
Encoded encodeShort(const wchar_t* in, const wchar_t* end, Byte* out);
/// AVX-512: any characters but surrogates. Stops before the first block of 32 that holds one, and when fewer than 32
/// characters are left. Writes up to 64 bytes beyond its end.
Encoded encodeWide(const wchar_t* in, const wchar_t* end, Byte* out);

}  // namespace orv::utf8
