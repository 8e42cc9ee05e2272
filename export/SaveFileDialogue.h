#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/files/FileBrowserButton.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/text/TextBoxEvent.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/values/notify/Broadcaster.h>

// What the save dialogue gives its listener: the name typed and the folder
// chosen. Nothing is checked against the disk: the listener does that.
struct ZO_API SaveFileDialogueEvent {
  LightweightString<wchar_t> name;
  LightweightString<wchar_t> folder;
};

// A small form for saving: a name box that refuses characters no file name
// may hold, a folder button that opens a folder browser, and a Save button
// that is active only while there is a name. Save broadcasts one event and
// closes the form.
//
//   SaveFileDialogue::open(SaveFileDialogue::InitArgs(UIString(L"Save log"), UIString(L"log.txt"),
//                                                     folder, callback));
class ZO_API SaveFileDialogue : public StandardPanel, public Broadcaster<SaveFileDialogueEvent> {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs(UIString const& title, UIString const& defaultName, LightweightString<wchar_t> const& folder,
             Broadcaster<SaveFileDialogueEvent>::Callback callback);
    UIString defaultName;
    LightweightString<wchar_t> folder;
    Broadcaster<SaveFileDialogueEvent>::Callback callback;
  };

  explicit SaveFileDialogue(InitArgs const& args);
  char const* idstring() const override { return "SaveFileDialogue"; }
  eWindowKind windowKind() const override { return eWindowKind::kDialogue; }

  // Opens the form as a modal window of its own size.
  static SaveFileDialogue* open(InitArgs args);
  // The size of the form with its widgets.
  static XY<int> calcSize();

  // Return in the name saves, as the button does, once there is a name.
  void handleTextTyped(TextBoxEvent const& event);
  using StandardPanel::handleDoIt;
  void handleDoIt(ButtonEvent const& event);

  TitleTextBox& getNameBox() const noexcept { return *nameBox_; }
  TitledFileBrowserButton& getFolderButton() const noexcept { return *folderButton_; }
  Button& getSaveButton() const noexcept { return *saveButton_; }

private:
  TitleTextBox* nameBox_ = nullptr;
  TitledFileBrowserButton* folderButton_ = nullptr;
  Button* saveButton_ = nullptr;
};
