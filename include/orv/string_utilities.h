// Searching, comparing, cutting and reading and writing texts.
//
// Rules of the family:
// - A null text gives the neutral result: false, null, -1 or "". Nothing throws on bad input; a text that would become
//   longer than about 2^30 characters, or has no memory, is std::bad_alloc.
// - Ignoring case means the folding of exactly three ranges in FindNoCase and what builds on it (A-Z; U+00C0..U+00DE,
//   so that also the multiplication sign U+00D7 equals U+00F7; U+0410..U+042F), and Unicode's simple folding elsewhere.
// - Not for several threads at once: GetSubStr, SetSubStr and MatchesWildcardPattern ignoring case.
#pragma once

#include <string>

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/framework/lists.h"
#include "orv/framework/string.h"
#include "orv/wide.h"

/// All functions are static; objects carry no state.
class ORV_API orvStrUtil {
  public:
    orvStrUtil() = default;
    orvStrUtil(const orvStrUtil&) = default;
    orvStrUtil(orvStrUtil&&) = default;
    orvStrUtil& operator=(const orvStrUtil&) = default;
    orvStrUtil& operator=(orvStrUtil&&) = default;
    virtual ~orvStrUtil();

    // ---- Looking at texts ----
    /// True for null and "".
    static bool IsEmpty(const wchar_t* text);
    /// 0 for "".
    static wchar_t GetLastChar(const CString& text);
    /// An empty prefix (suffix) is never there.
    static bool BeginsWith(const wchar_t* text, const wchar_t* prefix, bool caseSensitive);
    static bool EndsWith(const wchar_t* text, const wchar_t* suffix, bool caseSensitive);
    /// True at a line feed, alone or behind a carriage return; a carriage return alone is no break.
    static bool NextIsBreak(const wchar_t* text);

    // ---- Searching and replacing, ignoring case ----
    /// The first match in `text`, or null. An empty `what` matches at once.
    static const wchar_t* FindNoCase(const wchar_t* text, const wchar_t* what);
    static bool ContainsNoCase(const wchar_t* text, const wchar_t* what);
    /// Index of the first match at or after `start`.
    ///   ("Rohr DN50", "dn", 0) => 5     ("Rohr DN50", "dn", 6) => -1
    ///   ("abc", "", 2)         => 2     ("abc", "", 3)         => -1    ("abc", "c", 4 or -1) => -1
    static int FindIndexNoCase(const CString& text, const wchar_t* what, int start);
    /// Replaces every match, going on behind what was inserted; returns how many. An empty `from` replaces nothing.
    static int ReplaceNoCase(CString& text, const wchar_t* from, const wchar_t* to);
    static CString GetReplacedText(const CString& text, const wchar_t* from, const wchar_t* to, bool caseSensitive);

    // ---- Comparing ----
    /// -1, 0 or 1. Where the texts first differ: two digits compare as the numbers that begin at that very place,
    /// anything else by character.
    ///   ("item9", "item10") => -1     ("a", "A") => 1     ("10", "1a") => -1
    static int CompareAlphaNumerical(const CString& a, const CString& b);

    // ---- Wildcards ----
    /// "*" stands for a run of characters, "?" for one. Behind a "*" the next character of the pattern is looked for
    /// once and the text never goes back, so that some patterns match less than in orv::globMatch:
    ///   ("abc", "a*c") => true     ("abc", "a?") => false     ("a.txt.txt", "*.txt") => false     ("ab", "*?") =>
    ///   false
    static bool MatchesWildcardPattern(const wchar_t* text, const wchar_t* pattern, bool caseSensitive);
    /// Copies `text` into `subject` (null: `subject` stays) and matches that. Ignoring case, the subject is left folded
    /// to lower case unless `keepSubject`.
    static bool MatchesWildcardPattern(CString& subject, const wchar_t* text, const wchar_t* pattern,
                                       bool caseSensitive, bool keepSubject);

