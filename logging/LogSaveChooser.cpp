#include <zowidgets/logging/LogSaveChooser.h>

#include <zowidgets/export/SaveFileDialogue.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/files/FileChooserWindow.h>

#include <memory>
#include <mutex>
#include <type_traits>

namespace {

using WString = LightweightString<wchar_t>;

// Answers a chooser once: with what was chosen, or with nothing when the
// window goes without a choice (its copies of the callback die with it).
template <class Chosen> class OneAnswer {
public:
  explicit OneAnswer(Chosen chosen) : chosen_(std::move(chosen)) {}
  OneAnswer(OneAnswer const&) = delete;
  OneAnswer& operator=(OneAnswer const&) = delete;
  ~OneAnswer() {
    if (!answered_)
      cancel();
  }
  template <class... Args> void answer(Args const&... args) {
    if (answered_)
      return;
    answered_ = true;
    chosen_(args...);
  }

private:
  void cancel() {
    if constexpr (std::is_invocable_v<Chosen, WString const&, WString const&>)
      chosen_(WString(), WString());
    else
      chosen_(WString());
  }

  Chosen chosen_;
  bool answered_ = false;
};

// The save dialogue: a name, a folder chosen in the host's browser, Save.
void askForName(Glob* over, UIString const& title, WString const& folder, WString const& suggestedName,
                LogSaveChooser::NameChosen const& chosen) {
  auto answer = std::make_shared<OneAnswer<LogSaveChooser::NameChosen>>(chosen);
  SaveFileDialogue* dialogue = SaveFileDialogue::open(SaveFileDialogue::InitArgs(
      title, UIString(suggestedName), folder,
      Broadcaster<SaveFileDialogueEvent>::makeCallback(
          [answer](SaveFileDialogueEvent const& event) { answer->answer(event.folder, event.name); })));
  GlobManager::placeBeside(dialogue, over);
}

// The host's file browser, choosing a folder.
void askForFolder(Glob* over, UIString const& title, WString const& folder,
                  LogSaveChooser::FolderChosen const& chosen) {
  auto answer = std::make_shared<OneAnswer<LogSaveChooser::FolderChosen>>(chosen);
  FileChooserWindow::InitArgs args(GlobCreationInfo(FileChooserWindow::defaultSize()));
  args.title = title;
  args.browser.folder = folder;
  args.chooseFolder = true;
  args.chosen = [answer](WString const& path) { answer->answer(path); };
  FileChooserWindow::open(args, over);
}

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
    askForName(over, title, defaultFolder(), suggestedName, chosen);
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
    askForFolder(over, title, defaultFolder(), chosen);
}

} // namespace LogSaveChooser
