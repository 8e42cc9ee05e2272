#include <zowidgets/logging/LoggerFunctions.h>

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobManager.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr std::size_t kFormatBuffer = 1024;

bool alive(Logger* logger) { return is_good_glob_ptr(logger, "logger"); }

// Writers may be on any thread, where the widget registry may not be asked:
// they write straight to the log of a logger that lives.
void writeIfAlive(Logger* logger, LightweightString<wchar_t> const& text, LoggerBase::eOutputType type) {
  if (Zo::Ptr<iTaskLog> const log = Logger::liveLogOf(logger))
    log->write(text, type);
}

void writeFormatted(Logger* logger, LoggerBase::eOutputType type, char const* format, std::va_list args) {
  if (!Logger::liveLogOf(logger))
    return;
  auto buffer = std::make_unique<char[]>(kFormatBuffer);
  int const length = std::vsnprintf(buffer.get(), kFormatBuffer, format, args);
  // A text that does not fit is a caller's mistake that must not pass unseen.
  if (length < 0 || static_cast<std::size_t>(length) >= kFormatBuffer)
    std::abort();
  writeIfAlive(logger,
               LightweightString<wchar_t>::fromUTF8(std::string_view(buffer.get(), static_cast<std::size_t>(length))),
               type);
}

} // namespace

void loggerWrite(Logger* logger, LightweightString<wchar_t> const& text, LoggerBase::eOutputType type) {
  writeIfAlive(logger, text, type);
}

#define ZO_LOGGER_FORMATTED(name, type)                                                                                \
  void name(Logger* logger, char const* format, ...) {                                                                 \
    std::va_list args;                                                                                                 \
    va_start(args, format);                                                                                            \
    writeFormatted(logger, type, format, args);                                                                        \
    va_end(args);                                                                                                      \
  }

ZO_LOGGER_FORMATTED(logger_write, LoggerBase::kOutputPlain)
ZO_LOGGER_FORMATTED(logger_warning, LoggerBase::kOutputWarning)
ZO_LOGGER_FORMATTED(logger_error, LoggerBase::kOutputError)
ZO_LOGGER_FORMATTED(logger_status_line, LoggerBase::kOutputStatusLine)

#undef ZO_LOGGER_FORMATTED

void logger_setFont(Logger* logger, LightweightString<char> const& name, Colour const&) {
  if (alive(logger))
    logger->setFont(Glib::FontDesc(name, 0, 0));
}

void logger_set_new_title(Logger* logger, LightweightString<wchar_t> const& title) {
  if (is_good_glob_ptr(logger))
    logger->set_new_title(title);
}

void logger_display_progress(Logger* logger, double fraction) {
  if (is_good_glob_ptr(logger))
    logger->progress(fraction);
}

Logger* make_logger(Logger::InitArgs& args, int x, int y) {
  Drawable::Suspender hold;
  if (x < 0) {
    Glob::setupRootPos(nullptr, GlobManager::getSafePosForGlob(
                                    nullptr, args.size, GlobManager::getPosForGlob(args, Glob::Centre(0, 0, 2))));
  } else {
    Glob::setupRootPos(nullptr, XY<int>(x, y));
  }
  auto* logger = new Logger(args);
  GlobManager::realize(logger);
  return logger;
}

Logger* make_logger(LightweightString<wchar_t> const& title, bool flag, LightweightString<wchar_t> const& autoSaveFile,
                    bool showTiming, std::uint16_t numRows, std::uint16_t width, int x, int y) {
  unsigned flags = 0;
  if (flag)
    flags |= Logger::kFlagFirstOption;
  if (showTiming)
    flags |= Logger::kFlagSharkGauge;
  Logger::InitArgs args(numRows, width, flags);
  args.title = UIString(title);
  args.autoSaveFile = autoSaveFile;
  return make_logger(args, x, y);
}
