// parts FILE PATTERN: the articles of a parts list whose names match, with their prices, whatever the file's encoding.
#include <cstdio>

#include "orv/orv.h"

int main(int argc, char** argv) {
    CStringList lines;
    if (argc != 3 || !orvStrUtil::readStringlistFromFileAuto(lines, CString(argv[1]), false)) return 2;
    const CString pattern(argv[2]);
    for (POSITION at = lines.GetHeadPosition(); at != nullptr;) {
        COrvSubStr record;
        CString number, name, dimension, unit;
        double price = 0;
        record.GetInit(lines.GetNext(at), L':');
        record.Get(number) && record.Get(name) && record.Get(dimension) && record.Get(unit) && record.Get(price, true);
        if (!orvStrUtil::MatchesWildcardPattern(name, pattern, false)) continue;
        const CStringFormat row(L"%10.2f  %s, %s", price, name, dimension);
        std::puts(orvStdStrUtil::convertUnicodeToUtf8(row).c_str());
    }
}
