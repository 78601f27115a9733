// Texts of 16-bit characters (UTF-16) that are not CString: traits, views and an owning buffer.
//
// `wchar_t` has 16 bits in every flavour of the library. On systems where the C library believes in 32 bits its wide
// functions, and the standard wide string with its usual traits, would read and write out of bounds. These traits use
// none of them.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace orv {

static_assert(sizeof(wchar_t) == 2, "orvbase needs 16-bit wide characters (-fshort-wchar)");

/// Character traits of 16-bit units. Order is the order of the unit values.
struct WideTraits : std::char_traits<wchar_t> {
    static constexpr int compare(const wchar_t* a, const wchar_t* b, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
        }
        return 0;
    }
    static constexpr std::size_t length(const wchar_t* text) {
        std::size_t count = 0;
        while (text[count] != 0)
            ++count;
        return count;
    }
    static constexpr const wchar_t* find(const wchar_t* text, std::size_t count, const wchar_t& wanted) {
        for (std::size_t i = 0; i < count; ++i) {
            if (text[i] == wanted) return text + i;
        }
        return nullptr;
    }
    static constexpr wchar_t* move(wchar_t* to, const wchar_t* from, std::size_t count) {
        if (std::is_constant_evaluated()) {
            if (to < from) {
                for (std::size_t i = 0; i < count; ++i)
                    to[i] = from[i];
            } else {
                for (std::size_t i = count; i > 0; --i)
                    to[i - 1] = from[i - 1];
            }
        } else if (count != 0) {
            std::memmove(to, from, count * sizeof(wchar_t));
        }
        return to;
    }
    static constexpr wchar_t* copy(wchar_t* to, const wchar_t* from, std::size_t count) {
        if (std::is_constant_evaluated()) {
            for (std::size_t i = 0; i < count; ++i)
                to[i] = from[i];
        } else if (count != 0) {
            std::memcpy(to, from, count * sizeof(wchar_t));
        }
        return to;
    }
    static constexpr wchar_t* assign(wchar_t* to, std::size_t count, wchar_t value) {
        for (std::size_t i = 0; i < count; ++i)
            to[i] = value;
        return to;
    }
    static constexpr void assign(wchar_t& to, const wchar_t& from) noexcept { to = from; }
};

using WideView = std::basic_string_view<wchar_t, WideTraits>;
using WideString = std::basic_string<wchar_t, WideTraits>;

}  // namespace orv
