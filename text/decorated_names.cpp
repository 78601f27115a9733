// Exported names of sibling modules are written in the sources in the form that 32-bit modules with narrow texts gave
// them once; look-ups need the form of today's.
#include "orv/string_utilities.h"

namespace {

struct Replacement {
    const wchar_t* from;
    const wchar_t* to;
};

// Applied one after the other, each to the whole name: the order matters.
// clang-format off
constexpr Replacement kReplacements[] = {
    {L"@D",             L"@_W"},               // char -> wchar_t
    {L"$StrTraitMFC@",  L"$StrTraitMFC_DLL@"},
    {L"PBD",            L"PEB_W"},             // const char* -> 64-bit const wchar_t*
    {L"PB_W",           L"PEB_W"},
    {L"PAD",            L"PEA_W"},             // char* -> 64-bit wchar_t*
    {L"PA_W",           L"PEA_W"},
    {L"QBD",            L"QEB_W"},             // the same as constants
    {L"QB_W",           L"QEB_W"},
    {L"AAV",            L"AEAV"},              // class references and pointers -> 64-bit ones
    {L"ABV",            L"AEBV"},
    {L"PAV",            L"PEAV"},
    {L"PBV",            L"PEBV"},
    {L"HABH",           L"HAEBH"},
};
// clang-format on

}  // namespace

std::string orvStrUtil::translateDecoratedName(const CString& name) {
    CString result = name;
    for (const Replacement& row : kReplacements)
        result.Replace(row.from, row.to);
    return orvStdStrUtil::convertUnicodeToUtf8(result);
}