    // ---- Fields of a record (see records.h), numbered from 1 ----
    /// "" where the record has fewer fields, or for a number below 1.
    static CString GetSubStr(const wchar_t* record, long n, const wchar_t* separator);
    static CString GetSubStr(const wchar_t* record, long n, wchar_t separator);
    /// Replaces a field, appending empty ones when the record is shorter. Nothing changes for a number below 1, for one
    /// above 1 with an empty separator, and where the record would become longer than a text can be.
    static void SetSubStr(CString& record, long n, const wchar_t* separator, const wchar_t* value);
    static void SetSubStr(CString& record, long n, wchar_t separator, const wchar_t* value);

    // ---- Cutting and cleaning ----
    /// The text before the first (last) `ch`; "" when there is none.
    static CString SubStrLeftFromFirstOccurence(const CString& text, wchar_t ch);
    static CString SubStrLeftFromLastOccurence(const CString& text, wchar_t ch);
    /// The text behind the first (last) `ch`; the whole text when there is none.
    static CString SubStrRightFromFirstOccurence(const CString& text, wchar_t ch);
    static CString SubStrRightFromLastOccurence(const CString& text, wchar_t ch);
    /// Appends the pieces between separators; empty ones count, except behind the last separator.
    ///   (";", "a;;b;") => "a", "", "b"     (";", "") => nothing     ("", "a;b") => "a;b"
    static void separatedStringToArray(CString separator, CString text, CStringArray& out);
    /// Without the digits 0 to 9.
    static CString removeAllNumeric(const CString& text);
    /// Digits, "-" and "." alone; "," becomes ".".
    static CString removeAllNonNumeric(const CString& text);
    /// A decorated name of the 32-bit narrow-text form in the 64-bit wide-text form.
    static std::string translateDecoratedName(const CString& name);

    // ---- Text files ----
    // Code pages: 65001 UTF-8 with a mark, 3333 UTF-8 without, -1 (all bits set) UTF-16 little-endian with a mark,
    // 3331 the OEM page, 3332 Windows-1252, any other the Windows page of that number. A scrambled file has 3 added to
    // each byte. Opening for reading waits while another process holds the file against readers.

    /// True when the file begins with a byte-order mark (EF BB, FF FE or FE FF) and has at least three bytes.
    static bool isUnicodeFile(const wchar_t* path, bool scrambled);
    /// By its mark; without one as UTF-8 if the whole file is well-formed, else as Windows-1252.
    static bool readStringFromFileAuto(CString& out, const wchar_t* path, bool scrambled);
    /// By its mark; without one by `codePage`, where 65001 and -1 mean Windows-1252: UTF-8 without a mark is not
    /// trusted.
    static bool readStringBufferFromFile(CString& out, const wchar_t* path, unsigned codePage, bool scrambled);
    /// The same; `out` becomes a new NUL-terminated array that the caller frees with delete[]. On failure it stays.
    static bool readStringBufferFromFile(wchar_t*& out, const wchar_t* path, unsigned codePage, bool scrambled);
    /// Creates or replaces the file. With `unicode` the page is 65001, 3333 or -1, and any other writes an empty file;
    /// without it the page is 3331, 3332 or a Windows page, 3333 and 65001 write UTF-8 without a mark, -1 is refused.
    static bool writeStringBufferToFile(const CString& text, const wchar_t* path, bool unicode, unsigned codePage,
                                        bool scrambled);
    /// A line an entry; CR LF, LF and CR end a line. The list's old content goes.
    static bool readStringlistFromFile(CStringList& out, const wchar_t* path, unsigned codePage, bool scrambled);
    static bool readStringlistFromFileAuto(CStringList& out, const wchar_t* path, bool scrambled);
    /// Each entry and CR LF. 65001, 3333 and -1 as `unicode`, other pages converted.
    static bool writeStringlistToFile(CStringList& lines, const wchar_t* path, unsigned codePage);
    static bool writeStringlistToFile(CStringList& lines, const wchar_t* path, unsigned codePage, bool scrambled);
    /// The same at the end of the file as it stands; a mark only in a file that this creates.
    static bool appendStringlistToFile(CStringList& lines, const wchar_t* path, unsigned codePage);

  private:
    class SharedRecord;

    template <class Separator>
    static CString getField(const wchar_t* record, long n, Separator separator);
    template <class Separator>
    static void setField(CString& record, long n, Separator separator, const wchar_t* value);
};

