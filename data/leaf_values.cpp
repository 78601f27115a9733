// The fields of a leaf's value.
#include <algorithm>
#include <charconv>
#include <cmath>

#include "data/tree_links.h"
#include "framework/characters.h"
#include "orv/numbers.h"
#include "orv/records.h"
#include "orv/string_utilities.h"

namespace {

using orv::viewOf;
using orv::WideView;

constexpr wchar_t kTranslationMark = L'\x2248';

/// How many fields a record has, by the rules of COrvSubStr: it ends at its first line break.
int countFields(const CString& record, wchar_t separator) {
    if (record.IsEmpty()) return 0;
    int count = 1;
    const wchar_t* at = record;
    bool isFieldStart = true;
    while (*at != 0 && !orvStrUtil::NextIsBreak(at)) {
        const bool isMark = isFieldStart && *at == kTranslationMark && separator != kTranslationMark;
        isFieldStart = false;
        if (isMark) {
            ++at;
        } else if (*at == separator) {
            ++count;
            isFieldStart = true;
            ++at;
        } else {
            at += at[0] == L'&' && (at[1] == L'r' || at[1] == L'n') ? 2 : 1;
        }
    }
    return count;
}

/// One field as it stands in a record: ":" as U+00AE, CR as &r, LF as &n.
CString escaped(const wchar_t* value) {
    const CString text(value);
    if (text.FindOneOf(L":\r\n") < 0) return text;
    orv::WideString out;
    for (const wchar_t ch : viewOf(text)) {
        switch (ch) {
            case L':':
                out += L'\x00AE';
                break;
            case L'\r':
                out += L"&r";
                break;
            case L'\n':
                out += L"&n";
                break;
            default:
                out += ch;
        }
    }
    return {out.data(), static_cast<int>(out.size())};
}

CString textOf(int value) {
    wchar_t text[orv::kIntegerLength];
    const int length = orv::formatInteger(value, text);
    return {text, length};
}

/// The shortest text that reads back the same.
CString textOf(double value) {
    if (std::isnan(value)) return {};
    if (std::isinf(value)) return value > 0 ? L"1e999" : L"-1e999";  // reading rounds it to infinity
    char text[32];
    return {text, static_cast<int>(std::to_chars(text, text + sizeof(text), value).ptr - text)};
}

int integerIn(const CString& field) { return orv::parseInteger(viewOf(field)).value; }

double numberIn(CString field) {
    field.Replace(L',', L'.');
    return orv::parseDouble(viewOf(field)).value;
}

/// Whether the record has field `index`, which `out` becomes then.
bool readField(const CString& record, int index, wchar_t separator, CString& out) {
    index = std::max(index, 1);
    if (record.IsEmpty()) return false;
    COrvSubStr reader;
    reader.GetInit(record, separator);
    for (int i = 1;; ++i) {
        const bool more = reader.Get(out);
        if (i == index) return true;
        // At a line break more is true for ever; there the record ends.
        if (!more || (!reader.hasField() && i >= countFields(record, separator))) return false;
    }
}

template <class Take>
void readAll(const CString& record, wchar_t separator, Take take) {
    COrvSubStr reader;
    reader.GetInit(record, separator);
    CString field;
    for (int left = countFields(record, separator); left > 0; --left) {
        reader.Get(field);
        take(field);
    }
}

/// Whether fields are read with their translation marks; there is no asking but reading one.
bool readsRawMarks() {
    COrvSubStr reader;
    CString field;
    reader.GetInit(L"\x2248", L':');
    reader.Get(field);
    return !field.IsEmpty();
}

/// The walk over one leaf's fields, which all leaves share as they share the cursor.
struct Walk {
    int left = 0;
    CLeaf* written = nullptr;
} walk;

CString fieldText;

}  // namespace

bool CLeaf::GetValue(int index, CString& out, wchar_t separator) const {
    out = orvStrUtil::GetSubStr(value_, index, separator);
    return !out.IsEmpty();
}

