// CalcRelativePath.
#include <algorithm>

#include "environment/path_text.h"
#include "orv/paths.h"

namespace {

using orv::WideView;

WideView rootOf(WideView path) {
    return orv::isUncPath(path) ? orv::hostOf(path) : path.substr(0, orv::driveLength(path));
}

/// Takes the next component off a path; "" when there is none left.
WideView takeComponent(WideView& path) {
    const std::size_t begin = std::min(path.find_first_not_of(L'\\'), path.size());
    const std::size_t end = std::min(path.find(L'\\', begin), path.size());
    const WideView component = path.substr(begin, end - begin);
    path.remove_prefix(end);
    return component;
}

template <class Use>
void forEachComponent(WideView path, Use use) {
    for (WideView component = takeComponent(path); !component.empty(); component = takeComponent(path))
        use(component);
}

}  // namespace

CString CalcRelativePath(const CString& path, const CString& base) {
    const WideView given = orv::viewOf(path);
    const WideView givenBase = orv::viewOf(base);
    if (orv::isAbsolutePath(given) != orv::isAbsolutePath(givenBase)) return path;
    if (orv::isUncPath(given) != orv::isUncPath(givenBase)) return path;
    if (!orv::equalIgnoringCase(rootOf(given), rootOf(givenBase))) return path;

    CString normal(path);
    CString normalBase(base);
    WideView way = orv::viewOf(NormalizePath(normal));
    WideView baseWay = orv::viewOf(NormalizePath(normalBase));
    way.remove_prefix(rootOf(way).size());
    baseWay.remove_prefix(rootOf(baseWay).size());

    // ODDITY(relative-one-step-more): the walk takes a component of the path first. When the path ends first, the base
    // still stands at the last component that was equal, and that one counts as a step up: C:\a\b from C:\a\b is "..\".
    // Pinned by Paths.RelativePathsGoUpAndDown.
    WideView standing;  // of the base, from the component where it stands
    bool hasCommon = false;
    for (;;) {
        WideView rest = way;
        WideView baseRest = baseWay;
        const WideView component = takeComponent(rest);
        if (component.empty()) break;
        const WideView baseComponent = takeComponent(baseRest);
        standing = baseWay;
        if (baseComponent.empty() || !orv::equalIgnoringCase(component, baseComponent)) break;
        hasCommon = true;
        way = rest;
        baseWay = baseRest;
    }
    if (!hasCommon) return path;

    CString relative;
    constexpr WideView kUp = L"..\\";
    std::size_t room = way.size();
    forEachComponent(standing, [&](WideView) { room += kUp.size(); });
    relative.Preallocate(static_cast<int>(room));
    forEachComponent(standing, [&](WideView) { relative.Append(kUp.data(), static_cast<int>(kUp.size())); });
    bool needsSeparator = false;
    forEachComponent(way, [&](WideView component) {
        if (needsSeparator) relative += L'\\';
        relative.Append(component.data(), static_cast<int>(component.size()));
        needsSeparator = true;
    });
    return relative;
}
