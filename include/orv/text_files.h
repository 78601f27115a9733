// What a text file is made of, for programs that report on files.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orv/export.h"
#include "orv/framework/string.h"

namespace orv {

enum class TextEncoding { kUtf8, kUtf16LittleEndian, kUtf16BigEndian, kWindows1252 };

struct TextFileInfo {
    TextEncoding encoding = TextEncoding::kUtf8;  // as orvStrUtil::readStringFromFileAuto decides
    bool hasMark = false;
    std::uint64_t bytes = 0;       // size of the file
    std::uint64_t characters = 0;  // 16-bit units after decoding
    std::uint64_t crLfEnds = 0;    // lines that end in CR LF, LF alone, CR alone
    std::uint64_t lfEnds = 0;
    std::uint64_t crEnds = 0;
    std::uint64_t undecodable = 0;       // bad parts of UTF-8 or UTF-16, bytes that Windows-1252 does not define
    std::uint64_t firstUndecodable = 0;  // byte offset in the file of the first of them, when there are any
};

/// Examines a file, scrambled or not. False when it cannot be read.
ORV_API bool inspectTextFile(const wchar_t* path, bool scrambled, TextFileInfo& out);

}  // namespace orv
