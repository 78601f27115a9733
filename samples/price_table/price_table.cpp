// price_table FILE PATTERN LANGUAGE WORDBOOKS: the matching articles of a parts list as a table in one language.
#include <cstdio>

#include "orv/orv.h"

namespace {

void print(const CString& line) { std::puts(orvStdStrUtil::convertUnicodeToUtf8(line).c_str()); }

}  // namespace

int main(int argc, char** argv) {
    CStringList lines;
    if (argc != 5 || !orvStrUtil::readStringlistFromFileAuto(lines, CString(argv[1]), false)) return 2;
    const CString pattern(argv[2]);
    CTranslationModule texts(nullptr);  // a host of the suite takes its module from CTranslationManager
    texts.ScanDirectory(CDirPath(CString(argv[4])));
    texts.SetLanguage(CString(argv[3]));

    print(texts.TranslateText(L"Preisliste:") + L" " + texts.TranslateText(L"Preise in Euro, \"netto\""));
    print(CStringFormat(L"%-9s %10s %-9s %s", texts.TranslateText(L"@Spalte@Nummer"),
                        texts.TranslateText(L"@Spalte@Preis"), texts.TranslateText(L"@Spalte@Einheit"),
                        texts.TranslateText(L"@Spalte@Bezeichnung")));
    int count = 0;
    for (POSITION at = lines.GetHeadPosition(); at != nullptr;) {
        COrvSubStr record;
        CString number, name, dimension, unit;
        double price = 0;
        record.GetInit(lines.GetNext(at), L':');
        record.Get(number) && record.Get(name) && record.Get(dimension) && record.Get(unit) && record.Get(price, true);
        if (!orvStrUtil::MatchesWildcardPattern(name, pattern, false)) continue;
        ++count;
        // Data are keys as well: the unit with its context, the article's name as it is.
        print(CStringFormat(L"%-9s %10.2f %-9s %s", number, price, texts.TranslateText(L"@Einheit@" + unit),
                            texts.TranslateText(name)));
    }
    print(CStringFormat(texts.TranslateText(L"%d Artikel gefunden."), count));
}
