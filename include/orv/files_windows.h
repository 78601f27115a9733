// What only Windows knows about files and folders. Needs the system's own types, but not its header.
#pragma once

#include "orv/export.h"
#include "orv/paths.h"

struct _SECURITY_ATTRIBUTES;
struct _WIN32_FIND_DATAW;
struct tagVS_FIXEDFILEINFO;

/// CreateDirectoryRecursive whose new folders get these security attributes (null: the usual ones).
ORV_API bool CreateDirectoryRecursive(const CDirPath& dir, _SECURITY_ATTRIBUTES* security);

/// Into the system's own record.
ORV_API bool GetFileData(const CFilePath& file, _WIN32_FIND_DATAW& data);

/// The fixed part of the version resource; false, with `info` unchanged, when the file has none.
ORV_API bool GetFileVersion(const CFilePath& file, tagVS_FIXEDFILEINFO& info);
/// As "1.2.3.4".
ORV_API bool GetFileVersion(const CFilePath& file, CString& text);

/// Has the command interpreter remove the folder, without a window, and waits for it: true once it ran. Refused (false)
/// are, after normalising: "", what ends in "\", is relative, is not there, has a host or fewer than two backslashes,
/// and what the interpreter would not take as it stands (a double quote or a percent sign).
ORV_API bool RemoveDirectoryRecursiveCmd(CDirPath dir);

namespace Path {

/// The shell's personal folder; "" if the user has none.
ORV_API CDirPath GetUserDocumentsPath();

}  // namespace Path
