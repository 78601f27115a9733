#include "numeric/keywords.h"

#include <cstdint>

namespace orv {
namespace {

/// A word in any case as a number, of which no other name's is the same; 0 if it is no word of such characters.
constexpr std::uint64_t packed(WideView name) {
    constexpr std::size_t kLongest = 5;
    constexpr unsigned kByte = 8, kAscii = 128, kCase = L'a' - L'A';
    if (name.size() > kLongest) return 0;
    std::uint64_t word = 0;
    for (const wchar_t ch : name) {
        if (ch >= kAscii) return 0;
        word = word << kByte | (ch & ~kCase);
    }
    return word;
}

Keyword calculatorWord(std::uint64_t word) {
    switch (word) {
        case packed(L"SIN"):
            return Keyword::kSin;
        case packed(L"COS"):
            return Keyword::kCos;
        case packed(L"TAN"):
            return Keyword::kTan;
        case packed(L"PI"):
            return Keyword::kPi;
        default:
            return Keyword::kNone;
    }
}

struct Row {
    std::uint64_t word;
    Keyword keyword;
};
// clang-format off
constexpr Row kFortranWords[] = {
    {packed(L"MIN"), Keyword::kMin}, {packed(L"MAX"), Keyword::kMax}, {packed(L"SQRT"), Keyword::kSqrt},
    {packed(L"MOD"), Keyword::kMod}, {packed(L"LOG10"), Keyword::kLog10}, {packed(L"LOG"), Keyword::kLog},
    {packed(L"ABS"), Keyword::kAbs}, {packed(L"ACOS"), Keyword::kAcos}, {packed(L"ASIN"), Keyword::kAsin},
    {packed(L"ATAN"), Keyword::kAtan}, {packed(L"COSH"), Keyword::kCosh}, {packed(L"SINH"), Keyword::kSinh},
    {packed(L"EXP"), Keyword::kExp}, {packed(L"CHAR"), Keyword::kChar}, {packed(L"ICHAR"), Keyword::kIchar},
    {packed(L"INT"), Keyword::kInt}, {packed(L"NINT"), Keyword::kNint},
};
// clang-format on

}  // namespace

Keyword keywordOf(WideView name, ExpressionDialect dialect) {
    const std::uint64_t word = packed(name);
    if (word == 0) return Keyword::kNone;
    const Keyword keyword = calculatorWord(word);
    if (keyword != Keyword::kNone || dialect != ExpressionDialect::kFortran) return keyword;
    for (const Row& row : kFortranWords) {
        if (row.word == word) return row.keyword;
    }
    return Keyword::kNone;
}

}  // namespace orv
