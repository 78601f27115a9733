// Every text over a small alphabet, for exhaustive comparison with a slow definition.
#pragma once

#include <vector>

#include "orv/wide.h"

/// All texts of up to `longest` characters, the empty one first.
inline std::vector<orv::WideString> allTexts(orv::WideView alphabet, std::size_t longest) {
    std::vector<orv::WideString> texts = {orv::WideString()};
    std::size_t first = 0;  // where the texts of the last length begin
    for (std::size_t length = 1; length <= longest; ++length) {
        const std::size_t end = texts.size();
        for (; first < end; ++first) {
            for (const wchar_t ch : alphabet)
                texts.push_back(texts[first] + ch);
        }
    }
    return texts;
}
