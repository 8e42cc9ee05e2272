#pragma once

#include <zowidgets/host/base/Export.h>

#include <functional>
#include <string_view>

// The program's log. LogBoth writes a line both to standard error (as
// "zowidgets: <line>") and to every sink installed, such as a log panel or a
// test that wants to read what was said. Any thread may write; sinks are
// called on the writing thread, one line at a time, and must not write to the
// log themselves.
using LogSink = std::function<void(std::string_view line)>;

ZO_API void LogBoth(std::string_view line);
// Returns a number that removeLogSink takes to remove the sink again.
ZO_API int addLogSink(LogSink sink);
ZO_API void removeLogSink(int id);
