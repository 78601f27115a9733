// CDirPath, CFilePath and the short functions around them.
#include "environment/path_text.h"
#include "orv/paths.h"

using orv::textOf;
using orv::viewOf;
using orv::WideView;

namespace {

/// Drive and folder in one piece.
WideView folderPart(WideView path) {
    const orv::PathParts parts = orv::splitPath(path);
    return path.substr(0, parts.drive.size() + parts.folder.size());
}

/// Name and extension in one piece.
WideView namePart(WideView path) { return path.substr(folderPart(path).size()); }

/// Without any dot in front.
WideView bareExtension(WideView ext) {
    while (ext.starts_with(L'.'))
        ext.remove_prefix(1);
    return ext;
}

WideView withoutLastSeparators(WideView path) {
    while (!path.empty() && orv::isSeparator(path.back()))
        path.remove_suffix(1);
    return path;
}

wchar_t lastOf(WideView text) { return text.empty() ? L'\0' : text.back(); }

}  // namespace

// ---- Folders ----

CDirPath CDirPath::AppendSubDir(const CString& sub) const { return Path::AppendSubDir(*this, sub); }

CFilePath CDirPath::AppendFile(const CString& name) const { return Path::AppendFileName(*this, name); }

// ODDITY(folder-name-loses-dot): the part behind the last dot of a folder's name is left out, as of a file's name: rev
// of C:\data\rev.2. Whoever needs the whole component asks CFilePath::GetFileName of the trimmed path. Pinned by
// Paths.FoldersHaveTheseParts.
CString CDirPath::GetDirName() const { return textOf(orv::splitPath(orv::trimmedPath(viewOf(*this))).name); }

CString CDirPath::GetDrive() const { return textOf(orv::splitPath(viewOf(*this)).drive); }

CDirPath CDirPath::GetParentDirPath() const {
    const WideView trimmed = orv::trimmedPath(viewOf(*this));
    const std::size_t drive = orv::driveLength(trimmed);
    const bool isRoot = drive != 0 && trimmed.size() == drive;
    // A drive's root is its own parent, and is not to turn into the drive's current folder.
    if (isRoot && viewOf(*this).find_first_of(L"\\/") != WideView::npos) return textOf(trimmed) + L'\\';
    return textOf(folderPart(trimmed));
}

bool CDirPath::IsAbsolute() const { return orv::isAbsolutePath(viewOf(*this)); }

bool CDirPath::IsUNC() const { return orv::isUncPath(viewOf(*this)); }

bool CDirPath::IsEqual(const CDirPath& other) const {
    if (orv::equalIgnoringCase(viewOf(*this), viewOf(other))) return true;
    const CDirPath own = Normalized();
    const CDirPath others = other.Normalized();
    WideView a = viewOf(own);
    WideView b = viewOf(others);
    if (lastOf(a) != lastOf(b)) {
        a = withoutLastSeparators(a);
        b = withoutLastSeparators(b);
    }
    return orv::equalIgnoringCase(a, b);
}

CDirPath& CDirPath::Normalize() {
    NormalizePath(*this);
    return *this;
}

CDirPath CDirPath::Normalized() const {
    CDirPath copy(*this);
    copy.Normalize();
    return copy;
}

CDirPath& CDirPath::Trim() { return *this = Trimmed(); }

CDirPath CDirPath::Trimmed() const {
    const WideView trimmed = orv::trimmedPath(viewOf(*this));
    return trimmed.size() == viewOf(*this).size() ? *this : CDirPath(textOf(trimmed));
}

// ---- Files ----

CDirPath CFilePath::GetDirPath() const { return textOf(folderPart(viewOf(*this))); }

CString CFilePath::GetFileName() const { return textOf(namePart(viewOf(*this))); }

CString CFilePath::GetShortFileName() const { return textOf(orv::splitPath(viewOf(*this)).name); }

CString CFilePath::GetFileExt() const { return textOf(bareExtension(orv::extensionPart(viewOf(*this)))); }

CString CFilePath::GetDrive() const { return textOf(orv::splitPath(viewOf(*this)).drive); }

CString CFilePath::GetHost() const { return textOf(orv::hostOf(viewOf(*this))); }

bool CFilePath::IsAbsolute() const { return orv::isAbsolutePath(viewOf(*this)); }

bool CFilePath::IsUNC() const { return orv::isUncPath(viewOf(*this)); }

bool CFilePath::IsFileExt(const CString& ext) const {
    const WideView own = bareExtension(orv::extensionPart(viewOf(*this)));
    return orv::equalIgnoringCase(bareExtension(viewOf(ext)), own);
}

