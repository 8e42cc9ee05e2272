#include <zowidgets/export/SaveFileDialogue.h>

#include <zowidgets/host/shell/FileNameRules.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

namespace {

constexpr ResId kNameLegendId = 10493;
constexpr ResId kSaveId = 11417;
constexpr unsigned kStandardWidgets = 0x29; // title, close and pin

int formWidth() { return 24 * UifStd::getRowHeight(); }

} // namespace

SaveFileDialogue::InitArgs::InitArgs(UIString const& title, UIString const& defaultName,
                                     LightweightString<wchar_t> const& folder,
                                     Broadcaster<SaveFileDialogueEvent>::Callback callback)
    : defaultName(defaultName), folder(folder), callback(std::move(callback)) {
  this->title = title;
}

XY<int> SaveFileDialogue::calcSize() {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getRowGap();
  XY<int> const user(formWidth(), 3 * row + 4 * gap);
  return calcPanelSize(user, kStandardWidgets, Border(8, 0, 15));
}

SaveFileDialogue::SaveFileDialogue(InitArgs const& args) : StandardPanel(args) {
  Drawable::Suspender const holdRedraws;
  setBorder(Border(8, 0, 15));
  addStandardWidgets(kStandardWidgets);
  setTitle(args.title, UifStd::getTitleFont(), kNoRedraw);
  addListener(args.callback);
  int const row = UifStd::getRowHeight();
  int const width = getUserArea().width();

  TitleTextBox::InitArgs nameArgs(
      GlobCreationInfo(static_cast<unsigned short>(width), static_cast<unsigned short>(row)));
  nameArgs.title = UIString(kNameLegendId);
  // Both legends take the room of the wider, so the fields line up.
  UIString const folderLegend(L"Folder");
  int const legend = std::max(TitleGlob::calcLegendWidth(nameArgs.title), TitleGlob::calcLegendWidth(folderLegend));
  nameArgs.titleWidth = legend;
  nameBox_ = createWidget<TitleTextBox>(nameArgs, UserTopLeft(0, 0), UifStd::getRowSeparator(kRelativeBelow));
  nameBox_->setName("name");
  // A name that cannot be a file cannot be typed.
  nameBox_->setCharacters(Zo::FilespecUtils::getIllegalNameCharacters(), TextBoxBase::kNotAllowed);

  TitledFileBrowserButton::InitArgs folderArgs(folderLegend, XY<int>(width, row));
  folderArgs.button.size = XY<int>(width - legend, row);
  folderArgs.button.browser.folder = args.folder;
  folderArgs.button.chooseFolder = true;
  folderArgs.button.path = args.folder;
  folderButton_ = createWidget<TitledFileBrowserButton>(folderArgs, Below(UifStd::getRowGap(), nameBox_));
  folderButton_->setName("folder");

  nameBox_->setString(args.defaultName.getString());

  Button::InitArgs saveArgs(UIString(kSaveId), XY<int>(6 * row, row));
  saveButton_ = createWidget<Button>(saveArgs, UserBottomRight(0, 0));
  saveButton_->setName("save");
  saveButton_->setCallback(
      Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const& event) { handleDoIt(event); }));
  saveButton_->setActive(!nameBox_->getString().empty(), kNoRedraw);

  nameBox_->addListener(
      Broadcaster<TextBoxEvent>::makeCallback([this](TextBoxEvent const& event) { handleTextTyped(event); }));
}

SaveFileDialogue* SaveFileDialogue::open(InitArgs args) {
  args.size = calcSize();
  Drawable::Suspender const holdRedraws;
  auto* dialogue = new SaveFileDialogue(args);
  GlobManager::realize(dialogue);
  GlobManager::addModalGlob(dialogue);
  // The name is what the user came to type: its box takes the keys, the
  // proposed name selected, as Tab into it would.
  TabOrderManager::enterWindow(*dialogue, true);
  return dialogue;
}

void SaveFileDialogue::handleTextTyped(TextBoxEvent const& event) {
  if (event.kind == TextBoxEvent::kReturnPressed && saveButton_->isActive())
    saveButton_->press();
  if (event.kind != TextBoxEvent::kTextChanged)
    return;
  bool const hasName = !event.text.empty();
  if (saveButton_->isActive() != hasName)
    saveButton_->setActive(hasName, kRedrawNow);
}

void SaveFileDialogue::handleDoIt(ButtonEvent const&) {
  if (GlobManager::isDeletionPending(this))
    return;
  broadcast(SaveFileDialogueEvent{nameBox_->getString(), folderButton_->getPath()});
  GlobManager::requestDeletion(this);
}
