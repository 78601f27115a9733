// Texts that look like trees: bytes pick pieces, so that most of what is made means something to a reader.
#pragma once

#include <cstdint>
#include <cstring>
#include <iterator>

#include "orv/wide.h"

/// The first byte decides: pieces, or the bytes as characters.
inline orv::WideString treeText(const std::uint8_t* data, std::size_t size) {
    static constexpr const wchar_t* kPieces[] = {
        L"[a]",   L"[b]",    L"[ENDE_a]", L"[ENDE_b]", L"<a>",    L"<b>",  L"</a>",     L"</b>",
        L"[/]",   L"\r\n",   L"\n",       L"\t",       L" ",      L"n:1",  L"m:x y",    L"n:1:2",
        L"n",     L":",      L"[",        L"]",        L"<",      L">",    L"/",        L"\r",
        L"ENDE_", L"\x2248", L"\xAE",     L"&n",       L"\xD800", L"\xA0", L"<a>v</a>", L"[a]\r\nn:1\r\n[ENDE_a]\r\n"};
    orv::WideString text;
    if (size == 0) return text;
    if (data[0] % 4 != 0) {
        for (std::size_t i = 1; i < size; ++i)
            text += kPieces[data[i] % std::size(kPieces)];
    } else {
        text.resize((size - 1) / 2);
        std::memcpy(text.data(), data + 1, text.size() * 2);
    }
    return text;
}
