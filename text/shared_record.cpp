// orvSubStrUtil: the operations of COrvSubStr on one object for the whole process.
#include "orv/records.h"
#include "orv/string_utilities.h"

COrvSubStr orvSubStrUtil::stOrvSubtstr;

orvSubStrUtil::~orvSubStrUtil() = default;

void orvSubStrUtil::AddInit(wchar_t separator) { stOrvSubtstr.AddInit(separator); }
void orvSubStrUtil::AddInit(const wchar_t* separator) { stOrvSubtstr.AddInit(separator); }
void orvSubStrUtil::Add(const wchar_t* value) { stOrvSubtstr.Add(value); }
void orvSubStrUtil::Add(int value) { stOrvSubtstr.Add(value); }
void orvSubStrUtil::Add(unsigned int value) { stOrvSubtstr.Add(value); }
void orvSubStrUtil::Add(const long& value) { stOrvSubtstr.Add(value); }
void orvSubStrUtil::Add(const unsigned long& value) { stOrvSubtstr.Add(value); }
void orvSubStrUtil::Add(const float& value) { stOrvSubtstr.Add(value); }
void orvSubStrUtil::Add(const double& value) { stOrvSubtstr.Add(value); }
void orvSubStrUtil::AddEnd(CString& out) { stOrvSubtstr.AddEnd(out); }
bool orvSubStrUtil::GetInit(const wchar_t* text, wchar_t separator) { return stOrvSubtstr.GetInit(text, separator); }
bool orvSubStrUtil::GetInit(const wchar_t* text, const wchar_t* separator) {
    return stOrvSubtstr.GetInit(text, separator);
}
bool orvSubStrUtil::Get(CString& out) { return stOrvSubtstr.Get(out); }
bool orvSubStrUtil::Get(CString& out, bool clearIfNone) { return stOrvSubtstr.Get(out, clearIfNone); }
bool orvSubStrUtil::Get(int& out, bool force) { return stOrvSubtstr.Get(out, force); }
bool orvSubStrUtil::Get(unsigned int& out, bool force) { return stOrvSubtstr.Get(out, force); }
bool orvSubStrUtil::Get(long& out, bool force) { return stOrvSubtstr.Get(out, force); }
bool orvSubStrUtil::Get(unsigned long& out, bool force) { return stOrvSubtstr.Get(out, force); }
bool orvSubStrUtil::Get(bool& out, bool force) { return stOrvSubtstr.Get(out, force); }
bool orvSubStrUtil::Get(float& out, bool force) { return stOrvSubtstr.Get(out, force); }
bool orvSubStrUtil::Get(double& out, bool force) { return stOrvSubtstr.Get(out, force); }
wchar_t orvSubStrUtil::getSeparatorChar() { return stOrvSubtstr.getSeparatorChar(); }
const wchar_t* orvSubStrUtil::getSeparatorString() { return stOrvSubtstr.getSeparatorString(); }
void orvSubStrUtil::setSubstrReadRawTrData(bool raw) { COrvSubStr::setSubstrReadRawTrData(raw); }
bool orvSubStrUtil::readStringlistFromFile(CStringList& out, const wchar_t* path, unsigned codePage) {
    return orvStrUtil::readStringlistFromFile(out, path, codePage, false);
}