const wchar_t* CLeaf::GetStrLeafValuePtr(int index, wchar_t separator, const wchar_t* defaultValue) const {
    CString field;
    if (!readField(value_, index, separator, field)) return defaultValue;
    fieldText = field;
    return fieldText;
}

int CLeaf::GetIntLeafValue(int index, wchar_t separator, int defaultValue) const {
    // The digits in front of the first field are those in front of the record.
    const WideView record = viewOf(value_);
    const std::size_t digits = record.starts_with(L'-') ? 1 : 0;
    if (index <= 1 && record.size() > digits && orv::isAsciiDigit(record[digits]) && !orv::isAsciiDigit(separator) &&
        separator != L'-') {
        return orv::parseInteger(record).value;
    }
    CString field;
    return readField(value_, index, separator, field) && !field.IsEmpty() ? integerIn(field) : defaultValue;
}

double CLeaf::GetDblLeafValue(int index, wchar_t separator, double defaultValue) const {
    CString field;
    return readField(value_, index, separator, field) && !field.IsEmpty() ? numberIn(field) : defaultValue;
}

void CLeaf::SetStrLeafValue(int index, const wchar_t* value, wchar_t separator) {
    const CString text(value);  // which may be this very value
    const bool wasRaw = readsRawMarks();
    COrvSubStr::setSubstrReadRawTrData(true);
    orvStrUtil::SetSubStr(writableValue(), std::max(index, 1), separator, text);
    COrvSubStr::setSubstrReadRawTrData(wasRaw);
}

void CLeaf::SetIntLeafValue(int index, int value, wchar_t separator) {
    SetStrLeafValue(index, textOf(value), separator);
}

void CLeaf::SetDblLeafValue(int index, double value, wchar_t separator) {
    SetStrLeafValue(index, textOf(value), separator);
}

bool CLeaf::InitGetValues(wchar_t separator) const {
    orvSubStrUtil::GetInit(value_, separator);
    walk.left = countFields(value_, separator);
    return !value_.IsEmpty();
}

bool CLeaf::GetFirstValue(CString& out) const {
    InitGetValues(orvSubStrUtil::getSeparatorChar());
    return GetNextValue(out);
}

bool CLeaf::GetNextValue(CString& out) const {
    if (walk.left == 0) {
        out.Empty();
        return false;
    }
    --walk.left;
    orvSubStrUtil::Get(out);
    return true;
}

void CLeaf::InitSetValues(wchar_t separator) {
    orvSubStrUtil::AddInit(separator);
    walk.written = this;
}

void CLeaf::SetFirstValue(const wchar_t* value) {
    InitSetValues(orvSubStrUtil::getSeparatorChar());
    SetNextValue(value);
}

void CLeaf::SetNextValue(const wchar_t* value) { orvSubStrUtil::Add(value); }

void CLeaf::SetLastValue(const wchar_t* value) {
    SetNextValue(value);
    ExitSetValues();
}

void CLeaf::ExitSetValues() {
    if (walk.written != this) return;
    orvSubStrUtil::AddEnd(writableValue());
    walk.written = nullptr;
}

void CLeaf::GetStrValueArray(CStringArray& out, wchar_t separator) const {
    out.RemoveAll();
    readAll(value_, separator, [&](const CString& field) { out.Add(field); });
}

void CLeaf::GetIntValueArray(CArray<int, int>& out, wchar_t separator) const {
    out.RemoveAll();
    readAll(value_, separator, [&](const CString& field) { out.Add(integerIn(field)); });
}

void CLeaf::GetDblValueArray(CArray<double, double>& out, wchar_t separator) const {
    out.RemoveAll();
    readAll(value_, separator, [&](const CString& field) { out.Add(numberIn(field)); });
}

CString CLeaf::GetOnlyValue(wchar_t /*separator*/) const {
    COrvSubStr reader;
    CString field;
    reader.GetInit(value_, L"");
    reader.Get(field, true);
    return field;
}

int CLeaf::GetOnlyValueI(wchar_t separator, int defaultValue) const {
    const CString field = GetOnlyValue(separator);
    return field.IsEmpty() ? defaultValue : integerIn(field);
}

