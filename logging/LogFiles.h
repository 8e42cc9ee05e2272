#pragma once

#include <zowidgets/host/base/LoggerBase.h>

#include <vector>

// The files a log is saved to. Every file is written whole or not at all
// (TextFile::save replaces it atomically), so a crash during a save leaves
// the earlier file as it was.
namespace LogFiles {

// Where a text save of `name` in `folder` goes: a trailing ".txt", in any
// case, is dropped and ".txt" added, so the file has one extension.
ZO_API LightweightString<wchar_t> textPath(LightweightString<wchar_t> const& folder,
                                           LightweightString<wchar_t> const& name);
// One line per text, in UTF-8, with Unix line ends. False when the file
// could not be written.
ZO_API bool saveText(std::vector<LightweightString<wchar_t>> const& lines, LightweightString<wchar_t> const& path);

// Where the HTML file goes: always "TaskLog.html" in `folder`, replacing one
// that is there.
ZO_API LightweightString<wchar_t> htmlPath(LightweightString<wchar_t> const& folder);
// The HTML lines of a log: "<pre>", one line per item (two for status lines
// and dividers, which start with an empty one), "</pre>". Every text is
// escaped, characters outside ASCII as numeric references, so the file
// reads the same in any encoding and no log text ever becomes markup.
ZO_API std::vector<LightweightString<wchar_t>> htmlLines(std::vector<LoggerBase::Item> const& items);
ZO_API bool saveHtml(std::vector<LoggerBase::Item> const& items, LightweightString<wchar_t> const& path);

} // namespace LogFiles
