// Searching and replacing without regard to case.
#include <climits>
#include <new>
#include <vector>

#include "framework/vector.h"
#include "orv/string_utilities.h"
#include "text/caseless_search.h"
#include "text/views.h"

namespace {

using orv::CaselessNeedle;
using orv::WideTraits;
using orv::WideView;

// The matches of a text, the first of them without memory from the heap.
class Matches {
  public:
    void add(std::size_t at) {
        if (count_ < kHere) {
            here_[count_] = at;
        } else {
            further_.push_back(at);
        }
        ++count_;
    }
    std::size_t count() const { return count_; }
    std::size_t operator[](std::size_t i) const { return i < kHere ? here_[i] : further_[i - kHere]; }

  private:
    static constexpr std::size_t kHere = 64;
    std::size_t count_ = 0;
    std::size_t here_[kHere];
    std::vector<std::size_t> further_;
};

void overwrite(CString& text, const Matches& matches, WideView to) {
    const CString copy(to.data(), static_cast<int>(to.size()));  // `to` may be a part of the text
    wchar_t* characters = text.GetBuffer();
    for (std::size_t i = 0; i < matches.count(); ++i)
        WideTraits::copy(characters + matches[i], copy.GetString(), to.size());
    text.ReleaseBufferSetLength(text.GetLength());
}

CString replaced(WideView text, const Matches& matches, std::size_t fromLength, WideView to) {
    const std::size_t kept = text.size() - matches.count() * fromLength;
    if (to.size() != 0 && matches.count() > (INT_MAX - kept) / to.size()) throw std::bad_alloc();
    const std::size_t length = kept + matches.count() * to.size();
    CString result;
    wchar_t* out = result.GetBufferSetLength(static_cast<int>(length));
    std::size_t copied = 0;
    for (std::size_t i = 0; i < matches.count(); ++i) {
        const std::size_t before = matches[i] - copied;
        WideTraits::copy(out, text.data() + copied, before);
        WideTraits::copy(out + before, to.data(), to.size());
        out += before + to.size();
        copied = matches[i] + fromLength;
    }
    WideTraits::copy(out, text.data() + copied, text.size() - copied);
    result.ReleaseBufferSetLength(static_cast<int>(length));
    return result;
}

}  // namespace

const wchar_t* orvStrUtil::FindNoCase(const wchar_t* text, const wchar_t* what) {
    if (text == nullptr || what == nullptr) return nullptr;
    if (*what == 0) return text;
    const CaselessNeedle needle(WideView(what, orv::wideLength(what)));
    const std::size_t at = needle.findIn(orv::viewOf(text), 0);
    return at == CaselessNeedle::npos ? nullptr : text + at;
}

bool orvStrUtil::ContainsNoCase(const wchar_t* text, const wchar_t* what) { return FindNoCase(text, what) != nullptr; }

int orvStrUtil::FindIndexNoCase(const CString& text, const wchar_t* what, int start) {
    // Nothing is found in the empty rest behind the last character, not even an empty text.
    if (what == nullptr || start < 0 || start >= text.GetLength()) return -1;
    if (*what == 0) return start;
    const CaselessNeedle needle(WideView(what, orv::wideLength(what)));
    const std::size_t at = needle.findIn(orv::viewOf(text), static_cast<std::size_t>(start));
    return at == CaselessNeedle::npos ? -1 : static_cast<int>(at);
}

int orvStrUtil::ReplaceNoCase(CString& text, const wchar_t* from, const wchar_t* to) {
    if (from == nullptr || *from == 0) return 0;
    const WideView all = orv::viewOf(text);
    const WideView wanted(from, orv::wideLength(from));
    const CaselessNeedle needle(wanted);
    Matches matches;
    for (std::size_t at = needle.findIn(all, 0); at != CaselessNeedle::npos;
         at = needle.findIn(all, at + wanted.size()))
        matches.add(at);
    if (matches.count() == 0) return 0;
    const WideView inserted = orv::viewOf(to);
    if (inserted.size() == wanted.size()) {
        overwrite(text, matches, inserted);
    } else {
        text = replaced(all, matches, wanted.size(), inserted);
    }
    return static_cast<int>(matches.count());
}

CString orvStrUtil::GetReplacedText(const CString& text, const wchar_t* from, const wchar_t* to, bool caseSensitive) {
    CString result = text;
    if (caseSensitive) {
        result.Replace(from, to);
    } else {
        ReplaceNoCase(result, from, to);
    }
    return result;
}
