// heating_report FILE LANGUAGE WORDBOOKS XML: the rooms of a heating project in one language and its country's units;
// writes the project as an XML document.
#include <cstdio>
#include <memory>

#include "orv/orv.h"

namespace {

void print(const CString& line) { std::puts(orvStdStrUtil::convertUnicodeToUtf8(line).c_str()); }

/// A leaf holds what the planner typed and the unit that was expected: "5,20*4,85:eUnitMeter2". In the base unit; 0 if
/// there is none.
double baseValue(const CNode& node, const wchar_t* leaf) {
    const CString typed = node.GetStrLeafValuePtr(nullptr, leaf, 1);
    const CString unit = node.GetStrLeafValuePtr(nullptr, leaf, 2);
    return orv::parseBaseValue(typed.GetString(), orvUnits::getEnumValueByNameCaseInsensitive(unit)).value;
}

/// As it is usual where the language is spoken.
CString shown(double value, enUnit unit, bool isEnglish) {
    const auto practice = isEnglish ? orv::UnitPractice::kUnitedStates : orv::UnitPractice::kMetric;
    return orv::formatBaseValue(value, orv::standardUnitSetting(unit, practice), true, isEnglish ? L'.' : L',');
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) return 2;
    CNode* read = nullptr;
    if (!TreeItems::ReadFromFile(CFilePath(CString(argv[1])), read, false)) return 1;
    const std::unique_ptr<CNode> project(read);
    CTranslationModule texts(nullptr);
    texts.ScanDirectory(CDirPath(CString(argv[3])), L"heating.*");
    texts.SetLanguage(CString(argv[2]));
    const bool isEnglish = texts.GetLanguage() == L"EN";
    const auto text = [&](const wchar_t* german) { return texts.TranslateText(german); };

    print(text(L"Projekt:") + L" " + project->GetStrLeafValuePtr(nullptr, L"Name"));
    print(CStringFormat(L"%-5s %-22s %12s %11s %14s %14s", text(L"@Spalte@Nr."), text(L"@Spalte@Raum"),
                        text(L"@Spalte@Fläche"), text(L"@Spalte@innen"), text(L"@Spalte@Heizlast"),
                        text(L"@Spalte@Heizkörper")));
    double demand = 0, offered = 0;
    for (CTreeItem* item : orv::selectItems(*project, L"Geschoss/Raum")) {
        const CNode& room = static_cast<const CNode&>(*item);
        double output = 0;
        for (const CNode& radiator : orv::childrenOf(room))
            output += baseValue(radiator, L"Leistung");
        const double load = baseValue(room, L"Heizlast");
        demand += load;
        offered += output;
        print(CStringFormat(
            L"%-5s %-22s %12s %11s %14s %14s%s", room.GetStrLeafValuePtr(nullptr, L"Nummer"),
            text(room.GetStrLeafValuePtr(nullptr, L"Name")), shown(baseValue(room, L"Fläche"), eUnitMeter2, isEnglish),
            shown(baseValue(room, L"Temperatur"), eUnitAbsGradCelsius, isEnglish), shown(load, eUnitW, isEnglish),
            shown(output, eUnitW, isEnglish), output < load ? L"  !" : L""));
    }
    double pipes = 0;
    for (CTreeItem* item : orv::selectItems(*project, L"Rohrnetz/Strang/Rohr"))
        pipes += baseValue(static_cast<const CNode&>(*item), L"Länge");
    print(CStringFormat(text(L"Heizlast %s, installiert %s, Rohre %s."), shown(demand, eUnitKW, isEnglish),
                        shown(offered, eUnitKW, isEnglish), shown(pipes, eUnitMeter, isEnglish)));

    CString xml;
    constexpr unsigned kUtf8 = 3333;
    return TreeItems::WriteToXml(project.get(), xml) &&
                   orvStrUtil::writeStringBufferToFile(xml, CString(argv[4]), true, kUtf8, false)
               ? 0
               : 1;
}
