// COrvSubStr: writing and reading one-line field records.
#include "orv/records.h"

#include <cmath>

#include "framework/string_access.h"
#include "orv/numbers.h"
#include "text/record_buffers.h"
#include "text/record_scan.h"

namespace {

constexpr wchar_t kEscapedColon = 0x00AE;
constexpr wchar_t kTranslationMark = 0x2248;

std::size_t lengthOf(const wchar_t* text) { return text == nullptr ? 0 : orv::WideTraits::length(text); }

bool isBreak(const wchar_t* text) { return text[0] == L'\n' || (text[0] == L'\r' && text[1] == L'\n'); }

// Decoded fields are put together in a buffer that all readers share and that is kept, so that no field allocates.
orv::WideString& fieldBuffer() {
    static orv::WideString buffer;
    return buffer;
}

// What a reader writes a field into: in one piece when there is nothing to decode, else piece by piece between start
// and finish.
class BufferSink {
  public:
    explicit BufferSink(orv::WideString& out) : out_(out) {}
    void whole(const wchar_t* text, std::size_t length) { out_.assign(text, length); }
    void start() { out_.clear(); }
    void append(const wchar_t* text, std::size_t length) { out_.append(text, length); }
    void put(wchar_t ch) { out_ += ch; }
    void drop(std::size_t count) { out_.erase(out_.size() - count); }
    void finish() {}

  private:
    orv::WideString& out_;
};

class StringSink {
  public:
    explicit StringSink(CString& out) : out_(out) {}
    void whole(const wchar_t* text, std::size_t length) { out_.SetString(text, static_cast<int>(length)); }
    void start() { fieldBuffer().clear(); }
    void append(const wchar_t* text, std::size_t length) { fieldBuffer().append(text, length); }
    void put(wchar_t ch) { fieldBuffer() += ch; }
    void drop(std::size_t count) { fieldBuffer().erase(fieldBuffer().size() - count); }
    void finish() { out_.SetString(fieldBuffer().data(), static_cast<int>(fieldBuffer().size())); }

  private:
    CString& out_;
};

// One character, or the escape that stands for one; `text` goes behind it.
wchar_t decode(const wchar_t*& text) {
    const wchar_t ch = *text++;
    if (ch == kEscapedColon) return L':';
    if (ch != L'&' || (*text != L'r' && *text != L'n')) return ch;
    return *text++ == L'r' ? L'\r' : L'\n';
}

double roundedToTenDecimals(double value) {
    constexpr double kScale = 1e10;
    const double scaled = value * kScale;
    return std::isfinite(scaled) ? std::floor(scaled + 0.5) / kScale : value;
}

}  // namespace

bool COrvSubStr::bSubstrReadRawTrData = false;

void COrvSubStr::setSubstrReadRawTrData(bool raw) { bSubstrReadRawTrData = raw; }

// Nothing is written yet: another object may have a record in the buffer.
COrvSubStr::COrvSubStr()
    : outputStart_(orv::firstRecordBuffer()),
      write_(outputStart_),
      outputEnd_(outputStart_ + orv::kRecordBufferLength) {}

void COrvSubStr::setSeparator(wchar_t separator) {
    separatorChar_ = separator;
    separatorText_ = nullptr;
    separatorLength_ = separator != 0 ? 1 : 0;
}

void COrvSubStr::setSeparator(const wchar_t* separator) {
    separatorChar_ = 0;
    separatorText_ = separator == nullptr ? L"" : separator;
    separatorLength_ = static_cast<std::uint32_t>(lengthOf(separator));
}

// ---- Writing ----

void COrvSubStr::startRecord() {
    outputStart_ = orv::firstRecordBuffer();
    outputEnd_ = outputStart_ + orv::kRecordBufferLength;
    write_ = outputStart_;
    *write_ = 0;
}

void COrvSubStr::AddInit(wchar_t separator) {
    setSeparator(separator);
    startRecord();
}

void COrvSubStr::AddInit(const wchar_t* separator) {
    setSeparator(separator);
    startRecord();
}

void COrvSubStr::moveToLargerBuffer() {
    const auto written = static_cast<std::size_t>(write_ - outputStart_);
    wchar_t* larger = orv::nextRecordBuffer(outputStart_);
    orv::WideTraits::copy(larger, outputStart_, written);
    outputStart_ = larger;
    outputEnd_ = orv::endOfRecordBuffer(larger);
    write_ = larger + written;
}

