#include <zowidgets/logging/SavableLogger.h>

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/logging/LogFiles.h>
#include <zowidgets/logging/LogSaveChooser.h>
#include <zowidgets/logging/LoggerFunctions.h>

#include <algorithm>

namespace {

constexpr ResId kSaveButtonText = 10082;
constexpr ResId kSavedMessage = 10563;
constexpr ResId kFolderTitle = 10786;

// Fifty rows, or as many as three quarters of the screen holds.
std::uint16_t rowsThatFit() {
  int const rows = screenBackend().screenSize().y * 3 / 4 / UifStd::getRowHeight() - 4;
  return static_cast<std::uint16_t>(std::clamp(rows, 5, 50));
}

Logger::InitArgs argsFor(Zo::Ptr<iTaskLog> const& log) {
  Logger::InitArgs args(rowsThatFit(), 0, 0);
  args.log = log;
  args.title = UIString(L"Task log");
  PushButton::InitArgs save(UIString(ellipsisResourceStrW(kSaveButtonText)), XY<int>(0, PushButton::calcHeight()),
                            SavableLogger::kSaveMsg);
  args.buttons.push_back(save);
  return args;
}

CommandRegistrar const showLogCommand(
    SavableLogger::kCommand,
    [](Cmd::Context const& context) {
      if (Zo::Ptr<iTaskLog> const log = context.dataAs<iTaskLog>())
        SavableLogger::make(log);
    },
    UIString(L"Show log"), UIString(L"Shows a task's log in a window, from which it can be saved as HTML"),
    kCmdScopeApplication, MapItem{});

} // namespace

// The program's log stays up when the program tidies its windows away.
SavableLogger::SavableLogger(Zo::Ptr<iTaskLog> const& log) : Logger(argsFor(log)) { setIndestructible(true); }

SavableLogger* SavableLogger::make(Zo::Ptr<iTaskLog> const& log) {
  if (!log)
    return nullptr;
  Logger::InitArgs args = argsFor(log);
  Drawable::Suspender hold;
  Glob::setupRootPos(nullptr, GlobManager::getSafePosForGlob(nullptr, args.size,
                                                             GlobManager::getPosForGlob(args, Glob::Centre(0, 0, 2))));
  auto* logger = new SavableLogger(log);
  GlobManager::realize(logger);
  return logger;
}

LightweightString<wchar_t> SavableLogger::saveHtml(LightweightString<wchar_t> const& folder) {
  if (folder.empty())
    return {};
  LightweightString<wchar_t> const path = LogFiles::htmlPath(folder);
  bool const saved = LogFiles::saveHtml(getLog()->getItems(), path);
  LightweightString<wchar_t> text = resourceStrW(kSavedMessage);
  text.substitute(L"$FILE$", path.view());
  makeMessage(UIString(text));
  return saved ? path : LightweightString<wchar_t>();
}

void SavableLogger::requestSaveHtml() {
  if (choosing_)
    return;
  choosing_ = true;
  IdStamp const stamp = EventHandler::stampOf(this);
  LogSaveChooser::chooseFolder(this, UIString(resourceStrW(kFolderTitle)),
                               [this, stamp](LightweightString<wchar_t> const& folder) {
                                 if (!EventHandler::valid(this, stamp))
                                   return;
                                 choosing_ = false;
                                 saveHtml(folder);
                               });
}

int SavableLogger::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message == kSaveMsg) {
    requestSaveHtml();
    return 1;
  }
  return Logger::handleMessageEvent(message, sender);
}
