// Texts in tests: shown in UTF-8 when an expectation fails. Compare CString with CString or with a wide literal.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "orv/framework.h"
#include "orv/string_utilities.h"

inline void PrintTo(const CString& text, std::ostream* out) {
    *out << '"' << orvStdStrUtil::convertUnicodeToUtf8(text) << '"';
}

/// For failure messages: SCOPED_TRACE(utf8(row.text)).
inline std::string utf8(const wchar_t* text) { return orvStdStrUtil::convertUnicodeToUtf8(CString(text)); }

inline CString asText(CString text) { return text; }

/// EXPECT_TEXT(L"expected", actual)
#define EXPECT_TEXT(expected, actual) EXPECT_EQ(asText(expected), asText(actual))
#define ASSERT_TEXT(expected, actual) ASSERT_EQ(asText(expected), asText(actual))
