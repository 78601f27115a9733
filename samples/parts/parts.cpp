// Reads a parts list in whatever encoding it has and prints the articles of one kind, dearest first.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "orv/orv.h"

int main(int argc, char** argv) {
    CStringList lines;
    if (argc < 3 || !orvStrUtil::readStringlistFromFileAuto(lines, CString(argv[1]), false)) return 2;
    std::vector<std::pair<double, CString>> found;
    for (POSITION at = lines.GetHeadPosition(); at != nullptr;) {
        const CString& line = lines.GetNext(at);
        const CString name = orvStrUtil::GetSubStr(line, 2, L':');
        if (!orvStrUtil::MatchesWildcardPattern(name, CString(argv[2]), false)) continue;
        COrvSubStr price;
        price.GetInit(orvStrUtil::GetSubStr(line, 5, L':'), L':');
        found.emplace_back(0.0, name);
        price.Get(found.back().first, true);
    }
    std::stable_sort(found.begin(), found.end(), [](auto& a, auto& b) { return a.first > b.first; });
    for (const auto& [price, name] : found) {
        std::puts(orvStdStrUtil::convertUnicodeToUtf8(CStringFormat(L"%10.2f  %s", price, name)).c_str());
    }
    return found.empty() ? 1 : 0;
}
