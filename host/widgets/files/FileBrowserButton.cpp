#include <zowidgets/host/widgets/files/FileBrowserButton.h>

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

namespace {

LightweightString<wchar_t> lastPart(LightweightString<wchar_t> const& path) {
  std::wstring_view view = path.view();
  while (view.size() > 1 && view.back() == L'/')
    view.remove_suffix(1);
  std::size_t const slash = view.rfind(L'/');
  if (slash == std::wstring_view::npos || view.size() == 1)
    return LightweightString<wchar_t>(view);
  return LightweightString<wchar_t>(view.substr(slash + 1));
}

} // namespace

FileBrowserButton::FileBrowserButton(InitArgs const& args)
    : Button(args), browserArgs_(args.browser), chooseFolder_(args.chooseFolder),
      unchosenLabel_(args.label.getString().empty() ? UIString(L"Choose\u2026") : args.label) {
  LightweightString<wchar_t> const first = !args.path.empty() ? args.path
                                           : chooseFolder_    ? args.browser.folder
                                                              : LightweightString<wchar_t>();
  setPath(first, kNoRedraw);
}

void FileBrowserButton::setPath(LightweightString<wchar_t> const& path, eRedrawFlag redraw) {
  path_ = path;
  setLabel(path.empty() ? unchosenLabel_ : UIString(lastPart(path)), redraw);
  setContextString(TooltipDetails(UIString(path)));
}

FileChooserWindow* FileBrowserButton::getOpenChooser() const {
  return chooser_ && EventHandler::valid(chooser_, chooserStamp_) && !GlobManager::isDeletionPending(chooser_)
             ? chooser_
             : nullptr;
}

void FileBrowserButton::performAction() {
  if (getOpenChooser())
    return;
  FileChooserWindow::InitArgs args;
  args.browser = browserArgs_;
  args.chooseFolder = chooseFolder_;
  if (!path_.empty()) {
    if (chooseFolder_) {
      args.browser.folder = path_;
    } else {
      std::size_t const slash = path_.view().rfind(L'/');
      if (slash != std::wstring_view::npos)
        args.browser.folder = path_.substr(0, slash == 0 ? 1 : slash);
    }
  }
  IdStamp const stamp = handlerStamp();
  args.chosen = [this, stamp](LightweightString<wchar_t> const& chosen) {
    if (!EventHandler::valid(this, stamp))
      return;
    setPath(chosen);
    broadcast(FileBrowserEvent{FileBrowserEvent::kFileChosen, chosen, nullptr});
  };
  chooser_ = FileChooserWindow::open(args, this);
  chooserStamp_ = chooser_->handlerStamp();
  if (!chooseFolder_ && !path_.empty())
    chooser_->getBrowser().selectEntry(lastPart(path_));
}

TitledFileBrowserButton::TitledFileBrowserButton(InitArgs const& args) : TitleGlob(args) {
  FileBrowserButton::InitArgs buttonArgs = args.button;
  if (buttonArgs.size.x <= 0)
    buttonArgs.size = XY<int>(std::max(1, args.size.x - calcLegendWidth(args.legend)), args.size.y);
  button_ = createChild<FileBrowserButton>(buttonArgs, UserTopRight(0, 0));
  setChildGlob(button_);
}
