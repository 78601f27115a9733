// Single fields of a record by number, on the record object that the whole process shares.
//
// The text that was read may be gone when the caller goes on, so the shared reader forgets it each time.
#include "orv/records.h"
#include "orv/string_utilities.h"

template <class Separator>
CString orvStrUtil::getField(const wchar_t* record, long n, Separator separator) {
    CString field;
    if (n < 1) return field;
    COrvSubStr& shared = orvSubStrUtil::stOrvSubtstr;
    shared.GetInit(record, separator);
    if (shared.skipFields(n - 1)) shared.Get(field);
    shared.read_ = nullptr;
    return field;
}

// Rewrites the fields in front of the record's end; a line break and what follows it stay as they are.
template <class Separator>
void orvStrUtil::setField(CString& record, long n, Separator separator, const wchar_t* value) {
    if (n < 1) return;
    COrvSubStr& shared = orvSubStrUtil::stOrvSubtstr;
    shared.GetInit(record.GetString(), separator);
    shared.AddInit(separator);
    orv::WideString field;
    long i = 1;
    for (bool more = shared.hasField(); more; ++i) {
        more = shared.readText(field) == COrvSubStr::FieldEnd::kSeparator;
        shared.Add(i == n ? value : field.c_str());
    }
    for (; i <= n; ++i)
        shared.Add(i == n ? value : L"");
    const CString rest(shared.read_);
    shared.read_ = nullptr;
    shared.AddEnd(record);
    record += rest;
}

CString orvStrUtil::GetSubStr(const wchar_t* record, long n, const wchar_t* separator) {
    return getField(record, n, separator);
}

CString orvStrUtil::GetSubStr(const wchar_t* record, long n, wchar_t separator) {
    return getField(record, n, separator);
}

void orvStrUtil::SetSubStr(CString& record, long n, const wchar_t* separator, const wchar_t* value) {
    setField(record, n, separator, value);
}

void orvStrUtil::SetSubStr(CString& record, long n, wchar_t separator, const wchar_t* value) {
    setField(record, n, separator, value);
}
