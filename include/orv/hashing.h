// Digests of texts.
#pragma once

#include "orv/export.h"
#include "orv/framework/string.h"

class ORV_API CHashing {
  public:
    /// The MD5 digest (RFC 1321) of the text's UTF-16 little-endian bytes, as 32 lower-case hexadecimal digits.
    ///   "" => "d41d8cd98f00b204e9800998ecf8427e"
    /// It identifies requests; it protects nothing.
    static CString md5(const CString& text);
};
