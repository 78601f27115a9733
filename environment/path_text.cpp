#include "environment/path_text.h"

#include <emmintrin.h>

#include <algorithm>

#include "framework/characters.h"
#include "framework/string_access.h"

namespace orv {
namespace {

bool holdsSlash(WideView text) {
    constexpr std::size_t kStep = 8;
    std::size_t i = 0;
    if (text.size() >= kStep) {
        const __m128i slash = _mm_set1_epi16(L'/');
        __m128i found = _mm_setzero_si128();
        const auto look = [&](std::size_t at) {
            const auto* from = reinterpret_cast<const __m128i*>(text.data() + at);
            found = _mm_or_si128(found, _mm_cmpeq_epi16(_mm_loadu_si128(from), slash));
        };
        for (; i + kStep <= text.size(); i += kStep)
            look(i);
        look(text.size() - kStep);
        return _mm_movemask_epi8(found) != 0;
    }
    return std::find(text.begin(), text.end(), L'/') != text.end();
}

}  // namespace

std::size_t driveLength(WideView path) { return path.size() >= 2 && path[1] == L':' && isLetter(path[0]) ? 2 : 0; }

PathParts splitPath(WideView path) {
    const std::size_t drive = driveLength(path);
    std::size_t dot = path.size();
    std::size_t name = path.size();
    for (; name > drive && !isSeparator(path[name - 1]); --name) {
        if (path[name - 1] == L'.' && dot == path.size()) dot = name - 1;
    }
    return {path.substr(0, drive), path.substr(drive, name - drive), path.substr(name, dot - name), path.substr(dot)};
}

WideView extensionPart(WideView path) {
    // A colon ends the search too, so that only a path with one asks what its drive is.
    for (std::size_t at = path.size(); at > 0; --at) {
        const wchar_t ch = path[at - 1];
        if (ch == L'.') return path.substr(at - 1);
        if (isSeparator(ch)) break;
        if (ch == L':') return splitPath(path).extension;
    }
    return {};
}

bool isUncPath(WideView path) { return path.size() >= 2 && path[0] == L'\\' && path[1] == L'\\'; }

bool isAbsolutePath(WideView path) { return driveLength(path) != 0 || isUncPath(path); }

WideView hostOf(WideView path) {
    if (!isUncPath(path)) return {};
    std::size_t end = path.find(L'\\', 2);
    if (end == WideView::npos) end = path.find(L'/', 2);
    return path.substr(0, end);
}

WideView trimmedPath(WideView path) {
    while (!path.empty() && isSpace(path.front()))
        path.remove_prefix(1);
    while (!path.empty() && (isSeparator(path.back()) || isSpace(path.back())))
        path.remove_suffix(1);
    return path;
}

WideView withoutEndSeparators(WideView path) {
    WideView rest = path;
    while (!rest.empty() && isSeparator(rest.back()))
        rest.remove_suffix(1);
    return rest.size() <= driveLength(path) ? path : rest;
}

WideView trimmedWhiteSpace(WideView text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

bool equalIgnoringCase(WideView a, WideView b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](wchar_t x, wchar_t y) {
               return x == y || foldCase(x) == foldCase(y);
           });
}

CString joinedPath(WideView base, WideView tail) {
    if (base.empty()) return textOf(tail);
    if (tail.empty()) return textOf(base);
    wchar_t between = 0;
    if (isSeparator(base.back())) {
        if (isSeparator(tail.front())) tail.remove_prefix(1);
    } else if (!isSeparator(tail.front())) {
        between = holdsSlash(base) || holdsSlash(tail) ? L'/' : L'\\';
    }
    wchar_t* to = nullptr;
    CString joined = StringAccess::ofLength(base.size() + (between != 0 ? 1 : 0) + tail.size(), to);
    WideTraits::copy(to, base.data(), base.size());
    to += base.size();
    if (between != 0) *to++ = between;
    WideTraits::copy(to, tail.data(), tail.size());
    return joined;
}

}  // namespace orv