void COrvSubStr::append(const wchar_t* text, std::size_t length) {
    while (outputEnd_ - write_ <= static_cast<std::ptrdiff_t>(length))
        moveToLargerBuffer();
    orv::WideTraits::copy(write_, text, length);
    write_ += length;
}

void COrvSubStr::Add(const wchar_t* value) {
    const wchar_t* from = value == nullptr ? L"" : value;
    for (;;) {
        const orv::EscapedCopy copy = orv::copyEscaped(from, write_, outputEnd_);
        from = copy.from;
        write_ = copy.to;
        if (*from == 0 && write_ < outputEnd_) break;
        moveToLargerBuffer();
    }
    if (separatorChar_ != 0) {
        *write_++ = separatorChar_;
    } else {
        append(separatorText_, separatorLength_);
    }
    *write_ = 0;
}

// ODDITY(record-unsigned): unsigned values go through "%d", so 3000000000 is written "-1294967296". Stored records
// contain such fields. Pinned by Records.WritesNumbers.
void COrvSubStr::Add(int value) {
    wchar_t text[orv::kIntegerLength];
    orv::formatInteger(value, text);
    Add(text);
}

void COrvSubStr::Add(unsigned int value) { Add(static_cast<int>(value)); }
void COrvSubStr::Add(const long& value) { Add(static_cast<int>(value)); }
void COrvSubStr::Add(const unsigned long& value) { Add(static_cast<int>(value)); }

void COrvSubStr::Add(const float& value) { Add(static_cast<double>(value)); }

void COrvSubStr::Add(const double& value) {
    wchar_t text[orv::kGeneralLength];
    orv::formatGeneral(value == 0 ? 0.0 : value, text);  // a negative zero is "0" too
    Add(text);
}

void COrvSubStr::AddEnd(CString& out) {
    auto length = static_cast<std::size_t>(write_ - outputStart_);
    length -= separatorLength_ < length ? separatorLength_ : length;
    out.SetString(outputStart_, static_cast<int>(length));
    startRecord();
}

// ---- Reading ----

bool COrvSubStr::GetInit(const wchar_t* text, wchar_t separator) {
    setSeparator(separator);
    read_ = text;
    return text != nullptr && *text != 0 && *text != L'\n' && *text != L'\r';
}

bool COrvSubStr::GetInit(const wchar_t* text, const wchar_t* separator) {
    setSeparator(separator);
    read_ = text;
    return text != nullptr && *text != 0 && *text != L'\n' && *text != L'\r';
}

bool COrvSubStr::hasField() const { return read_ != nullptr && *read_ != 0 && !isBreak(read_); }

// Reads one field from a read pointer that is not at the end.
template <class Sink>
COrvSubStr::FieldEnd COrvSubStr::readField(Sink& sink) {
    if (!bSubstrReadRawTrData && *read_ == kTranslationMark) ++read_;
    if (separatorText_ != nullptr && separatorLength_ > 0) return readFieldBySeparatorText(sink);

    bool first = true;
    for (;;) {
        const wchar_t* run = read_;
        const std::size_t plain = orv::plainLength(run, separatorChar_);
        read_ += plain;
        const bool ends = *read_ == 0 || isBreak(read_);
        const bool separated = !ends && *read_ == separatorChar_;
        if (first && (ends || separated)) {
            sink.whole(run, plain);
        } else {
            if (first) sink.start();
            sink.append(run, plain);
            if (ends || separated) sink.finish();
        }
        if (ends) return *read_ == 0 ? FieldEnd::kText : FieldEnd::kBreak;
        if (separated) {
            ++read_;
            return FieldEnd::kSeparator;
        }
        sink.put(decode(read_));
        first = false;
    }
}

// ODDITY(record-separator-in-order): what matches of the separator is counted on over characters that do not match, so
// that a separator's characters separate wherever they stand in order: "axb" ends a field at the separator "ab".
// Stored records depend on it. Pinned by Records.SeparatorTextMatchesInOrder.
template <class Sink>
COrvSubStr::FieldEnd COrvSubStr::readFieldBySeparatorText(Sink& sink) {
    std::size_t matched = 0;
    sink.start();
    while (*read_ != 0 && !isBreak(read_)) {
        if (*read_ == separatorText_[matched] && ++matched == separatorLength_) {
            sink.drop(separatorLength_ - 1);
            sink.finish();
            ++read_;
            return FieldEnd::kSeparator;
        }
        sink.put(decode(read_));
    }
    sink.finish();
    return *read_ == 0 ? FieldEnd::kText : FieldEnd::kBreak;
}

