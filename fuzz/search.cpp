// Searching and replacing without regard to case against slow definitions, with each set of vector instructions.
#include <cstdint>
#include <cstdlib>

#include "orv/string_utilities.h"
#include "orv/vector_level.h"

namespace {

using orv::WideString;
using orv::WideView;

wchar_t fold(wchar_t ch) {
    const bool capital = (ch >= 0x41 && ch <= 0x5A) || (ch >= 0xC0 && ch <= 0xDE) || (ch >= 0x410 && ch <= 0x42F);
    return static_cast<wchar_t>(capital ? ch + 32 : ch);
}

int slowFind(WideView text, WideView what, std::size_t start) {
    for (std::size_t at = start; at + what.size() <= text.size(); ++at) {
        std::size_t k = 0;
        while (k < what.size() && fold(text[at + k]) == fold(what[k]))
            ++k;
        if (k == what.size()) return static_cast<int>(at);
    }
    return -1;
}

// Mostly two letters, so that texts repeat; sometimes others around the edges of the folded ranges.
WideString textOf(const std::uint8_t* data, std::size_t size) {
    static constexpr WideView kEdges = L"@[`{\u00BF\u00DF\u00D7\u00F7\u040F\u0430\u0420\u0440\u0400\u0460zZ";
    WideString text;
    for (std::size_t i = 0; i < size; ++i)
        text += data[i] < 0xF0 ? L"aAbB"[data[i] % 4] : kEdges[data[i] % 16];
    return text;
}

void require(bool holds) {
    if (!holds) std::abort();
}

void check(const WideString& text, const WideString& what, const WideString& by, int start) {
    const CString subject(text.data(), static_cast<int>(text.size()));
    const int expected = start < subject.GetLength() ? slowFind(text, what, static_cast<std::size_t>(start)) : -1;
    require(orvStrUtil::FindIndexNoCase(subject, what.c_str(), start) == expected);

    WideString replaced;
    int count = 0;
    std::size_t copied = 0;
    if (!what.empty()) {
        for (int at = slowFind(text, what, 0); at >= 0; at = slowFind(text, what, copied)) {
            replaced.append(text, copied, static_cast<std::size_t>(at) - copied).append(by);
            copied = static_cast<std::size_t>(at) + what.size();
            ++count;
        }
    }
    replaced.append(text, copied);
    CString changed = subject;
    require(orvStrUtil::ReplaceNoCase(changed, what.c_str(), by.c_str()) == count);
    require(changed == CString(replaced.data(), static_cast<int>(replaced.size())));
    require(subject == CString(text.data(), static_cast<int>(text.size())));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4 || size > 6000) return 0;
    const std::size_t rest = size - 4;
    const std::size_t whatLength = data[0] % (rest / 2 + 1);
    const std::size_t byLength = data[1] % (rest / 4 + 1);
    const std::uint8_t* bytes = data + 4;
    const WideString what = textOf(bytes, whatLength);
    const WideString by = textOf(bytes + whatLength, byLength);
    WideString text = textOf(bytes + whatLength + byLength, rest - whatLength - byLength);
    for (int times = data[2] % 4; times > 0 && text.size() < 4000; --times)
        text += text;
    for (const auto level : {orv::VectorLevel::kSse2, orv::VectorLevel::kAvx2, orv::VectorLevel::kAvx512}) {
        orv::limitVectorLevel(level);
        check(text, what, by, data[3]);
    }
    return 0;
}
