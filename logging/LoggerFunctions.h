#pragma once

#include <zowidgets/logging/Logger.h>

// The reporting functions the rest of the application calls. Each first
// checks that the logger still lives, so a caller may keep a stale pointer:
// a dead one makes the call do nothing. The writing functions may be called
// from any thread; the others belong to the user-interface thread.

ZO_API void loggerWrite(Logger* logger, LightweightString<wchar_t> const& text, LoggerBase::eOutputType type);
// printf-style; the text may be at most 1023 characters, and a longer one
// ends the process rather than be cut silently. No newline is added.
ZO_API void logger_write(Logger* logger, char const* format, ...) __attribute__((format(printf, 2, 3)));
ZO_API void logger_warning(Logger* logger, char const* format, ...) __attribute__((format(printf, 2, 3)));
ZO_API void logger_error(Logger* logger, char const* format, ...) __attribute__((format(printf, 2, 3)));
ZO_API void logger_status_line(Logger* logger, char const* format, ...) __attribute__((format(printf, 2, 3)));
// The colour is not used: rows take their colour from their kind.
ZO_API void logger_setFont(Logger* logger, LightweightString<char> const& name, Colour const& colour);
ZO_API void logger_set_new_title(Logger* logger, LightweightString<wchar_t> const& title);
ZO_API void logger_display_progress(Logger* logger, double fraction);

// A new logger window, realised. `flag` sets Logger::kFlagFirstOption and
// `showTiming` the timed gauge; with `x` negative the window is centred,
// otherwise its bottom-left corner goes to (x, y).
ZO_API Logger* make_logger(LightweightString<wchar_t> const& title, bool flag,
                           LightweightString<wchar_t> const& autoSaveFile, bool showTiming, std::uint16_t numRows,
                           std::uint16_t width, int x, int y);
// The same idiom for any logger arguments.
ZO_API Logger* make_logger(Logger::InitArgs& args, int x, int y);
