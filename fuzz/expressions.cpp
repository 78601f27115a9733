// Expressions against a reading of the grammar rule by rule, with a list of tokens; and any text for its end.
#include "orv/expressions.h"

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "orv/wide.h"

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

// The alphabet of the generated texts: one digit numbers, so that a token is a character or a word.
constexpr const wchar_t* kPieces[] = {L"1", L"2", L"0",   L"3,5", L"+",  L"-", L"*", L"/", L"^", L"|",
                                      L"(", L")", L"SIN", L"COS", L"PI", L"%", L";", L" ", L"#"};

struct Slowly {
    std::vector<int> tokens;  // places in kPieces
    std::size_t at = 0;
    int error = orv::kNoError;

    int token() const { return at < tokens.size() && error == orv::kNoError ? tokens[at] : -1; }
    bool is(const wchar_t* piece) const { return token() >= 0 && orv::WideView(kPieces[token()]) == piece; }
    void next() {
        ++at;
        if (is(L"#")) error = orv::kInvalidCharacter;
    }
    double fail(int number) {
        if (error == orv::kNoError) error = number;
        return 0;
    }
    static int cut(double value) {
        return std::isnan(value)  ? 0
               : value >= INT_MAX ? INT_MAX
               : value <= INT_MIN ? INT_MIN
                                  : static_cast<int>(value);
    }

    double expression() {
        double value = term();
        for (;;) {
            if (is(L"+")) {
                next();
                value += term();
            } else if (is(L"-")) {
                next();
                value -= term();
            } else if (is(L"|")) {
                next();
                const double right = term();
                value = cut(value) | cut(right);
            } else {
                return value;
            }
        }
    }
    double term() {
        double value = power();
        for (;;) {
            if (is(L"*")) {
                next();
                value *= power();
            } else if (is(L"/")) {
                next();
                const double right = power();
                if (right == 0) return fail(orv::kDivisionByZero);
                value /= right;
            } else if (is(L"SIN")) {
                next();
                value = std::sin(power());
            } else {
                return value;
            }
        }
    }
    double power() {
        const double base = primary();
        if (!is(L"^")) return base;
        next();
        const double exponent = primary();
        return exponent == 2 ? base * base : std::pow(base, exponent);
    }
    double primary() {
        if (is(L"-")) {
            next();
            return -primary();
        }
        if (is(L"+")) {
            next();
            return primary();
        }
        if (token() < 0) return 1;
        if (is(L"PI")) {
            next();
            return 3.141592653589793;
        }
        if (is(L"(")) {
            next();
            return closed(expression());
        }
        for (const auto& [piece, value] :
             {std::pair(L"1", 1.0), std::pair(L"2", 2.0), std::pair(L"0", 0.0), std::pair(L"3,5", 3.5)}) {
            if (is(piece)) {
                next();
                return value;
            }
        }
        if (is(L"SIN") || is(L"COS")) {
            const bool isSine = is(L"SIN");
            next();
            if (!is(L"(")) return fail(orv::kSyntaxError);
            next();
            const double angle = expression();
            const double value = isSine ? std::sin(angle) : std::cos(angle);
            return std::isnan(value) ? fail(orv::kSyntaxError) : closed(value);
        }
        if (is(L"%")) {
            next();
            if (!is(L"(")) return fail(orv::kSyntaxError);
            next();
            const int a = cut(expression());
            next();
            const int b = cut(expression());
            if (b == 0) return fail(orv::kDivisionByZero);
            return closed(b == -1 ? 0 : a % b);
        }
        return fail(orv::kSyntaxError);
    }
    double closed(double value) {
        if (!is(L")")) return fail(orv::kBracketNotClosed);
        next();
        return value;
    }
};

void checkAgainstTheGrammar(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::size_t kMost = 60;  // no deeper than the library goes
    orv::WideString text;
    Slowly slowly;
    for (std::size_t i = 0; i < size && i < kMost; ++i) {
        const int piece = bytes[i] % static_cast<int>(std::size(kPieces));
        if (orv::WideView(kPieces[piece]) != L" ") slowly.tokens.push_back(piece);
        text += kPieces[piece];
        text += L' ';
    }
    if (slowly.tokens.empty()) return;
    if (slowly.is(L"#")) slowly.error = orv::kInvalidCharacter;
    const double value = slowly.expression();
    if (slowly.error == orv::kNoError && slowly.at < slowly.tokens.size()) slowly.error = orv::kSyntaxError;
    const orv::Evaluation found = orv::evaluate(text);
    check(found.error == slowly.error);
    if (found.ok)
        check(std::memcmp(&found.value, &value, sizeof(value)) == 0 || (std::isnan(value) && std::isnan(found.value)));
}

void checkEnd(const std::uint8_t* bytes, std::size_t size) {
    const std::size_t count = size / sizeof(wchar_t);
    const std::unique_ptr<wchar_t[]> exact(new wchar_t[count]);
    if (count != 0) std::memcpy(exact.get(), bytes, count * sizeof(wchar_t));
    const orv::WideView text(exact.get(), count);
    for (const auto dialect : {orv::ExpressionDialect::kCalculator, orv::ExpressionDialect::kFortran}) {
        const orv::Evaluation found = orv::evaluate(text, nullptr, dialect);
        check(found.position >= 0 && found.length >= 0 &&
              static_cast<std::size_t>(found.position + found.length) <= count);
        CStringArray names;
        orv::namesInExpression(text, names, dialect);
        check(found.error == orv::kNoError || !found.ok);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    checkAgainstTheGrammar(bytes, size);
    checkEnd(bytes, size);
    return 0;
}
