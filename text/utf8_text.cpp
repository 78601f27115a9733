#include <new>

#include "framework/string_data.h"
#include "framework/utf8.h"
#include "orv/string_utilities.h"

namespace orvStdStrUtil {

std::string convertUnicodeToUtf8(CString text) { return orv::wideToUtf8(text.GetString()); }

CString convertUtf8ToUnicode(std::string text) {
    const std::string_view upToNul(text.c_str());
    CString wide;
    if (upToNul.size() > static_cast<std::size_t>(orv::kMaximumTextLength)) throw std::bad_alloc();
    if (upToNul.empty()) return wide;
    wchar_t* characters = wide.GetBuffer(static_cast<int>(upToNul.size() + orv::kUtf8Slack));
    wide.ReleaseBufferSetLength(static_cast<int>(orv::decodeUtf8(upToNul, characters).length));
    if (wide.GetLength() < wide.GetAllocLength() / 2) wide.FreeExtra();
    return wide;
}

}  // namespace orvStdStrUtil
