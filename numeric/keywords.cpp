#include "numeric/keywords.h"

namespace orv {
namespace {

struct Row {
    WideView name;
    Keyword keyword;
};

constexpr std::size_t kCalculatorWords = 4;
// clang-format off
constexpr Row kRows[] = {
    {L"SIN", Keyword::kSin}, {L"COS", Keyword::kCos}, {L"TAN", Keyword::kTan}, {L"PI", Keyword::kPi},
    // Fortran alone
    {L"MIN", Keyword::kMin}, {L"MAX", Keyword::kMax}, {L"SQRT", Keyword::kSqrt}, {L"MOD", Keyword::kMod},
    {L"LOG10", Keyword::kLog10}, {L"LOG", Keyword::kLog}, {L"ABS", Keyword::kAbs}, {L"ACOS", Keyword::kAcos},
    {L"ASIN", Keyword::kAsin}, {L"ATAN", Keyword::kAtan}, {L"COSH", Keyword::kCosh}, {L"SINH", Keyword::kSinh},
    {L"EXP", Keyword::kExp}, {L"CHAR", Keyword::kChar}, {L"ICHAR", Keyword::kIchar}, {L"INT", Keyword::kInt},
    {L"NINT", Keyword::kNint},
};
// clang-format on

bool isSame(WideView name, WideView upper) {
    if (name.size() != upper.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const wchar_t ch = name[i] >= L'a' && name[i] <= L'z' ? static_cast<wchar_t>(name[i] - L'a' + L'A') : name[i];
        if (ch != upper[i]) return false;
    }
    return true;
}

}  // namespace

Keyword keywordOf(WideView name, ExpressionDialect dialect) {
    constexpr std::size_t kLongest = 5;
    if (name.size() > kLongest) return Keyword::kNone;
    const std::size_t count = dialect == ExpressionDialect::kFortran ? std::size(kRows) : kCalculatorWords;
    for (std::size_t i = 0; i < count; ++i) {
        if (isSame(name, kRows[i].name)) return kRows[i].keyword;
    }
    return Keyword::kNone;
}

}  // namespace orv
