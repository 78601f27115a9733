// Text files of any bytes: detection and decoding against definitions in plain words, on every level of vector kernels;
// and what was decoded without loss is written back byte for byte.
#include <iconv.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "orv/string_utilities.h"
#include "orv/text_files.h"
#include "orv/vector_level.h"
#include "tests/support/slow_utf8.h"

namespace {

constexpr unsigned kPageWindows1252 = 3332, kPageUtf8 = 3333, kPageUtf8Mark = 65001, kPageUtf16 = 0xFFFFFFFF;

void check(bool holds) {
    if (!holds) std::abort();
}

/// One file in memory, of this process alone.
struct Scratch {
    std::string narrow = "/dev/shm/orv_fuzz_text_" + std::to_string(getpid());
    CString wide = orvStdStrUtil::convertUtf8ToUnicode(narrow);

    ~Scratch() { unlink(narrow.c_str()); }
    void put(const std::string& bytes) const {
        std::FILE* const file = std::fopen(narrow.c_str(), "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
    std::string get() const {
        static char bytes[1 << 20];
        std::FILE* const file = std::fopen(narrow.c_str(), "rb");
        const std::size_t size = std::fread(bytes, 1, sizeof(bytes), file);
        std::fclose(file);
        return {bytes, size};
    }
};

orv::WideString windows1252(const std::string& bytes) {
    static const iconv_t converter = iconv_open("UTF-16LE", "CP1252");
    orv::WideString text;
    for (char byte : bytes) {
        wchar_t unit = static_cast<unsigned char>(byte);  // the C1 control, for a byte without a character
        char* from = &byte;
        char* to = reinterpret_cast<char*>(&unit);
        std::size_t fromLeft = 1;
        std::size_t toLeft = sizeof(unit);
        iconv(converter, &from, &fromLeft, &to, &toLeft);
        text += unit;
    }
    return text;
}

orv::WideString utf16(const std::string& bytes, bool isBigEndian) {
    orv::WideString text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(isBigEndian ? first * 256 + second : second * 256 + first);
    }
    if (bytes.size() % 2 != 0) text += L'\xFFFD';
    return text;
}

struct Expected {
    orv::WideString text;
    orv::TextEncoding encoding = orv::TextEncoding::kUtf8;
    bool hasMark = true;
    bool isLossless = true;
};

Expected define(const std::string& bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        const bool isBig = bytes[0] == '\xFE';
        return {utf16(bytes.substr(2), isBig),
                isBig ? orv::TextEncoding::kUtf16BigEndian : orv::TextEncoding::kUtf16LittleEndian, true,
                bytes.size() % 2 == 0};
    }
    std::size_t bad = 0;
    if (bytes.starts_with("\xEF\xBB")) {
        const orv::WideString text = slowDecodeUtf8(bytes.size() < 3 ? "" : std::string_view(bytes).substr(3), &bad);
        return {text, orv::TextEncoding::kUtf8, true, bad == 0 && bytes.starts_with("\xEF\xBB\xBF")};
    }
    const orv::WideString text = slowDecodeUtf8(bytes, &bad);
    if (bad == 0) return {text, orv::TextEncoding::kUtf8, false, true};
    return {windows1252(bytes), orv::TextEncoding::kWindows1252, false, true};
}

void writeBack(const Scratch& scratch, const CString& text, const Expected& expected, std::string bytes,
               bool isScrambled) {
    switch (expected.encoding) {
        case orv::TextEncoding::kUtf8:
            check(orvStrUtil::writeStringBufferToFile(text, scratch.wide, true,
                                                      expected.hasMark ? kPageUtf8Mark : kPageUtf8, isScrambled));
            break;
        case orv::TextEncoding::kWindows1252:
            check(orvStrUtil::writeStringBufferToFile(text, scratch.wide, false, kPageWindows1252, isScrambled));
            break;
        case orv::TextEncoding::kUtf16BigEndian:
            for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
                std::swap(bytes[i], bytes[i + 1]);
            [[fallthrough]];
        case orv::TextEncoding::kUtf16LittleEndian:
            check(orvStrUtil::writeStringBufferToFile(text, scratch.wide, true, kPageUtf16, isScrambled));
            break;
    }
    for (char& byte : bytes)
        byte = static_cast<char>(byte + (isScrambled ? 3 : 0));
    check(scratch.get() == bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Scratch scratch;
    if (size == 0) return 0;
    const bool isScrambled = (data[0] & 1) != 0;
    const bool hasPlainMark = isScrambled && (data[0] & 2) != 0;
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const Expected expected = define(bytes);
    std::string stored = bytes;
    for (char& byte : stored)
        byte = static_cast<char>(byte + (isScrambled ? 3 : 0));
    // A file may by chance begin like one with a plain mark; it is then read as one, so that is left to a unit test.
    if (isScrambled && stored.starts_with("\xEF\xBB\xBF")) return 0;
    if (hasPlainMark) stored.insert(0, "\xEF\xBB\xBF");

    const std::string upToNul = bytes.c_str();
    const orv::WideString converted = slowDecodeUtf8(upToNul);
    const CString expectedText(expected.text.c_str(), static_cast<int>(expected.text.size()));
    for (const orv::VectorLevel level : {orv::VectorLevel::kSse2, orv::VectorLevel::kAvx2, orv::VectorLevel::kAvx512}) {
        if (orv::limitVectorLevel(level) != level) continue;
        check(orvStdStrUtil::convertUtf8ToUnicode(bytes) ==
              CString(converted.c_str(), static_cast<int>(converted.size())));
        check(orvStdStrUtil::convertUnicodeToUtf8(expectedText) == slowEncodeUtf8(expected.text.c_str()));
        scratch.put(stored);
        CString text;
        check(orvStrUtil::readStringFromFileAuto(text, scratch.wide, isScrambled) && text == expectedText);
        orv::TextFileInfo info;
        check(orv::inspectTextFile(scratch.wide, isScrambled, info));
        check(info.encoding == expected.encoding && info.hasMark == expected.hasMark &&
              info.characters == expected.text.size() && info.bytes == stored.size());
        if (expected.isLossless) writeBack(scratch, text, expected, bytes, isScrambled);
    }
    return 0;
}
