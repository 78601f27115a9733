// One-line field records: fields joined by a separator, the form in which much of the suite's data is stored.
//
//   a value's ":" is written as U+00AE, carriage return as "&r", line feed as "&n"; everything else as it is
//   the separator is one character (":" by default) or a text; the escapes do not depend on it
//   a record ends at its first raw line break
//
// Escaping is not one to one: a value that holds U+00AE comes back with ":", one that holds "&r" or "&n" with the line
// break. Field numbers count from 1.
//
// A record of up to 1,048,575 characters is built in one process-wide buffer, without allocating; a longer one moves to
// a larger buffer. All objects share these buffers, the process-wide object behind orvSubStrUtil and the flag of
// setSubstrReadRawTrData: none of this is for several threads at once.
#pragma once

#include <cstdint>

#include "orv/export.h"
#include "orv/framework/lists.h"
#include "orv/framework/string.h"

/// Writes a record (AddInit, Add..., AddEnd) or reads one (GetInit, Get...).
///
/// A copy shares the text being read and the buffer being written.
class ORV_API COrvSubStr {
  public:
    /// Ready with the separator ":" for writing; nothing to read. A separator that was never set by AddInit or GetInit
    /// has the length 0, so that AddEnd then leaves the last separator.
    COrvSubStr();

    // ---- Writing ----
    /// Starts a new record. A text separator is not copied: it must live as long as it is used; null counts as "". An
    /// empty separator, or the character 0, separates nothing.
    void AddInit(wchar_t separator);
    void AddInit(const wchar_t* separator);
    /// Appends one field. Null counts as "".
    void Add(const wchar_t* value);
    /// Integers are written by "%d", unsigned ones too: 3000000000 becomes -1294967296. `long` counts as 32 bits.
    void Add(int value);
    void Add(unsigned int value);
    void Add(const long& value);
    void Add(const unsigned long& value);
    /// "0" for zero, else six significant digits ("%g").
    void Add(const float& value);
    void Add(const double& value);
    /// Hands the record over without its last separator, and starts anew.
    void AddEnd(CString& out);

    // ---- Reading ----
    /// Sets text and separator. The text is not copied: it must live and stay as it is while it is read. False when
    /// there is nothing to read: null, "" or a line break first.
    bool GetInit(const wchar_t* text, wchar_t separator);
    bool GetInit(const wchar_t* text, const wchar_t* separator);
    /// Reads the next field. True when another one follows; the last field of a record thus comes with false.
    /// At the end of the text: false, and "" if `clearIfNone`, else `out` as it was. At a line break, which is never
    /// passed: true and "" each time, so whoever reads texts with line breaks asks hasField() first.
    bool Get(CString& out);
    bool Get(CString& out, bool clearIfNone);
    /// Typed fields: an empty field sets 0 only if `force`, else the target keeps its value. Integers are the leading
    /// digits (0 if there are none), 32 bits wide, saturating. Decimal numbers take "," and "." and are rounded to 10
    /// decimals; for a float only the first "," counts as a decimal sign. Returns what the reading of the text
    /// returned.
    bool Get(int& out, bool force);
    bool Get(unsigned int& out, bool force);
    bool Get(long& out, bool force);
    bool Get(unsigned long& out, bool force);
    bool Get(bool& out, bool force);
    bool Get(float& out, bool force);
    bool Get(double& out, bool force);

    /// False at the end of the text and at a line break, where a record ends.
    bool hasField() const;

    /// 0 while a separator text is in use.
    wchar_t getSeparatorChar() const { return separatorChar_; }
    /// Null while a separator character is in use.
    const wchar_t* getSeparatorString() const { return separatorText_; }

    /// Fields that begin with U+2248 carry translation data: the mark is skipped in reading unless this is true.
    /// Process-wide, false at first.
    static void setSubstrReadRawTrData(bool raw);

  private:
    enum class FieldEnd { kText, kBreak, kSeparator };

    void setSeparator(wchar_t separator);
    void setSeparator(const wchar_t* separator);
    void startRecord();
    void moveToLargerBuffer();
    void append(const wchar_t* text, std::size_t length);
    FieldEnd readText(orv::WideString& out);
    template <class Number>
    bool getInteger(Number& out, bool force);
    template <class Sink>
    FieldEnd readField(Sink& sink);
    template <class Sink>
    FieldEnd readFieldBySeparatorText(Sink& sink);
    bool readSimpleField(CString& out);
    bool skipFields(long count);
    friend class orvStrUtil;

    wchar_t* outputStart_;
    const wchar_t* read_ = nullptr;
    wchar_t* write_;
    wchar_t separatorChar_ = L':';
    const wchar_t* separatorText_ = nullptr;
    std::uint32_t separatorLength_ = 0;
    const wchar_t* outputEnd_;

    static bool bSubstrReadRawTrData;
};

/// The same operations on one process-wide COrvSubStr.
class ORV_API orvSubStrUtil {
  public:
    orvSubStrUtil() = default;
    orvSubStrUtil(const orvSubStrUtil&) = default;
    orvSubStrUtil(orvSubStrUtil&&) = default;
    orvSubStrUtil& operator=(const orvSubStrUtil&) = default;
    orvSubStrUtil& operator=(orvSubStrUtil&&) = default;
    virtual ~orvSubStrUtil();

    static void AddInit(wchar_t separator);
    static void AddInit(const wchar_t* separator);
    static void Add(const wchar_t* value);
    static void Add(int value);
    static void Add(unsigned int value);
    static void Add(const long& value);
    static void Add(const unsigned long& value);
    static void Add(const float& value);
    static void Add(const double& value);
    static void AddEnd(CString& out);
    static bool GetInit(const wchar_t* text, wchar_t separator);
    static bool GetInit(const wchar_t* text, const wchar_t* separator);
    static bool Get(CString& out);
    static bool Get(CString& out, bool clearIfNone);
    static bool Get(int& out, bool force);
    static bool Get(unsigned int& out, bool force);
    static bool Get(long& out, bool force);
    static bool Get(unsigned long& out, bool force);
    static bool Get(bool& out, bool force);
    static bool Get(float& out, bool force);
    static bool Get(double& out, bool force);
    static wchar_t getSeparatorChar();
    static const wchar_t* getSeparatorString();
    static void setSubstrReadRawTrData(bool raw);
    /// orvStrUtil::readStringlistFromFile of a file that is not scrambled.
    static bool readStringlistFromFile(CStringList& out, const wchar_t* path, unsigned codePage);

  protected:
    /// GetSubStr and SetSubStr of orvStrUtil work on it too; a record that was being written or read here is lost then.
    static COrvSubStr stOrvSubtstr;

  private:
    friend class orvStrUtil;
};
