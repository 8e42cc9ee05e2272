#pragma once

#include <zowidgets/host/base/LightweightString.h>

// Text operations on file paths; none of them touches the disk. The separator
// is '/'. A path that ends with a separator names a folder: its file name is
// empty, and so is its extension.
//
// An extension is what follows the last '.' of the file name, unless that dot
// is one of the name's leading dots, so ".bashrc" has none and "a.tar.gz" has
// "gz". Dots in folder names never count.

// `folder` and `name` with exactly one separator between them. `name` is
// always taken inside `folder`, even when it starts with a separator. An empty
// side gives the other unchanged.
ZO_API LightweightString<wchar_t> joinPaths(LightweightString<wchar_t> const& folder,
                                            LightweightString<wchar_t> const& name);

// The file name: everything after the last separator.
ZO_API LightweightString<wchar_t> stripPath(LightweightString<wchar_t> const& path);

// The folder, with its trailing separator: everything up to and including the
// last separator, so getPath(p) + stripPath(p) == p. Empty for a bare name.
ZO_API LightweightString<wchar_t> getPath(LightweightString<wchar_t> const& path);

// The path less its last extension and that extension's dot.
ZO_API LightweightString<wchar_t> stripExtension(LightweightString<wchar_t> const& path);

// The last extension, without its dot; empty when there is none.
ZO_API LightweightString<wchar_t> getExtension(LightweightString<wchar_t> const& path);

// True when all of `name` matches `pattern`, in which '*' stands for any run
// of characters (none included) and '?' for exactly one. Case matters, as it
// does to the file system.
ZO_API bool matchesWildcard(LightweightString<wchar_t> const& name, LightweightString<wchar_t> const& pattern);
