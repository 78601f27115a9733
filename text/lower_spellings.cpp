#include "text/lower_spellings.h"

namespace orv::detail {

namespace {

struct FurtherSpelling {
    wchar_t lower;
    wchar_t further;
};

// Characters beside a lower case and its capital that have the same lower case.
constexpr FurtherSpelling kFurther[] = {
    {0x0069, 0x0130},  // i: capital I with dot
    {0x006B, 0x212A},  // k: Kelvin sign
    {0x00DF, 0x1E9E},  // sharp s, which is its own capital: the capital sharp s
    {0x00E5, 0x212B},  // a with ring: Angstrom sign
    {0x01C6, 0x01C5},  // the letters that have a title case
    {0x01C9, 0x01C8}, {0x01CC, 0x01CB}, {0x01F3, 0x01F2}, {0x03B8, 0x03F4},  // theta: capital theta symbol
    {0x03C9, 0x2126},                                                        // omega: Ohm sign
};

}  // namespace

LowerSpellings spellingsByTable(wchar_t lower) {
    wchar_t upper = toUpper(lower);
    if (toLower(upper) != lower) upper = lower;  // the long s has the capital S, which is another character's
    wchar_t third = lower;
    for (const FurtherSpelling& row : kFurther) {
        if (row.lower == lower) third = row.further;
    }
    return {lower, upper, third};
}

}  // namespace orv::detail
