// The rules of paths on views: what the path values and the free functions share.
#pragma once

#include "orv/framework/string.h"
#include "orv/wide.h"
#include "text/views.h"

namespace orv {

inline bool isSeparator(wchar_t ch) { return ch == L'\\' || ch == L'/'; }

/// Drive ("C:" or ""), folder with its last separator, name, and extension with its dot: in one piece, the path.
struct PathParts {
    WideView drive, folder, name, extension;
};
PathParts splitPath(WideView path);
/// The extension with its dot, without looking at what is before it.
WideView extensionPart(WideView path);

/// The length of the drive part: 2 or 0.
std::size_t driveLength(WideView path);
bool isUncPath(WideView path);
bool isAbsolutePath(WideView path);
/// "\\host", or "" for a path that has none.
WideView hostOf(WideView path);

WideView trimmedPath(WideView path);
/// A folder's path without separators at its end, behind which a link would be followed. A root stays as it is.
WideView withoutEndSeparators(WideView path);
WideView trimmedWhiteSpace(WideView text);

bool equalIgnoringCase(WideView a, WideView b);

/// Path::AppendPath on views.
CString joinedPath(WideView base, WideView tail);

}  // namespace orv