bool CFilePath::IsEqual(const CFilePath& other) const {
    if (orv::equalIgnoringCase(viewOf(*this), viewOf(other))) return true;
    return orv::equalIgnoringCase(viewOf(Normalized()), viewOf(other.Normalized()));
}

CFilePath& CFilePath::Normalize() {
    NormalizePath(*this);
    return *this;
}

CFilePath CFilePath::Normalized() const {
    CFilePath copy(*this);
    copy.Normalize();
    return copy;
}

CFilePath& CFilePath::SetDirPath(const CDirPath& dir) {
    return *this = orv::joinedPath(viewOf(dir), namePart(viewOf(*this)));
}

CFilePath& CFilePath::SetFileName(const CString& name) {
    return *this = orv::joinedPath(folderPart(viewOf(*this)), viewOf(name));
}

CFilePath& CFilePath::SetFileExt(const CString& ext) {
    const WideView old = viewOf(*this);
    const WideView extension = orv::splitPath(old).extension;
    WideView wanted = viewOf(ext);
    WideView stem = old.substr(0, old.size() - extension.size());
    if (wanted.empty() || wanted == L".") {
        while (stem.ends_with(L'.'))
            stem.remove_suffix(1);
        return *this = textOf(stem);
    }
    if (wanted.starts_with(L'.')) wanted.remove_prefix(1);
    // Behind a folder's separator, too, there is a dot: only the empty path takes the extension as its whole text.
    const bool needsDot = !old.empty();
    CString changed(stem.data(), static_cast<int>(stem.size()));
    if (needsDot) changed += L'.';
    changed.Append(wanted.data(), static_cast<int>(wanted.size()));
    return *this = std::move(changed);
}

CFilePath& CFilePath::SetShortFileName(const CString& name) {
    const CString extension = textOf(orv::splitPath(viewOf(*this)).extension);
    const WideView folder = folderPart(viewOf(*this));
    return *this = orv::joinedPath(folder, viewOf(name)) + extension;
}

CString GetShortFileName(const CString& path) { return textOf(orv::splitPath(viewOf(path)).name); }

// ---- Free functions ----

CString Path::AppendPath(const CString& base, const CString& tail) {
    if (base.IsEmpty()) return tail;
    if (tail.IsEmpty()) return base;
    return orv::joinedPath(viewOf(base), viewOf(tail));
}

CDirPath Path::AppendSubDir(const CDirPath& dir, const CString& sub) { return AppendPath(dir, sub); }

CFilePath Path::AppendFileName(const CDirPath& dir, const CString& name) { return AppendPath(dir, name); }

CFilePath Path::ChangeFileExt(const CFilePath& file, const CString& ext) {
    CFilePath changed(file);
    changed.SetFileExt(ext);
    return changed;
}

CFilePath CompleteFilePath(const CFilePath& file, const CDirPath& dir, const CString& ext) {
    CFilePath complete(file);
    // ODDITY(complete-keeps-name-only): of a relative path nothing but its name gets into the folder, so that sub\x.dat
    // becomes dir\x.dat. Pinned by Paths.FilesAreCompletedAndUncompleted.
    if (!dir.IsEmpty() && !file.IsEmpty() && !file.IsAbsolute()) complete.SetDirPath(dir);
    if (!ext.IsEmpty() && !file.IsEmpty() && file.GetFileExt().IsEmpty()) complete.SetFileExt(ext);
    return complete;
}

CFilePath UnCompleteFilePath(const CFilePath& file, const CDirPath& dir, const CString& ext) {
    CFilePath bare(file);
    if (file.GetDirPath().IsEqual(dir)) bare = file.GetFileName();
    if (file.IsFileExt(ext)) bare.SetFileExt(CString());
    return bare;
}

CString getCleanedFilePath(const CString& path, const CString& replacement) {
    CString cleaned;
    const auto add = [&](wchar_t ch, WideView forbidden) {
        if (forbidden.find(ch) != WideView::npos) {
            cleaned += replacement;
        } else {
            cleaned += ch;
        }
    };
    for (const wchar_t ch : viewOf(path))
        add(ch, L"/|*?\"<>");
    const CString everywhere = std::move(cleaned);
    cleaned = CString();
    // ODDITY(cleaned-name-stays-bare): a name without a folder gets no backslash in front, which would name a file in
    // the drive's root. Pinned by Paths.NamesAreCleaned.
    const int name = everywhere.ReverseFind(L'\\') + 1;
    cleaned.Append(everywhere.GetString(), name);
    for (const wchar_t ch : viewOf(everywhere).substr(static_cast<std::size_t>(name)))
        add(ch, L"\\:");
    return cleaned;
}
