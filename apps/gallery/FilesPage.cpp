// File choosing: a browser on a real folder, the save form with its folder
// chooser, and the drive drop-down. What the user chose or saved is shown
// in labels on the page. The folder is $ZOGALLERY_FOLDER, else the home
// folder.
#include "PageLayout.h"

#include <zowidgets/export/DiskButton.h>
#include <zowidgets/export/SaveFileDialogue.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/files/FileBrowser.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <cstdlib>

namespace {

using WString = LightweightString<wchar_t>;

WString startFolder() {
  for (char const* name : {"ZOGALLERY_FOLDER", "HOME"})
    if (char const* value = std::getenv(name); value && *value)
      return WString::fromUTF8(value);
  return L"/";
}

// A label that a deferred callback may still reach after the page closed:
// only through its stamp.
void say(TextLabel* label, IdStamp const& stamp, WString const& text) {
  if (EventHandler::valid(label, stamp))
    label->setString(UIString(text));
}

Glob* buildFilesPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = 26 * m.row;
  int const browserHeight = 12 * m.row;
  StandardPanel* panel =
      openPageWindow(context, XY<int>(width + 2 * m.gap, browserHeight + 5 * m.row + 7 * m.gap), L"File choosing");

  FileBrowser::InitArgs browserArgs(XY<int>(width, browserHeight));
  browserArgs.folder = startFolder();
  auto* browser = panel->createWidget<FileBrowser>(browserArgs, Glob::UserTopLeft(m.gap, m.gap));
  browser->setName("browser");

  TextLabel::InitArgs chosenArgs(XY<int>(width, m.row));
  chosenArgs.text = UIString(L"Chosen: nothing yet");
  auto* chosen = panel->createWidget<TextLabel>(chosenArgs, Glob::Below(m.gap, browser));
  chosen->setName("chosen");
  IdStamp const chosenStamp = chosen->handlerStamp();
  browser->addListener(Broadcaster<FileBrowserEvent>::makeCallback([chosen, chosenStamp](FileBrowserEvent const& e) {
    if (e.kind == FileBrowserEvent::kFileChosen)
      say(chosen, chosenStamp, L"Chosen: " + e.path);
  }));

  auto* saveAs = panel->createWidget<PushButton>(PushButton::InitArgs(L"Save as\u2026", XY<int>(6 * m.row, 0)),
                                                 Glob::Below(m.gap, chosen));
  saveAs->setName("save as");
  TextLabel::InitArgs savedArgs(XY<int>(width, m.row));
  savedArgs.text = UIString(L"Saved: nothing yet");
  auto* saved = panel->createWidget<TextLabel>(savedArgs, Glob::Below(m.gap, saveAs));
  saved->setName("saved");
  IdStamp const savedStamp = saved->handlerStamp();
  saveAs->setCallback(Broadcaster<ButtonEvent>::makeCallback([saved, savedStamp, browser](ButtonEvent const&) {
    SaveFileDialogue::open(SaveFileDialogue::InitArgs(
        UIString(L"Save the edit"), UIString(L"Edit 1.mov"), browser->getFolder(),
        Broadcaster<SaveFileDialogueEvent>::makeCallback([saved, savedStamp](SaveFileDialogueEvent const& e) {
          say(saved, savedStamp, L"Saved: " + e.name + L" in " + e.folder);
        })));
  }));

  TitledDiskButton::InitArgs driveArgs(UIString(L"Drive"), XY<int>(width, m.row));
  driveArgs.button.allowAuto = true;
  auto* drive = panel->createWidget<TitledDiskButton>(driveArgs, Glob::Below(m.gap, saved));
  drive->setName("drive");
  return panel;
}

PageRegistrar const filesPage{"files", "File choosing",
                              "FileBrowser on a real folder, SaveFileDialogue with its folder chooser, and "
                              "TitledDiskButton listing the machine's drives",
                              buildFilesPage};

} // namespace
