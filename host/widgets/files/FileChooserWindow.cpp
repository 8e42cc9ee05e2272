#include <zowidgets/host/widgets/files/FileChooserWindow.h>

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

FileChooserWindow::FileChooserWindow(InitArgs const& args)
    : StandardPanel(args), chooseFolder_(args.chooseFolder), chosen_(args.chosen) {
  Zo::Box<int> const area = getUserArea();
  int const row = UifStd::getRowHeight();
  Button::InitArgs chooseArgs(UIString(L"Choose"), XY<int>(5 * row, row));
  chooseButton_ = createWidget<Button>(chooseArgs, UserBottomRight(0, 0));
  chooseButton_->setName("choose");
  chooseButton_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { handleDoIt(); }));
  // Made after "Choose", so that Tab from the list reaches "Choose" first.
  cancelButton_ = createWidget<Button>(Button::InitArgs(UIString(L"Cancel"), XY<int>(5 * row, row)),
                                       LeftOf(UifStd::getWidgetGap(), chooseButton_));
  cancelButton_->setName("cancel");
  cancelButton_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) {
    if (!GlobManager::isDeletionPending(this))
      GlobManager::requestDeletion(this);
  }));
  FileBrowserBase::InitArgs browserArgs = args.browser;
  browserArgs.size = XY<int>(area.width(), std::max(row, area.height() - row - UifStd::getRowGap()));
  browserArgs.setParent(this);
  // Choosing a folder lists folders alone: a file there could not be chosen.
  browser_ = static_cast<FileBrowser*>(
      addChild(new FileBrowser(browserArgs, chooseFolder_ ? FileBrowserBase::kFoldersOnly : 0u), UserTopLeft(0, 0)));
  browser_->setName("browser");
  browser_->addListener(Broadcaster<FileBrowserEvent>::makeCallback([this](FileBrowserEvent const& event) {
    if (event.kind == FileBrowserEvent::kFileChosen && !chooseFolder_)
      choose(event.path);
  }));
}

XY<int> FileChooserWindow::defaultSize() {
  int const row = UifStd::getRowHeight();
  return XY<int>(28 * row, 20 * row);
}

FileChooserWindow* FileChooserWindow::open(InitArgs args, Glob* owner) {
  if (args.size.x <= 0 || args.size.y <= 0)
    args.size = defaultSize();
  args.standardWidgets |= kTitle | kPoot;
  if (args.title.empty())
    args.title = UIString(args.chooseFolder ? L"Choose a folder" : L"Choose a file");
  Drawable::Suspender const holdRedraws;
  if (owner && args.screenPosition.isUnset()) {
    XY<int> const at = owner->screenPosition();
    args.screenPosition = XY<int>(at.x, std::max(0, at.y - args.size.y));
  }
  auto* window = new FileChooserWindow(args);
  GlobManager::realize(window);
  GlobManager::addModalGlob(window);
  return window;
}

LightweightString<wchar_t> FileChooserWindow::getChoice() const {
  int const row = browser_->getCurrentRow();
  bool const rowIsFolder = row >= 0 && browser_->entries()[row].isFolder;
  // A folder row counts when the user picked it, not where the browser
  // put the current row on showing the folder: that chooses the folder shown.
  if (chooseFolder_)
    return rowIsFolder && browser_->isCurrentPicked() ? browser_->getPathOf(row) : browser_->getFolder();
  return row >= 0 && !rowIsFolder && !browser_->entries()[row].isBrokenLink ? browser_->getPathOf(row)
                                                                            : LightweightString<wchar_t>();
}

void FileChooserWindow::handleDoIt() {
  LightweightString<wchar_t> const choice = getChoice();
  if (!choice.empty())
    choose(choice);
}

void FileChooserWindow::choose(LightweightString<wchar_t> const& path) {
  if (GlobManager::isDeletionPending(this))
    return;
  if (chosen_)
    chosen_(path);
  GlobManager::requestDeletion(this);
}

void FileChooserWindow::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (browser_) {
    Zo::Box<int> const area = getUserArea();
    int const buttonRoom = chooseButton_->height() + UifStd::getRowGap();
    chooseButton_->setPosition(XY<int>(area.x1 - chooseButton_->width(), area.y0));
    cancelButton_->setPosition(
        XY<int>(chooseButton_->getPosition().x - UifStd::getWidgetGap() - cancelButton_->width(), area.y0));
    browser_->setPosition(XY<int>(area.x0, area.y0 + buttonRoom));
    browser_->resize(area.width(), std::max(1, area.height() - buttonRoom));
  }
}
