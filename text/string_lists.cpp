// Text files as lists of lines.
#include <algorithm>
#include <new>

#include "framework/string_data.h"
#include "orv/string_utilities.h"
#include "text/text_writer.h"
#include "text/within_memory.h"

namespace {

using orv::withinMemory;

constexpr wchar_t kCr = L'\r';
constexpr wchar_t kLf = L'\n';

/// Replaces the list's content by the lines of a text.
void splitLines(const CString& text, CStringList& out) {
    out.RemoveAll();
    const wchar_t* at = text.GetString();
    const wchar_t* const end = at + text.GetLength();
    while (at < end) {
        const wchar_t* const lineEnd = std::find_if(at, end, [](wchar_t c) { return c == kCr || c == kLf; });
        out.AddTail(CString(at, static_cast<int>(lineEnd - at)));
        const bool isPair = end - lineEnd >= 2 && lineEnd[0] == kCr && lineEnd[1] == kLf;
        at = lineEnd + (isPair ? 2 : lineEnd < end ? 1 : 0);
    }
}

/// The entries, each with CR LF behind it.
CString joinLines(const CStringList& lines) {
    constexpr std::int64_t kLineEnd = 2;
    std::int64_t length = 0;
    for (POSITION at = lines.GetHeadPosition(); at != nullptr;)
        length += lines.GetNext(at).GetLength() + kLineEnd;
    if (length > orv::kMaximumTextLength) throw std::bad_alloc();
    CString text;
    if (length == 0) return text;
    wchar_t* to = text.GetBuffer(static_cast<int>(length));
    for (POSITION at = lines.GetHeadPosition(); at != nullptr;) {
        const CString& line = lines.GetNext(at);
        to = std::copy_n(line.GetString(), line.GetLength(), to);
        *to++ = kCr;
        *to++ = kLf;
    }
    text.ReleaseBufferSetLength(static_cast<int>(length));
    return text;
}

orv::WideView viewOf(const CString& text) { return {text.GetString(), static_cast<std::size_t>(text.GetLength())}; }

bool writeLines(const CStringList& lines, const wchar_t* path, unsigned codePage, bool scrambled) {
    return withinMemory(
        [&] { return orv::writeText(path, viewOf(joinLines(lines)), orv::listForm(codePage), scrambled); });
}

}  // namespace

bool orvStrUtil::readStringlistFromFile(CStringList& out, const wchar_t* path, unsigned codePage, bool scrambled) {
    CString text;
    return readStringBufferFromFile(text, path, codePage, scrambled) && withinMemory([&] {
               splitLines(text, out);
               return true;
           });
}

bool orvStrUtil::readStringlistFromFileAuto(CStringList& out, const wchar_t* path, bool scrambled) {
    CString text;
    return readStringFromFileAuto(text, path, scrambled) && withinMemory([&] {
               splitLines(text, out);
               return true;
           });
}

bool orvStrUtil::writeStringlistToFile(CStringList& lines, const wchar_t* path, unsigned codePage) {
    return writeLines(lines, path, codePage, false);
}

bool orvStrUtil::writeStringlistToFile(CStringList& lines, const wchar_t* path, unsigned codePage, bool scrambled) {
    return writeLines(lines, path, codePage, scrambled);
}

bool orvStrUtil::appendStringlistToFile(CStringList& lines, const wchar_t* path, unsigned codePage) {
    return withinMemory([&] { return orv::appendText(path, viewOf(joinLines(lines)), orv::listForm(codePage)); });
}
