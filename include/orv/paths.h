// Paths as texts: values, splitting, joining, normalising, comparing and relating; command lines; version texts.
//
// Rules of the family:
// - Everything in this header but IsWritable works on texts alone and asks no system. Nothing fails: where a
//   path lacks a part, the part is "". Files and folders themselves are in files.h.
// - A path is a Windows path: a letter and ":", or two backslashes and a host; "\" separates, and "/" too wherever a
//   path is split. Case does not matter (Unicode's simple folding). No part is cut off at any length.
// - A path value is a text and nothing more: any text makes one, and all of a text's operations apply to it.
// - Joining adds no separator at the end; splitting keeps the separator that the split leaves (C:\a\b\).
// - For several threads at once.
#pragma once

#include <utility>

#include "orv/export.h"
#include "orv/framework/string.h"

class CFilePath;

/// The path of a folder, with or without a separator at its end.
class ORV_API CDirPath : public CString {
  public:
    CDirPath() = default;
    CDirPath(const CString& text) : CString(text) {}
    CDirPath(CString&& text) noexcept : CString(std::move(text)) {}
    CDirPath(const wchar_t* text) : CString(text) {}

    // ---- Joining: see Path::AppendPath ----
    CDirPath AppendSubDir(const CString& sub) const;
    CFilePath AppendFile(const CString& name) const;

    // ---- Parts ----
    /// The last component without its extension: "C:\data\plan\" => "plan", and "C:\data\rev.2\" => "rev".
    CString GetDirName() const;
    /// Letter and colon, or "" ("\\host\share", "sub\x").
    CString GetDrive() const;
    /// "C:\a\b\" => "C:\a\"     "C:\a" => "C:\"     "C:\" => "C:\"     "a" => ""     "\\h\s" => "\\h\"
    CDirPath GetParentDirPath() const;

    // ---- Asking ----
    /// A letter and ":", or a host: "C:a" counts, "\a" does not.
    bool IsAbsolute() const;
    /// Two backslashes first; two slashes are none.
    bool IsUNC() const;
    /// Ignoring case, in any spelling that normalising removes, with or without a separator at the end:
    /// "C:\a\" and "c:/A" are equal.
    bool IsEqual(const CDirPath& other) const;
    /// Creates and deletes the file "_test_.000" in the folder: whether that succeeds. One that is there is lost.
    bool IsWritable() const;

    // ---- Changing ----
    /// See NormalizePath.
    CDirPath& Normalize();
    CDirPath Normalized() const;
    /// Removes white space in front; white space and separators at the end ("C:\" => "C:").
    CDirPath& Trim();
    CDirPath Trimmed() const;
};

/// The path of a file.
class ORV_API CFilePath : public CString {
  public:
    CFilePath() = default;
    CFilePath(const CString& text) : CString(text) {}
    CFilePath(CString&& text) noexcept : CString(std::move(text)) {}
    CFilePath(const wchar_t* text) : CString(text) {}

    // ---- Parts; the extension begins at the last dot of the last component ----
    //                     GetDirPath   GetFileName   GetShortFileName   GetFileExt
    //   C:\a.b\x.tar.gz   C:\a.b\      x.tar.gz      x.tar              gz
    //   C:x               C:           x             x
    //   a/.profile        a/           .profile                         profile
    CDirPath GetDirPath() const;
    CString GetFileName() const;
    CString GetShortFileName() const;
    CString GetFileExt() const;
    CString GetDrive() const;
    /// "\\host" of "\\host\share\x"; "" of a path that has no host.
    CString GetHost() const;

    // ---- Asking ----
    bool IsAbsolute() const;
    bool IsUNC() const;
    /// Ignoring case; dots in front of `ext` do not count.
    bool IsFileExt(const CString& ext) const;
    /// Ignoring case, as they are or both normalised. A separator at the end counts.
    bool IsEqual(const CFilePath& other) const;

    // ---- Changing ----
    CFilePath& Normalize();
    CFilePath Normalized() const;
    CFilePath& SetDirPath(const CDirPath& dir);
    CFilePath& SetFileName(const CString& name);
    ///   ("x", "pdf" or ".pdf") => "x.pdf"     ("x.txt", "pdf") => "x.pdf"     ("x.", "pdf") => "x.pdf"
    ///   ("x.txt", "" or ".")   => "x"         ("x...", "")     => "x"         ("", "pdf")   => "pdf"
    CFilePath& SetFileExt(const CString& ext);
    /// The folder and the extension stay: ("C:\a\x.txt", "y") => "C:\a\y.txt", and with "" => "C:\a\.txt".
    CFilePath& SetShortFileName(const CString& name);
};

