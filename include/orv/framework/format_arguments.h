// What may stand behind a format string.
//
// A printf-style function takes its arguments through "...", where a compiler lets a class object pass without a word
// and the function reads its bytes as a pointer. Every formatting entry point of the library is therefore a template
// that sends each argument through `formatArgument`: numbers and pointers pass as they are, a text class hands on its
// characters, every other class is an error at compile time.
#pragma once

#include <type_traits>

namespace orv {

/// Specialised, with kIsText = true and `static const wchar_t* characters(const T&)`, for classes that are texts.
template <class T>
struct FormatText {
    static constexpr bool kIsText = false;
};

template <class T>
auto formatArgument(const T& value) {
    using Plain = std::remove_cv_t<T>;
    if constexpr (FormatText<Plain>::kIsText) {
        return FormatText<Plain>::characters(value);
    } else if constexpr (std::is_array_v<Plain>) {
        return &value[0];
    } else {
        static_assert(std::is_arithmetic_v<Plain> || std::is_enum_v<Plain> || std::is_pointer_v<Plain> ||
                          std::is_null_pointer_v<Plain>,
                      "a format takes numbers, pointers and texts");
        if constexpr (std::is_floating_point_v<Plain>) {
            return static_cast<double>(value);
        } else {
            return value;
        }
    }
}

}  // namespace orv
