#include <zowidgets/logging/LogSaveChooser.h>

#include <zowidgets/host/shell/OS.h>

#include <mutex>

namespace {

struct Choosers {
  std::mutex lock;
  LogSaveChooser::NameChooser name;
  LogSaveChooser::FolderChooser folder;
  LightweightString<wchar_t> defaultFolder;
};

Choosers& choosers() {
  static Choosers instance;
  return instance;
}

} // namespace

namespace LogSaveChooser {

void setNameChooser(NameChooser chooser) {
  std::lock_guard hold(choosers().lock);
  choosers().name = std::move(chooser);
}

void setFolderChooser(FolderChooser chooser) {
  std::lock_guard hold(choosers().lock);
  choosers().folder = std::move(chooser);
}

void setDefaultFolder(LightweightString<wchar_t> const& folder) {
  std::lock_guard hold(choosers().lock);
  choosers().defaultFolder = folder;
}

LightweightString<wchar_t> defaultFolder() {
  {
    std::lock_guard hold(choosers().lock);
    if (!choosers().defaultFolder.empty())
      return choosers().defaultFolder;
  }
  return OS().documentsFolder();
}

void chooseName(Glob* over, UIString const& title, LightweightString<wchar_t> const& suggestedName,
                NameChosen const& chosen) {
  NameChooser chooser;
  {
    std::lock_guard hold(choosers().lock);
    chooser = choosers().name;
  }
  if (chooser)
    chooser(over, title, defaultFolder(), suggestedName, chosen);
  else
    chosen(defaultFolder(), suggestedName);
}

void chooseFolder(Glob* over, UIString const& title, FolderChosen const& chosen) {
  FolderChooser chooser;
  {
    std::lock_guard hold(choosers().lock);
    chooser = choosers().folder;
  }
  if (chooser)
    chooser(over, title, defaultFolder(), chosen);
  else
    chosen(defaultFolder());
}

} // namespace LogSaveChooser
