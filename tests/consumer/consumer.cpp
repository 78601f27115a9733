// A host as its users write it: everything through the installed headers and the shared library.
#include <cstdio>
#include <exception>

#include "orv/orv.h"

namespace {

int failures = 0;

void expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "consumer: %s\n", what);
    ++failures;
}

}  // namespace

int main() {
    COrvSubStr record;
    record.AddInit(L':');
    record.Add(L"Heizkörper: Süd");
    record.Add(12);
    CString text;
    record.AddEnd(text);
    expect(text == L"Heizkörper® Süd:12", "a record is written");
    expect(orvStrUtil::GetSubStr(text, 1, L':') == L"Heizkörper: Süd", "a field is read");

    CArray<int> numbers;
    bool caught = false;
    try {
        numbers.GetAt(3);
    } catch (CInvalidArgException* exception) {
        caught = true;
        exception->Delete();
    }
    expect(caught, "an exception crosses the border");
    caught = false;
    try {
        text.GetAt(1000);  // thrown inside the library
    } catch (CException* exception) {
        caught = std::uncaught_exceptions() == 0;
        exception->Delete();
    }
    expect(caught, "an exception crosses the border as its base class");
    expect(CHashing::md5(CString()) == L"d41d8cd98f00b204e9800998ecf8427e", "a digest is made");
    std::puts(failures == 0 ? "1 passed, 0 failed" : "0 passed, 1 failed");
    return failures == 0 ? 0 : 1;
}
