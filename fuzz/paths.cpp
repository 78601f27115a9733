// Paths and command lines against their rules spelled out, one replacement at a time.
#include "orv/paths.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

#include "orv/wide.h"

namespace {

using Text = orv::WideString;
using orv::WideView;

void check(bool holds) {
    if (!holds) std::abort();
}

CString cString(WideView text) { return {text.data(), static_cast<int>(text.size())}; }

// The alphabet of the inputs holds these alone, besides letters of ASCII and "ä" and "Ä".
bool isSpace(wchar_t ch) { return ch == L' ' || ch == L'\t'; }
bool isLetter(wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'ä' || ch == L'Ä';
}
Text lowered(Text text) {
    for (wchar_t& ch : text) {
        if (ch >= L'A' && ch <= L'Z') ch = static_cast<wchar_t>(ch + 32);
        if (ch == L'Ä') ch = L'ä';
    }
    return text;
}

bool hasDrive(WideView path) { return path.size() >= 2 && isLetter(path[0]) && path[1] == L':'; }
bool isUnc(WideView path) { return path.starts_with(L"\\\\"); }
bool isAbsolute(WideView path) { return hasDrive(path) || isUnc(path); }

Text host(const Text& path) {
    if (!isUnc(path)) return {};
    if (path.find(L'\\', 2) != Text::npos) return path.substr(0, path.find(L'\\', 2));
    return path.substr(0, path.find(L'/', 2));
}

Text root(const Text& path) { return isUnc(path) ? host(path) : path.substr(0, hasDrive(path) ? 2 : 0); }

Text joined(const Text& base, const Text& tail) {
    if (base.empty()) return tail;
    if (tail.empty()) return base;
    const bool baseEnds = base.back() == L'\\' || base.back() == L'/';
    const bool tailBegins = tail[0] == L'\\' || tail[0] == L'/';
    if (baseEnds) return base + (tailBegins ? tail.substr(1) : tail);
    if (tailBegins) return base + tail;
    return base + ((base + tail).find(L'/') != Text::npos ? L"/" : L"\\") + tail;
}

void eraseAll(Text& text, WideView what, std::size_t offset, std::size_t count) {
    for (std::size_t at = text.find(what, 2); at != Text::npos; at = text.find(what, 2))
        text.erase(at + offset, count);
}

Text normalized(Text text) {
    for (wchar_t& ch : text) {
        if (ch == L'/') ch = L'\\';
    }
    while (!text.empty() && isSpace(text.back()))
        text.pop_back();
    eraseAll(text, L"\\\\", 0, 1);
    eraseAll(text, L"\\.\\", 0, 2);
    eraseAll(text, L" \\", 0, 1);
    eraseAll(text, L"\\ ", 1, 1);
    for (std::size_t at = text.find(L"\\.."); at != Text::npos; at = text.find(L"\\..")) {
        const Text prefix = text.substr(0, at + 1);
        Text rest = text.substr(at + 3);
        Text front = prefix.substr(0, hasDrive(prefix) ? 2 : 0);
        if (isUnc(prefix)) {
            if (prefix.find(L'\\', 2) == Text::npos) break;
            front = host(prefix);
        }
        const Text folder = prefix.substr(front.size());
        if (folder.empty() || folder == L"\\") break;
        const std::size_t cut = folder.substr(0, folder.size() - 1).rfind(L'\\');
        if (cut != Text::npos) {
            text = joined(front + folder.substr(0, cut + 1), rest);
        } else {
            if (folder == L"..\\") break;
            if (rest.starts_with(L'\\')) rest.erase(0, 1);
            text = front + rest;
        }
    }
    return text;
}

std::vector<Text> components(const Text& path) {
    std::vector<Text> all(1);
    for (const wchar_t ch : path) {
        if (ch != L'\\') {
            all.back() += ch;
        } else if (!all.back().empty()) {
            all.emplace_back();
        }
    }
    if (all.back().empty()) all.pop_back();
    return all;
}

Text relative(const Text& path, const Text& base) {
    if (isAbsolute(path) != isAbsolute(base) || isUnc(path) != isUnc(base)) return path;
    if (lowered(root(path)) != lowered(root(base))) return path;
    const Text normal = normalized(path);
    const Text normalBase = normalized(base);
    const std::vector<Text> way = components(normal.substr(root(normal).size()));
    const std::vector<Text> baseWay = components(normalBase.substr(root(normalBase).size()));
    std::size_t nextPath = 0;
    std::size_t nextBase = 0;
    std::size_t pathStop = way.size();
    std::size_t baseStop = 0;
    std::size_t common = 0;
    for (;;) {
        if (nextPath == way.size()) break;  // the base stands where it stood
        pathStop = nextPath++;
        if (nextBase == baseWay.size()) {
            baseStop = baseWay.size();
            break;
        }
        baseStop = nextBase++;
        if (lowered(way[pathStop]) != lowered(baseWay[baseStop])) break;
        ++common;
        pathStop = way.size();
    }
    if (common == 0) return path;
    Text result;
    for (std::size_t i = baseStop; i < baseWay.size(); ++i)
        result += L"..\\";
    for (std::size_t i = pathStop; i < way.size(); ++i)
        result = joined(result, way[i]);
    return result;
}

Text trimmed(const Text& text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && isSpace(text[begin]))
        ++begin;
    while (end > begin && isSpace(text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}

int argumentOf(const Text& line, const Text& name, Text& value) {
    value.clear();
    if (line.empty() || name.empty()) return 0;
    std::size_t lead = 0;
    while (lead < line.size() && isSpace(line[lead]))
        ++lead;
    const Text kept = line.substr(lead);
    const Text searched = lowered(kept) + L' ';
    for (const wchar_t* spelling : {L"/ ", L"- ", L"/:", L"-:"}) {
        const Text candidate = spelling[0] + lowered(trimmed(name)) + spelling[1];
        std::size_t at = searched.find(candidate);
        if (at == Text::npos) continue;
        at += candidate.size();
        while (at < kept.size() && kept[at] == L' ')
            ++at;
        if (at >= kept.size() || kept[at] == L'-' || kept[at] == L'/') return 1;
        const bool isQuoted = kept[at] == L'"';
        for (at += isQuoted ? 1 : 0; at < kept.size() && kept[at] != (isQuoted ? L'"' : L' '); ++at)
            value += kept[at];
        return 1;
    }
    return 0;
}

int isSwitch(const Text& line, const Text& name) {
    if (line.empty() || name.empty()) return 0;
    std::size_t lead = 0;
    while (lead < line.size() && isSpace(line[lead]))
        ++lead;
    const Text searched = lowered(line.substr(lead)) + L' ';
    for (const wchar_t before : {L'/', L'-', L' '}) {
        if (searched.find(before + lowered(trimmed(name)) + L' ') != Text::npos) return 1;
    }
    return 0;
}

void checkPath(const Text& path) {
    CString text = cString(path);
    const Text expected = normalized(path);
    check(NormalizePath(text) == expected.c_str());
    // Normalising again changes nothing, unless a later step left work for an earlier one: blanks beside separators
    // bring separators together, and steps up bring together what stands around them.
    const bool isSettled = expected.find(L"\\\\", 2) == Text::npos && expected.find(L"\\.\\", 2) == Text::npos &&
                           expected.find(L"\\ ", 2) == Text::npos && expected.find(L" \\", 2) == Text::npos &&
                           (expected.empty() || !isSpace(expected.back()));
    if (isSettled) check(NormalizePath(text) == expected.c_str());
    const CFilePath file(cString(path));
    check(file.GetDirPath() + file.GetFileName() == path.c_str());
    if (isSettled) check(file.IsEqual(file.Normalized()));
    if (isSettled && !path.empty() && isLetter(path.back())) {
        check(CDirPath(cString(path)).IsEqual(cString(path + L'\\')));
        check(CDirPath(cString(path + L'\\')).IsEqual(cString(path)));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr WideView kAlphabet = L"\\\\/:. .-aAbäÄ\"\t\\C";
    std::vector<Text> texts(2);
    std::size_t current = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t choice = data[i] % (kAlphabet.size() + 1);
        if (choice == kAlphabet.size()) {
            current = 1;
        } else {
            texts[current] += kAlphabet[choice];
        }
    }
    const Text& first = texts[0];
    const Text& second = texts[1];
    checkPath(first);
    check(Path::AppendPath(cString(first), cString(second)) == joined(first, second).c_str());
    check(CalcRelativePath(cString(first), cString(second)) == relative(first, second).c_str());
    CString argument;
    Text expected;
    check(GetArgumentFromCmdLine(first.c_str(), second.c_str(), argument) == argumentOf(first, second, expected));
    check(argument == expected.c_str());
    check(CheckSwitchInCmdLine(first.c_str(), second.c_str()) == isSwitch(first, second));
    check(vercmp(first.c_str(), second.c_str()) == -vercmp(second.c_str(), first.c_str()));
    return 0;
}
