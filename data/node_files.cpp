#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <string_view>
#include <vector>

#include "framework/memory_blocks.h"
#include "framework/utf8.h"
#include "orv/node_format.h"
#include "orv/wide.h"

namespace {

constexpr unsigned kChunk = 1U << 30;
constexpr char kScrambleStep = 3;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

void shiftBytes(char* bytes, std::size_t count, char step) {
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<char>(bytes[i] + step);
}

/// The bytes from where the file stands to its end.
std::string_view readRest(CFile& file, std::uint64_t most, orv::LargeBlock& block, bool isScrambled) {
    if (most > std::numeric_limits<std::size_t>::max() / 4) throw std::bad_alloc();
    orv::LargeBlock(std::size_t{most}).swap(block);
    std::size_t size = 0;
    while (size < most) {
        const auto wanted = static_cast<unsigned>(std::min<std::uint64_t>(most - size, kChunk));
        const unsigned got = file.Read(block.data() + size, wanted);
        size += got;
        if (got == 0) break;
    }
    if (isScrambled) shiftBytes(block.data(), size, -kScrambleStep);
    return {block.data(), size};
}

/// Characters of a file, NUL-terminated.
class FileText {
  public:
    wchar_t* room(std::size_t count) {
        orv::LargeBlock((count + 1) * sizeof(wchar_t)).swap(block_);
        return reinterpret_cast<wchar_t*>(block_.data());
    }
    const wchar_t* end(std::size_t count) {
        auto* text = reinterpret_cast<wchar_t*>(block_.data());
        text[count] = 0;
        return text;
    }

  private:
    orv::LargeBlock block_;
};

wchar_t windows1252(unsigned char byte) {
    static constexpr wchar_t kUpper[] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                         0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? kUpper[byte - 0x80] : static_cast<wchar_t>(byte);
}

const wchar_t* decodeUtf16(std::string_view bytes, FileText& text) {
    const std::size_t count = (bytes.size() + 1) / 2;
    wchar_t* out = text.room(count);
    for (std::size_t i = 0; i < bytes.size() / 2; ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + 1]);
        out[i] = static_cast<wchar_t>(low | high << 8);
    }
    if (bytes.size() % 2 != 0) out[count - 1] = 0xFFFD;
    return text.end(count);
}

const wchar_t* decode(CFile& file, bool isScrambled, FileText& text) {
    const std::uint64_t length = file.GetLength();
    orv::LargeBlock block;
    unsigned char first[2] = {0, 0};
    file.Read(first, 2);
    auto mark = static_cast<std::uint16_t>(first[0] | first[1] << 8);
    // ODDITY(node-scrambled-mark): one subtraction for both bytes, which borrows: a scrambled UTF-16 mark is not
    // recognised, 02 02 is taken for one, and a plain UTF-8 mark stays one. Pinned by Nodes.FileEncodings.
    if (isScrambled && mark != 0xBBEF) mark = static_cast<std::uint16_t>(mark - 0x0303);
    if (mark == 0xFEFF) return decodeUtf16(readRest(file, length, block, isScrambled), text);
    if (mark == 0xBBEF) {
        file.Read(first, 1);
        const std::string_view bytes = readRest(file, length, block, isScrambled);
        wchar_t* out = text.room(bytes.size() + orv::kUtf8Slack);
        return text.end(orv::decodeUtf8(bytes, out).length);
    }
    file.SeekToBegin();
    const std::string_view bytes = readRest(file, length, block, isScrambled);
    std::transform(bytes.begin(), bytes.end(), text.room(bytes.size()),
                   [](char byte) { return windows1252(static_cast<unsigned char>(byte)); });
    return text.end(bytes.size());
}

}  // namespace

bool CProNodeBase::WriteToFile(CFile* file, bool scrambled, bool indented) const {
    if (file == nullptr) return false;
    const int level = indented ? 0 : -1;
    try {
        const std::size_t length = getSize(level) + 1;  // ODDITY(node-file-nul): the closing NUL is written too.
                                                        // Pinned by Nodes.FileEncodings.
        orv::LargeBlock text(length * sizeof(wchar_t));
        auto* characters = reinterpret_cast<wchar_t*>(text.data());
        WriteToMem(characters, level);
        orv::LargeBlock bytes(kUtf8Mark.size() + 3 * length + orv::kUtf8Slack);
        std::copy(kUtf8Mark.begin(), kUtf8Mark.end(), bytes.data());
        const std::size_t size =
            kUtf8Mark.size() + orv::encodeUtf8({characters, length}, bytes.data() + kUtf8Mark.size());
        if (scrambled) shiftBytes(bytes.data(), size, kScrambleStep);
        for (std::size_t at = 0; at < size; at += kChunk) {
            if (!file->Write(bytes.data() + at, static_cast<unsigned>(std::min<std::size_t>(size - at, kChunk))))
                return false;
        }
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool CProNodeBase::WriteToFile(const CString& path, bool scrambled, bool indented) const {
    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive)) return false;
    return WriteToFile(&file, scrambled, indented);
}

CProNodeBase* CProNodeBase::ReadFromFile(CFile* file, bool scrambled) {
    if (file == nullptr) return nullptr;
    try {
        FileText text;
        return ReadFromString(decode(*file, scrambled, text), 0, scrambled);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

CProNodeBase* CProNodeBase::ReadFromFile(const CString& path, bool scrambled) {
    CFile file;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite)) return nullptr;
    return ReadFromFile(&file, scrambled);
}
