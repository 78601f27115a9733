// Windows code pages through the C library's converter, which does not depend on the locale.
#include "platform/code_pages.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "framework/utf8.h"

namespace orv::platform {
namespace {

constexpr unsigned kUtf8Page = 65001;
constexpr unsigned kWesternOemPage = 850;

/// Numbers of Windows whose sets the converter knows under another name than "CP" and the number.
struct NamedPage {
    unsigned page;
    const char* name;
};
constexpr NamedPage kNamedPages[] = {
    {10000, "MACINTOSH"},   {20127, "US-ASCII"},   {20866, "KOI8-R"},     {20932, "EUC-JP"},     {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},  {28592, "ISO-8859-2"}, {28593, "ISO-8859-3"}, {28594, "ISO-8859-4"}, {28595, "ISO-8859-5"},
    {28596, "ISO-8859-6"},  {28597, "ISO-8859-7"}, {28598, "ISO-8859-8"}, {28599, "ISO-8859-9"}, {28603, "ISO-8859-13"},
    {28605, "ISO-8859-15"}, {51932, "EUC-JP"},     {51949, "EUC-KR"},     {52936, "HZ"},         {54936, "GB18030"},
};
/// The pages of one byte or more a character that Windows has under the name "CP" and the number.
constexpr unsigned kNumberedPages[] = {37,   437,  500,  737,  775,  850,  852,  855,  857,  858, 860, 861,
                                       862,  863,  864,  865,  866,  869,  874,  932,  936,  949, 950, 1026,
                                       1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 1361};

/// An open conversion.
class Converter {
  public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (isOpen()) iconv_close(handle_);
    }
    bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    /// One step of conversion; 0 or the error (EILSEQ, EINVAL for a cut sequence, E2BIG).
    int convert(char*& from, std::size_t& fromLeft, char*& to, std::size_t& toLeft) {
        errno = 0;
        return iconv(handle_, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1) ? errno : 0;
    }
    /// Goes back to the initial shift state, writing what that takes.
    void finish(char*& to, std::size_t& toLeft) { iconv(handle_, nullptr, nullptr, &to, &toLeft); }

  private:
    iconv_t handle_;
};

/// The converter's name of a Windows page, or "" for a page that is none.
std::string nameOf(unsigned page) {
    for (const NamedPage& named : kNamedPages) {
        if (named.page == page) return named.name;
    }
    for (const unsigned numbered : kNumberedPages) {
        std::array<char, 16> name{};
        if (numbered == page) {
            std::snprintf(name.data(), name.size(), page < 100 ? "CP%03u" : "CP%u", page);
            return name.data();
        }
    }
    return {};
}

/// The numbers 0, 1 and 3 stand for the process's ANSI, OEM and thread page, as on Windows.
unsigned meantPage(unsigned page) {
    if (page == 0 || page == 3) return ansiCodePage();
    return page == 1 ? oemCodePage() : page;
}

constexpr std::size_t kStep = 4096;

void append(WideString& out, const char* bytes, std::size_t count) {
    const std::size_t before = out.size();
    out.resize(before + count / sizeof(wchar_t));
    std::memcpy(out.data() + before, bytes, count);
}

void append(std::string& out, const char* bytes, std::size_t count) { out.append(bytes, count); }

/// Converts all of `from`; whatever cannot be converted is handed to `replace`, which consumes it and appends.
template <class Out, class Replace>
void convertAll(Converter& converter, const char* bytes, std::size_t count, Out& out, Replace replace) {
    std::array<char, kStep> buffer;
    char* from = const_cast<char*>(bytes);  // the interface is older than const; nothing is written
    std::size_t left = count;
    while (left > 0) {
        char* to = buffer.data();
        std::size_t room = buffer.size();
        const int error = converter.convert(from, left, to, room);
        append(out, buffer.data(), buffer.size() - room);
        if (error != 0 && error != E2BIG) {
            const std::size_t skipped = replace(from, left, out);
            from += skipped;
            left -= skipped;
        }
    }
    char* to = buffer.data();
    std::size_t room = buffer.size();
    converter.finish(to, room);
    append(out, buffer.data(), buffer.size() - room);
}

}  // namespace

unsigned ansiCodePage() { return kUtf8Page; }

unsigned oemCodePage() { return kWesternOemPage; }

bool knowsCodePage(unsigned page) {
    const std::string name = nameOf(meantPage(page));
    return meantPage(page) == kUtf8Page || (!name.empty() && Converter("UTF-16LE", name.c_str()).isOpen() &&
                                            Converter(name.c_str(), "UTF-16LE").isOpen());
}

bool decode(unsigned page, std::string_view bytes, WideString& out) {
    page = meantPage(page);
    if (page == kUtf8Page) {
        out += utf8ToWide(bytes);
        return true;
    }
    const std::string name = nameOf(page);
    if (name.empty()) return false;
    Converter converter("UTF-16LE", name.c_str());
    if (!converter.isOpen()) return false;
    convertAll(converter, bytes.data(), bytes.size(), out, [](const char*, std::size_t, WideString& text) {
        text += L'\xFFFD';
        return std::size_t{1};
    });
    return true;
}

bool encode(unsigned page, WideView text, std::string& out) {
    page = meantPage(page);
    if (page == kUtf8Page) {
        out += wideToUtf8(text);
        return true;
    }
    const std::string name = nameOf(page);
    if (name.empty()) return false;
    Converter converter(name.c_str(), "UTF-16LE");
    if (!converter.isOpen()) return false;
    // The page's own question mark: in the EBCDIC pages it is another byte.
    std::string questionMark;
    Converter second(name.c_str(), "UTF-16LE");
    convertAll(second, "?\0", 2, questionMark, [](const char*, std::size_t, std::string&) { return std::size_t{2}; });
    const auto* bytes = reinterpret_cast<const char*>(text.data());
    convertAll(converter, bytes, text.size() * sizeof(wchar_t), out,
               [&](const char* from, std::size_t left, std::string& encoded) {
                   encoded += questionMark;
                   wchar_t pair[2] = {};
                   std::memcpy(pair, from, left < sizeof(pair) ? left : sizeof(pair));
                   const bool isPair = (pair[0] & 0xFC00) == 0xD800 && (pair[1] & 0xFC00) == 0xDC00;
                   return isPair ? sizeof(pair) : sizeof(wchar_t);
               });
    return true;
}

}  // namespace orv::platform
