// CString: formatting.
#include "framework/wide_printf.h"
#include "orv/framework/string.h"

void CString::FormatV(const wchar_t* format, va_list arguments) {
    orv::WideString made;
    orv::appendFormatted(made, format, arguments);
    SetString(made.data(), static_cast<int>(made.size()));
}

void CString::AppendFormatV(const wchar_t* format, va_list arguments) {
    orv::WideString made;
    orv::appendFormatted(made, format, arguments);
    Append(made.data(), static_cast<int>(made.size()));
}

void CString::formatC(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::appendFormatC(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}
