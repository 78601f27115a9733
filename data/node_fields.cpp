// Several values in one attribute value.
#include <cmath>
#include <cstdint>
#include <vector>

#include "data/node_state.h"
#include "localization/translate.h"
#include "orv/numbers.h"
#include "orv/wide.h"
#include "text/views.h"

namespace {

using orv::viewOf;

constexpr wchar_t kColon = L'\u00AE';
constexpr wchar_t kTranslated = L'\u2248';

/// What is being packed, and the next character to unpack.
orv::WideString& packed() {
    static orv::WideString text;
    return text;
}
constinit const wchar_t* nextField = L"";

void packRaw(const wchar_t* text) { packed().append(text).push_back(orv::nodeSeparator()); }

void packInteger(std::int32_t number) {
    wchar_t digits[orv::kIntegerLength];
    orv::formatInteger(number, digits);
    packRaw(digits);
}

bool isFieldEnd(wchar_t ch) { return ch == 0 || ch == orv::nodeSeparator(); }

CString readPlainField() {
    orv::WideString field;
    while (!isFieldEnd(*nextField)) {
        const wchar_t ch = *nextField++;
        if (ch == kColon) {
            field.push_back(L':');
        } else if (ch == L'&' && (*nextField == L'r' || *nextField == L'n')) {
            field.push_back(*nextField++ == L'r' ? L'\r' : L'\n');
        } else {
            field.push_back(ch);
        }
    }
    if (*nextField != 0) ++nextField;
    return {field.data(), static_cast<int>(field.size())};
}

/// The next field for a target that a number is read into; false when the target stays as it is.
bool takeField(CString& field, bool force) {
    CProAttBase::intl_getSubString(field);
    return field != L"?" && (force || !field.IsEmpty());
}

template <class Number>
void readInteger(Number& number, bool force) {
    CString field;
    if (takeField(field, force)) number = static_cast<Number>(orv::parseInteger(viewOf(field)).value);
}

template <class Number>
void readDecimal(Number& number, bool force) {
    CString field;
    if (!takeField(field, force)) return;
    const int comma = field.Find(L',');
    if (comma >= 0) field.SetAt(comma, L'.');
    const double value = orv::parseDouble(viewOf(field)).value;
    const double scaled = value * 1e10;
    number = static_cast<Number>(std::isfinite(scaled) ? std::floor(scaled + 0.5) / 1e10 : value);
}

int hexDigit(wchar_t ch) {
    if (ch >= L'0' && ch <= L'9') return ch - L'0';
    if (ch >= L'A' && ch <= L'F') return ch - L'A' + 10;
    if (ch >= L'a' && ch <= L'f') return ch - L'a' + 10;
    return -1;
}

}  // namespace

void CProAttBase::setSubStringReset() { packed().clear(); }

void CProAttBase::setSubString(const wchar_t* text) {
    orv::WideString& out = packed();
    for (; text != nullptr && *text != 0; ++text) {
        if (*text == L'\n') {
            out.append(L"&n");
        } else if (*text == L'\r') {
            out.append(L"&r");
        } else {
            out.push_back(*text == L':' ? kColon : *text);
        }
    }
    out.push_back(orv::nodeSeparator());
}

void CProAttBase::setSubString(int number) { packInteger(number); }

// ODDITY(node-unsigned-fields): numbers from 2^31 on are written as negative ones; reading them into an unsigned number
// gives them back. Pinned by NodeFields.Packs.
void CProAttBase::setSubString(unsigned int number) { packInteger(static_cast<std::int32_t>(number)); }

void CProAttBase::setSubString(long number) { packInteger(static_cast<std::int32_t>(number)); }

void CProAttBase::setSubString(const float& number) { setSubString(static_cast<double>(number)); }

void CProAttBase::setSubString(const double& number) {
    wchar_t digits[orv::kGeneralLength];
    orv::formatGeneral(number, digits);
    packRaw(digits);
}

void CProAttBase::setSubString(CTime& time) {
    CString digits;
    digits.Format(L"%I64X", time.GetTime());
    packRaw(digits);
}

void CProAttBase::setSubStringTR(const wchar_t* text) {
    if (text != nullptr) setSubString(text);
}

void CProAttBase::setSubStringFlush() {
    value = CString(packed().data(), static_cast<int>(packed().size()));
    packed().clear();
}

void CProAttBase::getSubStringReset(const wchar_t* text) { nextField = text != nullptr ? text : L""; }

void CProAttBase::intl_getSubString(CString& field) {
    constexpr orv::WideView kCall = L"_TR(";
    std::vector<bool> isCall;  // the marks before the field, the outermost first
    for (;;) {
        if (*nextField == kTranslated && kTranslated != orv::nodeSeparator()) {
            isCall.push_back(false);
            ++nextField;
            continue;
        }
        std::size_t same = 0;
        while (same < kCall.size() && nextField[same] == kCall[same])
            ++same;
        if (same < kCall.size()) break;
        isCall.push_back(true);
        nextField += same;
    }
    field = readPlainField();
    constexpr int kMostTranslations = 100;  // of one field; further marks around it only take their ")"
    for (int i = 0; !isCall.empty(); isCall.pop_back(), ++i) {
        if (isCall.back()) field.Truncate(field.GetLength() > 0 ? field.GetLength() - 1 : 0);
        if (i < kMostTranslations) field = orv::translate(field);
    }
}

void CProAttBase::getSubString(int& number, bool force) { readInteger(number, force); }

void CProAttBase::getSubString(unsigned int& number, bool force) { readInteger(number, force); }

void CProAttBase::getSubString(long& number, bool force) { readInteger(number, force); }

void CProAttBase::getSubString(unsigned long& number, bool force) {
    auto bits = static_cast<unsigned int>(number);
    CString field;
    if (!takeField(field, force)) return;
    bits = static_cast<unsigned int>(orv::parseInteger(viewOf(field)).value);
    number = bits;
}

void CProAttBase::getSubString(bool& flag, bool force) {
    CString field;
    if (takeField(field, force)) flag = orv::parseInteger(viewOf(field)).value != 0;
}

void CProAttBase::getSubString(float& number, bool force) { readDecimal(number, force); }

void CProAttBase::getSubString(double& number, bool force) { readDecimal(number, force); }

void CProAttBase::getSubString(CString& text, bool force) {
    if (*nextField == L'?' && isFieldEnd(nextField[1])) {
        nextField += nextField[1] != 0 ? 2 : 1;
        return;
    }
    CString field;
    intl_getSubString(field);
    if (force || !field.IsEmpty()) text = field;
}

void CProAttBase::getSubString(CTime& time, bool force) {
    CString field;
    if (!takeField(field, force)) return;
    std::uint64_t value = 0;
    for (const wchar_t* at = field; hexDigit(*at) >= 0; ++at)
        value = value << 4 | static_cast<std::uint64_t>(hexDigit(*at));
    time = CTime(static_cast<std::int64_t>(value));
}
