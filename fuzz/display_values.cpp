// Typed values: no text does harm; what was read shows itself in every format, is read back and shows the same again.
#include "orv/display_values.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "orv/wide.h"

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

// Generated texts are made of these, so that most of them mean something.
constexpr const wchar_t* kPieces[] = {L"1",   L"2",     L"0",          L"12", L"3,5", L".5",    L" ",    L"/",
                                      L"-",   L"+",     L"*",          L"(",  L")",   L"'",     L"\"",   L" m",
                                      L" in", L"mm",    L" ft2",       L"kg", L"K",   L"%",     L"\xB0", L"Ja",
                                      L"PI",  L"1 1/2", L"3'-4 1/2\"", L"e5", L"h",   L"\x2033"};

enUnit unitOf(unsigned number) {
    // Dense around the groups, which begin at each thousand.
    const unsigned group = number % 103, member = number / 103 % 22;
    return static_cast<enUnit>((group == 102 ? 1000 : group) * 1000 + member);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const enUnit unit = unitOf(data[0] | static_cast<unsigned>(data[1]) << 8U);
    orv::WideString text;
    if (data[2] % 2 == 0) {
        for (std::size_t i = 3; i < size; ++i)
            text += kPieces[data[i] % std::size(kPieces)];
    } else {
        text.resize((size - 3) / 2);
        std::memcpy(text.data(), data + 3, text.size() * 2);
    }
    const orv::ParsedBaseValue parsed = orv::parseBaseValue(text, unit);
    check(parsed.ok == (parsed.error == orv::InputError::kNone));
    check(parsed.position >= 0 && parsed.length >= 0);
    check(static_cast<std::size_t>(parsed.position) + static_cast<std::size_t>(parsed.length) <= text.size());
    if (!parsed.ok) {
        check(parsed.value == 0);
        return 0;
    }
    check(std::isfinite(parsed.value) && parsed.unit / 1000 == unit / 1000);
    orvUnitSetting setting;
    setting.unit = data[2] / 2 % 2 == 0 ? unit : parsed.unit;
    CArray<enUnitFormat> formats;
    orvUnits::getUnitFormatArray(formats, setting.unit);
    setting.format = formats[data[2] / 4 % formats.GetSize()];
    setting.precision = static_cast<enUnitPrec>(data[0] % 9);
    const CString shown = orv::formatBaseValue(parsed.value, setting, true, data[2] % 3 == 0 ? L',' : L'.');
    if (shown.Find(L'n') == 0 || shown.Find(L"inf") >= 0) return 0;  // beyond the range of the shown unit
    // With more digits than a double holds, the way there and back may take another.
    constexpr double kFinest = 1e-8, kExact = 1e14;
    const double largest = std::fmax(std::fabs(orv::convertFromBaseUnit(parsed.value, setting.unit)),
                                     std::fabs(orv::convertFromBaseUnit(parsed.value, eUnitInch)));
    if (largest / kFinest > kExact) return 0;
    const orv::ParsedBaseValue again = orv::parseBaseValue(shown.GetString(), setting.unit);
    check(again.ok);
    check(shown == orv::formatBaseValue(again.value, setting, true, data[2] % 3 == 0 ? L',' : L'.'));
    return 0;
}