static_assert(sizeof(CDirPath) == sizeof(CString) && sizeof(CFilePath) == sizeof(CString));

/// The same as CFilePath::GetShortFileName.
ORV_API CString GetShortFileName(const CString& path);

namespace Path {

/// Joins by one separator. Where neither side brings one it is "/" if either side holds one anywhere, else "\".
///   ("C:\a", "b") => "C:\a\b"     ("C:\a\", "\b") => "C:\a\b"     ("C:/a", "b") => "C:/a/b"
///   ("", "\b")    => "\b"         ("C:\a", "")    => "C:\a"       ("C:", "a")   => "C:\a"
ORV_API CString AppendPath(const CString& base, const CString& tail);
ORV_API CDirPath AppendSubDir(const CDirPath& dir, const CString& sub);
ORV_API CFilePath AppendFileName(const CDirPath& dir, const CString& name);
/// A copy with SetFileExt(ext).
ORV_API CFilePath ChangeFileExt(const CFilePath& file, const CString& ext);

}  // namespace Path

/// Normalises in place, by these steps in this order; 3 to 6 look at the text from its third character on:
///   1. "/" becomes "\"              4. "\.\" becomes "\"
///   2. white space at the end goes  5. blanks before "\" go
///   3. "\\" becomes "\"             6. blanks behind "\" go
///   7. the first "\.." goes together with the component before it, again and again, until the root (or a host, or a
///      leading "..") is all that is before it.
/// What a step brings about is not looked at by an earlier one: "C:\a\ \b" becomes "C:\a\\b". Step 7 does not ask what
/// follows the two dots: "C:\a\..b" becomes "C:\b". Behind a parent step at the end the separator stays.
///   "c:/a//b/." => "c:\a\b\."     "C:\a\b\.." => "C:\a\"     "C:\..\x" => itself     "a\..\b" => "b"
///   "\\h\s\..\..\x" => "\\h\..\x"
/// Returns `text`.
ORV_API CString& NormalizePath(CString& text);

/// `path` as seen from the folder `base`: "C:\a\c\f.txt" from "C:\a\b" => "..\c\f.txt". `path` itself when only one of
/// them is absolute (has a host), when drives or hosts differ, or when the first components do. A path that is the
/// folder, or stands above it, gets one step up too many: "C:\a\b" from "C:\a\b" => "..\".
ORV_API CString CalcRelativePath(const CString& path, const CString& base);

/// Puts a file that is not absolute into `dir`, by its name alone ("sub\x.dat" => "dir\x.dat"), and gives it the
/// extension if it has none. An empty `dir` or `ext` changes nothing.
ORV_API CFilePath CompleteFilePath(const CFilePath& file, const CDirPath& dir, const CString& ext);
/// Takes away the folder if it is `dir`, and the extension if it is `ext`.
ORV_API CFilePath UnCompleteFilePath(const CFilePath& file, const CDirPath& dir, const CString& ext);

/// Replaces what a file name must not hold: / | * ? " < > everywhere, and ":" in the last component. The folder, all up
/// to the last backslash, keeps its ":" and "\"; a name without a folder stays one.
///   ("C:\a\b:c?.txt", "_") => "C:\a\b_c_.txt"     ("a/b", "-") => "a-b"
ORV_API CString getCleanedFilePath(const CString& path, const CString& replacement);

/// Compares version texts: -1, 0 or 1. First by the number before the first ".", then as texts ignoring case. Zeros,
/// then dots, at the end do not count, in whole numbers neither: "2.0" = "2" = "20", and "1.10" < "1.9".
ORV_API int vercmp(const wchar_t* a, const wchar_t* b);

/// The value behind /NAME or -NAME and a blank or ":": up to the next blank, or between double quotes. 1 if the switch
/// is there; `argument` is "" if it has no value, or if another switch follows. 0 if it is not, with "" too.
///   ("app /file \"C:\My Docs\a.txt\" /x", "FILE") => 1, C:\My Docs\a.txt     ("app /file /x", "file") => 1, ""
/// Of several spellings "/name " counts first, then "-name ", "/name:", "-name:", wherever they stand.
ORV_API int GetArgumentFromCmdLine(const wchar_t* cmdLine, const wchar_t* switchName, CString& argument);
/// 1 if the switch stands there as /NAME, -NAME or, behind a blank, as NAME; with ":" behind it, it does not.
ORV_API int CheckSwitchInCmdLine(const wchar_t* cmdLine, const wchar_t* switchName);
