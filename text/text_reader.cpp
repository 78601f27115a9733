#include "text/text_reader.h"

#include <algorithm>
#include <string>

#include "framework/utf8.h"
#include "platform/code_pages.h"
#include "text/code_page_numbers.h"
#include "text/text_encodings.h"

namespace orv {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;

/// Calls step(bytes) with one window after the other; step returns how many of them it consumed (all of the last).
template <class Step>
bool forEachWindow(TextSource& source, Step step) {
    for (;;) {
        source.consume(step(source.bytes()));
        if (source.isLast()) return true;
        if (!source.load()) return false;
    }
}

bool decodeUtf8Text(TextSource& source, TextSink& sink, DecodedFile& result) {
    sink.expect(source.expectedBytes());
    return forEachWindow(source, [&](std::string_view bytes) {
        if (!source.isLast()) bytes.remove_suffix(cutUtf8Tail(bytes));
        const Utf8Decoded decoded = decodeUtf8(bytes, sink.room(bytes.size()));
        if (decoded.badParts != 0 && result.badParts == 0) result.firstBadAt = source.offset() + decoded.firstBadAt;
        result.badParts += decoded.badParts;
        sink.written(decoded.length);
        return bytes.size();
    });
}

/// As long as everything is UTF-8; leaves `isValid` false otherwise.
bool decodeStrictUtf8Text(TextSource& source, TextSink& sink, bool& isValid) {
    sink.expect(source.expectedBytes());
    for (;;) {
        std::string_view bytes = source.bytes();
        if (!source.isLast()) bytes.remove_suffix(cutUtf8Tail(bytes));
        std::size_t length = 0;
        isValid = decodeValidUtf8(bytes, sink.room(bytes.size()), length);
        if (!isValid) return true;
        sink.written(length);
        source.consume(bytes.size());
        if (source.isLast()) return true;
        if (!source.load()) return false;
    }
}

bool decodeWindows1252Text(TextSource& source, TextSink& sink) {
    sink.expect(source.expectedBytes());
    return forEachWindow(source, [&](std::string_view bytes) {
        decodeWindows1252(bytes, sink.room(bytes.size()));
        sink.written(bytes.size());
        return bytes.size();
    });
}

bool decodeUtf16Text(TextSource& source, bool isBigEndian, TextSink& sink, DecodedFile& result) {
    sink.expect(source.expectedBytes() / 2 + 1);
    return forEachWindow(source, [&](std::string_view bytes) {
        std::size_t count = bytes.size() / 2;
        wchar_t* const out = sink.room(count + 1);
        decodeUtf16(bytes, isBigEndian, out);
        const bool isCut = source.isLast() && bytes.size() % 2 != 0;
        if (isCut) {
            result.badParts = 1;
            result.firstBadAt = source.offset() + bytes.size() - 1;
            out[count++] = kReplacement;
        }
        sink.written(count);
        return isCut ? bytes.size() : bytes.size() / 2 * 2;
    });
}

/// A page of the system may have state from its first byte to its last, so it is converted in one piece.
bool decodeSystemPageText(TextSource& source, unsigned page, TextSink& sink) {
    std::string all;
    const bool isRead = forEachWindow(source, [&](std::string_view bytes) {
        all.append(bytes);
        return bytes.size();
    });
    WideString text;
    if (!isRead || !platform::decode(page, all, text)) return false;
    sink.expect(text.size());
    WideTraits::copy(sink.room(text.size()), text.data(), text.size());
    sink.written(text.size());
    return true;
}

}  // namespace

ByteOrderMark findByteOrderMark(std::string_view bytes) {
    constexpr std::size_t kUtf8MarkLength = 3;
    if (bytes.starts_with("\xFF\xFE")) return {TextEncoding::kUtf16LittleEndian, 2};
    if (bytes.starts_with("\xFE\xFF")) return {TextEncoding::kUtf16BigEndian, 2};
    // ODDITY(mark-two-bytes): EF BB alone decides, and three bytes are skipped whatever the third one is.
    // Pinned by TextFiles.TwoBytesOfTheUtf8MarkDecide.
    if (bytes.starts_with("\xEF\xBB")) return {TextEncoding::kUtf8, std::min(bytes.size(), kUtf8MarkLength)};
    return {};
}

Unmarked unmarkedByCodePage(unsigned codePage) {
    using Kind = Unmarked::Kind;
    // ODDITY(unmarked-65001): UTF-8 without a mark is not trusted under 65001, nor UTF-16 under -1: both read as
    // Windows-1252. Pinned by TextFiles.UnmarkedFilesAreReadByTheCodePage.
    if (codePage == kPageUtf8Mark || codePage == kPageUtf16 || codePage == kPageWindows1252) {
        return {Kind::kWindows1252};
    }
    if (codePage == kPageUtf8) return {Kind::kUtf8};
    const unsigned page = codePage == kPageOem ? platform::oemCodePage() : codePage;
    if (page == kSystemPageUtf8) return {Kind::kUtf8};  // a system whose OEM page is UTF-8
    if (page == kSystemPageWindows1252 || !platform::knowsCodePage(page)) return {Kind::kWindows1252};
    return {Kind::kSystemPage, page};
}

bool decodeText(TextSource& source, const Unmarked& unmarked, TextSink& sink, DecodedFile& result) {
    const ByteOrderMark mark = findByteOrderMark(source.bytes());
    source.consume(mark.length);
    result = {mark.encoding, mark.length != 0, 0, 0, source.offset()};
    if (result.hasMark) {
        if (mark.encoding == TextEncoding::kUtf8) return decodeUtf8Text(source, sink, result);
        return decodeUtf16Text(source, mark.encoding == TextEncoding::kUtf16BigEndian, sink, result);
    }
    switch (unmarked.kind) {
        case Unmarked::Kind::kUtf8:
            return decodeUtf8Text(source, sink, result);
        case Unmarked::Kind::kDetect: {
            bool isValid = false;
            if (!decodeStrictUtf8Text(source, sink, isValid)) return false;
            if (isValid) return true;
            sink.restart();
            if (!source.rewind()) return false;
            break;
        }
        case Unmarked::Kind::kWindows1252:
            break;
        case Unmarked::Kind::kSystemPage:
            result.encoding = TextEncoding::kWindows1252;
            return decodeSystemPageText(source, unmarked.page, sink);
    }
    result.encoding = TextEncoding::kWindows1252;
    return decodeWindows1252Text(source, sink);
}

}  // namespace orv
