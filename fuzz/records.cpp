// Field records: fields of any text, written and read back; and reading of any text, against the rules spelled out
// character by character.
#include "orv/records.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "orv/string_utilities.h"
#include "orv/vector_level.h"

namespace {

using Text = orv::WideString;

void check(bool holds) {
    if (!holds) std::abort();
}

// The text in an allocation of exactly its size, so that reading behind its end is seen.
std::unique_ptr<wchar_t[]> exact(const Text& text) {
    std::unique_ptr<wchar_t[]> copy(new wchar_t[text.size() + 1]);
    std::memcpy(copy.get(), text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    return copy;
}

Text escaped(const Text& value) {
    Text out;
    for (const wchar_t ch : value) {
        if (ch == L':')
            out += L'\x00AE';
        else if (ch == L'\r')
            out += L"&r";
        else if (ch == L'\n')
            out += L"&n";
        else
            out += ch;
    }
    return out;
}

struct Reader {
    const wchar_t* at;
    Text separator;

    bool isBreak() const { return at[0] == L'\n' || (at[0] == L'\r' && at[1] == L'\n'); }

    bool get(Text& out) {
        out.clear();
        if (*at == 0) return false;
        if (*at == 0x2248) ++at;
        std::size_t matched = 0;
        while (*at != 0) {
            if (isBreak()) return true;
            if (!separator.empty() && *at == separator[matched] && ++matched == separator.size()) {
                out.resize(out.size() - (separator.size() - 1));
                ++at;
                return true;
            }
            if (*at == 0x00AE) {
                out += L':';
                ++at;
            } else if (*at == L'&' && (at[1] == L'r' || at[1] == L'n')) {
                out += at[1] == L'r' ? L'\r' : L'\n';
                at += 2;
            } else {
                out += *at++;
            }
        }
        return false;
    }
};

void readAnyText(const Text& text, const Text& separator) {
    const auto copy = exact(text);
    const auto separatorCopy = exact(separator);
    COrvSubStr reader;
    if (separator.size() == 1) {
        reader.GetInit(copy.get(), separator[0]);
    } else {
        reader.GetInit(copy.get(), separatorCopy.get());
    }
    Reader slow{copy.get(), separator};
    long n = 0;
    for (bool more = true; more && n < 200;) {
        CString field(L"before");
        more = reader.Get(field);
        Text expected;
        check(slow.get(expected) == more);
        check(field == expected.c_str() && field.GetLength() == static_cast<int>(expected.size()));
        ++n;
        const CString byNumber = separator.size() == 1 ? orvStrUtil::GetSubStr(copy.get(), n, separator[0])
                                                       : orvStrUtil::GetSubStr(copy.get(), n, separatorCopy.get());
        check(byNumber == expected.c_str());
    }
}

void writeAndReadBack(const Text& text, const Text& separator) {
    std::vector<Text> values(1);
    for (const wchar_t ch : text) {
        if (ch == 1) {
            values.emplace_back();
        } else {
            values.back() += ch;
        }
    }
    COrvSubStr writer;
    writer.AddInit(separator.c_str());
    Text expected;
    for (const Text& value : values) {
        const auto copy = exact(value);
        writer.Add(copy.get());
        expected += escaped(value) + separator;
    }
    expected.resize(expected.size() - separator.size());
    CString record;
    writer.AddEnd(record);
    check(record == expected.c_str());

    // Only a one-character separator that no value and no escape holds gives the values back as they were, and only
    // values without escapes of their own.
    if (separator.size() != 1 || separator[0] == L'&' || separator[0] == L'r' || separator[0] == L'n') return;
    for (const Text& value : values) {
        if (value.find(separator[0]) != Text::npos || value.find(L'\x00AE') != Text::npos ||
            value.find(L"&r") != Text::npos || value.find(L"&n") != Text::npos ||
            (!value.empty() && value[0] == 0x2248)) {
            return;
        }
    }
    if (separator[0] == L'\x00AE' || separator[0] == L'\r' || separator[0] == L'\n' || separator[0] == 0x2248) return;
    COrvSubStr reader;
    reader.GetInit(record, separator[0]);
    for (const Text& value : values) {
        CString back;
        reader.Get(back);
        check(back == value.c_str());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    orv::limitVectorLevel(data[0] % 2 == 0 ? orv::VectorLevel::kSse2 : orv::VectorLevel::kAvx512);
    const wchar_t* const separators[] = {L":", L";", L"ab", L"&", L"r", L"::", L"", L"\r", L"\x00AE", L"\x2248"};
    const Text separator = separators[data[1] % std::size(separators)];
    Text text;
    for (std::size_t i = 2; i < size; ++i) {
        // One byte a character, with the characters that mean something within easy reach.
        const wchar_t ch = data[i] == 0xF0 ? L'\x2248' : static_cast<wchar_t>(data[i]);
        if (ch != 0) text += ch;
    }
    readAnyText(text, separator);
    writeAndReadBack(text, separator);
    return 0;
}
