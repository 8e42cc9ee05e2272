#pragma once

#include <zowidgets/host/base/LightweightString.h>

// What stands in the way of writing a file at a path.
enum outfile_check_code : int {
  kOutfileUsable = 0,
  kOutfileInvalidName = 1,        // the file name is not a valid one
  kOutfileNoPermissionFloppy = 2, // no write permission, on a floppy disk
  kOutfileNoPermission = 3,       // no write permission
  kOutfileNoFolder = 4,           // the folder does not exist
  kOutfileExists = 5,             // the file exists and may not be replaced
  kOutfileCheckIt = 6,            // not a result: asks a reporter to run the check
};

// Whether a file may be written at `path`: its name, the permission to
// write (not asked for a network path, one that starts with two
// backslashes), its folder, and, unless `overwriteAllowed`, whether it
// already exists; the first that fails gives the code.
ZO_API outfile_check_code outfile_check(LightweightString<wchar_t> const& path, bool overwriteAllowed);

// Whether the folder of `path` exists: 0 if it does, or if it is a drive
// root ("X:" or "X:\"); otherwise kOutfileNoFolder. Despite its name it makes
// no folder.
ZO_API outfile_check_code outfile_check_n_make_dir(LightweightString<wchar_t> const& path);
