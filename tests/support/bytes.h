// Bytes in tests: EF BB BF instead of escapes, in expectations and in their failures.
#pragma once

#include <cctype>
#include <cstdio>
#include <string>
#include <string_view>

/// "EF BB BF 'abc' 0A" => the bytes; what stands between apostrophes stands for itself.
inline std::string bytes(std::string_view notation) {
    std::string result;
    for (std::size_t i = 0; i < notation.size(); ++i) {
        if (notation[i] == '\'') {
            for (++i; i < notation.size() && notation[i] != '\''; ++i)
                result += notation[i];
        } else if (notation[i] != ' ') {
            result += static_cast<char>(std::stoi(std::string(notation.substr(i, 2)), nullptr, 16));
            ++i;
        }
    }
    return result;
}

inline std::string hex(std::string_view data) {
    std::string result;
    char digits[4];
    for (const char c : data) {
        std::snprintf(digits, sizeof(digits), "%02X ", static_cast<unsigned>(static_cast<unsigned char>(c)));
        result += digits;
    }
    return result;
}

/// As the suite's scrambled files hold it.
inline std::string scrambled(std::string data) {
    for (char& c : data)
        c = static_cast<char>(c + 3);
    return data;
}