double CLeaf::GetOnlyValueD(wchar_t separator, double defaultValue) const {
    const CString field = GetOnlyValue(separator);
    return field.IsEmpty() ? defaultValue : numberIn(field);
}

void CLeaf::SetOnlyValue(const wchar_t* value, wchar_t /*separator*/) { writableValue() = escaped(value); }
void CLeaf::SetOnlyValue(int value, wchar_t /*separator*/) { writableValue() = textOf(value); }
void CLeaf::SetOnlyValue(double value, wchar_t /*separator*/) { writableValue() = textOf(value); }

// ---- By path ----

const CLeaf* CNode::leafAt(const wchar_t* childName, const wchar_t* leafName) const {
    const CNode* node = orvStrUtil::IsEmpty(childName) ? this : FindChild(childName);
    return node == nullptr ? nullptr : node->FindLeaf(leafName);
}

CLeaf* CNode::madeLeafAt(const wchar_t* childName, const wchar_t* leafName) {
    CNode* node = orvStrUtil::IsEmpty(childName) ? this : AddChildUnique(CString(childName));
    CLeaf* leaf = node->FindLeaf(leafName);
    return leaf != nullptr ? leaf : node->AddLeaf(new CLeaf(CString(leafName)));
}

const wchar_t* CNode::GetStrLeafValuePtr(const wchar_t* childName, const wchar_t* leafName, int index,
                                         wchar_t separator, const wchar_t* defaultValue) const {
    const CLeaf* leaf = leafAt(childName, leafName);
    return leaf == nullptr ? defaultValue : leaf->GetStrLeafValuePtr(index, separator, defaultValue);
}

int CNode::GetIntLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, wchar_t separator,
                           int defaultValue) const {
    const CLeaf* leaf = leafAt(childName, leafName);
    return leaf == nullptr ? defaultValue : leaf->GetIntLeafValue(index, separator, defaultValue);
}

double CNode::GetDblLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, wchar_t separator,
                              double defaultValue) const {
    const CLeaf* leaf = leafAt(childName, leafName);
    return leaf == nullptr ? defaultValue : leaf->GetDblLeafValue(index, separator, defaultValue);
}

void CNode::SetStrLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, const wchar_t* value,
                            wchar_t separator) {
    madeLeafAt(childName, leafName)->SetStrLeafValue(index, value, separator);
}

void CNode::SetIntLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, int value,
                            wchar_t separator) {
    madeLeafAt(childName, leafName)->SetIntLeafValue(index, value, separator);
}

void CNode::SetDblLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, double value,
                            wchar_t separator) {
    madeLeafAt(childName, leafName)->SetDblLeafValue(index, value, separator);
}

int CNode::GetIntValue(const wchar_t* leafName, int defaultValue) const {
    const CLeaf* leaf = FindLeaf(leafName);
    return leaf == nullptr ? defaultValue : leaf->GetOnlyValueI(L':', defaultValue);
}

double CNode::GetDblValue(const wchar_t* leafName, double defaultValue) const {
    const CLeaf* leaf = FindLeaf(leafName);
    return leaf == nullptr ? defaultValue : leaf->GetOnlyValueD(L':', defaultValue);
}

bool CNode::GetStrValueArray(const wchar_t* leafName, CStringArray& out, wchar_t separator) const {
    out.RemoveAll();
    const CLeaf* leaf = FindLeaf(leafName);
    if (leaf != nullptr) leaf->GetStrValueArray(out, separator);
    return leaf != nullptr;
}

bool CNode::GetIntValueArray(const wchar_t* leafName, CArray<int, int>& out, wchar_t separator) const {
    out.RemoveAll();
    const CLeaf* leaf = FindLeaf(leafName);
    if (leaf != nullptr) leaf->GetIntValueArray(out, separator);
    return leaf != nullptr;
}

bool CNode::GetDblValueArray(const wchar_t* leafName, CArray<double, double>& out, wchar_t separator) const {
    out.RemoveAll();
    const CLeaf* leaf = FindLeaf(leafName);
    if (leaf != nullptr) leaf->GetDblValueArray(out, separator);
    return leaf != nullptr;
}
