#include <array>
#include <iterator>

#include "orv/string_utilities.h"
#include "platform/files.h"
#include "text/text_encodings.h"
#include "text/text_reader.h"
#include "text/text_sinks.h"
#include "text/text_writer.h"
#include "text/within_memory.h"

namespace {

using orv::Unmarked;
using orv::withinMemory;

template <class Sink>
bool readInto(Sink& sink, const wchar_t* path, const Unmarked& unmarked, bool scrambled) {
    orv::TextSource source;
    orv::DecodedFile decoded;
    return source.open(path, scrambled) && orv::decodeText(source, unmarked, sink, decoded);
}

bool readString(CString& out, const wchar_t* path, const Unmarked& unmarked, bool scrambled) {
    return withinMemory([&] {
        orv::StringSink sink;
        if (!readInto(sink, path, unmarked, scrambled)) return false;
        out = sink.take();
        return true;
    });
}

}  // namespace

bool orvStrUtil::isUnicodeFile(const wchar_t* path, bool scrambled) {
    std::array<char, 3> start;
    orv::platform::File file;
    if (!file.openForReading(path) || file.read(start.data(), start.size()) != std::ssize(start)) return false;
    const std::string_view bytes(start.data(), start.size());
    const orv::ByteOrderMark plain = orv::findByteOrderMark(bytes);
    if (!scrambled) return plain.length != 0;
    if (plain.length != 0 && plain.encoding == orv::TextEncoding::kUtf8) return true;
    orv::unscramble(start.data(), start.size());
    return orv::findByteOrderMark(bytes).length != 0;
}

bool orvStrUtil::readStringFromFileAuto(CString& out, const wchar_t* path, bool scrambled) {
    return readString(out, path, {Unmarked::Kind::kDetect}, scrambled);
}

bool orvStrUtil::readStringBufferFromFile(CString& out, const wchar_t* path, unsigned codePage, bool scrambled) {
    return readString(out, path, orv::unmarkedByCodePage(codePage), scrambled);
}

bool orvStrUtil::readStringBufferFromFile(wchar_t*& out, const wchar_t* path, unsigned codePage, bool scrambled) {
    return withinMemory([&] {
        orv::ArraySink sink;
        if (!readInto(sink, path, orv::unmarkedByCodePage(codePage), scrambled)) return false;
        out = sink.take().release();
        return true;
    });
}

bool orvStrUtil::writeStringBufferToFile(const CString& text, const wchar_t* path, bool unicode, unsigned codePage,
                                         bool scrambled) {
    const orv::TextForm form = unicode ? orv::unicodeForm(codePage) : orv::convertedForm(codePage);
    const orv::WideView characters(text.GetString(), static_cast<std::size_t>(text.GetLength()));
    return withinMemory([&] { return orv::writeText(path, characters, form, scrambled); });
}
