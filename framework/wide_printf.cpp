#include "framework/wide_printf.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "orv/numbers.h"
#include "platform/code_pages.h"

namespace orv {

namespace {

constexpr int kMaximumWidth = 1'000'000;

enum class Size { kNormal, kChar, kShort, kLong, k32, k64 };

// The arguments by reference, so that a function that takes one moves all on.
struct Arguments {
    va_list list;
};

struct Directive {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternative = false;
    bool zeros = false;
    int width = 0;
    int precision = -1;
    Size size = Size::kNormal;
    wchar_t conversion = 0;
};

// ---- Reading a directive ----

int bounded(long long value) { return static_cast<int>(value > kMaximumWidth ? kMaximumWidth : value); }

int readNumber(const wchar_t*& at) {
    long long value = 0;
    for (; *at >= L'0' && *at <= L'9'; ++at)
        value = bounded(value * 10 + (*at - L'0'));
    return static_cast<int>(value);
}

void readFlags(const wchar_t*& at, Directive& out) {
    for (;; ++at) {
        switch (*at) {
            case L'-':
                out.left = true;
                break;
            case L'+':
                out.plus = true;
                break;
            case L' ':
                out.blank = true;
                break;
            case L'#':
                out.alternative = true;
                break;
            case L'0':
                out.zeros = true;
                break;
            default:
                return;
        }
    }
}

void readWidth(const wchar_t*& at, Directive& out, Arguments& arguments) {
    if (*at == L'*') {
        ++at;
        const long long width = va_arg(arguments.list, int);
        if (width < 0) out.left = true;
        out.width = bounded(width < 0 ? -width : width);
    } else {
        out.width = readNumber(at);
    }
    if (*at != L'.') return;
    ++at;
    if (*at == L'*') {
        ++at;
        const int precision = va_arg(arguments.list, int);
        out.precision = precision < 0 ? -1 : bounded(precision);
    } else {
        out.precision = readNumber(at);
    }
}

void readSize(const wchar_t*& at, Directive& out) {
    const auto is = [&](const wchar_t* word) {
        const wchar_t* end = at;
        for (; *word != 0; ++word, ++end) {
            if (*end != *word) return false;
        }
        at = end;
        return true;
    };
    if (is(L"I64") || is(L"ll") || is(L"I") || is(L"j") || is(L"z") || is(L"t")) {
        if (at[-1] == L'I' && at[0] == L'3' && at[1] == L'2') {
            at += 2;
            out.size = Size::k32;
        } else {
            out.size = Size::k64;
        }
    } else if (is(L"hh")) {
        out.size = Size::kChar;
    } else if (is(L"h")) {
        out.size = Size::kShort;
    } else if (is(L"l") || is(L"w") || is(L"L")) {
        out.size = Size::kLong;
    }
}

// ---- Writing a field ----

// Sign or prefix, zeros, body: padded to the width.
void put(WideString& out, const Directive& directive, WideView prefix, std::size_t zeros, WideView body) {
    const std::size_t length = prefix.size() + zeros + body.size();
    const auto width = static_cast<std::size_t>(directive.width);
    const std::size_t padding = width > length ? width - length : 0;
    if (!directive.left) out.append(padding, L' ');
    out.append(prefix).append(zeros, L'0').append(body);
    if (directive.left) out.append(padding, L' ');
}

WideView signOf(const Directive& directive, bool negative) {
    if (negative) return L"-";
    if (directive.plus) return L"+";
    return directive.blank ? L" " : L"";
}

WideString widened(std::string_view text) {
    WideString wide(text.size(), L'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        wide[i] = static_cast<wchar_t>(text[i]);
    return wide;
}

void makeUpper(WideString& text) {
    for (wchar_t& ch : text) {
        if (ch >= L'a' && ch <= L'z') ch = static_cast<wchar_t>(ch - 32);
    }
}

void putInteger(WideString& out, const Directive& directive, bool negative, std::uint64_t size) {
    const wchar_t kind = directive.conversion;
    const int base = kind == L'x' || kind == L'X' ? 16 : kind == L'o' ? 8 : 10;
    std::array<char, 24> narrow;
    const char* end = std::to_chars(narrow.data(), narrow.data() + narrow.size(), size, base).ptr;
    WideString digits = widened(std::string_view(narrow.data(), static_cast<std::size_t>(end - narrow.data())));
    if (directive.precision == 0 && size == 0) digits.clear();
    if (kind == L'X') makeUpper(digits);

    WideView prefix = kind == L'd' ? signOf(directive, negative) : WideView();
    if (directive.alternative && base == 16 && size != 0) prefix = kind == L'X' ? L"0X" : L"0x";
    std::size_t zeros = 0;
    if (directive.precision >= 0) {
        const auto wanted = static_cast<std::size_t>(directive.precision);
        if (wanted > digits.size()) zeros = wanted - digits.size();
    } else if (directive.zeros && !directive.left) {
        const auto width = static_cast<std::size_t>(directive.width);
        if (width > prefix.size() + digits.size()) zeros = width - prefix.size() - digits.size();
    }
    if (directive.alternative && base == 8 && zeros == 0 && (digits.empty() || digits[0] != L'0')) zeros = 1;
    put(out, directive, prefix, zeros, digits);
}

std::string digitsOf(double value, std::chars_format format, int precision) {
    std::string text(static_cast<std::size_t>(precision) + 350, '\0');  // 309 digits before the point at most
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value, format, precision).ptr;
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

// "%g" with the flag "#": trailing zeros and the point stay.
std::string generalWithZeros(double value, int precision) {
    if (precision == 0) precision = 1;
    const std::string scientific = digitsOf(value, std::chars_format::scientific, precision - 1);
    int exponent = 0;
    const char* from = scientific.data() + scientific.find('e') + 1;
    if (*from == '+') ++from;
    std::from_chars(from, scientific.data() + scientific.size(), exponent);
    return exponent < -4 || exponent >= precision ? scientific
                                                  : digitsOf(value, std::chars_format::fixed, precision - 1 - exponent);
}

void putDouble(WideString& out, const Directive& directive, double value) {
    const wchar_t kind = directive.conversion | 0x20;
    const bool negative = std::signbit(value) && !std::isnan(value);
    const double size = std::fabs(value);
    if (directive.precision < 0 && directive.conversion == L'g' && !directive.alternative && !directive.zeros) {
        wchar_t digits[kGeneralLength];
        const int length = formatGeneral(size, digits);
        put(out, directive, signOf(directive, negative), 0, WideView(digits, static_cast<std::size_t>(length)));
        return;
    }
    std::string text;
    WideString prefix(signOf(directive, negative));
    if (!std::isfinite(size)) {
        text = std::isnan(size) ? "nan" : "inf";
    } else if (kind == L'a') {
        prefix += L"0x";
        if (directive.precision < 0) {
            std::array<char, 40> narrow;
            text.assign(narrow.data(),
                        std::to_chars(narrow.data(), narrow.data() + narrow.size(), size, std::chars_format::hex).ptr);
        } else {
            text = digitsOf(size, std::chars_format::hex, directive.precision);
        }
    } else {
        const int precision = directive.precision < 0 ? 6 : directive.precision;
        if (kind == L'g') {
            text = directive.alternative ? generalWithZeros(size, precision)
                                         : digitsOf(size, std::chars_format::general, precision);
        } else {
            text = digitsOf(size, kind == L'e' ? std::chars_format::scientific : std::chars_format::fixed, precision);
        }
        if (directive.alternative && text.find('.') == std::string::npos) {
            const std::size_t exponent = text.find('e');
            text.insert(exponent == std::string::npos ? text.size() : exponent, 1, '.');
        }
    }

    WideString wide = widened(text);
    if (directive.conversion != kind) {
        makeUpper(wide);
        makeUpper(prefix);
    }
    std::size_t zeros = 0;
    const auto width = static_cast<std::size_t>(directive.width);
    if (directive.zeros && !directive.left && std::isfinite(size) && width > prefix.size() + wide.size()) {
        zeros = width - prefix.size() - wide.size();
    }
    put(out, directive, prefix, zeros, wide);
}

WideString fromNarrow(std::string_view text) {
    WideString wide;
    platform::decode(platform::ansiCodePage(), text, wide);
    return wide;
}

// The length of a text of which at most `limit` characters (all, if negative) may be looked at.
template <class Char>
std::size_t boundedLength(const Char* text, int limit) {
    std::size_t length = 0;
    while ((limit < 0 || length < static_cast<std::size_t>(limit)) && text[length] != 0)
        ++length;
    return length;
}

bool takesWide(const Directive& directive) {
    if (directive.size == Size::kShort || directive.size == Size::kChar) return false;
    const bool capital = directive.conversion == L'S' || directive.conversion == L'C';
    return !capital || directive.size == Size::kLong;
}

void putText(WideString& out, const Directive& directive, Arguments& arguments) {
    if (takesWide(directive)) {
        const wchar_t* text = va_arg(arguments.list, const wchar_t*);
        if (text == nullptr) text = L"(null)";
        put(out, directive, {}, 0, WideView(text, boundedLength(text, directive.precision)));
    } else {
        const char* text = va_arg(arguments.list, const char*);
        if (text == nullptr) text = "(null)";
        put(out, directive, {}, 0, fromNarrow(std::string_view(text, boundedLength(text, directive.precision))));
    }
}

void putCharacter(WideString& out, const Directive& directive, Arguments& arguments) {
    const int code = va_arg(arguments.list, int);
    if (takesWide(directive)) {
        const auto ch = static_cast<wchar_t>(code);
        put(out, directive, {}, 0, WideView(&ch, 1));
    } else {
        const auto ch = static_cast<char>(code);
        put(out, directive, {}, 0, fromNarrow(std::string_view(&ch, 1)));
    }
}

void putSigned(WideString& out, Directive directive, Arguments& arguments) {
    std::int64_t value = 0;
    switch (directive.size) {
        case Size::k64:
            value = va_arg(arguments.list, long long);
            break;
        case Size::kLong:
            value = static_cast<std::int32_t>(va_arg(arguments.list, long));
            break;
        case Size::kChar:
            value = static_cast<signed char>(va_arg(arguments.list, int));
            break;
        case Size::kShort:
            value = static_cast<short>(va_arg(arguments.list, int));
            break;
        default:
            value = va_arg(arguments.list, int);
    }
    directive.conversion = L'd';
    const auto bits = static_cast<std::uint64_t>(value);
    putInteger(out, directive, value < 0, value < 0 ? 0 - bits : bits);
}

void putUnsigned(WideString& out, const Directive& directive, Arguments& arguments) {
    std::uint64_t value = 0;
    switch (directive.size) {
        case Size::k64:
            value = va_arg(arguments.list, unsigned long long);
            break;
        case Size::kLong:
            value = static_cast<std::uint32_t>(va_arg(arguments.list, unsigned long));
            break;
        case Size::kChar:
            value = static_cast<unsigned char>(va_arg(arguments.list, unsigned));
            break;
        case Size::kShort:
            value = static_cast<unsigned short>(va_arg(arguments.list, unsigned));
            break;
        default:
            value = va_arg(arguments.list, unsigned);
    }
    putInteger(out, directive, false, value);
}

void putPointer(WideString& out, Directive directive, Arguments& arguments) {
    const auto address = reinterpret_cast<std::uintptr_t>(va_arg(arguments.list, void*));
    directive.conversion = L'X';
    directive.precision = 16;
    directive.alternative = false;
    putInteger(out, directive, false, address);
}

// False for a conversion that there is not.
bool putDirective(WideString& out, const Directive& directive, Arguments& arguments) {
    switch (directive.conversion) {
        case L'd':
        case L'i':
            putSigned(out, directive, arguments);
            return true;
        case L'u':
        case L'o':
        case L'x':
        case L'X':
            putUnsigned(out, directive, arguments);
            return true;
        case L'c':
        case L'C':
            putCharacter(out, directive, arguments);
            return true;
        case L's':
        case L'S':
            putText(out, directive, arguments);
            return true;
        case L'p':
            putPointer(out, directive, arguments);
            return true;
        case L'a':
        case L'A':
        case L'e':
        case L'E':
        case L'f':
        case L'F':
        case L'g':
        case L'G':
            putDouble(out, directive, va_arg(arguments.list, double));
            return true;
        case L'%':
            out += L'%';
            return true;
        default:
            return false;
    }
}

}  // namespace

void appendFormatted(WideString& out, const wchar_t* format, va_list arguments) {
    if (format == nullptr) return;
    Arguments taken;
    va_copy(taken.list, arguments);
    while (*format != 0) {
        const wchar_t* percent = format;
        while (*percent != 0 && *percent != L'%')
            ++percent;
        out.append(format, static_cast<std::size_t>(percent - format));
        format = percent;
        if (*format == 0) break;

        const wchar_t* at = format + 1;
        Directive directive;
        readFlags(at, directive);
        readWidth(at, directive, taken);
        readSize(at, directive);
        directive.conversion = *at;
        if (*at != 0) ++at;
        if (!putDirective(out, directive, taken)) out.append(format, static_cast<std::size_t>(at - format));
        format = at;
    }
    va_end(taken.list);
}

}  // namespace orv
