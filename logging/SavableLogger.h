#pragma once

#include <zowidgets/logging/Logger.h>

// A logger window with a button that saves its log as "TaskLog.html" in a
// folder the user chooses (LogSaveChooser). The command "ShowLog" opens one
// for the iTaskLog in its context.
class ZO_API SavableLogger : public Logger {
public:
  static constexpr char const* kCommand = "ShowLog";
  static constexpr char const* kSaveMsg = "SavableLoggerSave";

  explicit SavableLogger(Zo::Ptr<iTaskLog> const& log);
  char const* idstring() const override { return "logger"; }

  // Opens one, centred and realised; null without a log.
  static SavableLogger* make(Zo::Ptr<iTaskLog> const& log);

  // Writes the log's lines as HTML into `folder` and says where; the path,
  // or empty when the folder is empty or the file could not be written.
  LightweightString<wchar_t> saveHtml(LightweightString<wchar_t> const& folder);
  // Asks for a folder, unless the question is already open, then saves.
  void requestSaveHtml();

  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

private:
  bool choosing_ = false;
};