/// Field n (from 1) of a text split at a separator text, without any escapes; "" when there are fewer fields. A line
/// feed at the end of the last field is dropped.
ORV_API CString substr(const CString& text, int n, const CString& separator);
ORV_API CString substr(const CString& text, int n, const wchar_t* separator);
/// The same into the caller's buffer, which must be large enough; a field ends at NUL, line feed or separator. False,
/// with `out` unchanged, when `text` is null or has fewer than n - 1 separators; false and "" when n is below 1.
ORV_API bool substr(const wchar_t* text, int n, wchar_t separator, wchar_t* out);

namespace StringUtils {

/// Fixed notation; with `decimals` <= 0 six decimals without trailing zeros (and without a trailing point). Behind
/// the 1074th decimal, where no double has a digit left, at most a million zeros are written. "inf", "-inf" and "nan"
/// for what is no finite number.
///   (2.5, 0, false) => "2.5"     (3.0, 0, false) => "3"     (1.25, 2, true) => "1,25"
ORV_API CString DoubleToString(double value, int decimals, bool commaDecimal);

}  // namespace StringUtils

/// A text made by a format (see CString::Format); "" for a null or empty format.
class ORV_API CStringFormat : public CString {
  public:
    template <class... Arguments>
    explicit CStringFormat(const wchar_t* format, const Arguments&... arguments) {
        if (format != nullptr) Format(format, arguments...);
    }
};

/// Helpers on the standard library's wide string, whatever its traits; each returns its result. White space is ASCII's.
namespace orvStdStrUtil {

inline constexpr wchar_t kSpaces[] = L" \t\n\v\f\r";

template <class Traits>
[[nodiscard]] std::basic_string<wchar_t, Traits> trimLeft(const std::basic_string<wchar_t, Traits>& text) {
    std::size_t first = 0;
    while (first < text.size() && orv::WideView(kSpaces).find(text[first]) != orv::WideView::npos)
        ++first;
    return text.substr(first);
}

template <class Traits>
[[nodiscard]] std::basic_string<wchar_t, Traits> trimRight(const std::basic_string<wchar_t, Traits>& text) {
    std::size_t end = text.size();
    while (end > 0 && orv::WideView(kSpaces).find(text[end - 1]) != orv::WideView::npos)
        --end;
    return text.substr(0, end);
}

template <class Traits>
[[nodiscard]] std::basic_string<wchar_t, Traits> trim(const std::basic_string<wchar_t, Traits>& text) {
    return trimLeft(trimRight(text));
}

/// Every occurrence, going on behind what was inserted; an empty `from` replaces nothing.
template <class Traits>
[[nodiscard]] std::basic_string<wchar_t, Traits> replaceAll(
    const std::basic_string<wchar_t, Traits>& text,
    const std::type_identity_t<std::basic_string<wchar_t, Traits>>& from,
    const std::type_identity_t<std::basic_string<wchar_t, Traits>>& to) {
    if (from.empty()) return text;
    std::basic_string<wchar_t, Traits> result;
    std::size_t copied = 0;
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, copied)) {
        result.append(text, copied, at - copied).append(to);
        copied = at + from.size();
    }
    return result.append(text, copied);
}

/// UTF-8 up to the first NUL; what is no UTF-8 becomes U+FFFD, as a lone surrogate does on the way out.
ORV_API std::string convertUnicodeToUtf8(CString text);
ORV_API CString convertUtf8ToUnicode(std::string text);

}  // namespace orvStdStrUtil

namespace orv {

/// A true wildcard match: `*.txt` matches a.txt.txt. "?" stands for one 16-bit unit. Folding is Unicode's. For several
/// threads at once. Takes at worst the length of the text times that of the pattern.
ORV_API bool globMatch(WideView text, WideView pattern, bool caseSensitive);

/// Natural order: runs of digits compare as numbers of any length, all else by character; a strict weak order, so that
/// std::sort may use it. Negative, 0 or positive; 0 means the same text, or one that differs only in leading zeros (or
/// in what is ignored).
ORV_API int compareNatural(WideView a, WideView b, bool caseSensitive);

}  // namespace orv