// The usual case in one step: a short field without escapes and with a separator behind it, into a string that has
// room.
bool COrvSubStr::readSimpleField(CString& out) {
    if (separatorChar_ == 0) return false;
    std::size_t room = 0;
    wchar_t* to = orv::StringAccess::ownCharacters(out, room);
    if (to == nullptr) return false;
    const wchar_t* start = read_;
    if (!bSubstrReadRawTrData && *start == kTranslationMark) ++start;
    const std::size_t length = orv::copySimpleField(start, separatorChar_, to, room);
    if (length == orv::kNoSimpleField) return false;
    orv::StringAccess::setLength(out, length);
    read_ = start + length + 1;
    return true;
}

bool COrvSubStr::Get(CString& out) { return Get(out, true); }

bool COrvSubStr::Get(CString& out, bool clearIfNone) {
    if (read_ == nullptr || *read_ == 0) {
        if (clearIfNone) out.Empty();
        return false;
    }
    if (readSimpleField(out)) return true;
    StringSink sink(out);
    return readField(sink) != FieldEnd::kText;
}

COrvSubStr::FieldEnd COrvSubStr::readText(orv::WideString& out) {
    out.clear();
    if (read_ == nullptr || *read_ == 0) return FieldEnd::kText;
    BufferSink sink(out);
    return readField(sink);
}

template <class Number>
bool COrvSubStr::getInteger(Number& out, bool force) {
    orv::WideString& field = fieldBuffer();
    const bool more = readText(field) != FieldEnd::kText;
    if (force || !field.empty()) {
        const std::int32_t value = orv::parseInteger(field).value;
        if constexpr (std::is_unsigned_v<Number>) {
            out = static_cast<std::uint32_t>(value);
        } else {
            out = value;
        }
    }
    return more;
}

bool COrvSubStr::Get(int& out, bool force) { return getInteger(out, force); }
bool COrvSubStr::Get(unsigned int& out, bool force) { return getInteger(out, force); }
bool COrvSubStr::Get(long& out, bool force) { return getInteger(out, force); }
bool COrvSubStr::Get(unsigned long& out, bool force) { return getInteger(out, force); }

bool COrvSubStr::Get(bool& out, bool force) {
    int value = out ? 1 : 0;
    const bool more = getInteger(value, force);
    out = value != 0;
    return more;
}

bool COrvSubStr::Get(double& out, bool force) {
    orv::WideString& field = fieldBuffer();
    const bool more = readText(field) != FieldEnd::kText;
    if (force || !field.empty()) {
        for (wchar_t& ch : field) {
            if (ch == L',') ch = L'.';
        }
        out = roundedToTenDecimals(orv::parseDouble(field).value);
    }
    return more;
}

// ODDITY(record-float-comma): only the first comma of a float's field is a decimal sign, where a double's field takes
// them all; both are then cut at the second point. Pinned by Records.ReadsDecimals.
bool COrvSubStr::Get(float& out, bool force) {
    orv::WideString& field = fieldBuffer();
    const bool more = readText(field) != FieldEnd::kText;
    if (force || !field.empty()) {
        const std::size_t comma = field.find(L',');
        if (comma != orv::WideString::npos) field[comma] = L'.';
        out = static_cast<float>(roundedToTenDecimals(orv::parseDouble(field).value));
    }
    return more;
}

// ---- Walking ----

// Goes over `count` fields; false when the record has no field behind them.
bool COrvSubStr::skipFields(long count) {
    if (count == 0) return true;
    if (read_ == nullptr) return false;
    const bool plainSeparator = separatorChar_ != 0 && separatorChar_ != L'r' && separatorChar_ != L'n' &&
                                separatorChar_ != L'\r' && separatorChar_ != L'\n' &&
                                separatorChar_ != kTranslationMark;
    if (plainSeparator) {
        read_ = orv::skipSeparators(read_, separatorChar_, count);
        return read_ != nullptr;
    }
    for (; count > 0; --count) {
        if (readText(fieldBuffer()) != FieldEnd::kSeparator) return false;
    }
    return true;
}
