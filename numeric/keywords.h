// The words of the expression language.
#pragma once

#include "orv/expressions.h"

namespace orv {

enum class Keyword {
    kNone,
    kSin,
    kCos,
    kTan,
    kPi,
    kMin,
    kMax,
    kSqrt,
    kMod,
    kLog10,
    kLog,
    kAbs,
    kAcos,
    kAsin,
    kAtan,
    kCosh,
    kSinh,
    kExp,
    kChar,
    kIchar,
    kInt,
    kNint
};

Keyword keywordOf(WideView name, ExpressionDialect dialect);

}  // namespace orv
