#include "platform/code_pages.h"

#include <algorithm>

#include "platform/windows/windows.h"

namespace orv::platform {
namespace {

// The system counts in int. Longer input would not fit into a text of this library anyway.
constexpr std::size_t kLongest = 0x3FFFFFFF;

// In the stateful pages (and in UTF-7) flags are forbidden altogether.
int toBytes(unsigned page, WideView text, char* out, int room) {
    const int length = static_cast<int>(text.size());
    const int count = WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, text.data(), length, out, room, nullptr, nullptr);
    if (count != 0 || GetLastError() != ERROR_INVALID_FLAGS) return count;
    return WideCharToMultiByte(page, 0, text.data(), length, out, room, nullptr, nullptr);
}

}  // namespace

unsigned ansiCodePage() { return GetACP(); }

unsigned oemCodePage() { return GetOEMCP(); }

bool knowsCodePage(unsigned page) {
    wchar_t character = 0;
    return MultiByteToWideChar(page, 0, "a", 1, &character, 1) == 1;
}

bool decode(unsigned page, std::string_view bytes, WideString& out) {
    if (!knowsCodePage(page) || bytes.size() > kLongest) return false;
    if (bytes.empty()) return true;
    const int size = static_cast<int>(bytes.size());
    const int count = MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0);
    if (count <= 0) return false;
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(count));
    const int written = MultiByteToWideChar(page, 0, bytes.data(), size, out.data() + before, count);
    out.resize(before + static_cast<std::size_t>(std::max(written, 0)));
    return written > 0;
}

bool encode(unsigned page, WideView text, std::string& out) {
    if (!knowsCodePage(page) || text.size() > kLongest) return false;
    if (text.empty()) return true;
    const int count = toBytes(page, text, nullptr, 0);
    if (count <= 0) return false;
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(count));
    const int written = toBytes(page, text, out.data() + before, count);
    out.resize(before + static_cast<std::size_t>(std::max(written, 0)));
    return written > 0;
}

}  // namespace orv::platform
