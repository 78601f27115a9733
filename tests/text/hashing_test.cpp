// Digests computed by an independent tool (Python's hashlib over the text encoded as "utf-16-le").
#include "orv/hashing.h"
#include "support/text.h"

namespace {

TEST(Hashing, Texts) {
    // clang-format off
    const struct { const wchar_t *text, *digest; } rows[] = {
        {L"", L"d41d8cd98f00b204e9800998ecf8427e"},
        {L"a", L"4144e195f46de78a3623da7364d04f11"},
        {L"message digest", L"6f9ab83227f65f9b86c380e2c9c33031"},
        {L"Wärmepumpe Süd – 20 °C 𝄞", L"8a55898a977ec4cf3cb56b5c48aaa14a"},
        {L"\xD800", L"edcd2cc0bd7e607a4512f5c0683f4fb2"},  // a lone surrogate counts by its two bytes
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_TEXT(row.digest, CHashing::md5(row.text)) << utf8(row.text);
    EXPECT_TEXT(L"05c2d85585d36e935bc6be6d82f08708", CHashing::md5(CString(L"a\0b", 3))) << "a NUL is a character";
}

// Around the ends of blocks (32 characters) and of their room for the length (28); a text is a, b, ... z, a, ...
TEST(Hashing, LengthsAroundBlocks) {
    // clang-format off
    const struct { int length; const wchar_t* digest; } rows[] = {
        {27, L"d9d85fa2e83b215651211bd3452def48"}, {28, L"ee383c9c4bacf3f0e52ca7f94ab30262"},
        {29, L"ac704574ad6a2815128545786ee38d48"}, {31, L"4ef322ec5340f1bd32fe8c606f687644"},
        {32, L"ea17812e0981e816afbef06b72cd0aad"}, {33, L"0dbe8f5a88b0127f8f6b06a8020cdcac"},
        {59, L"141040653f23396e311fd7de47c0748b"}, {60, L"f0b91b29a786f7957106f6e5b82400f1"},
        {61, L"e023ab3f549e4825061dc8af585f6d37"}, {1000, L"c322e3caf9cf4f5d87348090010107d5"},
    };
    // clang-format on
    for (const auto& row : rows) {
        CString text;
        for (int i = 0; i < row.length; ++i)
            text.AppendChar(static_cast<wchar_t>(L'a' + i % 26));
        EXPECT_TEXT(row.digest, CHashing::md5(text)) << row.length << " characters";
    }
}

}  // namespace
