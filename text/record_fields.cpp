// Single fields of a record by number, on the record object that the whole process shares.
//
// The texts of a caller may be gone when it goes on, so the shared object forgets record and separator each time.
#include "framework/string_data.h"
#include "orv/records.h"
#include "orv/string_utilities.h"

class orvStrUtil::SharedRecord {
  public:
    SharedRecord() = default;
    SharedRecord(const SharedRecord&) = delete;
    SharedRecord& operator=(const SharedRecord&) = delete;
    ~SharedRecord() {
        record_.read_ = nullptr;
        if (record_.separatorText_ != nullptr) record_.setSeparator(L':');
    }
    COrvSubStr* operator->() const { return &record_; }

  private:
    COrvSubStr& record_ = orvSubStrUtil::stOrvSubtstr;
};

template <class Separator>
CString orvStrUtil::getField(const wchar_t* record, long n, Separator separator) {
    CString field;
    if (n < 1) return field;
    const SharedRecord shared;
    shared->GetInit(record, separator);
    if (shared->skipFields(n - 1)) shared->Get(field);
    return field;
}

// Rewrites the fields in front of the record's end; a line break and what follows it stay as they are.
template <class Separator>
void orvStrUtil::setField(CString& record, long n, Separator separator, const wchar_t* value) {
    if (n < 1) return;
    const SharedRecord shared;
    shared->GetInit(record.GetString(), separator);
    const std::int64_t separators = std::int64_t{n - 1} * shared->separatorLength_;
    const bool impossible = n > 1 && shared->separatorLength_ == 0;
    if (impossible || separators > orv::kMaximumTextLength - record.GetLength()) return;
    shared->AddInit(separator);
    orv::WideString field;
    long i = 1;
    for (bool more = shared->hasField(); more; ++i) {
        more = shared->readText(field) == COrvSubStr::FieldEnd::kSeparator;
        shared->Add(i == n ? value : field.c_str());
    }
    for (; i <= n; ++i)
        shared->Add(i == n ? value : L"");
    const CString rest(shared->read_);
    shared->AddEnd(record);
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
