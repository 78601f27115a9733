// Switches on a command line.
#include <algorithm>

#include "environment/path_text.h"
#include "framework/characters.h"
#include "orv/paths.h"

namespace {

using orv::WideString;
using orv::WideView;

WideView viewOfText(const wchar_t* text) { return text != nullptr ? WideView(text) : WideView(); }

WideView withoutLeadingSpace(WideView text) {
    while (!text.empty() && orv::isSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

WideString lowered(WideView text) {
    WideString result(text);
    std::transform(result.begin(), result.end(), result.begin(), orv::toLower);
    return result;
}

/// A command line and a switch as they are searched: in lower case, the line with one blank more.
struct Search {
    WideString line;
    WideString name;

    Search(WideView commandLine, WideView switchName)
        : line(lowered(commandLine) + L' '), name(lowered(orv::trimmedWhiteSpace(switchName))) {}

    /// The place behind the first such spelling of the switch, or npos.
    std::size_t behind(wchar_t before, wchar_t after) const {
        const std::size_t at = line.find(before + name + after);
        return at == WideString::npos ? at : at + name.size() + 2;
    }
};

}  // namespace

int GetArgumentFromCmdLine(const wchar_t* cmdLine, const wchar_t* switchName, CString& argument) {
    const CString kept(cmdLine);  // `argument` may be where the command line is
    const CString name(switchName);
    argument.Empty();
    if (kept.IsEmpty() || name.IsEmpty()) return 0;
    WideView value = withoutLeadingSpace(orv::viewOf(kept));
    const Search search(value, orv::viewOf(name));
    constexpr wchar_t kSpellings[][2] = {{L'/', L' '}, {L'-', L' '}, {L'/', L':'}, {L'-', L':'}};
    std::size_t begin = WideString::npos;
    for (const auto& [before, after] : kSpellings) {
        begin = search.behind(before, after);
        if (begin != WideString::npos) break;
    }
    if (begin == WideString::npos) return 0;

    begin = std::min(begin, value.size());  // the spelling may have ended with the blank that was added
    value.remove_prefix(begin);
    value.remove_prefix(std::min(value.find_first_not_of(L' '), value.size()));
    if (value.empty() || value.front() == L'-' || value.front() == L'/') return 1;
    wchar_t end = L' ';
    if (value.front() == L'"') {
        value.remove_prefix(1);
        end = L'"';
    }
    argument = orv::textOf(value.substr(0, value.find(end)));
    return 1;
}

int CheckSwitchInCmdLine(const wchar_t* cmdLine, const wchar_t* switchName) {
    const WideView line = viewOfText(cmdLine);
    const WideView name = viewOfText(switchName);
    if (line.empty() || name.empty()) return 0;
    const Search search(withoutLeadingSpace(line), name);
    for (const wchar_t before : {L'/', L'-', L' '}) {
        if (search.behind(before, L' ') != WideString::npos) return 1;
    }
    return 0;
}
