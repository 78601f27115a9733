// UTF-8 in the plainest words, as an oracle for the fast conversions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orv/wide.h"

/// Whether some well-formed character begins with exactly these bytes: found by trying all that could be.
inline bool beginsSomeUtf8Character(std::string_view start) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(start[i])); };
    const unsigned lead = byte(0);
    std::size_t size = 0;
    std::uint32_t least = 0;
    if (lead < 0x80) size = 1;
    if (lead >= 0xC0 && lead < 0xE0) size = 2, least = 0x80;
    if (lead >= 0xE0 && lead < 0xF0) size = 3, least = 0x800;
    if (lead >= 0xF0 && lead < 0xF8) size = 4, least = 0x10000;
    if (size == 0 || start.size() > size) return false;
    std::uint32_t low = size == 1 ? lead : lead & (0x7FU >> size);
    std::uint32_t high = low;
    for (std::size_t i = 1; i < size; ++i) {
        const bool isKnown = i < start.size();
        if (isKnown && (byte(i) & 0xC0) != 0x80) return false;
        low = low << 6 | (isKnown ? byte(i) & 0x3F : 0);
        high = high << 6 | (isKnown ? byte(i) & 0x3F : 0x3F);
    }
    // Some value from low to high is long enough, is no surrogate and is not beyond the last character.
    for (std::uint32_t value = low < least ? least : low; value <= high && value <= 0x10FFFF; ++value) {
        if (value < 0xD800 || value > 0xDFFF) return true;
        value = 0xDFFF;
    }
    return false;
}

inline std::size_t utf8SizeOf(char lead) {
    const auto value = static_cast<unsigned char>(lead);
    return value < 0x80 ? 1 : value < 0xE0 ? 2 : value < 0xF0 ? 3 : 4;
}

inline orv::WideString slowDecodeUtf8(std::string_view bytes, std::size_t* badParts = nullptr) {
    orv::WideString result;
    std::size_t bad = 0;
    while (!bytes.empty()) {
        std::size_t good = 0;
        while (good < bytes.size() && good < 4 && beginsSomeUtf8Character(bytes.substr(0, good + 1)))
            ++good;
        if (good != 0 && good == utf8SizeOf(bytes[0])) {
            std::uint32_t value = good == 1 ? static_cast<unsigned char>(bytes[0])
                                            : static_cast<unsigned char>(bytes[0]) & (0x7FU >> good);
            for (std::size_t i = 1; i < good; ++i)
                value = value << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
            if (value >= 0x10000) result += static_cast<wchar_t>(0xD800 + ((value - 0x10000) >> 10));
            result += static_cast<wchar_t>(value >= 0x10000 ? 0xDC00 + ((value - 0x10000) & 0x3FF) : value);
        } else {
            result += L'\xFFFD';
            ++bad;
            good = good == 0 ? 1 : good;
        }
        bytes.remove_prefix(good);
    }
    if (badParts != nullptr) *badParts = bad;
    return result;
}

inline std::string slowEncodeUtf8(orv::WideView text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint32_t value = text[i];
        const bool isPair =
            value >= 0xD800 && value < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        if (isPair) value = 0x10000 + (value - 0xD800) * 0x400 + (text[++i] - 0xDC00U);
        if (value >= 0xD800 && value < 0xE000) value = 0xFFFD;
        const unsigned followers = value < 0x80 ? 0 : value < 0x800 ? 1 : value < 0x10000 ? 2 : 3;
        const unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
        result += static_cast<char>(leads[followers] + (value >> (6 * followers)));
        for (unsigned left = followers; left > 0; --left)
            result += static_cast<char>(0x80 + (value >> (6 * (left - 1)) & 0x3F));
    }
    return result;
}
